// The pictures of the palette's custom entries, each made when its entry is first seen. In: the palette's
// list and the library that it shows. Out: icons on the list's items, made between events, some at a time.
#pragma once

#include "instruments/InstrumentKinds.h"
#include "platform/IniFile.h"

#include <QHash>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <QTimer>

class QListWidget;
class QListWidgetItem;

namespace vistor {

class PaletteIcons : public QStyledItemDelegate {
    Q_OBJECT

public:
    PaletteIcons(QListWidget* list, QHash<QString, QIcon>& images);

    /// Forgets what was waited for: the list is about to show entries of this kind out of this library.
    void restart(Kind kind, IniFile library);
    /// Gives an item a place for the icon of entry `number`, which goes into the images as `image`.
    void prepare(QListWidgetItem& item, int number, const QString& image) const;
    /// The icon of an item, made now where it has none yet.
    QIcon iconOf(QListWidgetItem& item);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void makeSome();
    void make(QListWidgetItem& item);
    QIcon iconFor(int number, const QString& name);

    QListWidget* m_list;
    QHash<QString, QIcon>& m_images;
    Kind m_kind = Kind::AngularGauge;
    IniFile m_library;
    QIcon m_blank;
    QHash<QString, QIcon> m_made;                   ///< by kind and list, for all libraries shown
    mutable QList<QPersistentModelIndex> m_waiting; ///< were painted without their icon
    mutable QTimer m_timer;
};

} // namespace vistor
