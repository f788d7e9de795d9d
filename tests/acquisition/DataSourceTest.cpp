#include "acquisition/DataSource.h"

#include "acquisition/HandleSerialData.h"
#include "acquisition/Serial_API.h"
#include "acquisition/SourceChoice.h"
#include "acquisition/StreamEncoder.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "tests/PseudoTerminal.h"
#include "tests/TestTables.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>

namespace vistor {
namespace {

using Bytes = std::vector<std::uint8_t>;

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(DataSource, RunFilesAreKnownByTheirHead) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.run"));
    const std::pair<QByteArray, bool> cases[] = {{QByteArray::fromHex("981d0000c8000000"), true},
                                                 {QByteArray::fromHex("981d0000c9000000ff"), true},
                                                 {QByteArray::fromHex("981d0000ca000000"), false},
                                                 {QByteArray::fromHex("981d0000cb000000"), true},
                                                 {QByteArray::fromHex("981d0001c8000000"), false},
                                                 {QByteArray::fromHex("981d0000c80000"), false},
                                                 {QByteArray(), false}};
    for (const auto& [bytes, expected] : cases) {
        writeFile(path, bytes);
        EXPECT_EQ(IsRunFile(path), expected) << bytes.toHex().toStdString();
    }
    EXPECT_FALSE(IsRunFile(dir.path()));
    EXPECT_FALSE(IsRunFile(QStringLiteral("/dev/zero")));
    EXPECT_FALSE(IsRunFile(dir.filePath(QStringLiteral("none.run"))));
}

TEST(DataSource, ReadsAWholeRunFileWithAZeroBehindIt) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.run"));
    writeFile(path, QByteArray::fromHex("981d0000c8000000aabb"));
    DataSourceDescriptor = QStringLiteral("FIL,") + path;
    ASSERT_TRUE(OpenDataSource());
    EXPECT_EQ(TimeBase, kNotStartedTimeBase);
    EXPECT_GT(RunFileHandle, 0);
    EXPECT_EQ(StreamBytes.size(), 1U);
    Bytes bytes;
    ReadDataSource(bytes);
    EXPECT_EQ(bytes, (Bytes{0x98, 0x1D, 0, 0, 0xC8, 0, 0, 0, 0xAA, 0xBB, 0}));
    CloseDataSource();
    EXPECT_EQ(TimeBase, kLiveTimeBase);
    EXPECT_EQ(RunFileHandle, -1);
    EXPECT_TRUE(StreamBytes.empty());
    DataSourceDescriptor += QStringLiteral(",more"); // the path ends at the comma
    EXPECT_TRUE(OpenDataSource());
    DataSourceDescriptor = QStringLiteral("FIL,") + dir.path();
    EXPECT_FALSE(OpenDataSource());
    EXPECT_EQ(TimeBase, kNotStartedTimeBase);
    CloseDataSource();
}

/// A pseudo terminal as port 1.
struct Line {
    QTemporaryDir dir;
    PseudoTerminal terminal;

    Line() {
        SettingsPath = dir.filePath(QStringLiteral("vxvis.cfg"));
        use(terminal);
        DataSourceDescriptor = QStringLiteral("SER,1,115200");
    }
    static void use(const PseudoTerminal& terminal) {
        writeIniValue(SettingsPath, QStringLiteral("PORTS"), QStringLiteral("1"), terminal.device());
    }
    ~Line() { CloseDataSource(); }
};

TEST(DataSource, SerialReadsNeverWaitAndEndInAZero) {
    Line line;
    ASSERT_TRUE(OpenDataSource());
    EXPECT_EQ(TimeBase, kLiveTimeBase);
    Bytes bytes = {9};
    EXPECT_FALSE(ReadPort(bytes));
    EXPECT_EQ(bytes, Bytes{9});
    const Bytes sent = {1, 0, 3};
    ASSERT_EQ(line.terminal.write(sent), 3U);
    ASSERT_TRUE(ReadPort(bytes));
    EXPECT_EQ(bytes, (Bytes{1, 0, 3, 0}));
    ClosePort();
    ClosePort();
    EXPECT_FALSE(ReadPort(bytes));
    EXPECT_FALSE(OpenPort(99, 9600));
}

/// Counts how often a file is opened or closed.
class Watch {
public:
    explicit Watch(const QString& path) : m_file(inotify_init1(IN_NONBLOCK)) {
        inotify_add_watch(m_file, QFile::encodeName(path).constData(), IN_OPEN | IN_CLOSE);
    }
    ~Watch() { ::close(m_file); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    int take() {
        char events[4096];
        const ssize_t length = ::read(m_file, events, sizeof events);
        return length < 0 ? 0 : static_cast<int>(length / static_cast<ssize_t>(sizeof(inotify_event)));
    }

private:
    int m_file;
};

void readTimes(int times) {
    Bytes bytes;
    for (int i = 0; i < times; ++i) ReadDataSource(bytes);
}

TEST(DataSource, ASilentLineStaysOpenAndKeepsWhatIsHalfReceived) {
    Line line;
    Watch watch(line.terminal.device());
    ASSERT_TRUE(OpenDataSource());
    EXPECT_GT(watch.take(), 0);
    Bytes bytes;
    const Bytes sent = {1};
    readTimes(10);
    EXPECT_EQ(EmptyReadCount, 10);
    line.terminal.write(sent);
    ReadDataSource(bytes);
    EXPECT_EQ(EmptyReadCount, 0); // one byte resets the count
    StreamBytes = {1, 2, 3};
    readTimes(10);
    EXPECT_EQ(EmptyReadCount, 10);
    readTimes(1);
    EXPECT_EQ(EmptyReadCount, 0);
    readTimes(40);
    EXPECT_EQ(StreamBytes, (Bytes{1, 2, 3}));
    EXPECT_EQ(watch.take(), 0) << "a board that resets when its port is opened would never come up";
    EXPECT_TRUE(notices().empty());
    CloseDataSource();
    EXPECT_GT(watch.take(), 0);
}

TEST(DataSource, ALineIsClosedWithoutHangingUp) {
    Line line;
    line.terminal.hangUpOnClose();
    ASSERT_TRUE(line.terminal.hangsUpOnClose()) << "as the lines of a computer do";
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(OpenDataSource());
        EXPECT_FALSE(line.terminal.hangsUpOnClose());
        CloseDataSource();
        EXPECT_FALSE(line.terminal.hangsUpOnClose());
    }
}

/// The messages that arrive of a sender whose delimiters close one message and open the next.
TEST(DataSource, ALineIsInStepFromItsFirstByteAndAfterEveryPause) {
    makeTable();
    Line line;
    ASSERT_TRUE(OpenDataSource());
    TickValueArray values{};
    TickFlagArray updated{};
    float target = 0;
    const std::uint64_t before = streamCounts().messages;
    const auto tick = [&] {
        Bytes arrived;
        ReadDataSource(arrived);
        ConcatanateBytes(StreamBytes, arrived);
        DecodeStream(StreamBytes, values, updated, target, false);
    };
    for (int message = 0; message < 5; ++message) {
        Bytes stream;
        const ChannelValue value{5, 1.0 + message};
        appendMessage(stream, 3, {&value, 1});
        line.terminal.write(std::span(stream).subspan(1)); // its opening delimiter closed the one before
        for (int i = 0; i < 30; ++i) tick();
        EXPECT_EQ(LastValue[5], 1.0F + static_cast<float>(message));
    }
    EXPECT_EQ(streamCounts().messages - before, 5U);
}

TEST(DataSource, ADeviceThatVanishesIsPickedUpWhenItReturnsAndBothAreTold) {
    Line line;
    ASSERT_TRUE(OpenDataSource());
    line.terminal.hangUp();
    Bytes bytes;
    for (int i = 0; i < 100; ++i) ReadDataSource(bytes);
    EXPECT_TRUE(bytes.empty());
    ASSERT_EQ(notices().size(), 1U) << "not one at each read";
    EXPECT_TRUE(notices().back().text.contains(QStringLiteral("port 1 is gone")));
    PseudoTerminal back;
    Line::use(back);
    const Bytes sent = {7};
    for (int i = 0; i < 12; ++i) ReadDataSource(bytes);
    back.write(sent);
    ReadDataSource(bytes);
    EXPECT_EQ(bytes, (Bytes{7, 0}));
    ASSERT_EQ(notices().size(), 2U);
    EXPECT_TRUE(notices().back().text.contains(QStringLiteral("is back")));
    EXPECT_EQ(StreamBytes, Bytes{0x7E});
}

TEST(DataSource, WhatWillNotOpenIsToldOnceWithWhatToDo) {
    Line line;
    const auto file = [&line](const char* name) { return line.dir.filePath(QLatin1String(name)); };
    writeFile(file("text.run"), "Time,Speed\n1,2\n");
    writeFile(file("empty.run"), {});
    QDir().mkdir(file("folder"));
    PseudoTerminal taken;
    const int holder = ::open(QFile::encodeName(taken.device()).constData(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(ioctl(holder, TIOCEXCL), 0);
    const auto port = [](const char* key, const QString& device) {
        writeIniValue(SettingsPath, QStringLiteral("PORTS"), QLatin1String(key), device);
    };
    port("2", QStringLiteral("/dev/not-there"));
    port("3", file("text.run"));
    port("4", taken.device());
    port("5", file("folder"));
    const std::pair<QString, const char*> cases[] = {
        {"FIL,", "No run file is named"},
        {"FIL," + file("none.run"), "is not there"},
        {"FIL," + file("folder"), "is a folder"},
        {"FIL," + file("text.run"), "does not begin as one"},
        {"FIL," + file("empty.run"), "does not begin as one"},
        {"FIL,/dev/zero", "no file"},
        {"FIL," + file("none.run") + ",more", "must not hold a comma"},
        {"SER", "names no port and speed"},
        {"SER,99,9600", "There is no port 99"},
        {"SER,2,9600", "Port 2 (/dev/not-there) is not there. Plug in"},
        {"SER,3,9600", "is no serial line"},
        {"SER,4,9600", "in use by another program"},
        {"SER,5,9600", "is no serial line"},
    };
    for (const auto& [descriptor, words] : cases) {
        clearNotices();
        DataSourceDescriptor = descriptor;
        for (int i = 0; i < 2; ++i) EXPECT_FALSE(OpenDataSource());
        ASSERT_EQ(notices().size(), 1U) << words;
        EXPECT_TRUE(notices().back().text.contains(QLatin1String(words)))
            << notices().back().text.toStdString();
    }
    ::close(holder);
    clearNotices();
    detectPorts();
    EXPECT_TRUE(notices().empty()) << "looking for ports tells nothing of those that are not there";
    const QString device = QStringLiteral("/dev/ttyUSB0");
    EXPECT_EQ(deviceProblem(1, device, EACCES, QStringLiteral("dialout")),
              "Port 1 (/dev/ttyUSB0): permission denied. Join the group dialout (sudo usermod -aG dialout "
              "$USER) and log in again.");
    EXPECT_TRUE(deviceProblem(1, device, EACCES, {}).contains(QStringLiteral("administers")));
    EXPECT_TRUE(deviceProblem(1, device, EIO, {}).contains(QStringLiteral("cannot be opened")));
}

TEST(DataSource, EveryMessageOfAFullLineArrives) {
    constexpr int kMessages = 20000;
    makeTable();
    // Row 5 counts: each message adds its 1 to what row 7 keeps.
    setFormula(5, QStringLiteral("VAR_0007 + x"));
    setFormula(7, QStringLiteral("VAR_0005"));
    Bytes stream;
    const ChannelValue values[] = {{5, 1}, {7, 0}, {2, 0x7E7D}, {10, 0}};
    for (int i = 0; i < kMessages; ++i) appendMessage(stream, 3, values);
    Line line;
    ASSERT_TRUE(OpenDataSource());
    TickValueArray tickValues{};
    TickFlagArray updated{};
    float target = 0;
    std::span<const std::uint8_t> rest = stream;
    for (int empty = 0; empty < 100;) {
        rest = rest.subspan(line.terminal.write(rest.first(std::min<std::size_t>(rest.size(), 3333))));
        Bytes arrived;
        if (ReadPort(arrived))
            empty = 0;
        else
            ++empty;
        ConcatanateBytes(StreamBytes, arrived);
        DecodeStream(StreamBytes, tickValues, updated, target, false);
    }
    EXPECT_TRUE(rest.empty());
    EXPECT_EQ(LastValue[5], kMessages);
}

TEST(SourceChoice, DescriptorsAndFields) {
    SourceChoice choice{false,
                        false,
                        QStringLiteral("Port 12"),
                        QStringLiteral("57600"),
                        QStringLiteral("0123"),
                        QStringLiteral("/a,b.run")};
    EXPECT_EQ(descriptorOf(choice), "SER,12,57600");
    choice.gsm = true;
    EXPECT_EQ(descriptorOf(choice), "GSM,12,57600,0123");
    choice.file = true;
    EXPECT_EQ(descriptorOf(choice), "FIL,/a,b.run");
    EXPECT_EQ(descriptorOf({}), "SER,0,0");

    struct Case {
        const char* descriptor;
        bool file, gsm;
        const char *speed, *fileName;
        int port;
    };
    const Case cases[] = {{"SER,3,9600", false, false, "9600", "", 3},
                          {"GSM,4,4800,0123", false, true, "4800", "", 4},
                          {"SER,3,1200", false, false, "115200", "", 3},
                          {"FIL,/x/a,b.run", true, false, "115200", "/x/a,b.run", 0},
                          {"", false, false, "115200", "", 0},
                          {"SER", false, false, "115200", "", 0}};
    for (const Case& c : cases) {
        const SourceChoice read = choiceOf(QString::fromLatin1(c.descriptor));
        EXPECT_EQ(read.file, c.file) << c.descriptor;
        EXPECT_EQ(read.gsm, c.gsm) << c.descriptor;
        EXPECT_EQ(read.speed, QString::fromLatin1(c.speed)) << c.descriptor;
        EXPECT_EQ(read.fileName, QString::fromLatin1(c.fileName)) << c.descriptor;
        EXPECT_EQ(portOf(QString::fromLatin1(c.descriptor)), c.port) << c.descriptor;
    }
}

} // namespace
} // namespace vistor
