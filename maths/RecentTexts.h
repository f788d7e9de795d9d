// What was made from the texts of scripts, kept for the next sample. In: a text and its value. Out: the
// value. When it is full, the oldest goes.
#pragma once

#include <QHash>
#include <QString>

#include <deque>
#include <utility>

namespace vistor {

template <typename T>
class RecentTexts {
public:
    /// Null where the text is not known; good until the next keep().
    const T* find(const QString& text) const {
        const auto found = m_entries.constFind(text);
        return found == m_entries.constEnd() ? nullptr : &*found;
    }

    /// Replaces what was kept for the text. Longer ones than 100,000 characters are not kept.
    void keep(const QString& text, T value) {
        if (text.size() > kLongestText) return;
        if (!m_entries.contains(text)) {
            while (m_entries.size() >= kMostEntries || m_characters + text.size() > kMostCharacters)
                dropOldest();
            m_order.push_back(text);
            m_characters += text.size();
        }
        m_entries.insert(text, std::move(value));
    }

private:
    static constexpr qsizetype kMostEntries = 256;
    static constexpr qsizetype kLongestText = 100'000;
    static constexpr qsizetype kMostCharacters = 2'000'000;

    void dropOldest() {
        m_characters -= m_order.front().size();
        m_entries.remove(m_order.front());
        m_order.pop_front();
    }

    QHash<QString, T> m_entries;
    std::deque<QString> m_order; ///< the oldest first
    qsizetype m_characters = 0;
};

} // namespace vistor
