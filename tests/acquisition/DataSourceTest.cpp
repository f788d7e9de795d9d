#include "acquisition/DataSource.h"

#include "acquisition/HandleSerialData.h"
#include "acquisition/Serial_API.h"
#include "acquisition/SourceChoice.h"
#include "acquisition/StreamEncoder.h"
#include "platform/IniFile.h"
#include "tests/PseudoTerminal.h"
#include "tests/TestTables.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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

TEST(DataSource, TheEleventhEmptyReadOpensThePortAgain) {
    Line line;
    ASSERT_TRUE(OpenDataSource());
    Bytes bytes;
    const Bytes sent = {1};
    for (int i = 0; i < 10; ++i) ReadDataSource(bytes);
    EXPECT_EQ(EmptyReadCount, 10);
    line.terminal.write(sent);
    ReadDataSource(bytes);
    EXPECT_EQ(EmptyReadCount, 0); // one byte resets the count
    StreamBytes = {1, 2, 3};
    for (int i = 0; i < 10; ++i) ReadDataSource(bytes);
    EXPECT_EQ(StreamBytes.size(), 3U);
    ReadDataSource(bytes);
    EXPECT_EQ(EmptyReadCount, 0);
    EXPECT_EQ(StreamBytes, Bytes{0}); // what was not decoded is dropped
}

TEST(DataSource, ADeviceThatVanishesIsPickedUpWhenItReturns) {
    Line line;
    ASSERT_TRUE(OpenDataSource());
    line.terminal.hangUp();
    Bytes bytes;
    for (int i = 0; i < 40; ++i) ReadDataSource(bytes);
    EXPECT_TRUE(bytes.empty());
    PseudoTerminal back;
    Line::use(back);
    const Bytes sent = {7};
    for (int i = 0; i < 12; ++i) ReadDataSource(bytes);
    back.write(sent);
    ReadDataSource(bytes);
    EXPECT_EQ(bytes, (Bytes{7, 0}));
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
