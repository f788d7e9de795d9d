// The document of the format and its sender are held to what the decoder does.
#include "tests/StreamReading.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace vistor {
namespace {

Reading readBytes(const QByteArray& stream) {
    return readAll(Bytes(stream.begin(), stream.end()));
}

TEST(StreamDocument, ExamplesAreWhatTheySay) {
    QFile file(QStringLiteral(VISTOR_SOURCE_DIR "/docs/stream-format.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray stream;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("    7E ")) stream += QByteArray::fromHex(line);
    const Reading reading = readBytes(stream);
    EXPECT_EQ(reading.messages, (std::vector<Message>{{1, {{1, 12.5}}},
                                                      {18, {{2, 13000}}},
                                                      {3, {{70, 82.5}, {72, 96.25}, {100, 0.98046875}}},
                                                      {4, {{30, 52.0786}}},
                                                      {9, {}},
                                                      {9, {}},
                                                      {9, {}}}));
    EXPECT_EQ(reading.junk, (std::vector{JunkReason::badChecksum}));
}

TEST(StreamDocument, SenderIsUnderstood) {
    QProcess sender;
    sender.start(QStringLiteral(VISTOR_SENDER), {});
    ASSERT_TRUE(sender.waitForFinished());
    const Reading reading = readBytes(sender.readAllStandardOutput());
    EXPECT_TRUE(reading.junk.empty());
    ASSERT_EQ(reading.messages.size(), 150U);
    for (int i = 0; i < 50; ++i) {
        const auto at = static_cast<std::size_t>(3 * i);
        const auto time = static_cast<float>(i) * 0.02F;
        EXPECT_EQ(reading.messages[at], (Message{1, {{1, time}}}));
        EXPECT_EQ(reading.messages[at + 1], (Message{18, {{2, 6000 + 200 * i}}}));
        EXPECT_EQ(reading.messages[at + 2], (Message{3, {{70, 82.5}, {72, 95.0F + time}}}));
    }
}

} // namespace
} // namespace vistor
