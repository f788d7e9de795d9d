#include "instruments/PinGrid.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableWidget>

namespace vistor {
namespace {

constexpr int kLeastNameWidth = 190; ///< pixels; names keep their room while nothing is bound

} // namespace

void makePinGrid(QTableWidget& grid) {
    grid.setObjectName(QStringLiteral("grd"));
    grid.setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    grid.setSelectionMode(QAbstractItemView::SingleSelection);
    grid.setTabKeyNavigation(false);
    grid.setAlternatingRowColors(true);
    grid.setShowGrid(false);
    grid.verticalHeader()->hide();
    grid.horizontalHeader()->setHighlightSections(false);
    grid.horizontalHeader()->setStretchLastSection(true);
    grid.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void fillPinGrid(QTableWidget& grid, const QString& pinLabel, const QString& axisHeader,
                 const std::vector<PinRow>& rows) {
    const QSignalBlocker quiet(&grid);
    QStringList headers = {pinLabel, QStringLiteral("VARIABLE"), QStringLiteral("VARIABLE TYPE")};
    if (!axisHeader.isEmpty()) headers.insert(1, axisHeader);
    grid.setColumnCount(static_cast<int>(headers.size()));
    grid.setHorizontalHeaderLabels(headers);
    grid.setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < grid.rowCount(); ++row) {
        const PinRow& shown = rows[static_cast<std::size_t>(row)];
        QStringList texts = {pinText(shown.pin, shown.leftOver, pinLabel), shown.variable, shown.group};
        if (!axisHeader.isEmpty()) texts.insert(1, axisName(shown.axis));
        for (int column = 0; column < texts.size(); ++column) {
            auto* cell = new QTableWidgetItem(texts.at(column));
            cell->setToolTip(texts.at(column));
            grid.setItem(row, column, cell);
        }
    }
    grid.resizeColumnsToContents();
    const int names = static_cast<int>(headers.size()) - 2;
    grid.setColumnWidth(names, qMax(grid.columnWidth(names), kLeastNameWidth));
}

} // namespace vistor
