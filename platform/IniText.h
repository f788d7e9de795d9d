// The lines of an initialisation file as they were read, never changed. In: bytes. Out: where sections and
// keys lie among them. Beside the bytes it takes 6 bytes of memory for each section, and for each key of a
// section that was asked for.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vistor {

/// How names are compared: blanks around them dropped, without regard to case, as UTF-8.
QByteArray foldedName(const QString& name);
QByteArray foldedName(std::string_view written);

/// What a line is.
bool isSectionHead(std::string_view line);
bool holdsKey(std::string_view line);
/// The name behind "[" of a head, up to "]" or the line's end.
std::string_view headName(std::string_view line);
/// What stands before "=" number `further` (from 0) of a line; false where it has not that many.
bool keyName(std::string_view line, qsizetype further, std::string_view& name);

class IniText {
public:
    using Place = std::uint32_t; ///< of a line's first byte
    static constexpr Place kNowhere = ~Place{0};

    explicit IniText(QByteArray bytes = {});

    const QByteArray& bytes() const { return m_bytes; }
    /// The line at a place, without its end; and the place behind that end.
    std::string_view lineAt(Place place) const;
    Place after(Place place, std::string_view line) const;
    Place end() const { return static_cast<Place>(m_bytes.size()); }

    /// The head of the first section of a folded name.
    Place section(const QByteArray& name) const;
    /// Hands over the head of the first section of every name, in no order.
    void eachSection(const std::function<void(Place)>& take) const;
    /// The first line of the section at `head` that has a key of a folded name with "=" inside it `further`
    /// times; or the first behind `behind`.
    Place key(Place head, const QByteArray& name, qsizetype further) const;
    Place keyBehind(Place behind, const QByteArray& name, qsizetype further) const;
    /// Hands over the first line of every key of a section up to its first "=", in no order, until that
    /// answers false.
    void eachKey(Place head, const std::function<bool(Place)>& take) const;
    /// How many lines hold keys, in all sections.
    qsizetype keyLines() const;

    /// Gives the memory back that questions have taken; the next question takes it again.
    void forget() const;

private:
    /// The first lines of a range that have each name, by hash.
    struct Index {
        qsizetype further = 0; ///< names are keys with that many "=" inside; -1: heads
        std::vector<std::uint32_t> slots;
    };
    /// What is known of a section that was asked for.
    struct Section {
        Place end = 0;
        Index keys;
        Index furtherKeys; ///< for the last number of "=" that was asked
    };

    /// The names of a range.
    struct Names {
        std::size_t most = 0;     ///< not fewer than there are different ones
        Place end = 0;            ///< of the range
        std::vector<Place> first; ///< all of them where they are few
    };

    template <typename Take>
    Place eachNamed(Place from, Place to, qsizetype further, Take take) const;
    Names count(Place from, Place to, qsizetype further, bool toNextHead) const;
    Index indexOf(Place from, const Names& names, qsizetype further) const;
    const Index& heads() const;
    Place find(const Index& index, std::string_view name) const;
    void insert(Index& index, Place place) const;
    void insert(Index& index, std::uint32_t hash, Place place) const;
    Section& known(Place head) const;

    QByteArray m_bytes;
    int m_placeBits; ///< of a slot; the others are of the hash, and spare a look at most other names
    mutable Index m_heads;
    mutable std::unordered_map<Place, Section> m_sections;
    mutable qsizetype m_keyLines = -1;
};

} // namespace vistor
