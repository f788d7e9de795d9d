// An instrument's saved list as the items of a section: keys "0", "1", ... In and out: an initialisation
// file.
#pragma once

#include "platform/IniFile.h"

#include <QStringList>

namespace vistor {

/// Buffer of an item: a longer one is cut to one character less when it is read.
inline constexpr int kItemBuffer = 200;
/// Items that a file may declare beyond all that it holds.
inline constexpr qsizetype kSpareItems = 4096;

/// Items 0 to `count` - 1; one that is missing is "0".
QStringList readItems(const IniFile& file, const QString& section, qsizetype count);
void writeItems(IniFile& file, const QString& section, const QStringList& list);

/// The number that a text begins with, within two limits and rounded.
int boundedWhole(const QString& text, double least, double most);

} // namespace vistor
