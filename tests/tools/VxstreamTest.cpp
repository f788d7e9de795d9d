// The tool as a person calls it.
#include "tests/StreamReading.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

namespace vistor {
namespace {

struct Outcome {
    int code = -1;
    std::string out;
    std::string errors;
};

Outcome run(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(VISTOR_VXSTREAM), arguments);
    process.waitForFinished();
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

class Vxstream : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    void write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(Vxstream, CsvToRunToText) {
    write("in.csv", "Time,2,30\n0,3000,48.25\n0.015625,3100.5,\n");
    const Outcome made =
        run({QStringLiteral("from-csv"), path("in.csv"), QStringLiteral("--out"), path("a.run")});
    EXPECT_EQ(made.code, 0) << made.errors;
    QFile file(path("a.run"));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("\x01\x01\x7E\x05", 4);
    file.close();
    EXPECT_EQ(run({QStringLiteral("dump"), path("a.run")}).out, "run file, version 200\n"
                                                                "8: message 1  1=0\n"
                                                                "24: message 2  2=3000, 30=48.25\n"
                                                                "46: message 1  1=0.015625\n"
                                                                "60: message 2  2=3100.5\n"
                                                                "73: skipped 2 bytes, wrong length\n"
                                                                "76: 1 bytes without a closing delimiter\n");
    EXPECT_EQ(run({QStringLiteral("dump"), QStringLiteral("--summary"), path("a.run")}).out,
              "run file, version 200\n"
              "4 messages, 5 values, 1 skipped\n"
              "time 0 to 0.015625 s\n"
              "message 1: 2\n"
              "message 2: 2\n"
              "channel 1: 2 values, 0 to 0.015625, last 0.015625\n"
              "channel 2: 2 values, 3000 to 3100.5, last 3100.5\n"
              "channel 30: 1 values, 48.25 to 48.25, last 48.25\n"
              "skipped, wrong length: 1 times, 2 bytes\n"
              "1 bytes at the end without a closing delimiter\n");
}

TEST_F(Vxstream, NamesComeFromTheDefinitions) {
    write("in.csv", "time,EngineSpeed [rpm],oiltemp,204\n0,3000,90.5,2.5\n");
    const QString delivered = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/VistorVars.cfg");
    const QStringList common = {QStringLiteral("from-csv"), path("in.csv"), QStringLiteral("--out"),
                                path("a.run"), QStringLiteral("--definitions")};
    for (const QStringList& arguments : {common + QStringList{delivered}, common.mid(0, 4)}) {
        EXPECT_EQ(run(arguments).errors, "") << "the delivered definitions are taken unasked";
        EXPECT_TRUE(QFile::exists(path("a.run")));
    }
    EXPECT_EQ(run({QStringLiteral("dump"), path("a.run")}).out, "run file, version 200\n"
                                                                "8: message 1  1=0\n"
                                                                "24: message 2  2=3000, 72=90.5, 204=2.5\n");
    EXPECT_EQ(run(common + QStringList{path("in.csv")}).errors,
              "vxstream: " + path("in.csv").toStdString() + ": no definition file\n");
    EXPECT_EQ(run(common + QStringList{path("none.cfg")}).errors,
              "vxstream: " + path("none.cfg").toStdString() + ": no definition file\n");
    EXPECT_FALSE(QFile::exists(path("none.cfg")));
}

TEST_F(Vxstream, Complaints) {
    write("in.csv", "Time,2\n0,x\n");
    write("empty", "");
    const auto args = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); };
    const QString csv = path("in.csv");
    const struct {
        QStringList arguments;
        int code;
        QString errors;
    } cases[] = {
        {args("simulate"), 2, QStringLiteral("vxstream: say one of --out, --port and --pty\n")},
        {args("simulate --pty --out a"), 2, QStringLiteral("vxstream: say one of --out, --port and --pty\n")},
        {args("simulate --out a --laps 0"), 2, QStringLiteral("vxstream: a file needs --laps above 0\n")},
        {args("simulate --pty --corrupt 101"), 2,
         QStringLiteral("vxstream: --corrupt is a number from 0 to 100, not \"101\"\n")},
        {args("simulate --pty --speed x"), 2,
         QStringLiteral("vxstream: --speed is a number from 0.01 to 1000, not \"x\"\n")},
        {args("simulate --port /nowhere/tty"), 1,
         QStringLiteral("vxstream: /nowhere/tty: No such file or directory\n")},
        {args("simulate --port /dev/null --baud 5000"), 1,
         QStringLiteral("vxstream: 5000 bits per second is no speed of a line\n")},
        {args("simulate --laps 1 --out /nowhere/a.run"), 1,
         QStringLiteral("vxstream: /nowhere/a.run: there is no such file or folder\n")},
        {args("dump"), 2, QStringLiteral("vxstream: name one file to dump\n")},
        {args("dump /nowhere/a.run"), 1,
         QStringLiteral("vxstream: /nowhere/a.run: there is no such file or folder\n")},
        {args("from-csv in.csv"), 2, QStringLiteral("vxstream: name one table to read, and --out\n")},
        {{QStringLiteral("from-csv"), csv, QStringLiteral("--out"), path("a.run")},
         1,
         QStringLiteral("vxstream: %1: line 2: column 2, \"2\": \"x\" is no number\n").arg(csv)},
    };
    for (const auto& one : cases) {
        const Outcome outcome = run(one.arguments);
        EXPECT_EQ(outcome.code, one.code) << one.errors.toStdString();
        EXPECT_EQ(outcome.errors, one.errors.toStdString());
    }
    EXPECT_FALSE(QFile::exists(path("a.run")));
    EXPECT_EQ(run({}).code, 2);
    EXPECT_EQ(run({QStringLiteral("--help")}).code, 0);
    EXPECT_NE(run({QStringLiteral("simulate"), QStringLiteral("--help")}).out.find("--drop-out"),
              std::string::npos);
    EXPECT_EQ(run({QStringLiteral("dump"), path("empty")}).out, "no run file head\n");
}

TEST_F(Vxstream, PlaysLiveToAPseudoTerminal) {
    QProcess process;
    process.start(QStringLiteral(VISTOR_VXSTREAM), {QStringLiteral("simulate"), QStringLiteral("--pty"),
                                                    QStringLiteral("--speed"), QStringLiteral("10")});
    ASSERT_TRUE(process.waitForReadyRead());
    const QByteArray device = process.readLine().trimmed();
    const int line = open(device.constData(), O_RDONLY | O_NOCTTY);
    ASSERT_GE(line, 0) << device.toStdString();
    Bytes bytes;
    while (bytes.size() < 60'000) {
        std::uint8_t chunk[4096];
        const ssize_t got = read(line, chunk, sizeof chunk);
        ASSERT_GT(got, 0);
        bytes.insert(bytes.end(), chunk, chunk + got);
    }
    close(line);
    process.kill();
    process.waitForFinished();
    const Reading reading = readAll(bytes);
    EXPECT_GT(reading.messages.size(), 600U);
    EXPECT_LT(reading.junk.size() * 10, reading.messages.size()) << "only what did not fit at times";
}

} // namespace
} // namespace vistor
