// Text files of pairs "key, value", as people write them by hand. In: the bytes of such a file. Out: the
// pairs with their numbers, and the same bytes with other numbers in them.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace vistor {

struct ConfigPair {
    QString key;
    double number = 0;   ///< of the value, 0 where it holds none
    qsizetype place = 0; ///< of the value's text among the bytes
    qsizetype length = 0;
};

/// The pairs in their order, of a file as unmarked() gives it. A comma or a line end stands between a key and
/// its value, blank lines and comments (from "#", ";" or "//" on, to the end of the line) count for nothing,
/// and quotes may stand around either. Decimal marks are "." and ","; what follows a number, such as a unit,
/// is passed over. A line of words with nothing to pair them with moves nobody else's value.
std::vector<ConfigPair> configPairs(const QByteArray& bytes);

/// The bytes with `number` as the value of the first such key, or with a line for it at their end. All other
/// lines stay to the byte.
QByteArray withConfigNumber(const QByteArray& bytes, const QString& key, double number);

} // namespace vistor
