// The pop-up menus, opened with the right button where a person opens them.
#include "tests/shell/CommandRows.h"

namespace vistor {
namespace {

class PopUpMenusTest : public CommandAccount {};

TEST_F(PopUpMenusTest, NoPopUpMenuOpensInPlayMode) {
    Session s(prompts, root.path());
    s.page.mnuPlayMode_Click();
    for (const char* menu : {"mnuDropDown", "mnuDropDown2", "mnuDropDown3"}) {
        s.clickRight(QLatin1String(menu));
        EXPECT_FALSE(QApplication::activePopupWidget()) << menu;
        s.closePopups();
    }
}

TEST_F(PopUpMenusTest, PopUpEntriesFollowWhatTheyActOn) {
    Session s(prompts, root.path());
    const auto enabledIn = [&s](const char* menu) {
        QStringList names;
        if (const QMenu* shown = s.open(QLatin1String(menu))) {
            for (const QAction* action : shown->actions()) {
                if (!action->isSeparator() && action->isEnabled()) names += action->objectName();
            }
        }
        s.closePopups();
        return names;
    };
    EXPECT_EQ(enabledIn("mnuDropDown"),
              QStringList({"mnuDDAddControl", "mnuCut", "mnuCopy", "mnuDelete", "mnuProperties"}));
    s.click(s.page.pic[0], Qt::LeftButton, Session::freePlace); // and now none is the clicked one
    EXPECT_EQ(enabledIn("mnuDropDown"), QStringList({"mnuDDAddControl"}));
    s.readout->mnuCut_Click();
    EXPECT_EQ(enabledIn("mnuDropDown"), QStringList({"mnuDDAddControl", "mnuPaste"}));

    const QStringList ofTheLast({"mnuNewPane", "mnuRename", "mnuClearPane", "mnuClosePane"});
    EXPECT_EQ(enabledIn("mnuDropDown2"), ofTheLast);
    s.addTab("Two");
    EXPECT_EQ(enabledIn("mnuDropDown2"), ofTheLast);
    s.page.mainTab->Tab(0);
    EXPECT_EQ(enabledIn("mnuDropDown2"), ofTheLast.first(3)) << "the last tab is not in front";
}

TEST_F(PopUpMenusTest, TheInstrumentsMenuFollowsItsInstrument) {
    Session s(prompts, root.path());
    const auto isChecked = [&s] {
        const bool checked = s.open(QStringLiteral("mnuDropDown3")) && s.command("mnuTag_C")->isChecked();
        s.closePopups();
        return checked;
    };
    EXPECT_FALSE(isChecked());
    EXPECT_EQ(s.window.curObject, s.readout);
    s.page.TagsOn(1);
    EXPECT_TRUE(isChecked());
    Instrument* tag = s.page.addInstrument(Kind::TextTag, s.page.pic[0]);
    tag->setGeometry(300, 40, 100, 40);
    tag->show();
    for (Instrument* instrument : {tag, s.readout}) {
        s.click(&instrument->inCTRL(), Qt::RightButton);
        EXPECT_EQ(s.window.curObject, instrument);
        for (const char* name : {"mnuTag_C", "mnuVariables_C"})
            EXPECT_EQ(s.command(name)->isVisible(), instrument == s.readout) << name;
        s.closePopups();
    }
    s.page.mnuClearAllTabs_Click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    s.command("mnuDelete_C")->trigger(); // its instrument is gone
    EXPECT_FALSE(s.window.curObject);
}

/// What each kind's menu leads to.
TEST_F(PopUpMenusTest, EveryKindsMenuReachesItsOwnWindows) {
    struct KindRow {
        Kind kind;
        const char* properties;
        const char* variables; ///< null where the entry is hidden
        const char* custom;    ///< its key in the library, null for the kind that the palette does not show
    };
    constexpr KindRow kKinds[] = {
        {Kind::AngularGauge, "PropertySheet", "frmVarTable", "aname"},
        {Kind::Alphanumeric, "PropertySheet", "frmVarTable", "bname"},
        {Kind::Led, "PropertySheet", "frmVarTable", "cname"},
        {Kind::LinearGauge, "PropertySheet", "frmVarTable", "dname"},
        {Kind::Odometer, "PropertySheet", "frmVarTable", nullptr},
        {Kind::PercentageBar, "PropertySheet", "frmVarTable", "fname"},
        {Kind::TimeGraph, "frmStripConfig", "frmVarTableGraph", "gname"},
        {Kind::XYGraph, "frmXYGraph", "frmVarTableGraph", "iname"},
        {Kind::TextTag, "frmVXTextTagProp", nullptr, "hname"},
    };
    Session s(prompts, root.path());
    const auto choose = [&s](const char* name) {
        s.closer.seen.clear();
        QMenu* menu = s.open(QStringLiteral("mnuDropDown3"));
        ASSERT_TRUE(menu) << name;
        EXPECT_EQ(s.window.curObject, s.readout);
        s.choose(menu, s.command(name));
    };
    for (const KindRow& row : kKinds) {
        SCOPED_TRACE(row.properties);
        s.page.mnuClearAllTabs_Click();
        s.readout = s.page.addInstrument(row.kind, s.page.pic[0]);
        s.readout->setGeometry(40, 40, 200, 120);
        s.readout->show();
        choose("mnuProperties_C");
        EXPECT_TRUE(s.opened(row.properties));
        EXPECT_EQ(s.command("mnuVariables_C")->isVisible(), row.variables != nullptr);
        EXPECT_EQ(s.command("mnuTag_C")->isVisible(), row.variables != nullptr);
        if (row.variables) {
            choose("mnuVariables_C");
            EXPECT_TRUE(s.opened(row.variables));
        }
        namesOne(s);
        choose("mnuDefineCustom_C");
        EXPECT_EQ(row.custom == nullptr,
                  s.asked({"Configuration name already exists", Icon::Stop, Buttons::Ok}));
        EXPECT_TRUE(!row.custom || Session::read(LibraryPath).contains(row.custom));
        prompts.messages.clear();
        s.page.mnuPlayMode_Click(); // some kinds' displays stay enabled
        s.clickRight(QStringLiteral("mnuDropDown3"));
        EXPECT_FALSE(QApplication::activePopupWidget());
        s.page.mnuEditMode_Click();
        choose("mnuCut_C");
        EXPECT_EQ(s.page.ClipboardKind, int(row.kind) + 1);
        choose("mnuDelete_C");
        EXPECT_EQ(s.placed(), 0);
    }
}

} // namespace
} // namespace vistor
