// The program as a person starts it: its own process, its own working folder, a recorded run.
#include "acquisition/StreamEncoder.h"
#include "dashboard/CustomLibrary.h"
#include "platform/IniFile.h"
#include "tests/shell/FreshAccount.h"

#include <QElapsedTimer>
#include <QHash>
#include <QImage>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>

namespace vistor {
namespace {

class ProgramTest : public FreshAccount {
protected:
    /// Starts the program on the folders of this account.
    void begin(QProcess& program, const QStringList& arguments) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), root.filePath(QStringLiteral("person")));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(VISTOR_PROGRAM), arguments);
    }
    /// Plays a run file onto a tab of the delivered demo and answers what its readouts held at the end.
    QHash<QString, double> play(const QString& run, int tab, const char* seconds) {
        QProcess program;
        begin(program, {QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/demo.vis"), QStringLiteral("--play"),
                        QStringLiteral("--tab"), QString::number(tab), QStringLiteral("--source"),
                        QStringLiteral("FIL,") + run, QStringLiteral("--exit-after"), QLatin1String(seconds),
                        QStringLiteral("--screenshot"), picture()});
        EXPECT_TRUE(program.waitForFinished(60000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        QHash<QString, double> values;
        const QStringList words = QString::fromUtf8(program.readAllStandardOutput()).simplified().split(u' ');
        for (const QString& word : words)
            values.insert(word.section(u'=', 0, 0), word.section(u'=', 1).toDouble());
        return values;
    }
    QString picture() const { return root.filePath(QStringLiteral("demo.png")); }
};

TEST_F(ProgramTest, PlaysARecordingOntoItsReadouts) {
    write(working("Car.cfg"), "IGNTIONPULSESREV,2\r\n");
    std::vector<std::uint8_t> run = runFileHead();
    for (int step = 0; step < 3; ++step) {
        const ChannelValue time[] = {{1, 100 + step * 0.2}};
        const ChannelValue pulses[] = {{2, 9000.0 + step * 1000}};
        const ChannelValue others[] = {{213, 80.25}, {16, 1.0 + step}, {70, 81.5}};
        appendMessage(run, 1, time);
        appendMessage(run, 18, pulses);
        appendMessage(run, 3, others);
    }
    const QString path = root.filePath(QStringLiteral("short.run"));
    write(path, QByteArray(reinterpret_cast<const char*>(run.data()), static_cast<qsizetype>(run.size())));
    const auto driver = play(path, 1, "3");
    EXPECT_EQ(driver.value(QStringLiteral("Gear")), 3);
    EXPECT_EQ(driver.value(QStringLiteral("CoolantTemp")), 82) << "81.5 on a readout without decimals";
    const auto engine = play(path, 2, "3");
    EXPECT_EQ(engine.value(QStringLiteral("EngineSpeed")), 5500); // 11000 pulses at two a turn
    EXPECT_NEAR(engine.value(QStringLiteral("FuelFlow")), 80.25, 0.06);
    const QImage image(picture());
    EXPECT_GT(image.width(), 600);
}

TEST_F(ProgramTest, PlaysTheSimulatedCar) {
    const QString path = root.filePath(QStringLiteral("demo.run"));
    ASSERT_EQ(
        QProcess::execute(QStringLiteral(VISTOR_VXSTREAM),
                          {QStringLiteral("simulate"), QStringLiteral("--laps"), QStringLiteral("1"),
                           QStringLiteral("--seed"), QStringLiteral("1"), QStringLiteral("--out"), path}),
        0);
    write(working("Car.cfg"), "IGNTIONPULSESREV,2\r\n");
    const auto values = play(path, 2, "6");
    EXPECT_GT(values.value(QStringLiteral("EngineSpeed")), 800);
    EXPECT_LT(values.value(QStringLiteral("EngineSpeed")), 9500);
    EXPECT_NEAR(values.value(QStringLiteral("BatteryVoltage")), 13.8, 1);
    EXPECT_FALSE(values.contains(QStringLiteral("LapNumber"))) << "it stands on another tab";
}

/// Both find a working folder with nothing but a library, and both make what is missing there.
TEST_F(ProgramTest, TwoStartsWithinASecondHarmNoFile) {
    IniFile library;
    for (const char* key : {"aone", "atwo", "athree"})
        addCustomEntry(library, Kind::AngularGauge, QLatin1String(key), {"3000", "3000"}, 1, "old.bmp");
    QDir(root.path()).mkpath(QStringLiteral("person/Kelvane"));
    ASSERT_TRUE(library.save(working("VisControl.cfg")));
    const QByteArray before = read(working("VisControl.cfg"));
    QProcess starts[2];
    for (QProcess& start : starts) {
        begin(start, {QStringLiteral("--exit-after"), QStringLiteral("1")});
        QTest::qWait(100);
    }
    for (QProcess& start : starts) {
        EXPECT_TRUE(start.waitForFinished(60000));
        EXPECT_EQ(start.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(start.exitCode(), 0);
    }
    EXPECT_EQ(read(working("VistorVars.cfg")),
              read(QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/VistorVars.cfg")));
    EXPECT_TRUE(read(working("vxvis.cfg")).contains("LASTFILE"));
    EXPECT_TRUE(QFile::exists(working("Car.cfg")));
    EXPECT_EQ(read(working("VisControl.cfg")), before) << "icons are made without a word in the library";
    EXPECT_TRUE(QDir(working("scratch")).isEmpty()) << "each has taken its pictures with it";
    EXPECT_EQ(QDir(root.filePath("person/Kelvane")).entryList(QDir::Files).size(), 4)
        << "nothing is left over";
}

/// By others: with a question standing at the start, and while a recording plays.
TEST_F(ProgramTest, ASignalEndsItWithinASecondAndSettingsStand) {
    const QString layout = root.filePath(QStringLiteral("last.vis"));
    write(layout, "[TAB]\n0=The last\n");
    const QString recording = root.filePath(QStringLiteral("long.run"));
    std::vector<std::uint8_t> run = runFileHead();
    for (int step = 0; step < 1000; ++step) {
        const ChannelValue time[] = {{1, 100 + step * 0.2}};
        appendMessage(run, 1, time);
    }
    write(recording, QByteArray(reinterpret_cast<const char*>(run.data()), qsizetype(run.size())));
    struct Case {
        int number;
        bool plays;
    };
    for (const Case& c :
         {Case{SIGTERM, false}, Case{SIGHUP, true}, Case{SIGINT, false}, Case{SIGTERM, true}}) {
        write(working("vxvis.cfg"), "[VXVISTOR]\nLASTFILE=" + layout.toLatin1() + "\n");
        QProcess program;
        program.setChildProcessModifier(
            [number = c.number] { std::signal(number, SIG_DFL); }); // a shell's "&"
        begin(program, c.plays ? QStringList{layout, QStringLiteral("--play"), QStringLiteral("--source"),
                                             QStringLiteral("FIL,") + recording}
                               : QStringList());
        const auto isUp = [&] { return !QDir(working("Recovered/")).entryList({"running-*"}).isEmpty(); };
        ASSERT_TRUE(QTest::qWaitFor(isUp, 20000));
        QElapsedTimer time;
        time.start();
        ::kill(static_cast<pid_t>(program.processId()), c.number);
        ASSERT_TRUE(program.waitForFinished(20000));
        EXPECT_LT(time.elapsed(), 1000);
        EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(program.exitCode(), c.number) << "as a shell sees it, 128 more";
        const IniFile settings = IniFile::load(working("vxvis.cfg"));
        EXPECT_EQ(settings.value("VXVISTOR", "LASTFILE", {}, 4096), layout);
        EXPECT_EQ(settings.keys("DESIGN").size(), 4);
        QDir(working("Recovered/")).removeRecursively();
    }
}

TEST_F(ProgramTest, ItsExitCodeTellsWhetherThePictureWasWritten) {
    const QString deep = root.filePath(QStringLiteral("no/such/folder/a.png"));
    const std::pair<QString, int> cases[] = {
        {picture(), 0}, {deep, 1}, {root.filePath(QStringLiteral("a.vis")), 1}, {root.path(), 1}};
    for (const auto& [path, code] : cases) {
        QProcess program;
        begin(program, {QStringLiteral("-platform"), QStringLiteral("offscreen"), QStringLiteral("-style"),
                        QStringLiteral("windows"), QStringLiteral("--exit-after"), QStringLiteral("0"),
                        QStringLiteral("--screenshot"), path});
        EXPECT_TRUE(program.waitForFinished(60000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), code) << path.toStdString();
        EXPECT_EQ(program.readAllStandardError().contains(path.toUtf8() + " was not written: "), code == 1);
    }
    EXPECT_FALSE(QImage(picture()).isNull());
}

TEST_F(ProgramTest, AnUnusableSourceLeavesARunningProgram) {
    const auto values = play(root.filePath(QStringLiteral("none.run")), 2, "1");
    EXPECT_EQ(values.value(QStringLiteral("EngineSpeed"), -1), 0);
}

} // namespace
} // namespace vistor
