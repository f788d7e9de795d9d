#include "shell/Commands.h"

#include "dashboard/frmInterface.h"
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

// The pop-up menu of a page comes with its first entry.
constexpr MenuHead kMenus[] = {
    {"mnuFile", "&File", ""},      {"mnuView", "&View", ""},
    {"mnuWindow", "Window", ""},   {"mnuTabControl", "Tab Management", "mnuWindow"},
    {"mnuHelp", "Help", ""},       {"mnuDropDown2", "", nullptr},
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
     "Shift+F5"},
    {"mnuFile", "mnuSelectDataSource", "Set Data Source", "source",
     onDashboard<&frmInterface::mnuSelectDataSource_Click>},
    {"mnuFile", nullptr, nullptr, nullptr, nullptr},
    {"mnuFile", "mnuExit", "E&xit", "exit", onDashboard<&frmInterface::mnuExit_Click>},

    {"mnuView", "mnuTagsOn", "Labels O&n", "labelson", [](frmMain& window) { window.dashboard().TagsOn(1); }},
    {"mnuView", "mnuTagsOff", "Labels O&ff", "labelsoff",
     [](frmMain& window) { window.dashboard().TagsOn(0); }},

    {"mnuWindow", "mnuShowPropertiesWindow", "Show &Properties Window", "properties",
     onMain<&frmMain::mnuShowPropertiesWindow_Click>, "", true},

    {"mnuTabControl", "mnuNewTab", "&Insert New Tab", "newtab", onDashboard<&frmInterface::mnuNewTab_Click>},
    {"mnuTabControl", "mnuClearCurrentTab", "&Clear Current Tab", "cleartab",
     onMain<&frmMain::mnuClearCurrentTab_Click>},
    {"mnuTabControl", "mnuClearAllTabs", "Clear All &Tabs", nullptr, onMain<&frmMain::mnuClearAllTabs_Click>},
    {"mnuTabControl", "mnuCloseLastTab", "Close &Last Tab", nullptr, onMain<&frmMain::mnuCloseLastTab_Click>},
    {"mnuTabControl", "mnuCloseAllTabs", "Cl&ose All Tabs", nullptr, onMain<&frmMain::mnuCloseAllTabs_Click>},

    {"mnuHelp", "mnuVXHelp", "&Help Index", "help", onMain<&frmMain::mnuVXHelp_Click>},
    {"mnuHelp", "mnuHelpContents", "Help Contents", "contents", onMain<&frmMain::mnuHelpContents_Click>,
     "F1"},
    {"mnuHelp", nullptr, nullptr, nullptr, nullptr},
    {"mnuHelp", "mnuAbout", "&About Us", "mark", onMain<&frmMain::mnuAbout_Click>},

    {"mnuDropDown2", "mnuNewPane", "&Insert New Tab", "newtab", onDashboard<&frmInterface::mnuNewPane_Click>},
    {"mnuDropDown2", "mnuRename", "&Rename", "rename", onDashboard<&frmInterface::mnuRename_Click>},
    {"mnuDropDown2", "mnuClearPane", "&Clear Tab", "cleartab",
     onDashboard<&frmInterface::mnuClearPane_Click>},
    {"mnuDropDown2", "mnuClosePane", "Close &Tab", nullptr, onDashboard<&frmInterface::mnuClosePane_Click>},

    {"mnuDropDown3", "mnuTag_C", "&Label", "labelson", onMain<&frmMain::mnuTag_C_Click>, "", true},
    {"mnuDropDown3", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown3", "mnuProperties_C", "P&roperties", "properties", onMain<&frmMain::mnuProperties_C_Click>},
    {"mnuDropDown3", nullptr, nullptr, nullptr, nullptr},
    {"mnuDropDown3", "mnuVariables_C", "&Variable Table", nullptr, onMain<&frmMain::mnuVariables_C_Click>},
};

constexpr ToolButton kButtons[] = {
    {2, "new", "New profile", true},
    {3, "load", "Load profile", true},
    {4, "save", "Save profile", true},
    {6, "play", "Play mode: open the data source and run", true},
    {7, "edit", "Edit mode: stop and change the layout", true},
    {9, "properties", "Show the properties window", true},
    {10, "tabs", "Tabs", true},
    {11, "newtab", "Insert a new tab", true},
    {12, "cleartab", "Clear the current tab", true},
    {14, "labelson", "Labels on", true},
    {15, "labelsoff", "Labels off", true},
    {17, "help", "Help index", true},
    {18, "mark", "Vistor - Version " VISTOR_VERSION, true},
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
