// A grid of two columns into which points are typed and pasted. In: keys, the clipboard. Out: texts of cells
// and a signal after each change.
#pragma once

#include <QStringList>
#include <QTableWidget>

#include <vector>

namespace vistor {

/// Typed digits go through a floating entry box, "txtCell". Enter and the arrows up and down leave it for
/// the row's neighbour, Tab for the next cell, Escape takes back what was typed. Rows are added as they fill.
class QtPointGrid final : public QTableWidget {
    Q_OBJECT

public:
    explicit QtPointGrid(const QStringList& headers, QWidget* parent = nullptr);

    /// All rows, a text for each column.
    std::vector<QStringList> cells() const;

    void copySelection() const; ///< to the clipboard, as a spreadsheet takes it
    void deleteSelection();
    void pasteAtCurrent(); ///< over the cells from the current one; what has no column there is left out

Q_SIGNALS:
    void cellsChanged(); ///< once for each edit, deletion or paste

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setCell(int row, int column, const QString& text);
    void finishChange();
    void keepRowsFree();
    void markMisread();
    void moveDown(int rows);
};

} // namespace vistor
