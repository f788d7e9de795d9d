// New, open, save and save as, driven through the window with answers written beforehand.
#include "dashboard/LoadChoice.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/NumLedDisplay.h"
#include "platform/Events.h"
#include "platform/Notices.h"
#include "platform/WholeFile.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace vistor {
namespace {

class ProfileFlowsTest : public testing::Test {
protected:
    ProfileFlowsTest() {
        SettingsPath = folder.filePath("vxvis.cfg");
        VariableTable.resize(kVariableCount);
        VariableTable[2].PhysicalName = QStringLiteral("EngineSpeed");
        tableChanged();
        open(window);
    }
    static void open(frmInterface& any) {
        any.Form_Load();
        any.resize(1300, 800);
        any.show();
        pumpEvents();
    }
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QByteArray read(const char* name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    QString write(const char* name, const QByteArray& text) {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly)) file.write(text);
        return path(name);
    }
    static Instrument* place(frmInterface& any, Kind kind, std::size_t page, QPoint where = {30, 45}) {
        Instrument* added = any.addInstrument(kind, any.pic.at(page));
        if (!added) return nullptr;
        added->AssignPin(1, QStringLiteral("EngineSpeed"));
        added->move(where);
        added->show();
        return added;
    }
    void newTab(const char* caption) {
        prompts.inputs = {QLatin1String(caption)};
        window.mnuNewTab_Click();
    }
    void saveAs(frmInterface& any, const char* name) {
        prompts.files = {path(name)};
        any.mnuSaveAs_Click();
    }
    /// The instruments of the window, "kind number page left top" each.
    static QStringList standing(const frmInterface& any) {
        QStringList all;
        for (const InstrumentElement& e : any.instruments.all()) {
            if (e.number == 0) continue;
            all << QStringLiteral("%1 %2 %3 %4 %5")
                       .arg(QLatin1String(kindInfo(e.kind).className))
                       .arg(e.number)
                       .arg(pageOf(*e.instrument)->number())
                       .arg(e.instrument->leftTwips())
                       .arg(e.instrument->topTwips());
        }
        return all;
    }
    /// HasProfilePath, ProfileChanged, ProfilePath's last part, caption's last part.
    QString state() const {
        const auto last = [](const QString& text) { return text.section(u'/', -1); };
        return QStringLiteral("%1 %2 '%3' '%4'")
            .arg(window.HasProfilePath)
            .arg(window.ProfileChanged)
            .arg(last(window.ProfilePath), last(window.windowTitle()));
    }
    /// Opens with the question what is to happen answered: an option, or -1 for the cancel button.
    void loadChoosing(int option) {
        QTimer::singleShot(0, &window, [this, option] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(dialog);
            asked = dialog->windowTitle();
            dialog->grab();
            if (option >= 0)
                dialog->findChild<QRadioButton*>(QStringLiteral("optLoadProfile%1").arg(option))->click();
            dialog->findChild<QPushButton*>(option >= 0 ? "cmdOk" : "cmdCancel")->click();
        });
        window.mnuLoadConfig_Click();
    }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmInterface window;
    QString asked;
};

TEST_F(ProfileFlowsTest, EveryKindComesBackAsItWasWritten) {
    newTab("Two, \"quoted\" & more");
    int placed = 0;
    for (const KindInfo& info : kInstrumentKinds) {
        for (const std::size_t page : {std::size_t{0}, std::size_t{1}}) {
            Instrument* instrument = place(window, info.kind, page);
            instrument->moveTwips(301 * placed - 45.5, 150.25 * placed);
            instrument->setSizeTwips(3000 + 151 * placed, 1500 + 15 * placed);
            instrument->AssignPin(3, QStringLiteral("OilTemperature")); // leaves a hole
            instrument->AssignPin(2, std::uint8_t{1}, QStringLiteral("Second, \"quoted\""));
            ++placed;
        }
    }
    ASSERT_EQ(placed, 18);
    DataSourceDescriptor = QStringLiteral("SER,3,57600");
    saveAs(window, "first.vis");

    DataSourceDescriptor.clear();
    frmInterface fresh;
    open(fresh);
    fresh.loadLastFile(path("first.vis"));
    EXPECT_EQ(standing(fresh), standing(window));
    EXPECT_EQ(fresh.mainTab->captions(), window.mainTab->captions());
    EXPECT_EQ(DataSourceDescriptor, "SER,3,57600");
    EXPECT_EQ(fresh.mainTab->Tab(), 0);
    EXPECT_EQ(fresh.size(), window.size());
    EXPECT_FALSE(fresh.ProfileChanged);
    for (const InstrumentElement& e : fresh.instruments.all()) {
        if (e.number == 0) continue;
        EXPECT_EQ(e.instrument->isVisibleTo(e.instrument->parentWidget()), true);
        EXPECT_EQ(e.instrument->curVarTable().at(1), e.kind == Kind::TextTag ? "" : "EngineSpeed");
    }
    saveAs(fresh, "second.vis");
    EXPECT_EQ(read("second.vis"), read("first.vis"));
    EXPECT_TRUE(fresh.HasProfilePath) << "no file of its own counts as damaged";

    fresh.loadLastFile(path("first.vis")); // on top of itself
    EXPECT_EQ(fresh.instruments.placedCount(), 2 * placed);
    EXPECT_EQ(fresh.mainTab->Tabs(), 2);
}

TEST_F(ProfileFlowsTest, LoadedInstrumentsTakeTheStateOfTheDashboard) {
    place(window, Kind::Alphanumeric, 0);
    saveAs(window, "a.vis");
    window.TagsOn(1);
    window.setCurBackColour(0x123456, 0);
    window.loadLastFile(path("a.vis"));
    const Instrument& loaded = *window.instruments.all().back().instrument;
    EXPECT_EQ(loaded.tagText(), "[1] EngineSpeed");
    EXPECT_TRUE(loaded.inCTRL().isEnabled());
    EXPECT_EQ(loaded.inCTRL().palette().color(QPalette::Window), QColor(0x56, 0x34, 0x12));
}

TEST_F(ProfileFlowsTest, SavesKeepTheStateInStep) {
    window.ProfileChanged = true;
    prompts.files = {std::nullopt};
    window.ProfilePath = QStringLiteral("/left/over.vis");
    window.mnuSaveConfig_Click(); // cancelled
    EXPECT_EQ(state(), "0 1 '' 'Untitled'");
    saveAs(window, "a.vis");
    EXPECT_EQ(state(), "1 0 'a.vis' 'a.vis'");
    window.ProfileChanged = true;
    prompts.files = {std::nullopt};
    window.mnuSaveAs_Click(); // cancelled
    EXPECT_EQ(state(), "1 1 'a.vis' 'a.vis'");
    const std::size_t dialogs = prompts.fileRequests.size();
    for (int i = 0; i < 5; ++i) place(window, Kind::Alphanumeric, 0);
    window.mnuSaveConfig_Click(); // without a question, where it was
    EXPECT_TRUE(read("a.vis").contains("[VXALPHANUME/0/5]"));
    EXPECT_EQ(prompts.fileRequests.size(), dialogs);
    window.mnuClearCurrentTab_Click();
    for (int i = 0; i < 2; ++i) place(window, Kind::Alphanumeric, 0);
    window.mnuSaveConfig_Click();
    EXPECT_FALSE(read("a.vis").contains("VXALPHANUME/0/5"));
    EXPECT_EQ(state(), "1 0 'a.vis' 'a.vis'");
    window.mnuNew_Click();
    EXPECT_EQ(state(), "0 0 '' 'Untitled'");
    EXPECT_EQ(window.instruments.placedCount(), 0);
    prompts.files = {path("b")};
    window.mnuSaveConfig_Click();
    EXPECT_EQ(state(), "1 0 'b' 'b'");
    EXPECT_TRUE(QFile::exists(path("b")));
}

TEST_F(ProfileFlowsTest, TheFileDialogKeepsItsExtension) {
    window.mnuSaveConfig_Click();
    window.mnuSaveAs_Click();
    window.mnuLoadConfig_Click();
    window.mnuSaveAs_Click();
    const std::pair<const char*, const char*> expected[] = {{"Save Profile...", ""},
                                                            {"Save Profile As...", ""},
                                                            {"Load Profile...", "vis"},
                                                            {"Save Profile As...", "vis"}};
    ASSERT_EQ(prompts.fileRequests.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(prompts.fileRequests[i].title, expected[i].first);
        EXPECT_EQ(prompts.fileRequests[i].extension, expected[i].second);
        EXPECT_EQ(prompts.fileRequests[i].filter, "vis Files|*.vis");
        EXPECT_EQ(prompts.fileRequests[i].initial, "");
    }
}

TEST_F(ProfileFlowsTest, LoadingMarksAndCancellingDetaches) {
    saveAs(window, "a.vis");
    prompts.files = {path("a.vis")};
    window.mnuLoadConfig_Click(); // empty pages: straight to the file dialog
    EXPECT_EQ(state(), "1 1 'a.vis' 'a.vis'");
    EXPECT_TRUE(asked.isEmpty());
    prompts.files = {std::nullopt};
    window.mnuLoadConfig_Click();
    EXPECT_EQ(state(), "0 1 'a.vis' 'Untitled'");
    prompts.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(window.Form_Unload()); // what was loaded counts as changed
    EXPECT_TRUE(window.Form_Unload());
    EXPECT_EQ(readIniValue(SettingsPath, "VXVISTOR", "LASTFILE", {}, 200), path("a.vis"));
}

TEST_F(ProfileFlowsTest, EachOptionOfTheLoad) {
    place(window, Kind::Alphanumeric, 0, {105, 0});
    newTab("Two");
    saveAs(window, "other.vis");
    window.mnuNew_Click();
    struct Case {
        int option;
        std::deque<std::optional<QString>> files; ///< for the dialogs in their order
        QStringList dialogs;
        int standing;
        int tabs;
        const char* state;
    };
    const QString other = path("other.vis");
    const Case cases[] = {
        {-1, {other}, {}, 1, 1, "0 1 '' 'Untitled'"},
        {3, {other}, {}, 1, 1, "0 1 '' 'Untitled'"},
        {2, {other}, {"Load Profile..."}, 2, 2, "1 1 'other.vis' 'other.vis'"},
        {0, {other}, {"Load Profile..."}, 1, 2, "1 1 'other.vis' 'other.vis'"},
        {1,
         {path("kept.vis"), other},
         {"Save Profile...", "Load Profile..."},
         1,
         2,
         "1 1 'other.vis' 'other.vis'"},
        // What stands is not cleared for a file that nobody chose, that is none, or before it is saved.
        {0, {std::nullopt}, {"Load Profile..."}, 1, 1, "0 1 '' 'Untitled'"},
        {2, {std::nullopt}, {"Load Profile..."}, 1, 1, "0 1 '' 'Untitled'"},
        {0, {path("none.vis")}, {"Load Profile..."}, 1, 1, "0 1 '' 'Untitled'"},
        {1, {std::nullopt, other}, {"Save Profile..."}, 1, 1, "0 1 '' 'Untitled'"},
        {1, {path("no/such/folder.vis"), other}, {"Save Profile..."}, 1, 1, "0 1 '' 'Untitled'"},
        {1,
         {path("mine.vis"), std::nullopt},
         {"Save Profile...", "Load Profile..."},
         1,
         1,
         "1 0 'mine.vis' 'mine.vis'"},
    };
    for (const Case& c : cases) {
        window.mnuNew_Click();
        place(window, Kind::Alphanumeric, 0);
        window.ProfileChanged = true;
        prompts.files = c.files;
        prompts.fileRequests.clear();
        asked.clear();
        loadChoosing(c.option);
        EXPECT_EQ(asked, "Load layout");
        QStringList dialogs;
        for (const FileRequest& request : prompts.fileRequests) dialogs << request.title;
        EXPECT_EQ(dialogs, c.dialogs) << c.option;
        EXPECT_EQ(window.instruments.placedCount(), c.standing) << c.option;
        EXPECT_EQ(window.mainTab->Tabs(), c.tabs) << c.option;
        EXPECT_EQ(state(), c.state) << c.option;
    }
    EXPECT_TRUE(read("mine.vis").contains("VXALPHANUME=1"));
}

TEST_F(ProfileFlowsTest, ToolbarButtonsAskAndAct) {
    struct Case {
        Answer answer;
        int standing;
        bool saved;
    };
    for (const Case& c :
         {Case{Answer::Cancel, 1, false}, Case{Answer::No, 0, false}, Case{Answer::Yes, 0, true}}) {
        QFile::remove(path("t.vis"));
        window.mnuNew_Click();
        place(window, Kind::Alphanumeric, 0);
        prompts.answers = {c.answer};
        prompts.files = {path("t.vis")};
        prompts.takeWords();
        window.Toolbar_ButtonClick(2);
        EXPECT_EQ(prompts.takeWords(), QStringList("Do you want to save changes ?"));
        EXPECT_EQ(prompts.messages.back().icon, Icon::Question);
        EXPECT_EQ(window.instruments.placedCount(), c.standing);
        EXPECT_EQ(QFile::exists(path("t.vis")), c.saved);
    }
    prompts.files = {path("t.vis"), path("u.vis")};
    window.Toolbar_ButtonClick(3);
    EXPECT_EQ(window.instruments.placedCount(), 1);
    window.HasProfilePath = false;
    window.Toolbar_ButtonClick(4);
    EXPECT_EQ(read("u.vis"), read("t.vis"));
}

TEST_F(ProfileFlowsTest, AFileWithoutAWidthMakesTheWindowNarrow) {
    window.loadLastFile(write("a.vis", "[TABS]\nHEIGHT=6000\nPIC=0\n"));
    EXPECT_EQ(window.size(), QSize(window.minimumWidth(), 400)) << "but not to nothing";
    EXPECT_GT(window.width(), 300);
    window.loadLastFile(write("a.vis", "[TABS]\nWIDTH=15000\nPIC=0\n"));
    EXPECT_EQ(window.size(), QSize(1000, 400));
    window.showMaximized();
    const QSize maximised = window.size();
    window.loadLastFile(path("a.vis"));
    EXPECT_EQ(window.size(), maximised);
}

TEST_F(ProfileFlowsTest, WhatStandsOutlivesAnyFile) {
    newTab("Two");
    newTab("Three");
    Instrument* kept = place(window, Kind::Alphanumeric, 1);
    const QStringList before = standing(window);
    QDir(folder.path()).mkdir("directory.vis");
    write("locked.vis", "[TABS]\nPIC=9\n");
    QFile::setPermissions(path("locked.vis"), {});
    QByteArray noise;
    for (int i = 0; i < 5000; ++i) noise += static_cast<char>(i * 7919 % 251);
    write("noise.vis", noise);
    write("empty.vis", "");
    saveAs(window, "mine.vis");
    window.ProfileChanged = true;
    DataSourceDescriptor = QStringLiteral("SER,3,57600");
    const QSize size = window.size();
    for (const char* bad : {"none.vis", "directory.vis", "empty.vis", "noise.vis"}) {
        clearNotices();
        window.loadLastFile(path(bad));
        EXPECT_EQ(standing(window), before) << bad;
        EXPECT_EQ(window.mainTab->captions(), QStringList({"VX", "Two", "Three"})) << bad;
        EXPECT_EQ(state(), "1 1 'mine.vis' 'mine.vis'") << bad;
        EXPECT_EQ(DataSourceDescriptor, "SER,3,57600") << bad;
        EXPECT_EQ(window.size(), size) << bad;
        ASSERT_EQ(notices().size(), 1U) << bad;
        EXPECT_TRUE(notices().back().text.startsWith(path(bad) + " was not loaded: ")) << bad;
    }
    window.loadLastFile(path("locked.vis")); // whoever may read everything reads it
    EXPECT_EQ(standing(window), before);
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(pageOf(*kept)->number(), 1);
}

TEST_F(ProfileFlowsTest, DeclaredPagesAndWildPlacesDoNoHarm) {
    window.loadLastFile(write("a.vis", "[TABS]\nWIDTH=15000\nPIC=1000000\nVXALPHANUME=1000000\n"
                                       "[VXALPHANUME/255]\n7=a\n[a]\nLEFT=-99999999\nTOP=1e99\nMEM=2\n"
                                       "0=1e99\n1=-5\n2=\"\x01[\n"));
    EXPECT_EQ(window.mainTab->Tabs(), 256);
    EXPECT_EQ(window.pic.size(), 256U);
    EXPECT_EQ(window.instruments.placedCount(), 1);
    saveAs(window, "b.vis");
    EXPECT_TRUE(read("b.vis").contains("PIC=256"));
}

TEST_F(ProfileFlowsTest, AFullDiskLeavesTheOldFile) {
    saveAs(window, "a.vis");
    const QByteArray before = read("a.vis");
    for (int i = 0; i < 20; ++i) place(window, Kind::AngularGauge, 0);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{static_cast<rlim_t>(before.size()) + 100, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    window.mnuSaveConfig_Click();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, ignored);
    EXPECT_EQ(read("a.vis"), before);
    EXPECT_EQ(state(), "1 1 'a.vis' 'a.vis'");
    window.mnuSaveConfig_Click();
    EXPECT_GT(read("a.vis").size(), before.size());
    EXPECT_TRUE(prompts.messages.empty());
}

/// Every way that saves, with a file that cannot be written and with a dialog that is cancelled.
TEST_F(ProfileFlowsTest, NothingGoesOnAfterASaveThatDidNotHappen) {
    const QString unwritable = path("no/such/folder/a.vis");
    place(window, Kind::Alphanumeric, 0);
    saveAs(window, "a.vis");
    const QByteArray saved = read("a.vis");
    saveAs(window, "other.vis");
    const struct {
        const char* name;
        std::function<void()> command;
        bool asks; ///< whether to save changes
    } commands[] = {
        {"save", [this] { window.mnuSaveConfig_Click(); }, false},
        {"save button", [this] { window.Toolbar_ButtonClick(4); }, false},
        {"save as", [this] { window.mnuSaveAs_Click(); }, false},
        {"new", [this] { window.Toolbar_ButtonClick(2); }, true},
        {"load and save", [this] { loadChoosing(1); }, false},
        {"end", [this] { EXPECT_FALSE(window.Form_Unload()); }, true},
        {"exit", [this] { window.mnuExit_Click(); }, true},
        {"close", [this] { EXPECT_FALSE(window.close()); }, true},
    };
    enum Failure { Refused, Full, Cancelled, RefusedAfterDialog };
    QSignalSpy unloaded(&window, &frmInterface::unloaded);
    for (const auto& [name, command, asks] : commands) {
        for (const Failure failure : {Refused, Full, Cancelled, RefusedAfterDialog}) {
            SCOPED_TRACE(std::string(name) + ' ' + std::to_string(failure));
            const bool named = failure == Refused || failure == Full;
            window.HasProfilePath = named;
            window.ProfilePath = failure == Refused ? unwritable : path("a.vis");
            window.setWindowTitle(QStringLiteral("as before"));
            window.ProfileChanged = true;
            clearNotices();
            prompts.answers.clear();
            if (asks) prompts.answers = {Answer::Yes};
            prompts.files = {failure == Cancelled ? std::nullopt
                             : failure == Full    ? std::optional(path("a.vis"))
                                                  : std::optional(unwritable)};
            window.CurrentTab = 0;
            failFileCall(failure == Full ? 1 : 0);
            window.instruments.all().back().instrument->move(7 * failure, 9); // or there is nothing to write
            command();
            failFileCall(0);
            EXPECT_EQ(window.instruments.placedCount(), 1);
            EXPECT_TRUE(window.ProfileChanged);
            EXPECT_EQ(window.HasProfilePath, named);
            EXPECT_EQ(window.windowTitle(), "as before");
            EXPECT_EQ(notices().size(), failure == Cancelled ? 0U : 1U);
            EXPECT_EQ(read("a.vis"), saved);
            EXPECT_FALSE(QFile::exists(SettingsPath));
        }
    }
    EXPECT_EQ(unloaded.count(), 0);
    EXPECT_TRUE(window.isVisible());
    window.ProfilePath = path("a.vis"); // and with a file that can be written all of it goes on
    window.HasProfilePath = true;
    prompts.answers = {Answer::Yes};
    EXPECT_TRUE(window.close());
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_NE(read("a.vis"), saved);
}

TEST_F(ProfileFlowsTest, ADamagedFileIsShownAndNotWrittenOver) {
    place(window, Kind::Alphanumeric, 0);
    place(window, Kind::Alphanumeric, 0);
    saveAs(window, "whole.vis");
    const QByteArray whole = read("whole.vis");
    write("cut.vis", whole.first(whole.indexOf("[VXALPHANUME/0/2]") + 40));
    window.mnuNew_Click();
    clearNotices();
    prompts.files = {path("cut.vis")};
    window.mnuLoadConfig_Click();
    EXPECT_EQ(window.instruments.placedCount(), 2) << "what is good, and what is left of the other";
    EXPECT_EQ(state(), "0 1 'cut.vis' 'Untitled'");
    ASSERT_EQ(notices().size(), 1U);
    EXPECT_TRUE(notices().back().text.startsWith(path("cut.vis") + " is damaged: "));
    const QByteArray cut = read("cut.vis");
    prompts.files = {std::nullopt};
    window.mnuSaveConfig_Click();
    EXPECT_EQ(prompts.fileRequests.back().title, "Save Profile...");
    prompts.files = {path("mended.vis")};
    window.mnuSaveConfig_Click();
    EXPECT_EQ(state(), "1 0 'mended.vis' 'mended.vis'");
    EXPECT_EQ(read("cut.vis"), cut);
    clearNotices();
    window.loadLastFile(path("mended.vis"));
    EXPECT_TRUE(notices().empty()) << notices().back().text.toStdString();
    EXPECT_EQ(state(), "1 0 'mended.vis' 'mended.vis'");
}

TEST_F(ProfileFlowsTest, EventsInTheMiddleOfALoadDoNoHarm) {
    newTab("Two");
    for (int i = 0; i < 200; ++i) place(window, Kind::AngularGauge, i % 2);
    saveAs(window, "many.vis");
    const QByteArray whole = read("many.vis");
    const auto during = [this](auto action) {
        window.mnuNew_Click();
        bool inside = false;
        bool loading = true;
        QTimer::singleShot(5, &window, [&, action] {
            inside = loading;
            action();
        });
        prompts.files = {path("many.vis")};
        window.LoadVis();
        loading = false;
        EXPECT_TRUE(inside);
        pumpEvents();
    };
    during([this] { window.mainTab->Tab(1); }); // what was still to come for the first page goes to this one
    EXPECT_EQ(window.instruments.placedCount(), 200);
    EXPECT_EQ(window.mainTab->Tab(), 0);
    during([this] { window.mnuNew_Click(); });
    EXPECT_EQ(window.instruments.placedCount(), 0);
    EXPECT_EQ(state(), "0 0 '' 'Untitled'");
    during([this] { window.mnuCloseAllTabs_Click(); });
    EXPECT_EQ(window.instruments.placedCount(), 0);
    EXPECT_EQ(state(), "1 1 'many.vis' 'many.vis'") << "the file is not yet as empty as the pages";
    during([this] {
        window.ProfileChanged = true;
        EXPECT_FALSE(window.Form_Unload()) << "nothing could be saved now";
        window.mnuSaveAs_Click();
    });
    EXPECT_TRUE(prompts.messages.empty());
    during([this] { // what is half there is neither saved nor played, and nothing else is loaded on top
        window.mnuSaveConfig_Click();
        window.mnuPlayMode_Click();
        window.mnuLoadConfig_Click();
        EXPECT_TRUE(prompts.files.empty());
    });
    EXPECT_FALSE(PlayMode);
    EXPECT_EQ(read("many.vis"), whole);
    EXPECT_EQ(window.instruments.placedCount(), 200);
    during([this] { window.mnuCloseLastTab_Click(); });
    EXPECT_EQ(window.mainTab->Tabs(), 1);
    during([this] {
        window.ProfileChanged = false;
        EXPECT_TRUE(window.Form_Unload());
    });
    EXPECT_LT(window.instruments.placedCount(), 200);
}

TEST_F(ProfileFlowsTest, KeysChooseATab) {
    newTab("Two");
    newTab("Three");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int tab;
    };
    const Case cases[] = {{Qt::Key_1, Qt::ControlModifier, 0},
                          {Qt::Key_3, Qt::ControlModifier, 2},
                          {Qt::Key_9, Qt::ControlModifier, 2}, // there is no such tab
                          {Qt::Key_Tab, Qt::ControlModifier, 0},
                          {Qt::Key_Tab, Qt::ControlModifier, 1},
                          {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 0},
                          {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 2}};
    for (const Case& c : cases) {
        QTest::keyClick(&window, c.key, c.modifiers);
        EXPECT_EQ(window.CurrentTab, c.tab) << c.key;
    }
}

} // namespace
} // namespace vistor
