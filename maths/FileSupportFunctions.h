// Small file and locale routines that start-up, the definition files and the stream reader share. In: paths
// and the person's settings. Out: answers about them; the only file it ever makes is a missing configuration
// file.
#pragma once

#include <QString>

namespace vistor {

/// The number behind `key` in a text file of pairs "key, value" (`configPairs`). Keys match to the letter and
/// the first match wins; the decimal mark is "." or ",". 0 without such a key. A missing file is made, empty.
/// One that cannot be read is told to the person.
double ReadConfigValue(const QString& path, const QString& key);

/// True when there is something, file or folder, at `path`. The path is cleaned in place first: cut at a NUL,
/// double quotes and outer blanks dropped.
bool PathExists(QString& path);
bool PathExists(QString&& path);

/// True when `path`, cleaned as above, is a file that holds at least one byte.
bool FileExists(QString& path);
bool FileExists(QString&& path);

/// The program's folder among the person's application data; ends in "/". Empty when the person has none. It
/// is not made here.
QString GetUserDataFolder();

/// What stands before the first NUL.
QString TrimAtNull(const QString& text);

/// The decimal separator of the person's locale.
QString GetDecimalSeparator();

} // namespace vistor
