#include "maths/CellText.h"

#include "variables/SetupVariables.h"

namespace vistor {
namespace {

QString cleanedCell(QStringView cell) {
    QString text = cell.trimmed().left(kLongestCell).toString();
    text.remove(QChar::Null);
    return ToInvariantText(text);
}

QStringList cellsOfRow(QStringView row) {
    QStringList cells;
    for (const QStringView cell : row.tokenize(u'\t')) {
        if (cells.size() == kMostPastedColumns) break;
        cells += cleanedCell(cell);
    }
    return cells;
}

/// Where the row that begins at `begin` ends.
qsizetype rowEnd(QStringView text, qsizetype begin) {
    qsizetype end = begin;
    while (end < text.size() && text[end] != u'\r' && text[end] != u'\n') ++end;
    return end;
}

} // namespace

std::vector<QStringList> cellsOfText(const QString& text) {
    std::vector<QStringList> rows;
    const QStringView all(text);
    qsizetype begin = 0;
    while (begin < all.size() && rows.size() < kMostPastedRows) {
        const qsizetype end = rowEnd(all, begin);
        rows.push_back(cellsOfRow(all.sliced(begin, end - begin)));
        begin = end + 1;
        if (end + 1 < all.size() && all[end] == u'\r' && all[end + 1] == u'\n') ++begin;
    }
    return rows;
}

QString textOfCells(std::span<const QStringList> rows) {
    QString text;
    for (const QStringList& row : rows) text += row.join(u'\t') + QStringLiteral("\r\n");
    return text;
}

} // namespace vistor
