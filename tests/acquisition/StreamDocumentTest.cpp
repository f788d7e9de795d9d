// The document of the format and its sender are held to what the decoder does.
#include "acquisition/StreamDecoder.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace vistor {
namespace {

struct Message {
    std::int32_t number = 0;
    std::vector<std::pair<std::int32_t, double>> values;
    bool operator==(const Message&) const = default;
};

struct Reading {
    std::vector<Message> messages;
    int junk = 0;
};

Reading readAll(const QByteArray& stream) {
    const std::vector<std::uint8_t> bytes(stream.begin(), stream.end());
    Reading reading;
    StreamDecoder decoder;
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
    std::span<const std::uint8_t> raw;
    std::int32_t position = 0, count = 0, second = 0, third = 0, number = 0, status = 0;
    while (status != kNoMessageNow) {
        decoder.DecodeMessage(bytes, position, static_cast<std::int32_t>(bytes.size()) - 1, values, channels,
                              count, raw, second, third, number, status, true);
        if (third != 0) ++reading.junk;
        if (status != kMessageDecoded) continue;
        Message message{number, {}};
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            message.values.emplace_back(channels[i], values[i]);
        reading.messages.push_back(message);
    }
    return reading;
}

TEST(StreamDocument, ExamplesAreWhatTheySay) {
    QFile file(QStringLiteral(VISTOR_SOURCE_DIR "/docs/stream-format.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray stream;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("    7E ")) stream += QByteArray::fromHex(line);
    const Reading reading = readAll(stream);
    EXPECT_EQ(reading.messages, (std::vector<Message>{{1, {{1, 12.5}}},
                                                      {18, {{2, 13000}}},
                                                      {3, {{70, 82.5}, {72, 96.25}, {100, 0.98046875}}},
                                                      {4, {{30, 52.0786}}},
                                                      {9, {}},
                                                      {9, {}},
                                                      {9, {}}}));
    EXPECT_EQ(reading.junk, 1);
}

TEST(StreamDocument, SenderIsUnderstood) {
    QProcess sender;
    sender.start(QStringLiteral(VISTOR_SENDER), {});
    ASSERT_TRUE(sender.waitForFinished());
    const Reading reading = readAll(sender.readAllStandardOutput());
    EXPECT_EQ(reading.junk, 0);
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
