#include "dashboard/PaletteIcons.h"

#include "dashboard/CustomLibrary.h"
#include "dashboard/Thumbnails.h"
#include "dashboard/frmInitControls.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QListWidget>

namespace vistor {
namespace {

constexpr int kNumberRole = Qt::UserRole + 1; ///< of an entry whose icon is still to be made
constexpr int kImageRole = Qt::UserRole + 2;
constexpr int kSliceMilliseconds = 8; ///< between two rounds of events

QString contentKey(Kind kind, const QStringList& list) {
    const QByteArray text = list.join(u'\n').toUtf8();
    return QString::number(static_cast<int>(kind)) +
           QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex());
}

} // namespace

PaletteIcons::PaletteIcons(QListWidget* list, QHash<QString, QIcon>& images)
    : QStyledItemDelegate(list), m_list(list), m_images(images) {
    QPixmap blank(list->iconSize());
    blank.fill(Qt::transparent);
    m_blank = QIcon(blank);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PaletteIcons::makeSome);
}

void PaletteIcons::restart(Kind kind, IniFile library) {
    m_waiting.clear();
    m_timer.stop();
    m_kind = kind;
    m_library = std::move(library);
}

void PaletteIcons::prepare(QListWidgetItem& item, int number, const QString& image) const {
    item.setIcon(m_blank); // of the same size: nothing moves when the icon comes
    item.setData(kNumberRole, number);
    item.setData(kImageRole, image);
}

void PaletteIcons::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(kNumberRole).toInt() == 0) return;
    m_waiting.append(index);
    if (!m_timer.isActive()) m_timer.start(0);
}

/// What was scrolled out of sight meanwhile waits until it is seen again.
void PaletteIcons::makeSome() {
    QElapsedTimer time;
    time.start();
    while (!m_waiting.isEmpty() && time.elapsed() < kSliceMilliseconds) {
        const QPersistentModelIndex index = m_waiting.takeFirst();
        QListWidgetItem* item = index.isValid() ? m_list->item(index.row()) : nullptr;
        if (item && m_list->visualItemRect(item).intersects(m_list->viewport()->rect())) make(*item);
    }
    if (!m_waiting.isEmpty()) m_timer.start(0);
}

QIcon PaletteIcons::iconOf(QListWidgetItem& item) {
    make(item);
    return item.icon();
}

void PaletteIcons::make(QListWidgetItem& item) {
    const int number = item.data(kNumberRole).toInt();
    if (number == 0) return; // it has its icon
    const QIcon icon = iconFor(number, customThumbnail(m_library, m_kind, number));
    item.setData(kNumberRole, 0);
    m_images.insert(item.data(kImageRole).toString(), icon);
    item.setIcon(icon);
}

/// The bitmap that this process took of the entry, else a picture of what the library holds.
QIcon PaletteIcons::iconFor(int number, const QString& name) {
    const QPixmap bitmap = loadThumbnail(name);
    if (!bitmap.isNull()) return QIcon(bitmap);
    const QStringList list = customList(m_library, m_kind, number);
    QIcon& icon = m_made[contentKey(m_kind, list)];
    if (!icon.isNull()) return icon;
    const double ratio = m_list->devicePixelRatioF();
    QPixmap pixels = QPixmap::fromImage(frmInitControls().picture(m_kind, &list))
                         .scaled(m_list->iconSize() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    pixels.setDevicePixelRatio(ratio);
    return icon = QIcon(pixels);
}

} // namespace vistor
