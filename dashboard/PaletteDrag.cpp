// The palette's entries as they are dragged onto a page.
#include "dashboard/Palette.h"
#include "dashboard/PaletteIcons.h"

#include <QApplication>
#include <QDrag>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QTreeWidget>

namespace vistor {
namespace {

constexpr QSize kDragPicture(56, 56);

} // namespace

void Palette::release() {
    SelectedNode = nullptr;
    SelectedItem = nullptr;
}

QString Palette::draggedKey(const QObject* source) const {
    if (source == m_tree && SelectedNode) return SelectedNode->data(0, kPaletteKeyRole).toString();
    if (source == m_list && SelectedItem) return SelectedItem->data(kPaletteKeyRole).toString();
    return {};
}

void Palette::press(const QAbstractItemView& view, const QMouseEvent& event) {
    release();
    m_pressed = event.position().toPoint();
    if (event.button() != Qt::LeftButton) return;
    if (&view == m_tree) SelectedNode = m_tree->itemAt(m_pressed);
    if (&view == m_list) SelectedItem = m_list->itemAt(m_pressed);
}

/// A press goes on to the view; moves with an entry in the hand do not, or the view would select on its way.
bool Palette::mouseEvent(QAbstractItemView& view, const QMouseEvent& event) {
    if (event.type() == QEvent::MouseButtonRelease) release();
    if (event.type() == QEvent::MouseButtonPress) press(view, event);
    if (event.type() != QEvent::MouseMove || !event.buttons().testFlag(Qt::LeftButton)) return false;
    if (draggedKey(&view).isEmpty()) return false;
    const int distance = (event.position().toPoint() - m_pressed).manhattanLength();
    if (distance >= QApplication::startDragDistance()) startDrag(view);
    return true;
}

/// The picture hangs at the pointer by its top left corner, where the instrument will have its own.
void Palette::startDrag(QAbstractItemView& view) {
    const QString key = draggedKey(&view);
    auto* data = new QMimeData;
    data->setData(QLatin1String(kPaletteDragType), key.toUtf8());
    auto* drag = new QDrag(&view);
    drag->setMimeData(data);
    drag->setPixmap(dragIcon(key).pixmap(kDragPicture, view.devicePixelRatioF()));
    drag->setHotSpot({0, 0});
    drag->exec(Qt::CopyAction);
    release();
}

/// That of the list, which shows what the tree has chosen.
QIcon Palette::dragIcon(const QString& key) const {
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem* item = m_list->item(row);
        if (item->data(kPaletteKeyRole).toString() != key) continue;
        const QIcon icon = m_icons->iconOf(*item);
        if (!icon.isNull()) return icon;
    }
    const QTreeWidgetItem* node = m_keys.value(key);
    return node ? node->icon(0) : QIcon();
}

} // namespace vistor
