#include "shell/frmMain.h"

#include "acquisition/StreamEncoder.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/NumLedDisplay.h"
#include "instruments/frmProperties.h"
#include "platform/Clock.h"
#include "platform/Events.h"
#include "platform/Notices.h"
#include "tests/shell/FreshAccount.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QTableWidget>
#include <QTest>

namespace vistor {
namespace {

class FrmMainTest : public FreshAccount {
protected:
    FrmMainTest() { deliver(); }
    ~FrmMainTest() override { setClock({}); }
    void open() {
        window.resize(1300, 850);
        ASSERT_TRUE(window.MDIForm_Load());
    }
    QAction* command(const char* name) { return window.command(QLatin1String(name)); }
    void trigger(const char* name) {
        ASSERT_TRUE(command(name)) << name;
        command(name)->trigger();
    }
    Instrument* readout(const char* variable, Page* page) {
        Instrument* added = window.dashboard().addInstrument(Kind::Alphanumeric, page);
        added->AssignPin(1, QLatin1String(variable));
        added->setGeometry(20, 20, 200, 90);
        added->show();
        return added;
    }
    static double shown(Instrument* instrument) {
        return instrument->inCTRL().properties().number(NumLedValue);
    }

    /// A run file of a time message and `count` messages of a lap time behind it, and a last time.
    void useRun(int count) {
        std::vector<std::uint8_t> run = runFileHead();
        const auto time = [&run](double seconds) {
            const ChannelValue value{1, seconds};
            appendMessage(run, 1, {&value, 1});
        };
        time(10);
        for (int i = 1; i <= count; ++i) {
            const ChannelValue values[] = {{301, double(i)}, {90, 1.0}};
            appendMessage(run, 2, values);
        }
        time(11);
        const QString path = root.filePath("a.run");
        write(path, QByteArray(reinterpret_cast<const char*>(run.data()), qsizetype(run.size())));
        DataSourceDescriptor = "FIL," + path;
    }
    /// Plays the run in one burst while `meanwhile` happens in the middle of it. Answers whether it did.
    bool burst(const std::function<void()>& meanwhile) {
        double clock = 1000;
        setClock([&clock] { return clock; });
        trigger("mnuPlayMode");
        window.Timer1.stop(); // the ticks are given by hand
        window.Timer1_Timer();
        bool inside = false;
        bool ticking = true;
        QTimer::singleShot(0, &window, [&] {
            inside = ticking;
            meanwhile();
        });
        clock = 1100;
        // A tick ends in time: a long burst takes several.
        for (int i = 0; i < 1000 && PlayMode && LastValue[1] < 11; ++i) window.Timer1_Timer();
        ticking = false;
        setClock({});
        return inside;
    }

    frmMain window;
};

TEST_F(FrmMainTest, TheTimerRunsInPlayModeAlone) {
    open();
    useRun(1);
    EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("Vistor - Version " VISTOR_VERSION)));
    trigger("mnuPlayMode");
    EXPECT_TRUE(window.Timer1.isActive());
    trigger("mnuEditMode");
    EXPECT_FALSE(window.Timer1.isActive());
    EXPECT_EQ(window.Timer1.interval(), 0);
}

TEST_F(FrmMainTest, PropertiesWindowFollowsTheMouseAndTheMode) {
    open();
    useRun(1);
    Instrument* instrument = readout("LapTime", window.dashboard().pic[0]);
    pumpEvents();
    const auto shown = [this] {
        const auto* properties = window.findChild<frmProperties*>();
        return properties && properties->isVisible();
    };
    EXPECT_FALSE(shown());
    window.button(9)->trigger();
    ASSERT_TRUE(shown());
    EXPECT_TRUE(PropertiesWindowShown);
    EXPECT_TRUE(command("mnuShowPropertiesWindow")->isChecked());
    auto& properties = *window.findChild<frmProperties*>();
    QTest::mouseMove(&instrument->inCTRL());
    EXPECT_EQ(properties.windowTitle(), "Properties - Alphanumaric");
    const auto* grid = properties.findChild<QTableWidget*>("grdProperties");
    EXPECT_EQ(grid->item(1, 1)->text(), "LapTime");
    QTest::mouseMove(window.dashboard().pic[0], QPoint(1, 1));
    EXPECT_EQ(grid->rowCount(), 0) << "beside the instruments it shows none";
    trigger("mnuPlayMode");
    EXPECT_FALSE(shown() || PropertiesWindowShown);
    EXPECT_TRUE(command("mnuShowPropertiesWindow")->isChecked()) << "it comes back with edit mode";
    trigger("mnuEditMode");
    EXPECT_TRUE(shown() && PropertiesWindowShown);
    properties.close();
    EXPECT_FALSE(PropertiesWindowShown);
    EXPECT_FALSE(command("mnuShowPropertiesWindow")->isChecked());
    trigger("mnuPlayMode");
    trigger("mnuEditMode");
    EXPECT_FALSE(shown());
}

TEST_F(FrmMainTest, ARunMovesTheReadoutOfThePageInFront) {
    open();
    Instrument* front = readout("LapTime", window.dashboard().pic[0]);
    prompts.inputs = {QStringLiteral("Two")};
    trigger("mnuNewTab");
    Instrument* back = readout("LapTime", window.dashboard().pic[1]);
    window.dashboard().mainTab->Tab(0);
    useRun(40);
    burst([] {});
    EXPECT_EQ(shown(front), 40);
    EXPECT_EQ(shown(back), 0);
    EXPECT_TRUE(window.grab().size().isValid());
}

TEST_F(FrmMainTest, CommandsInTheMiddleOfABurstDoNoHarm) {
    open();
    Instrument* front = readout("LapTime", window.dashboard().pic[0]);
    prompts.inputs = {QStringLiteral("Two")};
    trigger("mnuNewTab");
    Instrument* back = readout("LapTime", window.dashboard().pic[1]);
    window.dashboard().mainTab->Tab(0);
    constexpr int kMessages = 20000;
    useRun(kMessages);

    EXPECT_TRUE(burst([this] { window.dashboard().mainTab->Tab(1); }));
    EXPECT_EQ(shown(front), 0); // what a tick updates goes to the page that is in front at its end
    EXPECT_EQ(shown(back), kMessages);
    trigger("mnuEditMode");

    EXPECT_TRUE(burst([this] { trigger("mnuEditMode"); }));
    EXPECT_FALSE(PlayMode);
    EXPECT_TRUE(StreamBytes.empty());

    EXPECT_TRUE(burst([this] {
        trigger("mnuEditMode");
        trigger("mnuPlayMode");
    }));
    EXPECT_TRUE(PlayMode);
    window.Timer1_Timer();
    EXPECT_GT(StreamBytes.size(), 1U) << "the run that was opened in the middle is read like any other";
    trigger("mnuEditMode");

    window.dashboard().ProfileChanged = false;
    EXPECT_TRUE(burst([this] { EXPECT_TRUE(window.close()); }));
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(PlayMode);
    EXPECT_TRUE(QFile::exists(working("vxvis.cfg")));
}

TEST_F(FrmMainTest, CancellingTheCloseStaysInEditMode) {
    open();
    useRun(3);
    trigger("mnuPlayMode");
    window.dashboard().ProfileChanged = true;
    EXPECT_FALSE(window.close());
    EXPECT_EQ(prompts.takeWords(), QStringList("Do you want to save changes ?"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(PlayMode);
    EXPECT_TRUE(command("mnuPlayMode")->isEnabled());
    EXPECT_FALSE(QFile::exists(working("vxvis.cfg")));
    trigger("mnuExit"); // cancelled once more
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.dashboard().parentWidget()->close()); // and by the child window's own command
    EXPECT_TRUE(window.dashboard().isVisible());
    prompts.answers = {Answer::No};
    trigger("mnuExit");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(prompts.takeWords().size(), 3); // the main window's own end asks nothing again
}

TEST_F(FrmMainTest, APlayThatCannotBeginIsToldAndThePropertiesWindowComesBack) {
    open();
    window.button(9)->trigger();
    const auto* properties = window.findChild<frmProperties*>();
    ASSERT_TRUE(properties && properties->isVisible());
    DataSourceDescriptor = "FIL," + root.filePath("none.run");
    trigger("mnuPlayMode");
    EXPECT_FALSE(PlayMode);
    EXPECT_TRUE(properties->isVisible());
    const auto* line = window.findChild<QWidget*>("noticeLine");
    ASSERT_TRUE(line && line->isVisible());
    EXPECT_TRUE(line->findChild<QLabel*>("noticeWords")->text().contains(QStringLiteral("none.run")));
}

TEST_F(FrmMainTest, AboutStopsNoTick) {
    open();
    useRun(20000);
    EXPECT_TRUE(burst([this] { trigger("mnuAbout"); }));
    EXPECT_EQ(LastValue[301], 20000) << "the ticks went on";
    QWidget* about = QApplication::activeModalWidget();
    ASSERT_TRUE(about);
    about->close();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FrmMainTest, TheStatusBarCountsSamplesAndTellsTheEnd) {
    open();
    useRun(40);
    double clock = 1000;
    setClock([&clock] { return clock; });
    trigger("mnuPlayMode");
    window.Timer1.stop();
    const auto part = [this](const char* name) { return window.findChild<QLabel*>(name)->text(); };
    window.Timer1_Timer();
    clock = 1000.5;
    window.Timer1_Timer();
    EXPECT_EQ(part("rate"), "164 samples/s") << "82 of messages in half a second; calculated rows are none";
    EXPECT_EQ(part("age"), "Last message just now");
    clock = 1010;
    window.Timer1_Timer();
    EXPECT_EQ(part("rate"), "0 samples/s");
    EXPECT_EQ(part("age"), "Recording ended");
}

TEST(StreamInWords, TellsEachState) {
    const std::pair<StreamState, const char*> cases[] = {
        {{}, "No message yet"},
        {{0, 0, true, false}, "No message in this file"},
        {{3, 99.5, false, false}, "Last message just now"},
        {{3, 57.5, false, false}, "Last message 42 s ago"},
        {{3, 100 - 185, false, false}, "Last message 3 min ago"},
        {{3, 99, true, false}, "Recording ended"},
        {{3, 99, false, true}, "Waits for an answer"},
    };
    for (const auto& [state, words] : cases) EXPECT_EQ(streamInWords(state, 100), words);
}

TEST_F(FrmMainTest, TheInnerWindowHasASensibleSizeInEveryState) {
    open();
    useRun(1);
    auto& frame = *qobject_cast<QMdiSubWindow*>(window.dashboard().parentWidget());
    const QString profile = root.filePath("a.vis");
    prompts.files = {profile};
    window.dashboard().mnuSaveAs_Click();
    const auto stored = [&] {
        prompts.files = {profile};
        window.dashboard().mnuSaveAs_Click();
        const IniFile file = IniFile::load(profile);
        return QSize(qRound(leadingNumber(file.value("TABS", "WIDTH", {}, 10)) / 15),
                     qRound(leadingNumber(file.value("TABS", "HEIGHT", {}, 10)) / 15));
    };
    frame.showMinimized();
    pumpEvents();
    const QSize minimised = frame.size();
    EXPECT_GT(stored().width(), 900) << "not that of the stub, " << minimised.width();
    trigger("mnuPlayMode");
    EXPECT_TRUE(frame.isMaximized()) << "as before it was minimised";
    trigger("mnuEditMode");
    frame.showNormal();
    pumpEvents();
    EXPECT_GT(frame.width(), 600);
    EXPECT_GT(frame.height(), 400);
    frame.resize(900, 500);
    pumpEvents();
    EXPECT_EQ(stored(), QSize(900, 500));
    frame.showMinimized();
    pumpEvents();
    EXPECT_EQ(stored(), QSize(900, 500));

    const auto canMinimise = [&] { return frame.windowFlags().testFlag(Qt::WindowMinimizeButtonHint); };
    EXPECT_TRUE(canMinimise());
    trigger("mnuPlayMode");
    pumpEvents();
    EXPECT_FALSE(canMinimise());
    EXPECT_FALSE(frame.isMinimized()) << "a dashboard that plays is seen";
    EXPECT_TRUE(window.dashboard().isVisible());
    EXPECT_EQ(frame.size(), QSize(900, 500));
    trigger("mnuEditMode");
    EXPECT_TRUE(canMinimise());

    frame.resize(10, 10); // as small as a file or a hand makes it
    pumpEvents();
    window.dashboard().ProfileChanged = false;
    EXPECT_TRUE(window.close());
    for (const TwipsBox& box : readWindowSettings(IniFile::load(working("vxvis.cfg"))).boxes) {
        EXPECT_GT(box.width, 0);
        EXPECT_GT(box.height, 0);
    }
}

TEST(SourceInWords, TellsEachKind) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "No data source"},
        {"FIL,/a/b/c.run", "Run file c.run"},
        {"SER,3,57600", "Port 3 at 57600 bits/s"},
        {"SER", "Port  at  bits/s"},
        {"XYZ,1", "No data source"},
    };
    for (const auto& [descriptor, words] : cases) EXPECT_EQ(sourceInWords(QLatin1String(descriptor)), words);
}

} // namespace
} // namespace vistor
