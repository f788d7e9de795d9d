// What the program has to tell a person without stopping anything. In: a text, from any layer. Out: the list
// of the newest ones, and a call to whoever shows them.
#pragma once

#include <QDateTime>
#include <QString>

#include <functional>
#include <vector>

namespace vistor {

struct Notice {
    QDateTime time;
    QString text; ///< plain text
};

inline constexpr std::size_t kNoticesKept = 20;

/// Tells a person something: a sentence that says what happened and what to do. A text that is told again
/// while it is the newest one takes that one's place instead of a second line.
void notify(const QString& text);

/// The newest notices, the newest last; kNoticesKept at most.
const std::vector<Notice>& notices();
void clearNotices();

/// Called for every notice, after it has come into the list. Null for nobody: then it goes to the error
/// stream.
void setNoticeListener(std::function<void(const Notice&)> listener);

} // namespace vistor
