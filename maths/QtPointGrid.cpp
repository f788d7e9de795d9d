#include "maths/QtPointGrid.h"

#include "maths/CellText.h"
#include "maths/ConvertUnits.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>
#include <functional>

namespace vistor {
namespace {

constexpr int kRowsAtFirst = 30;
constexpr QRgb kMisreadColour = 0xFFD03B3B; // legible on light and on dark

/// What a typed text puts into a cell: digits and what belongs to numbers; nothing for anything else.
QString filtered(const QString& typed) {
    if (typed == DecimalSeparator) return QStringLiteral(".");
    if (typed.size() != 1 || typed[0].unicode() > 0x7F) return {};
    auto key = static_cast<std::int16_t>(typed[0].unicode());
    NumericKeyFilter(key);
    return key == 0 || !typed[0].isPrint() ? QString() : typed;
}

bool isPlainText(const QKeyEvent& event) {
    const bool command =
        event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !command && !event.text().isEmpty() && event.text()[0].isPrint();
}

/// How far the keys that leave a cell upward or downward go; 0: another key.
int rowStep(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) return 1;
    return key == Qt::Key_Up ? -1 : 0;
}

/// Makes the entry box and filters its keys.
class CellDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    std::function<void(int rows)> leave;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
        auto* box = new QLineEdit(parent);
        box->setObjectName(QStringLiteral("txtCell"));
        box->setMaxLength(kLongestCell);
        box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        box->setFrame(false);
        return box;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* box = qobject_cast<QLineEdit*>(watched);
        if (!box || event->type() != QEvent::KeyPress)
            return QStyledItemDelegate::eventFilter(watched, event);
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (const int step = rowStep(key.key())) {
            Q_EMIT commitData(box);
            Q_EMIT closeEditor(box);
            leave(step);
            return true;
        }
        if (!isPlainText(key)) return QStyledItemDelegate::eventFilter(watched, event);
        box->insert(filtered(key.text()));
        return true;
    }
};

bool readsWhole(const QString& text) {
    bool whole = false;
    text.toDouble(&whole);
    return whole || text.trimmed().isEmpty();
}

} // namespace

QtPointGrid::QtPointGrid(const QStringList& headers, QWidget* parent)
    : QTableWidget(kRowsAtFirst, static_cast<int>(headers.size()), parent) {
    setHorizontalHeaderLabels(headers);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    verticalHeader()->setHighlightSections(false);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setTabKeyNavigation(false); // Tab leaves the grid; inside the entry box it goes to the next cell
    setDragDropMode(NoDragDrop);
    auto* delegate = new CellDelegate(this);
    delegate->leave = [this](int rows) { moveDown(rows); };
    setItemDelegate(delegate);
    setCurrentCell(0, 0);
    connect(this, &QTableWidget::itemChanged, this, &QtPointGrid::finishChange);
}

std::vector<QStringList> QtPointGrid::cells() const {
    std::vector<QStringList> rows;
    for (int row = 0; row < rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < columnCount(); ++column)
            texts += item(row, column) ? item(row, column)->text() : QString();
        rows.push_back(texts);
    }
    return rows;
}

void QtPointGrid::copySelection() const {
    std::vector<QStringList> rows;
    for (const QTableWidgetSelectionRange& range : selectedRanges()) {
        for (int row = range.topRow(); row <= range.bottomRow(); ++row) {
            QStringList texts;
            for (int column = range.leftColumn(); column <= range.rightColumn(); ++column)
                texts += item(row, column) ? item(row, column)->text() : QString();
            rows.push_back(texts);
        }
    }
    if (!rows.empty()) QGuiApplication::clipboard()->setText(textOfCells(rows));
}

void QtPointGrid::deleteSelection() {
    {
        const QSignalBlocker quiet(this);
        for (QTableWidgetItem* cell : selectedItems()) cell->setText({});
    }
    finishChange();
}

void QtPointGrid::pasteAtCurrent() {
    const std::vector<QStringList> rows = cellsOfText(QGuiApplication::clipboard()->text());
    const int top = std::max(currentRow(), 0);
    const int left = std::max(currentColumn(), 0);
    if (rows.empty()) return;
    {
        const QSignalBlocker quiet(this);
        const int bottom = std::min(top + static_cast<int>(rows.size()), kMostPastedRows);
        setRowCount(std::max(rowCount(), bottom));
        for (int row = top; row < bottom; ++row) {
            const QStringList& texts = rows[static_cast<std::size_t>(row - top)];
            for (int i = 0; i < texts.size() && left + i < columnCount(); ++i)
                setCell(row, left + i, texts[i]);
        }
    }
    finishChange();
}

void QtPointGrid::setCell(int row, int column, const QString& text) {
    if (!item(row, column)) setItem(row, column, new QTableWidgetItem);
    item(row, column)->setText(text);
}

void QtPointGrid::finishChange() {
    {
        const QSignalBlocker quiet(this);
        keepRowsFree();
        markMisread();
    }
    viewport()->update();
    Q_EMIT cellsChanged();
}

void QtPointGrid::keepRowsFree() {
    const int last = rowCount() - 1;
    for (int column = 0; column < columnCount(); ++column)
        if (item(last, column) && !item(last, column)->text().isEmpty() && rowCount() <= kMostPastedRows)
            return setRowCount(rowCount() + 1);
}

/// A cell that is not a number through and through is read as far as it is one, and says so.
void QtPointGrid::markMisread() {
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            QTableWidgetItem* cell = item(row, column);
            if (!cell) continue;
            const bool whole = readsWhole(cell->text());
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            cell->setData(Qt::ForegroundRole,
                          whole ? QVariant() : QVariant(QBrush(QColor::fromRgb(kMisreadColour))));
            cell->setToolTip(whole ? QString() : tr("Not a number; read as far as it is one, else as 0"));
        }
    }
}

void QtPointGrid::moveDown(int rows) {
    if (currentRow() + rows >= 0 && currentRow() + rows < rowCount())
        setCurrentCell(currentRow() + rows, currentColumn(), QItemSelectionModel::ClearAndSelect);
}

void QtPointGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return moveDown(1);
    if (isPlainText(*event) && filtered(event->text()).isEmpty()) return;
    QTableWidget::keyPressEvent(event);
}

} // namespace vistor
