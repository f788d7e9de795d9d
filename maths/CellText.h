// Cells as the clipboard carries them between spreadsheets. In: a text of rows and columns. Out: the cells;
// and the way back.
#pragma once

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

namespace vistor {

inline constexpr int kMostPastedRows = 10000; ///< a longer text is read as far as this
inline constexpr int kMostPastedColumns = 16;
inline constexpr int kLongestCell = 40; ///< characters of a cell that are kept, as many as numbers have

/// Rows end with CR LF, as they do on other desktops, or with one of both; columns are parted by tabs. An end
/// behind the last row starts no further one. Cells are trimmed, and the locale's decimal mark becomes ".".
std::vector<QStringList> cellsOfText(const QString& text);

/// Each row with CR LF behind it.
QString textOfCells(std::span<const QStringList> rows);

} // namespace vistor
