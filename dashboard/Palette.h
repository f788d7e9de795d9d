// The palette of instrument types: a tree of types with their custom entries, and the icons of the type that
// is chosen. In: clicks, drags and keys, the library's file, bitmaps. Out: what stands in the two views; each
// entry keeps its key, and a drag starts from it. The file changes with the entries.
#pragma once

#include "dashboard/PaletteEntries.h"

#include <QHash>
#include <QIcon>
#include <QObject>

#include <vector>

class QAbstractItemView;
class QListWidget;
class QListWidgetItem;
class QMouseEvent;
class QTreeWidget;
class QTreeWidgetItem;

namespace vistor {

class PaletteIcons;

/// The role under which an item keeps its key.
inline constexpr int kPaletteKeyRole = Qt::UserRole;

/// The type of the data that a drag of an entry carries: its key in UTF-8.
inline constexpr const char* kPaletteDragType = "application/x-vistor-palette-entry";

class Palette : public QObject {
    Q_OBJECT

public:
    /// Sets both views up; they stay empty until FillPalette.
    Palette(QTreeWidget* trvControl, QListWidget* lvControl);

    /// Fills the tree with the types and the library's entries, and chooses its first type.
    void FillPalette();
    /// Rebuilds the list for SelectedCategory.
    void RefreshPaletteList();

    /// Adds an entry to the tree, shows it and makes it SelectedNode. False where its key is in use or its
    /// type has no place in the tree; then nothing changes.
    bool addNode(Kind kind, const QString& key);
    void removeNode(const QString& key);

    QTreeWidgetItem* SelectedCategory = nullptr;
    // The entry on which the mouse went down, until it comes up; also one that was just added.
    QTreeWidgetItem* SelectedNode = nullptr;
    QListWidgetItem* SelectedItem = nullptr;

    QHash<QString, QIcon> IconImage; ///< the list's pictures, as far as they were seen and could be loaded

    /// The key of the entry that is dragged from a view; empty for another source and when none is.
    QString draggedKey(const QObject* source) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void choose(QTreeWidgetItem* item);
    void addRoots();
    bool addChild(QTreeWidgetItem* parent, const QString& key);
    QListWidgetItem* addListItem(const QString& key, const QString& text);
    void addPlainItem(const PaletteEntry& plain);
    void deleteOnKey(QAbstractItemView* view);
    void deleteEntry(const QString& key);
    void release();
    void press(const QAbstractItemView& view, const QMouseEvent& event);
    bool mouseEvent(QAbstractItemView& view, const QMouseEvent& event);
    void startDrag(QAbstractItemView& view);
    QIcon dragIcon(const QString& key) const;

    QTreeWidget* m_tree;
    QListWidget* m_list;
    PaletteIcons* m_icons;
    std::vector<QTreeWidgetItem*> m_nodes; ///< in the order of adding
    QHash<QString, QTreeWidgetItem*> m_keys;
    QPoint m_pressed; ///< where the mouse went down, in the view
};

} // namespace vistor
