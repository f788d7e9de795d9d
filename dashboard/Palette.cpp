#include "dashboard/Palette.h"

#include "dashboard/Pictures.h"

#include <QListWidget>
#include <QTreeWidget>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kIconSize = 56;

const PaletteEntry* entryOf(QChar letter) {
    const auto* found = std::find_if(std::begin(kPaletteEntries), std::end(kPaletteEntries),
                                     [=](const PaletteEntry& e) { return letter == QLatin1Char(e.key[0]); });
    return found == std::end(kPaletteEntries) ? nullptr : found;
}

std::vector<const PaletteEntry*> treeEntries() {
    std::vector<const PaletteEntry*> entries;
    for (const PaletteEntry& entry : kPaletteEntries) {
        if (entry.inTree) entries.push_back(&entry);
    }
    return entries;
}

} // namespace

Palette::Palette(QTreeWidget* trvControl, QListWidget* lvControl)
    : QObject(trvControl), m_tree(trvControl), m_list(lvControl) {
    m_tree->setHeaderHidden(true);
    m_tree->setRootIsDecorated(false);
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setIconSize({16, 16});
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMovement(QListView::Static);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setIconSize({kIconSize, kIconSize});
    m_list->setSpacing(6);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &Palette::choose);
}

void Palette::FillPalette() {
    m_tree->clear();
    SelectedCategory = nullptr;
    for (const PaletteEntry* entry : treeEntries()) {
        auto* root = new QTreeWidgetItem(m_tree, {QLatin1String(entry->text)});
        root->setData(0, kPaletteKeyRole, QLatin1String(entry->key));
        root->setIcon(0, picture(entry->key));
        QFont bold = m_tree->font();
        bold.setBold(true);
        root->setFont(0, bold);
    }
    m_tree->setCurrentItem(m_tree->topLevelItem(0));
}

void Palette::choose(QTreeWidgetItem* item) {
    if (!item) return;
    QTreeWidgetItem* root = item->parent() ? item->parent() : item;
    if (root == SelectedCategory) return;
    SelectedCategory = root;
    RefreshPaletteList();
}

void Palette::RefreshPaletteList() {
    m_list->clear();
    if (!SelectedCategory) return;
    const QString key = SelectedCategory->data(0, kPaletteKeyRole).toString();
    const PaletteEntry* entry = key.isEmpty() ? nullptr : entryOf(key[0]);
    if (!entry) return;
    auto* item = new QListWidgetItem(picture(entry->key), QLatin1String(entry->text), m_list);
    item->setData(kPaletteKeyRole, QLatin1String(entry->key));
}

} // namespace vistor
