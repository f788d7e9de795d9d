#include "shell/Commands.h"

#include "dashboard/PaletteEntries.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "shell/frmMain.h"

namespace vistor {
namespace {

/// The dashboard's command as a menu entry's operation.
template <void (frmInterface::*command)()>
void onDashboard(frmMain& window) {
    (window.dashboard().*command)();
}

template <void (frmMain::*command)()>
void onMain(frmMain& window) {
    (window.*command)();
}

/// The operation of the instrument on which the pop-up menu was opened.
template <void (Instrument::*operation)()>
void onObject(frmMain& window) {
    if (window.curObject) (window.curObject->*operation)();
}

/// Entries that add an instrument have the palette's pictures.
constexpr MenuEntry adding(const char* menu, const char* name, const char* caption, Kind kind,
                           Operation run) {
    return {menu, name, caption, paletteEntry(kind).key, run};
}

constexpr MenuHead kMenus[] = {
    {"mnuFile", "&File", ""},
    {"recentFiles", "Open recen&t", "mnuFile", "mnuSaveConfig"},
    {"mnuView", "&View", ""},
    {"mnuAddControl", "&Add Control", ""},
    {"mnuWindow", "Window", ""},
    {"mnuTabControl", "Tab Management", "mnuWindow"},
    {"mnuHelp", "Help", ""},
    {"mnuDropDown", "", nullptr},
    {"mnuDDAddControl", "&Add Control", "mnuDropDown", ""},
    {"mnuDropDown2", "", nullptr},
    {"mnuDropDown3", "", nullptr},
};

constexpr MenuEntry kEntries[] = {
    {"mnuFile", "mnuNew", "&New", "new", onMain<&frmMain::mnuNew_Click>, "Ctrl+N"},
    {"mnuFile", "mnuLoadConfig", "&Load Profile", "load", onDashboard<&frmInterface::mnuLoadConfig_Click>,
     "Ctrl+O"},
    {"mnuFile", "mnuSaveConfig", "&Save profile", "save", onDashboard<&frmInterface::mnuSaveConfig_Click>,
     "Ctrl+S"},
    {"mnuFile", "mnuSaveAs", "Save Profile &As", nullptr, onDashboard<&frmInterface::mnuSaveAs_Click>,
     "Ctrl+Shift+S"},
    {"mnuFile", "recoverWork", "Re&cover...", nullptr, onMain<&frmMain::recoverWork>},
    {"mnuFile", nullptr, nullptr, nullptr, nullptr},
    {"mnuFile", "mnuLoadVarInfo", "Load &Variable Information", nullptr,
     onMain<&frmMain::mnuLoadVarInfo_Click>},
    {"mnuFile", "mnuSaveVarInfo", "Save Variable &Information", nullptr,
     onMain<&frmMain::mnuSaveVarInfo_Click>},
    {"mnuFile", "mnuRestoreDefaultVar", "&Restore Default Variable Information", nullptr,
     onMain<&frmMain::mnuRestoreDefaultVar_Click>},
    {"mnuFile", nullptr, nullptr, nullptr, nullptr},
    {"mnuFile", "mnuPlayMode", "&Play Mode", "play", onDashboard<&frmInterface::mnuPlayMode_Click>, "F5"},
    {"mnuFile", "mnuEditMode", "&Edit Mode", "edit", onDashboard<&frmInterface::mnuEditMode_Click>,
     "Shift+F5", false, true}, // a script's message comes back at every sample: this is the way out
    {"mnuFile", "mnuSelectDataSource", "Set Data Source", "source",
     onDashboard<&frmInterface::mnuSelectDataSource_Click>},
    {"mnuFile", nullptr, nullptr, nullptr, nullptr},
    {"mnuFile", "mnuExit", "E&xit", "exit", onDashboard<&frmInterface::mnuExit_Click>},

    {"recentFiles", "clearRecentFiles", "&Clear list", nullptr, onMain<&frmMain::clearRecentFiles>},

    {"mnuView", "mnuOptions", "&Options", "options", onDashboard<&frmInterface::mnuOptions_Click>},
    {"mnuView", nullptr, nullptr, nullptr, nullptr},
    {"mnuView", "mnuTagsOn", "Labels O&n", "labelson", [](frmMain& window) { window.dashboard().TagsOn(1); }},
    {"mnuView", "mnuTagsOff", "Labels O&ff", "labelsoff",
     [](frmMain& window) { window.dashboard().TagsOn(0); }},

    adding("mnuAddControl", "mnuVXAGauge", "Angular Gauge", Kind::AngularGauge,
           onDashboard<&frmInterface::mnuVXAGAUGE_Click>),
    adding("mnuAddControl", "mnuVXAlphaNume", "Alphanumeric", Kind::Alphanumeric,
           onDashboard<&frmInterface::mnuVXAlphaNume_Click>),
    adding("mnuAddControl", "mnuVXLED", "LED", Kind::Led, onDashboard<&frmInterface::mnuVXLED_Click>),
    adding("mnuAddControl", "mnuVXLGauge", "Linear Gauge", Kind::LinearGauge,
           onDashboard<&frmInterface::mnuVXLGAUGE_Click>),
    adding("mnuAddControl", "mnuVXODO", "ODO", Kind::Odometer, onDashboard<&frmInterface::mnuVXODO_Click>),
    adding("mnuAddControl", "mnuVXPCTBAR", "Percentage Bar", Kind::PercentageBar,
           onDashboard<&frmInterface::mnuVXPCTBAR_Click>),
    adding("mnuAddControl", "mnuVXSTRIP", "Scrolling Time Graph", Kind::TimeGraph,
           onDashboard<&frmInterface::mnuVXSTRIP_Click>),
    adding("mnuAddControl", "mnuVXXYGRAPH", "XY Graph", Kind::XYGraph,
           onDashboard<&frmInterface::mnuVXXYGRAPH_Click>),
    adding("mnuAddControl", "mnuVXTEXTTAG", "Text Tag", Kind::TextTag,
           onDashboard<&frmInterface::mnuVXTEXTTAG_Click>),

    {"mnuWindow", "mnuShowPropertiesWindow", "Show &Properties Window", "properties",
     onMain<&frmMain::mnuShowPropertiesWindow_Click>, "", true},
    {"mnuWindow", "carNumbers", "&Car...", nullptr, onMain<&frmMain::editCar>},

    {"mnuTabControl", "mnuNewTab", "&Insert New Tab", "newtab", onDashboard<&frmInterface::mnuNewTab_Click>},
    {"mnuTabControl", "mnuClearCurrentTab", "&Clear Current Tab", "cleartab",
     onMain<&frmMain::mnuClearCurrentTab_Click>},
    {"mnuTabControl", "mnuClearAllTabs", "Clear All &Tabs", nullptr, onMain<&frmMain::mnuClearAllTabs_Click>},
    {"mnuTabControl", "mnuCloseLastTab", "Close &Last Tab", nullptr, onMain<&frmMain::mnuCloseLastTab_Click>},
    {"mnuTabControl", "mnuCloseAllTabs", "Cl&ose All Tabs", nullptr, onMain<&frmMain::mnuCloseAllTabs_Click>},

    {"mnuHelp", "mnuVXHelp", "&Help Index", "help", onMain<&frmMain::mnuVXHelp_Click>},
    {"mnuHelp", "mnuHelpContents", "Help Contents", "contents", onMain<&frmMain::mnuHelpContents_Click>,
     "F1"},
    {"mnuHelp", "notices", "&Notices...", nullptr, onMain<&frmMain::showNotices>}, // in both modes
    {"mnuHelp", nullptr, nullptr, nullptr, nullptr},
    {"mnuHelp", "mnuAbout", "&About Us", "mark", onMain<&frmMain::mnuAbout_Click>},

    adding("mnuDDAddControl", "mnuDDVXAgauge", "Angular Gauge", Kind::AngularGauge,
           onDashboard<&frmInterface::mnuDDVXAgauge_Click>),
    adding("mnuDDAddControl", "mnuDDVXAlphaNume", "Alphanumeric", Kind::Alphanumeric,
           onDashboard<&frmInterface::mnuDDVXAlphaNume_Click>),
    adding("mnuDDAddControl", "mnuDDVXLED", "LED", Kind::Led, onDashboard<&frmInterface::mnuDDVXLED_Click>),
    adding("mnuDDAddControl", "mnuDDVXLGAUGE", "Linear Gauge", Kind::LinearGauge,
           onDashboard<&frmInterface::mnuDDVXLGAUGE_Click>),
    adding("mnuDDAddControl", "mnuDDVXODO", "VX &ODO", Kind::Odometer,
           onDashboard<&frmInterface::mnuDDVXODO_Click>),
    adding("mnuDDAddControl", "mnuDDVXPCTBAR", "Percentage Bar", Kind::PercentageBar,
           onDashboard<&frmInterface::mnuDDVXPCTBAR_Click>),
    adding("mnuDDAddControl", "mnuDDVXSTRIP", "Scrolling Time Graph", Kind::TimeGraph,
           onDashboard<&frmInterface::mnuDDVXSTRIP_Click>),
    adding("mnuDDAddControl", "mnuDDVXXYGRAPH", "XY Graph", Kind::XYGraph,
           onDashboard<&frmInterface::mnuDDVXXYGRAPH_Click>),
    adding("mnuDDAddControl", "mnuDDVXTEXTTAG", "Text Tag", Kind::TextTag,
           onDashboard<&frmInterface::mnuDDVXTEXTTAG_Click>),

    {"mnuDropDown", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown", "mnuCut", "Cu&t", "cut", onDashboard<&frmInterface::mnuCut_Click>, "Ctrl+X"},
    {"mnuDropDown", "mnuCopy", "&Copy", "copy", onDashboard<&frmInterface::mnuCopy_Click>, "Ctrl+C"},
    {"mnuDropDown", "mnuPaste", "&Paste", "paste", onDashboard<&frmInterface::mnuPaste_Click>, "Ctrl+V"},
    {"mnuDropDown", "mnuDelete", "&Delete", "delete", onDashboard<&frmInterface::mnuDelete_Click>, "Del"},
    {"mnuDropDown", "mnuProperties", "P&roperties", "properties",
     onDashboard<&frmInterface::mnuProperties_Click>},

    {"mnuDropDown2", "mnuNewPane", "&Insert New Tab", "newtab", onDashboard<&frmInterface::mnuNewPane_Click>},
    {"mnuDropDown2", "mnuRename", "&Rename", "rename", onDashboard<&frmInterface::mnuRename_Click>},
    {"mnuDropDown2", "mnuClearPane", "&Clear Tab", "cleartab",
     onDashboard<&frmInterface::mnuClearPane_Click>},
    {"mnuDropDown2", "mnuClosePane", "Close &Tab", nullptr, onDashboard<&frmInterface::mnuClosePane_Click>},

    {"mnuDropDown3", "mnuCut_C", "Cu&t", "cut", onObject<&Instrument::mnuCut_Click>, "Ctrl+X"},
    {"mnuDropDown3", "mnuCopy_C", "&Copy", "copy", onObject<&Instrument::mnuCopy_Click>, "Ctrl+C"},
    {"mnuDropDown3", "mnuPaste_C", "&Paste", "paste", onDashboard<&frmInterface::mnuPaste_Click>},
    {"mnuDropDown3", "mnuDelete_C", "&Delete", "delete", onObject<&Instrument::mnuDelete_Click>, "Del"},
    {"mnuDropDown3", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown3", "mnuTag_C", "&Label", "labelson", onObject<&Instrument::mnuTag_Click>, "", true},
    {"mnuDropDown3", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown3", "mnuProperties_C", "P&roperties", "properties",
     onObject<&Instrument::mnuProperties_Click>},
    {"mnuDropDown3", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown3", "mnuDefineCustom_C", "D&efine as custom....", "custom",
     onObject<&Instrument::mnuDefineCustom_Click>},
    {"mnuDropDown3", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown3", "mnuVariables_C", "&Variable Table", nullptr, onObject<&Instrument::mnuVariables_Click>},
};

constexpr ToolButton kButtons[] = {
    {2, "new", "New profile"},
    {3, "load", "Load profile"},
    {4, "save", "Save profile"},
    {6, "play", "Play mode: open the data source and run"},
    {7, "edit", "Edit mode: stop and change the layout"},
    {9, "properties", "Show the properties window"},
    {10, "tabs", "Tabs"},
    {11, "newtab", "Insert a new tab"},
    {12, "cleartab", "Clear the current tab"},
    {14, "labelson", "Labels on"},
    {15, "labelsoff", "Labels off"},
    {17, "help", "Help index"},
    {18, "mark", "Vistor - Version " VISTOR_VERSION},
};

} // namespace

std::span<const MenuHead> menuHeads() {
    return kMenus;
}

std::span<const MenuEntry> menuEntries() {
    return kEntries;
}

std::span<const ToolButton> toolButtons() {
    return kButtons;
}

} // namespace vistor
