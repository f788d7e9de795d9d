#include "tests/shell/CommandRows.h"

#include "maths/VariableFiles.h"
#include "shell/RecentFiles.h"
#include "shell/frmHelp.h"

#include <QTabWidget>

namespace vistor {

void namesOne(Session& s) {
    s.prompts.inputs = {QStringLiteral("Name")};
}

namespace {

void yes(Session& s) {
    s.prompts.answers = {Answer::Yes};
}
void twoTabs(Session& s) {
    s.addTab("Two");
    yes(s);
}
void savesTo(Session& s) {
    s.prompts.files = {s.file("chosen.vis")};
}
bool wasSaved(Session& s) {
    return QFile::exists(s.file("chosen.vis")) && s.page.ProfilePath == s.file("chosen.vis") &&
           s.page.HasProfilePath;
}
void forgetsAProfile(Session& s) {
    savesTo(s);
    s.page.mnuSaveAs_Click();
    s.page.mnuNew_Click();
    savesTo(s);
}
bool wasLoaded(Session& s) {
    return s.placed() == 1 && s.page.ProfilePath == s.file("chosen.vis");
}
void otherTable(Session& s) {
    QString& name = VariableTable[2].BaseName;
    const QString before = std::exchange(name, QStringLiteral("Revs"));
    saveVariables(s.file("other"));
    name = before;
    s.prompts.files = {s.file("other")};
    yes(s);
}
void changedTable(Session& s) {
    for (const QString& name : variableFileNames())
        QFile::copy(s.root + "/OtherFiles/" + name, s.root + "/build/program/" + name);
    VariableTable[2].BaseName = QStringLiteral("Revs");
    yes(s);
}
bool began(Session& s) {
    return s.placed() == 0 &&
           s.asked({"Do you want to save changes ?", Icon::Question, Buttons::YesNoCancel});
}
void begins(Session& s) {
    s.prompts.answers = {Answer::No};
}
bool plays(Session& s) {
    return s.starts == 1 && PlayMode;
}
bool edits(Session& s) {
    return s.stops == 1 && !PlayMode;
}
bool labelsAreOn(Session& s) {
    return TagsVisible && s.readout->tagIsOn();
}
bool labelsAreOff(Session& s) {
    return !TagsVisible && !s.readout->tagIsOn();
}
void labelsOn(Session& s) {
    s.page.TagsOn(1);
}
bool showsProperties(Session& s) {
    const QWidget* shown = s.window.findChild<QWidget*>("frmProperties");
    return PropertiesWindowShown && shown && shown->isVisible() &&
           s.command("mnuShowPropertiesWindow")->isChecked();
}
bool hasNewTab(Session& s) {
    return s.captions() == QStringList({"VX", "Name"}) && s.page.CurrentTab == 1 && s.page.ProfileChanged;
}
bool clearedTab(Session& s) {
    return s.placed() == 0 && s.asked({"Do you want to clear current tab ?"});
}
bool closedTab(Session& s) {
    return s.captions() == QStringList("VX") && s.asked({"Do you want to close last tab ?"});
}
bool showsHelp(Session& s, int tab) {
    const auto* help = s.window.findChild<frmHelp*>();
    return help && help->isVisible() && help->tabs->currentIndex() == tab;
}
bool holds(Session& s, bool copy) {
    return s.page.ClipboardKind == 2 && s.page.ClipboardIsCopy == (copy ? 1 : 0) && s.placed() == 1 &&
           s.page.CutInstrument == (copy ? nullptr : s.readout);
}
bool copied(Session& s) {
    return holds(s, true);
}
bool cut(Session& s) {
    return holds(s, false);
}
/// The place for the copy is that of the last right click on the page.
void copies(Session& s) {
    s.readout->mnuCopy_Click();
    s.clickRight(QStringLiteral("mnuDropDown"));
    s.closePopups();
}
bool isNew(Session& s, Kind kind, QPoint place) {
    return s.placed() == 2 && s.newest().kind == kind && s.newest().instrument->isVisible() &&
           s.newest().instrument->pos() == place;
}
/// The entry that adds a kind: at the page's corner from the menu bar, else where the button went down.
template <Kind kind>
CommandRow adding(const char* menu, const char* name, const char* caption) {
    constexpr auto atCorner = [](Session& s) { return isNew(s, kind, {}); };
    constexpr auto atPlace = [](Session& s) { return isNew(s, kind, Session::freePlace); };
    return {menu, name, caption, Enabled::Edit, nullptr, isPopUp(menu) ? +atPlace : +atCorner};
}
template <int dialog>
bool opens(Session& s) {
    static constexpr const char* kDialogs[] = {"FrmSelectInput", "frmOptions",  "frmStartSplash",
                                               "PropertySheet",  "frmVarTable", "CarDialog",
                                               "RecoverDialog"};
    return QTest::qWaitFor([&s] { return s.opened(kDialogs[dialog]); }, 30); // one may come without a loop
}

const CommandRow kRows[] = {
    {"mnuFile", "mnuNew", "&New", Enabled::Edit, begins, began},
    {"mnuFile", "mnuLoadConfig", "&Load Profile", Enabled::Edit, forgetsAProfile, wasLoaded},
    {"mnuFile", "recentFiles", "Open recen&t"},
    {"mnuFile", "mnuSaveConfig", "&Save profile", Enabled::Edit, savesTo, wasSaved},
    {"mnuFile", "mnuSaveAs", "Save Profile &As", Enabled::Edit, savesTo,
     [](Session& s) {
         return wasSaved(s) && s.prompts.fileRequests.back().title == QLatin1String("Save Profile As...");
     }},
    {"mnuFile", "recoverWork", "Re&cover...", Enabled::Edit, nullptr, opens<6>},
    {"mnuFile", "mnuLoadVarInfo", "Load &Variable Information", Enabled::Edit, otherTable,
     [](Session&) { return VariableTable[2].BaseName == QLatin1String("Revs"); }},
    {"mnuFile", "mnuSaveVarInfo", "Save Variable &Information", Enabled::Edit, savesTo,
     [](Session& s) { return QFile::exists(s.file("chosen.vis")); }},
    {"mnuFile", "mnuRestoreDefaultVar", "&Restore Default Variable Information", Enabled::Edit, changedTable,
     [](Session&) { return VariableTable[2].BaseName == QLatin1String("Engine speed"); }},
    {"mnuFile", "mnuPlayMode", "&Play Mode", Enabled::Edit, nullptr, plays},
    {"mnuFile", "mnuEditMode", "&Edit Mode", Enabled::Play, nullptr, edits},
    {"mnuFile", "mnuSelectDataSource", "Set Data Source", Enabled::Edit, nullptr, opens<0>},
    {"mnuFile", "mnuExit", "E&xit", Enabled::Both, begins,
     [](Session& s) { return !s.window.isVisible() && QFile::exists(SettingsPath) && !PlayMode; }},

    {"recentFiles", "clearRecentFiles", "&Clear list", Enabled::Edit,
     [](Session& s) { writeRecentFiles(SettingsPath, {s.file("a.run")}); },
     [](Session&) { return readRecentFiles(SettingsPath).isEmpty(); }},

    {"mnuView", "mnuOptions", "&Options", Enabled::Edit, nullptr, opens<1>},
    {"mnuView", "mnuTagsOn", "Labels O&n", Enabled::Edit, nullptr, labelsAreOn},
    {"mnuView", "mnuTagsOff", "Labels O&ff", Enabled::Edit, labelsOn, labelsAreOff},

    adding<Kind::AngularGauge>("mnuAddControl", "mnuVXAGauge", "Angular Gauge"),
    adding<Kind::Alphanumeric>("mnuAddControl", "mnuVXAlphaNume", "Alphanumeric"),
    adding<Kind::Led>("mnuAddControl", "mnuVXLED", "LED"),
    adding<Kind::LinearGauge>("mnuAddControl", "mnuVXLGauge", "Linear Gauge"),
    adding<Kind::Odometer>("mnuAddControl", "mnuVXODO", "ODO"),
    adding<Kind::PercentageBar>("mnuAddControl", "mnuVXPCTBAR", "Percentage Bar"),
    adding<Kind::TimeGraph>("mnuAddControl", "mnuVXSTRIP", "Scrolling Time Graph"),
    adding<Kind::XYGraph>("mnuAddControl", "mnuVXXYGRAPH", "XY Graph"),
    adding<Kind::TextTag>("mnuAddControl", "mnuVXTEXTTAG", "Text Tag"),

    {"mnuWindow", "mnuShowPropertiesWindow", "Show &Properties Window", Enabled::Edit, nullptr,
     showsProperties},
    {"mnuWindow", "carNumbers", "&Car...", Enabled::Edit, nullptr, opens<5>},
    {"mnuWindow", "mnuTabControl", "Tab Management"},
    {"mnuTabControl", "mnuNewTab", "&Insert New Tab", Enabled::Edit, namesOne, hasNewTab},
    {"mnuTabControl", "mnuClearCurrentTab", "&Clear Current Tab", Enabled::Edit, yes, clearedTab},
    {"mnuTabControl", "mnuClearAllTabs", "Clear All &Tabs", Enabled::Edit, twoTabs,
     [](Session& s) {
         return s.placed() == 0 && s.captions().size() == 2 && s.asked({"Do you want to clear all tab(s) ?"});
     }},
    {"mnuTabControl", "mnuCloseLastTab", "Close &Last Tab", Enabled::Edit, twoTabs, closedTab},
    {"mnuTabControl", "mnuCloseAllTabs", "Cl&ose All Tabs", Enabled::Edit, twoTabs,
     [](Session& s) {
         return s.placed() == 0 && s.captions().size() == 1 && s.asked({"Do you want to close all tab(s) ?"});
     }},

    {"mnuHelp", "mnuVXHelp", "&Help Index", Enabled::Both, nullptr,
     [](Session& s) { return showsHelp(s, 1); }},
    {"mnuHelp", "mnuHelpContents", "Help Contents", Enabled::Both, nullptr,
     [](Session& s) { return showsHelp(s, 0); }},
    {"mnuHelp", "notices", "&Notices...", Enabled::Both, nullptr,
     [](Session& s) {
         const auto* list = s.window.findChild<QDialog*>("noticeList");
         return list && list->isVisible();
     }},
    {"mnuHelp", "mnuAbout", "&About Us", Enabled::Both, nullptr, opens<2>},

    {"mnuDropDown", "mnuDDAddControl", "&Add Control"},
    {"mnuDropDown", "mnuCut", "Cu&t", Enabled::Edit, nullptr, cut},
    {"mnuDropDown", "mnuCopy", "&Copy", Enabled::Edit, nullptr, copied},
    {"mnuDropDown", "mnuPaste", "&Paste", Enabled::Edit, copies,
     [](Session& s) {
         return isNew(s, Kind::Alphanumeric, Session::freePlace) && !s.command("mnuPaste")->isEnabled();
     }},
    {"mnuDropDown", "mnuDelete", "&Delete", Enabled::Edit, nullptr,
     [](Session& s) { return s.placed() == 0; }},
    {"mnuDropDown", "mnuProperties", "P&roperties", Enabled::Edit, nullptr, opens<3>},
    adding<Kind::AngularGauge>("mnuDDAddControl", "mnuDDVXAgauge", "Angular Gauge"),
    adding<Kind::Alphanumeric>("mnuDDAddControl", "mnuDDVXAlphaNume", "Alphanumeric"),
    adding<Kind::Led>("mnuDDAddControl", "mnuDDVXLED", "LED"),
    adding<Kind::LinearGauge>("mnuDDAddControl", "mnuDDVXLGAUGE", "Linear Gauge"),
    adding<Kind::Odometer>("mnuDDAddControl", "mnuDDVXODO", "VX &ODO"),
    adding<Kind::PercentageBar>("mnuDDAddControl", "mnuDDVXPCTBAR", "Percentage Bar"),
    adding<Kind::TimeGraph>("mnuDDAddControl", "mnuDDVXSTRIP", "Scrolling Time Graph"),
    adding<Kind::XYGraph>("mnuDDAddControl", "mnuDDVXXYGRAPH", "XY Graph"),
    adding<Kind::TextTag>("mnuDDAddControl", "mnuDDVXTEXTTAG", "Text Tag"),

    {"mnuDropDown2", "mnuNewPane", "&Insert New Tab", Enabled::Edit, namesOne, hasNewTab},
    {"mnuDropDown2", "mnuRename", "&Rename", Enabled::Edit, namesOne,
     [](Session& s) { return s.captions() == QStringList("Name"); }},
    {"mnuDropDown2", "mnuClearPane", "&Clear Tab", Enabled::Edit, yes, clearedTab},
    {"mnuDropDown2", "mnuClosePane", "Close &Tab", Enabled::Edit, twoTabs, closedTab},

    {"mnuDropDown3", "mnuCut_C", "Cu&t", Enabled::Edit, nullptr, cut},
    {"mnuDropDown3", "mnuCopy_C", "&Copy", Enabled::Edit, nullptr, copied},
    {"mnuDropDown3", "mnuPaste_C", "&Paste", Enabled::Edit, copies,
     [](Session& s) { return isNew(s, Kind::Alphanumeric, Session::freePlace); }},
    {"mnuDropDown3", "mnuDelete_C", "&Delete", Enabled::Edit, nullptr,
     [](Session& s) { return s.placed() == 0; }},
    {"mnuDropDown3", nullptr},
    {"mnuDropDown3", "mnuTag_C", "&Label", Enabled::Edit, nullptr,
     [](Session& s) { return s.readout->tagIsOn() && !TagsVisible; }},
    {"mnuDropDown3", nullptr},
    {"mnuDropDown3", "mnuProperties_C", "P&roperties", Enabled::Edit, nullptr, opens<3>},
    {"mnuDropDown3", nullptr},
    {"mnuDropDown3", "mnuDefineCustom_C", "D&efine as custom....", Enabled::Edit, namesOne,
     [](Session&) { return Session::read(LibraryPath).contains("bname"); }},
    {"mnuDropDown3", nullptr},
    {"mnuDropDown3", "mnuVariables_C", "&Variable Table", Enabled::Edit, nullptr, opens<4>},
};

constexpr ButtonRow kButtonRows[] = {
    {2, Enabled::Edit, begins, began},
    {3, Enabled::Edit, forgetsAProfile, wasLoaded},
    {4, Enabled::Edit, savesTo, wasSaved},
    {6, Enabled::Edit, nullptr, plays},
    {7, Enabled::Play, nullptr, edits},
    {9, Enabled::Edit, nullptr, showsProperties},
    {10, Enabled::Edit, nullptr, nullptr},
    {11, Enabled::Edit, namesOne, hasNewTab},
    {12, Enabled::Edit, yes, clearedTab},
    {14, Enabled::Edit, nullptr, labelsAreOn},
    {15, Enabled::Edit, labelsOn, labelsAreOff},
    {17, Enabled::Edit, nullptr, [](Session& s) { return showsHelp(s, 1); }},
    {18, Enabled::Edit, nullptr, nullptr},
};

} // namespace

std::span<const CommandRow> commandRows() {
    return kRows;
}

std::span<const ButtonRow> buttonRows() {
    return kButtonRows;
}

} // namespace vistor
