#include "variables/VariableTreeView.h"

#include "variables/VariableDrag.h"
#include "variables/VariableFilter.h"

#include <QDrag>
#include <QHash>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QToolTip>

namespace vistor {
namespace {

constexpr int kPlaceRole = Qt::UserRole; ///< an item's place among the lines
constexpr int kPictureSize = 16;
constexpr int kChipMargin = 6;
constexpr int kWidestChip = 260;

} // namespace

/// What a person had made of the tree, by names that outlive the items.
struct VariableTreeView::Kept {
    QSet<QString> open;
    QString current;
    QString top;
    int scroll = 0;
};

VariableTreeView::VariableTreeView(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setIconSize({kPictureSize, kPictureSize});
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false); // what it does is told by the line
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &VariableTreeView::activate);
    connect(this, &QTreeWidget::currentItemChanged, this, &VariableTreeView::touch);
    connect(this, &QTreeWidget::itemPressed, this, &VariableTreeView::touch);
}

void VariableTreeView::showLines(std::vector<TreeLine>&& lines, std::span<const VariableDefinition> table) {
    const Kept kept = keep();
    {
        const QSignalBlocker quiet(this); // nobody acted on a line
        clear();
        m_lines = std::move(lines);
        m_variables.clear();
        for (const TreeLine& line : m_lines)
            m_variables.push_back(line.row > 0 ? table[static_cast<std::size_t>(line.row)].PhysicalName
                                               : QString());
        fill();
        applyFilter();
        restore(kept);
    }
    viewport()->update();
}

void VariableTreeView::fill() {
    QHash<QByteArray, QIcon> icons;
    QList<QTreeWidgetItem*> roots;
    m_items.clear();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const TreeLine& line = m_lines[i];
        auto* item = new QTreeWidgetItem;
        item->setText(0, line.text);
        item->setData(0, kPlaceRole, static_cast<int>(i));
        QIcon& icon = icons[line.picture];
        if (icon.isNull() && pictureOf) icon = pictureOf(line.picture);
        item->setIcon(0, icon);
        if (line.row == 0) item->setFlags(item->flags() & ~Qt::ItemIsDragEnabled);
        if (line.parent < 0)
            roots += item;
        else
            m_items[static_cast<std::size_t>(line.parent)]->addChild(item);
        m_items.push_back(item);
    }
    addTopLevelItems(roots);
}

VariableTreeView::Kept VariableTreeView::keep() const {
    Kept kept;
    for (const QTreeWidgetItem* item : m_items) {
        if (item->isExpanded()) kept.open.insert(identityOf(item));
    }
    kept.current = identityOf(currentItem());
    kept.top = identityOf(itemAt(0, 0));
    kept.scroll = verticalScrollBar()->value();
    return kept;
}

void VariableTreeView::restore(const Kept& kept) {
    QTreeWidgetItem* top = nullptr;
    QTreeWidgetItem* current = nullptr;
    for (QTreeWidgetItem* item : m_items) {
        const QString identity = identityOf(item);
        if (kept.open.contains(identity)) item->setExpanded(true);
        if (identity == kept.current) current = item;
        if (identity == kept.top) top = item;
    }
    doItemsLayout();
    setAutoScroll(false); // which would open the branch of a line that was folded away
    setCurrentItem(current);
    setAutoScroll(true);
    verticalScrollBar()->setValue(kept.scroll);
    if (top && itemAt(0, 0) != top) scrollToItem(top, QAbstractItemView::PositionAtTop);
}

void VariableTreeView::setLineText(const QString& key, const QString& text) {
    if (QTreeWidgetItem* item = itemOf(key)) item->setText(0, text);
}

void VariableTreeView::setFilter(const QString& words) {
    const QString before = m_filter;
    m_filter = words.simplified();
    if (m_filter == before) return;
    if (before.isEmpty()) {
        m_openGroups.clear();
        for (int i = 0; i < topLevelItemCount(); ++i) {
            if (topLevelItem(i)->isExpanded()) m_openGroups.insert(identityOf(topLevelItem(i)));
        }
    }
    applyFilter();
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = topLevelItem(i);
        group->setExpanded(m_filter.isEmpty() ? m_openGroups.contains(identityOf(group))
                                              : !group->isHidden());
    }
    if (m_filter.isEmpty() && currentItem()) scrollToItem(currentItem());
}

void VariableTreeView::applyFilter() {
    const std::vector<bool> shown = linesShown(m_lines, m_variables, m_filter);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i]->isHidden() == shown[i]) m_items[i]->setHidden(!shown[i]);
    }
}

const TreeLine* VariableTreeView::lineOf(const QTreeWidgetItem* item) const {
    if (!item) return nullptr;
    const auto place = static_cast<std::size_t>(item->data(0, kPlaceRole).toInt());
    return place < m_lines.size() ? &m_lines[place] : nullptr;
}

QTreeWidgetItem* VariableTreeView::itemOf(const QString& key) const {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].key == key) return m_items[i];
    }
    return nullptr;
}

QString VariableTreeView::variableOf(const QTreeWidgetItem* item) const {
    const TreeLine* line = lineOf(item);
    return line ? m_variables[static_cast<std::size_t>(line - m_lines.data())] : QString();
}

/// A renamed variable's lines have other keys and are still the same lines.
QString VariableTreeView::identityOf(const QTreeWidgetItem* item) const {
    const TreeLine* line = lineOf(item);
    if (!line) return {};
    if (line->kind == LineKind::Group) return line->key;
    return QString::number(static_cast<int>(line->kind)) + u'#' + variableOf(item);
}

void VariableTreeView::activate(QTreeWidgetItem* item) {
    const TreeLine* line = lineOf(item);
    if (!line) return;
    for (const QTreeWidgetItem* above = item; above; above = above->parent()) {
        if (above->isHidden()) return; // the filter leaves the current line where it is
    }
    touch(item);
    if (!hasSettings(line->kind))
        item->setExpanded(!item->isExpanded());
    else
        Q_EMIT lineActivated(TreeLine(*line)); // the line may be gone before the edit ends
}

void VariableTreeView::touch(QTreeWidgetItem* item) {
    const QString variable = variableOf(item);
    if (!variable.isEmpty()) Q_EMIT variableTouched(variable);
}

void VariableTreeView::keyPressEvent(QKeyEvent* event) {
    const bool edits =
        event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (edits && currentItem()) return activate(currentItem());
    QTreeWidget::keyPressEvent(event);
}

/// A line that is cut off at the edge is told whole.
bool VariableTreeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeWidget::viewportEvent(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const QTreeWidgetItem* item = itemAt(help.pos());
    const int room = item ? visualItemRect(item).width() - kPictureSize - 2 * kChipMargin : 0;
    const bool cut = item && fontMetrics().horizontalAdvance(item->text(0)) > room;
    QToolTip::showText(help.globalPos(), cut ? item->text(0) : QString(), viewport());
    return true;
}

QMimeData* VariableTreeView::mimeData(const QList<QTreeWidgetItem*>& items) const {
    const QString variable = items.isEmpty() ? QString() : variableOf(items.constFirst());
    if (variable.isEmpty()) return nullptr;
    auto* mime = new QMimeData;
    mime->setData(QLatin1String(kVariableDragType), variable.toUtf8());
    return mime;
}

void VariableTreeView::startDrag(Qt::DropActions) {
    QTreeWidgetItem* item = currentItem();
    QMimeData* mime = mimeData({item});
    if (!mime) return;
    touch(item);
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->setPixmap(dragPicture(item));
    drag->setHotSpot({kChipMargin, kChipMargin});
    drag->exec(Qt::CopyAction);
}

/// The variable's picture and name on a small card.
QPixmap VariableTreeView::dragPicture(const QTreeWidgetItem* item) const {
    const TreeLine* line = lineOf(item);
    while (line && line->kind != LineKind::Variable && line->parent >= 0)
        line = &m_lines[static_cast<std::size_t>(line->parent)];
    const QString name = fontMetrics().elidedText(line ? line->text : QString(), Qt::ElideRight, kWidestChip);
    const QSize size(kPictureSize + fontMetrics().horizontalAdvance(name) + 3 * kChipMargin,
                     qMax(kPictureSize, fontMetrics().height()) + 2 * kChipMargin);
    QPixmap chip(size * devicePixelRatioF());
    chip.setDevicePixelRatio(devicePixelRatioF());
    chip.fill(Qt::transparent);
    QPainter painter(&chip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.drawRoundedRect(QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    const QRect card(QPoint(), size);
    if (pictureOf && line)
        pictureOf(line->picture)
            .paint(&painter, QRect(kChipMargin, 0, kPictureSize, card.height()), Qt::AlignCenter,
                   QIcon::Selected);
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.setFont(font());
    painter.drawText(card.adjusted(2 * kChipMargin + kPictureSize, 0, 0, 0), Qt::AlignVCenter, name);
    return chip;
}

} // namespace vistor
