// The palette of instrument types: a tree of types and the icons of the type that is chosen. In: clicks in
// the tree. Out: what stands in the two views; each entry keeps its key.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <QObject>

class QListWidget;
class QListWidgetItem;
class QTreeWidget;
class QTreeWidgetItem;

namespace vistor {

struct PaletteEntry {
    Kind kind;
    const char* key; ///< its first letter orders the palette and tells the type
    const char* text;
    const char* iconFile; ///< in the folder of bitmaps
    bool inTree;          ///< the odometer comes from the menus alone
};

/// In the order of the kinds.
inline constexpr PaletteEntry kPaletteEntries[] = {
    {Kind::AngularGauge, "aAGAUGE", "Angular gauge", "agauge.bmp", true},
    {Kind::Alphanumeric, "bALPHANUME", "Alphanumeric", "alphanume.bmp", true},
    {Kind::Led, "cLED", "LED", "led.bmp", true},
    {Kind::LinearGauge, "dLGAUGE", "Linear gauge", "lgauge.bmp", true},
    {Kind::Odometer, "eODO", "Odometer", "odo.bmp", false},
    {Kind::PercentageBar, "fPCTBAR", "Percentage bar", "pctbar.bmp", true},
    {Kind::TimeGraph, "gSTRIP", "Scrolling time graph", "strip.bmp", true},
    {Kind::XYGraph, "iXYGRAPH", "XY graph", "xygraph.bmp", true},
    {Kind::TextTag, "hTEXTTAG", "Text tag", "texttag.bmp", true},
};

/// The role under which an item keeps its key.
inline constexpr int kPaletteKeyRole = Qt::UserRole;

class Palette : public QObject {
    Q_OBJECT

public:
    /// Sets both views up; they stay empty until FillPalette.
    Palette(QTreeWidget* trvControl, QListWidget* lvControl);

    /// Fills the tree and chooses its first type.
    void FillPalette();
    /// Rebuilds the list for SelectedCategory.
    void RefreshPaletteList();

    QTreeWidgetItem* SelectedCategory = nullptr;

private:
    void choose(QTreeWidgetItem* item);

    QTreeWidget* m_tree;
    QListWidget* m_list;
};

} // namespace vistor
