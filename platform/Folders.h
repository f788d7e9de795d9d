// The folders of the program and of the person who uses it. Every answer ends in "/".
#pragma once

#include <QString>

namespace vistor {

/// Characters of the longest path there is, with the NUL at its end.
inline constexpr int kLongestPath = 4096;

/// The person's folder for application data: $XDG_CONFIG_HOME, or ".config" in the home folder. Empty when
/// there is neither.
QString applicationDataFolder();

/// The folder in which the executable lies.
QString programFolder();

/// The folder of delivered files, reached from the program folder the same way in the build tree and when
/// installed.
QString deliveredFolder();

/// Puts another program folder in place; an empty text puts the real one back. For tests.
void setProgramFolder(const QString& folder);

} // namespace vistor
