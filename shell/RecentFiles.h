// The layouts that were open last. In and out: paths in the settings file, beside that of the last layout.
#pragma once

#include <QString>
#include <QStringList>

namespace vistor {

inline constexpr qsizetype kRecentFiles = 10;

/// The list with `path` at its head, cut to kRecentFiles. One file stands there once, by whatever way it was
/// reached. A path that a line of a file cannot hold leaves the list as it is.
QStringList withRecentFile(QStringList files, const QString& path);

/// The list as it stands in a settings file, the newest first.
QStringList readRecentFiles(const QString& settings);
/// Puts a list in the place of that in a settings file; an empty one takes its keys away. False when the file
/// cannot be written, which is told.
bool writeRecentFiles(const QString& settings, const QStringList& files);

/// The caption of a menu's entry, number `number` from 1: file and folder as plain text of bounded length.
QString recentCaption(const QString& path, int number);

} // namespace vistor
