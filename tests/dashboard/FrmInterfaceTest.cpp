#include "dashboard/frmInterface.h"

#include "dashboard/ModeCommands.h"
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "platform/Events.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableTreeView.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class FrmInterfaceTest : public testing::Test {
protected:
    FrmInterfaceTest() {
        SettingsPath = folder.filePath("vxvis.cfg");
        VariableTable.resize(kVariableCount);
        VariableTable[2].PhysicalName = QStringLiteral("EngineSpeed");
        tableChanged();
    }
    void settings(const QByteArray& text) {
        QFile file(SettingsPath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray stored() {
        QFile file(SettingsPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    /// Loads the window and shows it at a size, with its panes fitted.
    void open(QSize size = {1300, 800}) {
        window.Form_Load();
        window.resize(size);
        window.show();
        pumpEvents();
    }
    void newTab(const char* caption) {
        prompts.inputs.push_back(QLatin1String(caption));
        window.mnuNewTab_Click();
    }
    Instrument* placed(Page* page) {
        Instrument* added = window.addInstrument(Kind::Alphanumeric, page);
        added->AssignPin(1, QStringLiteral("EngineSpeed"));
        added->show();
        return added;
    }
    /// A run file of nothing but its head, which opens as a data source.
    void useRunFile() {
        QFile file(folder.filePath("a.run"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const std::int32_t head[] = {kFileMark, 200};
        file.write(reinterpret_cast<const char*>(head), sizeof head);
        DataSourceDescriptor = "FIL," + file.fileName();
    }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmInterface window;
};

TEST_F(FrmInterfaceTest, LoadReadsGeometryLiterallyAndUnloadGivesItBack) {
    settings("[DESIGN]\nHEIGHT=20000\nLEFT=33\n[CONTROL]\nTOP=100\n[CONTROL_SPL]\nLEFT=1234\n"
             "[VXVISTOR]\nGRIDSIZE=120\nSHOWGRID=0\nSNAPGRID=0\nLABELCOLOUR=255\n");
    window.Form_Load();
    EXPECT_EQ(window.ControlManager1->paneBox(kPagesPane), (TwipsBox{33, 180, 12255, 12474}));
    EXPECT_EQ(window.ControlManager1->paneBox(kPalettePane), (TwipsBox{0, 894, 3165, 2498}));
    EXPECT_EQ(window.VXSPLITTER->SplitterLeft(), 1234);
    EXPECT_EQ(window.GridSize, 120);
    EXPECT_EQ(window.ShowGrid, 0);
    EXPECT_EQ(window.CurLabelColour, 255);
    EXPECT_EQ(window.pic.front()->geometry(), QRect(2, 2, 817 - 4, 832 - 24));
    EXPECT_EQ(VariableTableEdit.size(), VariableTable.size());

    window.ProfilePath = QStringLiteral("/some/layout.vis");
    EXPECT_TRUE(window.Form_Unload());
    EXPECT_TRUE(prompts.takeWords().isEmpty());
    const IniFile file = IniFile::load(SettingsPath);
    EXPECT_EQ(readWindowSettings(file).box(LayoutBox::Pages), (TwipsBox{33, 180, 12255, 12474}));
    EXPECT_EQ(file.value("CONTROL_SPL", "LEFT", {}, 10), "1234");
    EXPECT_EQ(file.value("VXVISTOR", "LASTFILE", {}, 200), "/some/layout.vis");
    EXPECT_EQ(file.value("VXVISTOR", "GRIDSIZE", {}, 10), "120");
    EXPECT_FALSE(stored().contains("BACKCOLOUR"));
}

TEST_F(FrmInterfaceTest, AnArrangedLayoutComesBackAtTheNextStart) {
    open();
    auto* border = window.findChild<QWidget*>("border0");
    QTest::mousePress(border, Qt::LeftButton, {}, QPoint(1, 100));
    QTest::mouseMove(border, QPoint(-119, 100));
    QTest::mouseRelease(border, Qt::LeftButton, {}, QPoint(-119, 100));
    const QRect pages = window.mainTab->geometry();
    const QRect tree = window.VarPic->geometry();
    const QRect palette = window.VXSPLITTER->geometry();
    ASSERT_TRUE(window.Form_Unload());

    frmInterface again;
    again.Form_Load();
    again.resize(window.size());
    again.show();
    EXPECT_EQ(again.mainTab->geometry(), pages);
    EXPECT_EQ(again.VarPic->geometry(), tree);
    EXPECT_EQ(again.VXSPLITTER->geometry(), palette);
}

TEST_F(FrmInterfaceTest, CloseAsksOnlyAboutChanges) {
    struct Case {
        bool changed;
        Answer answer;
        std::optional<QString> file; ///< to which it is saved
        bool closes;
    };
    const Case cases[] = {
        {false, Answer::Cancel, {}, true},
        {true, Answer::Cancel, {}, false},
        {true, Answer::No, {}, true},
        {true, Answer::Yes, {}, false},
        {true, Answer::Yes, folder.filePath("a.vis"), true},
    };
    for (const Case& c : cases) {
        QFile::remove(SettingsPath);
        window.Form_Load();
        window.ProfileChanged = c.changed;
        prompts.answers = {c.answer};
        prompts.files = {c.file};
        EXPECT_EQ(window.Form_Unload(), c.closes);
        EXPECT_EQ(prompts.takeWords().value(0),
                  c.changed ? QString("Do you want to save changes ?") : QString());
        EXPECT_EQ(stored().contains("LASTFILE"), c.closes);
    }
    for (const MessageRequest& request : prompts.messages) {
        if (request.buttons == Buttons::Ok) continue;
        EXPECT_EQ(request.buttons, Buttons::YesNoCancel);
        EXPECT_EQ(request.icon, Icon::Question);
    }
}

TEST_F(FrmInterfaceTest, NewTabsAreAskedForAndChecked) {
    open();
    struct Case {
        std::optional<QString> answer;
        int tabs;
        const char* refusal;
    };
    const Case cases[] = {
        {std::nullopt, 1, nullptr},
        {QString(""), 1, "Enter Valid Name"},
        {QString("vx"), 1, "Duplicate Name Found"},
        {QString("A & B"), 2, nullptr},
        {QString("a & b"), 2, "Duplicate Name Found"},
    };
    for (const Case& c : cases) {
        prompts.inputs = {c.answer};
        window.mnuNewPane_Click();
        QStringList words = {"Enter caption for the new tab"};
        if (c.refusal) words += QLatin1String(c.refusal);
        const Icon icon = c.refusal ? Icon::Stop : Icon::None;
        EXPECT_EQ(prompts.takeWords(), words);
        EXPECT_EQ(window.mainTab->Tabs(), c.tabs);
        EXPECT_EQ(window.ProfileChanged, c.tabs > 1);
        EXPECT_EQ(prompts.messages.empty() ? Icon::None : prompts.messages.back().icon, icon);
        prompts.messages.clear();
    }
    EXPECT_EQ(window.CurrentTab, 1);
    EXPECT_EQ(window.mainTab->TabCaption(1), "A & B");
    ASSERT_EQ(window.pic.size(), 2U);
    EXPECT_EQ(window.pic[1]->geometry(), window.pic[0]->geometry());
    EXPECT_TRUE(window.pic[1]->isVisible());
    EXPECT_FALSE(window.pic[0]->isVisible());
    EXPECT_TRUE(window.pic[1]->hasDrawing());
}

TEST_F(FrmInterfaceTest, RenameNeverSpeaksAndAlwaysMarksTheProfile) {
    open();
    newTab("ABC");
    struct Case {
        std::optional<QString> answer;
        const char* caption;
    };
    const Case cases[] = {{std::nullopt, "ABC"},
                          {QString(), "ABC"},
                          {QString("VX"), "ABC"},
                          {QString("abc"), "abc"},
                          {QString("vx"), "vx"}};
    for (const Case& c : cases) {
        window.ProfileChanged = false;
        prompts.takeWords();
        prompts.inputs = {c.answer};
        window.mnuRename_Click();
        EXPECT_EQ(prompts.takeWords(), QStringList("Enter New Name"));
        EXPECT_EQ(window.mainTab->TabCaption(1), c.caption);
        EXPECT_TRUE(window.ProfileChanged);
    }
}

TEST_F(FrmInterfaceTest, ClearingAndClosingTabs) {
    open();
    placed(window.pic[0]);
    window.ProfileChanged = true;
    window.mnuCloseLastTab_Click(); // the only tab stays, empty, and the profile counts as clean
    EXPECT_EQ(window.mainTab->Tabs(), 1);
    EXPECT_EQ(window.instruments.placedCount(), 0);
    EXPECT_FALSE(window.ProfileChanged);

    newTab("Two");
    newTab("Three");
    for (Page* page : window.pic) placed(page);
    window.mainTab->Tab(0);
    window.mnuClearCurrentTab_Click();
    EXPECT_EQ(window.instruments.placedCount(), 2);
    EXPECT_TRUE(window.ProfileChanged);

    prompts.answers = {Answer::No, Answer::Yes};
    window.mnuClosePane_Click();
    EXPECT_EQ(window.mainTab->Tabs(), 3);
    window.mnuClosePane_Click(); // the last one goes, whichever is in front
    EXPECT_EQ(window.mainTab->captions(), QStringList({"VX", "Two"}));
    EXPECT_EQ(window.CurrentTab, 1);
    EXPECT_EQ(window.instruments.placedCount(), 1);
    EXPECT_EQ(prompts.messages.back().text, "Do you want to close last tab ?");
    EXPECT_EQ(prompts.messages.back().icon, Icon::Notice);

    window.mnuClearAllTabs_Click();
    EXPECT_EQ(window.instruments.placedCount(), 0);
    EXPECT_TRUE(window.ProfileChanged);
    window.mainTab->TabCaption(0, "Mine");
    window.mnuCloseAllTabs_Click();
    EXPECT_EQ(window.mainTab->captions(), QStringList("VX"));
    EXPECT_FALSE(window.ProfileChanged);
    EXPECT_EQ(window.pic.size(), 1U);
}

TEST_F(FrmInterfaceTest, AnUnusableSourceLeavesEditMode) {
    open();
    QSignalSpy timer(&window, &frmInterface::timerWanted);
    QSignalSpy commands(&window, &frmInterface::commandEnabled);
    window.mnuPlayMode_Click();
    EXPECT_FALSE(PlayMode);
    EXPECT_EQ(prompts.takeWords(), QStringList("No data source has been specified"));
    DataSourceDescriptor = "FIL,/no/such.run";
    window.mnuPlayMode_Click();
    EXPECT_FALSE(PlayMode);
    EXPECT_TRUE(prompts.takeWords().isEmpty());
    EXPECT_EQ(timer.count() + commands.count(), 0);
    EXPECT_EQ(TimeBase, kLiveTimeBase); // closed again
}

TEST_F(FrmInterfaceTest, ModesFreezeAndFreeTheLayout) {
    open();
    Instrument* instrument = placed(window.pic[0]);
    useRunFile();
    LastValue[2] = 3;
    SampleTime[2] = 3;
    SampleDistance[2] = 4;
    QSignalSpy timer(&window, &frmInterface::timerWanted);
    QSignalSpy commands(&window, &frmInterface::commandEnabled);
    window.mnuPlayMode_Click();
    EXPECT_TRUE(PlayMode);
    EXPECT_EQ(timer.takeLast().at(0).toInt(), 20);
    EXPECT_EQ(commands.count(), static_cast<int>(std::size(kModeCommands)));
    for (const auto& command : commands)
        EXPECT_EQ(command.at(1).toBool(), command.at(0).toString() == "mnuEditMode")
            << qPrintable(command.at(0).toString());
    EXPECT_FALSE(instrument->inCTRL().isEnabled());
    EXPECT_FALSE(window.VarTree->isEnabled());
    EXPECT_FALSE(window.pic[0]->hasDrawing());
    EXPECT_EQ(LastValue[2] + SampleTime[2], 0);
    EXPECT_EQ(SampleDistance[2], 0);
    EXPECT_EQ(window.Subscriptions.at(1).Count, 1);

    QSignalSpy menus(&window, &frmInterface::menuWanted);
    QTest::mouseClick(window.pic[0], Qt::RightButton, {}, QPoint(400, 300));
    QTest::mouseClick(window.mainTab, Qt::RightButton, {}, QPoint(300, window.mainTab->height() - 5));
    EXPECT_EQ(menus.count(), 0);

    window.mnuEditMode_Click();
    EXPECT_FALSE(PlayMode);
    EXPECT_EQ(timer.takeLast().at(0).toInt(), 0);
    EXPECT_TRUE(instrument->inCTRL().isEnabled());
    EXPECT_TRUE(window.lvControl->isEnabled());
    EXPECT_EQ(window.VarTree->palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_TRUE(window.pic[0]->hasDrawing());
    EXPECT_EQ(window.Subscriptions.at(1).Count, 1); // a snapshot: it stands until the next start
}

TEST_F(FrmInterfaceTest, AGraphShowsAGapOverTheTimeItsTabWasHidden) {
    open();
    newTab("Other");
    window.mainTab->Tab(0);
    Instrument* graph = window.addInstrument(Kind::TimeGraph, window.pic[0]);
    Instrument* other = window.addInstrument(Kind::TimeGraph, window.pic[1]);
    for (Instrument* one : {graph, other}) one->AssignPin(1, std::uint8_t{0}, QStringLiteral("EngineSpeed"));
    const auto halfWaits = [](Instrument* one) { return one->curVarTable().at(1, 4) == u"-1"; };
    graph->refreshValue(1, 0, 5);
    window.mainTab->Tab(0);
    EXPECT_TRUE(halfWaits(graph)) << "it has stayed in front";
    window.mainTab->Tab(1);
    EXPECT_FALSE(halfWaits(graph));
    other->refreshValue(1, 0, 5);
    EXPECT_TRUE(halfWaits(other));
}

TEST_F(FrmInterfaceTest, RightClicksWantTheirMenus) {
    open();
    newTab("Two");
    QSignalSpy menus(&window, &frmInterface::menuWanted);
    QSignalSpy commands(&window, &frmInterface::commandEnabled);
    auto* strip = window.mainTab->findChild<QTabBar*>("strip");
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(0).center());
    EXPECT_EQ(window.CurrentTab, 0);
    QTest::mouseClick(strip, Qt::RightButton, {}, strip->tabRect(1).center());
    EXPECT_EQ(window.CurrentTab, 1) << "the menu acts on the tab that was clicked";
    EXPECT_EQ(menus.takeLast().at(0).toString(), "mnuDropDown2");
    EXPECT_EQ(commands.takeLast(), QVariantList({"mnuClosePane", true}));
    QTest::mouseClick(strip, Qt::RightButton, {}, strip->tabRect(0).center());
    EXPECT_EQ(window.CurrentTab, 0);
    EXPECT_EQ(commands.takeLast(), QVariantList({"mnuClosePane", false}));
    window.mainTab->Tab(1);
    QTest::mouseClick(window.mainTab, Qt::RightButton, {},
                      strip->geometry().topRight() + QPoint(0, strip->height() / 2)); // beside the tabs
    EXPECT_EQ(commands.takeLast(), QVariantList({"mnuClosePane", true}));
    QTest::mouseClick(window.pic[1], Qt::RightButton, {}, QPoint(40, 30));
    EXPECT_EQ(menus.takeLast().at(0).toString(), "mnuDropDown");
    EXPECT_EQ(window.PopupX, 600);
    EXPECT_EQ(window.PopupY, 450);
}

TEST_F(FrmInterfaceTest, LabelsAndColoursReachAllInstruments) {
    open();
    Instrument* one = placed(window.pic[0]);
    window.TagsOn(1);
    EXPECT_TRUE(TagsVisible);
    EXPECT_TRUE(one->tagIsOn());
    EXPECT_TRUE(placed(window.pic[0])->tagIsOn());
    window.TagsOn(0);
    EXPECT_FALSE(one->tagIsOn());
    window.setCurBackColour(0x0000FF, 0xFF0000);
    EXPECT_EQ(window.pic[0]->grab().toImage().pixelColor(401, 303), QColor(Qt::red));
}

TEST_F(FrmInterfaceTest, HiddenPanesLeaveTheirRoom) {
    settings("[VISIBLE]\n1=0\n2=0\n");
    open();
    window.ArrangeSplitter();
    EXPECT_FALSE(window.VarPic->isVisible());
    EXPECT_FALSE(window.VXSPLITTER->isVisible());
    EXPECT_EQ(window.mainTab->width(), window.width());
    EXPECT_EQ(window.mainTab->geometry().bottom(), window.height() - 1);
}

TEST_F(FrmInterfaceTest, PanesAreMovedByTheirCaptions) {
    open();
    QSignalSpy docked(window.ControlManager1, &ControlManager::paneDocked);
    auto* caption = window.findChild<QWidget*>("caption1");
    const QPoint from(20, 8);
    const QPoint to = caption->mapFrom(&window, QPoint(3, 400));
    QTest::mousePress(caption, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 10; ++step) QTest::mouseMove(caption, from + (to - from) * step / 10);
    QTest::mouseRelease(caption, Qt::LeftButton, {}, to);
    EXPECT_EQ(docked.count(), 1);
    EXPECT_EQ(window.VarPic->x(), 0);
    EXPECT_EQ(window.VarTree->width(), window.VarPic->width());
    EXPECT_EQ(window.VarTree->geometry().bottom(), window.VarPic->rect().bottom());
    EXPECT_EQ(window.mainTab->geometry().right(), window.width() - 1);
    EXPECT_EQ(window.pic[0]->width(), window.mainTab->width() - 4);
}

TEST_F(FrmInterfaceTest, GridCommands) {
    open();
    newTab("Two");
    window.initGrid(200, 0, 0);
    EXPECT_FALSE(window.pic[0]->hasDrawing());
    EXPECT_TRUE(window.pic[1]->hasDrawing()); // only the first page is cleared
    window.mnuEditMode_Click();
    EXPECT_FALSE(window.pic[1]->hasDrawing()) << "until the mode changes";
    EXPECT_EQ(gridPlaces(80, 20), (QList<int>{0, 5, 11, 16}));
    EXPECT_TRUE(gridPlaces(0, 20).isEmpty());
    EXPECT_TRUE(gridPlaces(-80, 20).isEmpty());
    EXPECT_EQ(gridPlaces(1, 4), (QList<int>{0, 1, 2, 3}));
}

} // namespace
} // namespace vistor
