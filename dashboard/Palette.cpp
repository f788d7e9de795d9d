#include "dashboard/Palette.h"

#include "dashboard/CustomLibrary.h"
#include "dashboard/PaletteIcons.h"
#include "dashboard/Pictures.h"
#include "dashboard/Thumbnails.h"
#include "platform/IniFile.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QTreeWidget>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kIconSize = 56;

/// The kinds in the order of their places in the tree, 1 to 9. The last has no root of its own.
constexpr Kind kTreeOrder[] = {Kind::AngularGauge, Kind::Alphanumeric,  Kind::Led,
                               Kind::LinearGauge,  Kind::PercentageBar, Kind::TimeGraph,
                               Kind::XYGraph,      Kind::TextTag,       Kind::Odometer};

std::size_t placeInTree(Kind kind) {
    return static_cast<std::size_t>(std::find(std::begin(kTreeOrder), std::end(kTreeOrder), kind) -
                                    std::begin(kTreeOrder));
}

} // namespace

Palette::Palette(QTreeWidget* trvControl, QListWidget* lvControl)
    : QObject(trvControl), m_tree(trvControl), m_list(lvControl) {
    m_tree->setHeaderHidden(true);
    m_tree->setIndentation(14);
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setIconSize({16, 16});
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMovement(QListView::Static);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setIconSize({kIconSize, kIconSize});
    m_list->setSpacing(6);
    m_icons = new PaletteIcons(m_list, IconImage);
    m_list->setItemDelegate(m_icons);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &Palette::choose);
    m_tree->installEventFilter(this);
    m_list->installEventFilter(this);
    m_tree->viewport()->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
}

void Palette::FillPalette() {
    m_tree->clear();
    m_tree->setRootIsDecorated(false);
    m_nodes.clear();
    m_keys.clear();
    SelectedCategory = nullptr;
    release();
    addRoots();
    const IniFile library = IniFile::load(LibraryPath);
    for (const Kind kind : kTreeOrder) {
        for (const CustomEntry& entry : customEntries(library, kind)) {
            // The odometer's stand under whatever node is the ninth.
            if (placeInTree(kind) < m_nodes.size()) addChild(m_nodes[placeInTree(kind)], entry.key);
        }
    }
    m_tree->setCurrentItem(m_tree->topLevelItem(0));
}

void Palette::addRoots() {
    for (const Kind kind : kTreeOrder) {
        const PaletteEntry& entry = paletteEntry(kind);
        if (!entry.inTree) continue;
        auto* root = new QTreeWidgetItem(m_tree, {QLatin1String(entry.text)});
        root->setData(0, kPaletteKeyRole, QLatin1String(entry.key));
        root->setIcon(0, picture(entry.key));
        QFont bold = m_tree->font();
        bold.setBold(true);
        root->setFont(0, bold);
        m_nodes.push_back(root);
        m_keys.insert(QLatin1String(entry.key), root);
    }
}

bool Palette::addChild(QTreeWidgetItem* parent, const QString& key) {
    if (m_keys.contains(key)) return false;
    m_tree->setRootIsDecorated(true); // room for arrows only where there is something to open
    auto* child = new QTreeWidgetItem(parent, {key.mid(1)});
    child->setData(0, kPaletteKeyRole, key);
    child->setIcon(0, picture("custom"));
    m_nodes.push_back(child);
    m_keys.insert(key, child);
    return true;
}

bool Palette::addNode(Kind kind, const QString& key) {
    QTreeWidgetItem* root = m_keys.value(QLatin1String(paletteEntry(kind).key));
    if (!root || !addChild(root, key)) return false;
    SelectedNode = m_keys.value(key);
    m_tree->scrollToItem(SelectedNode);
    return true;
}

void Palette::removeNode(const QString& key) {
    QTreeWidgetItem* node = m_keys.take(key);
    if (!node) return;
    // Odometers may stand below it; they come up elsewhere at the next start.
    for (QTreeWidgetItem* below : node->takeChildren()) {
        m_keys.remove(below->data(0, kPaletteKeyRole).toString());
        std::erase(m_nodes, below);
        delete below;
    }
    if (SelectedNode == node) SelectedNode = nullptr;
    if (SelectedCategory == node) SelectedCategory = node->parent();
    std::erase(m_nodes, node);
    delete node;
}

void Palette::choose(QTreeWidgetItem* item) {
    if (!item) return;
    QTreeWidgetItem* root = item->parent() ? item->parent() : item;
    if (root == SelectedCategory) return;
    SelectedCategory = root;
    RefreshPaletteList();
}

void Palette::RefreshPaletteList() {
    SelectedItem = nullptr;
    m_list->clear();
    IconImage.clear();
    const QString category =
        SelectedCategory ? SelectedCategory->data(0, kPaletteKeyRole).toString() : QString();
    const PaletteEntry* plain = paletteEntryOf(category);
    if (!plain) return;
    const QString letter = category.left(1);
    addPlainItem(*plain);
    IniFile library = IniFile::load(LibraryPath);
    const std::vector<CustomEntry> entries = customEntries(library, plain->kind);
    m_icons->restart(plain->kind, std::move(library));
    for (const CustomEntry& entry : entries) {
        QListWidgetItem* item = addListItem(entry.key, entry.name());
        m_icons->prepare(*item, entry.number, QString::number(m_list->count()) + letter);
    }
}

QListWidgetItem* Palette::addListItem(const QString& key, const QString& text) {
    auto* item = new QListWidgetItem(text, m_list);
    item->setData(kPaletteKeyRole, key);
    item->setToolTip(text);
    return item;
}

void Palette::addPlainItem(const PaletteEntry& plain) {
    QListWidgetItem* item = addListItem(QLatin1String(plain.key), QLatin1String(plain.text));
    const QPixmap pixels = loadThumbnail(QLatin1String(plain.iconFile));
    if (pixels.isNull()) return;
    item->setIcon(QIcon(pixels));
    IconImage.insert(QLatin1Char(plain.key[0]) + QStringLiteral("1"), item->icon());
}

bool Palette::eventFilter(QObject* watched, QEvent* event) {
    const bool isMouse = QEvent::MouseButtonPress <= event->type() && event->type() <= QEvent::MouseMove;
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isMouse && !isKey) return false; // others come while the views are taken down: ask them nothing
    if (watched == m_tree->viewport() || watched == m_list->viewport()) {
        QAbstractItemView* view = m_tree;
        if (watched == m_list->viewport()) view = m_list;
        return isMouse && mouseEvent(*view, *static_cast<QMouseEvent*>(event));
    }
    if (!isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Delete) return false;
    event->accept(); // before it can become a command of the main window
    if (event->type() == QEvent::KeyPress) deleteOnKey(qobject_cast<QAbstractItemView*>(watched));
    return true;
}

void Palette::deleteOnKey(QAbstractItemView* view) {
    const QModelIndex index = view->currentIndex();
    if (index.isValid() && view->selectionModel()->isSelected(index))
        deleteEntry(index.data(kPaletteKeyRole).toString());
}

void Palette::deleteEntry(const QString& key) {
    if (!isCustomKey(key)) return;
    if (MsgBox(QStringLiteral("Are you sure ?"), Icon::Question, Buttons::YesNo) != Answer::Yes) return;
    const Kind kind = paletteEntryOf(key)->kind;
    IniFile library = IniFile::load(LibraryPath);
    const int number = customNumber(library, kind, key);
    if (number > 0) {
        // The bitmap is looked up among the angular gauge's, whatever the kind: files rely on it.
        const QString thumbnail = customThumbnail(library, Kind::AngularGauge, number);
        removeCustomEntry(library, kind, {number, key});
        if (!saveLibrary(library)) return;
        deleteThumbnail(thumbnail);
    }
    removeNode(key);
    RefreshPaletteList();
}

} // namespace vistor
