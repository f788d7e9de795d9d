#include "acquisition/HandleSerialData.h"

#include "acquisition/AcquisitionTick.h"
#include "acquisition/DataSource.h"
#include "acquisition/StreamEncoder.h"
#include "maths/ConvertUnits.h"
#include "platform/Notices.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

using Bytes = std::vector<std::uint8_t>;

void add(Bytes& stream, std::uint8_t number, const std::vector<ChannelValue>& values) {
    appendMessage(stream, number, values, ValueWidth::bits64);
}

void addTime(Bytes& stream, double time) {
    add(stream, 1, {{1, time}});
}

struct Decoded {
    TickValueArray values{};
    TickFlagArray updated{};
    float target = 0;

    void run(bool paced, float targetTime = 0) {
        target = targetTime;
        DecodeStream(StreamBytes, values, updated, target, paced);
    }
};

TEST(DecodeStream, MarksAndProcessesEachValue) {
    makeTable();
    HandClock clock(1000);
    VariableTable[5].DefaultMax = 10;
    IgnitionPulsesPerRev = 2;
    add(StreamBytes, 3, {{4, 1.5}, {5, 99}, {4, 2.5}, {0, 7}, {9000, 8}});
    add(StreamBytes, 18, {{2, 6000}, {10, 50}}); // only the first value counts pulses
    Decoded tick;
    tick.run(false);
    const std::pair<std::size_t, float> expected[] = {
        {0, 7.0F}, {2, 3000.0F}, {4, 2.5F}, {5, 10.0F}, {10, 50.0F}};
    for (const auto& [number, value] : expected) {
        EXPECT_EQ(tick.values[number], value) << number;
        EXPECT_EQ(LastValue[number], value) << number;
        EXPECT_EQ(tick.updated[number], kTrue16) << number;
        EXPECT_EQ(SampleTime[number], 1000) << number;
    }
    EXPECT_EQ(std::count(tick.updated.begin(), tick.updated.end(), kTrue16), 5);
}

TEST(DecodeStream, APulseQuotientThatOverflowsIsAFailedStep) {
    makeTable();
    IgnitionPulsesPerRev = 0.1F;
    add(StreamBytes, 18, {{2, 5}});
    add(StreamBytes, 18, {{2, 1e308}});
    Decoded tick;
    tick.run(false);
    EXPECT_NEAR(tick.values[2], 50, 0.001); // that of the sample before
}

TEST(DecodeStream, ASampleThatCannotBeConvertedTakesTheOneBeforeIt) {
    makeTable();
    add(StreamBytes, 3, {{4, 42}, {5, 1e300}}); // does not fit in 32 bits
    Decoded tick;
    tick.run(false);
    EXPECT_EQ(tick.values[5], 42);
    EXPECT_TRUE(tick.updated[5]);
}

TEST(DecodeStream, PacingStopsAtTheFirstTimeMessageNotBelowTheTarget) {
    makeTable();
    for (const double time : {10.0, 10.5, 11.0}) {
        addTime(StreamBytes, time);
        add(StreamBytes, 3, {{4, time}});
    }
    add(StreamBytes, 3, {{1, 99}, {4, 50}}); // two values: not a time message
    addTime(StreamBytes, std::nan(""));      // paces nothing
    Decoded tick;
    tick.run(true, -1);
    EXPECT_EQ(tick.target, 10);
    EXPECT_FALSE(tick.updated[4]);
    EXPECT_EQ(tick.values[1], 10); // the time message that ends the loop is processed
    tick.run(true, 10.6F);
    EXPECT_EQ(tick.target, 11);
    EXPECT_EQ(tick.values[4], 10.5F);
    tick.run(true, 500);
    EXPECT_EQ(tick.target, 500);
    EXPECT_EQ(tick.values[4], 50);
    tick.run(true, -1); // from the beginning again
    EXPECT_EQ(tick.target, 10);
}

TEST(DecodeStream, UnpacedTimeMessagesOnlySetTheirVariable) {
    makeTable();
    addTime(StreamBytes, 10);
    addTime(StreamBytes, 20);
    Decoded tick;
    tick.run(false);
    EXPECT_EQ(tick.values[1], 20);
    EXPECT_EQ(tick.target, 0);
}

TEST(DecodeStream, CalculatedRowsRunEachTime) {
    makeTable();
    HandClock clock(100);
    for (const std::size_t row : {50, 51, 52, 53}) VariableTable[row].VariableType = kCalculatedType;
    setFormula(50, QStringLiteral("VAR_0004*2"));
    setFormula(51, QStringLiteral("VAR_0050+1"));
    setFormula(52, QStringLiteral("0"));
    VariableTable[53].CustomTransformation = QStringLiteral("VAR_0004"); // not in use
    SetupVariables();
    add(StreamBytes, 3, {{4, 3}, {52, 9}});
    Decoded tick;
    tick.run(false);
    EXPECT_EQ(tick.values[50], 6);
    EXPECT_EQ(tick.values[51], 7);
    EXPECT_EQ(tick.values[52], 0); // what a message brought is wiped
    EXPECT_FALSE(tick.updated[52]);
    EXPECT_FALSE(tick.updated[53]);
    EXPECT_EQ(LastValue[52], 9);
    StreamBytes.clear();
    LastValue[4] = 10;
    Decoded silent;
    silent.run(false);
    EXPECT_EQ(silent.values[50], 20);
    EXPECT_TRUE(silent.updated[50]);
}

TEST(DecodeStream, CompactsBehindAMillionBytesAndLosesTheLastOne) {
    makeTable();
    for (const std::int32_t position : {1'000'000, 1'000'001}) {
        StreamBytes.assign(static_cast<std::size_t>(position) + 1, 0x55);
        StreamPos = position; // the decoder stays on the last byte: it is no delimiter and nothing follows
        Decoded tick;
        tick.run(false);
        if (position > 1'000'000) {
            EXPECT_EQ(StreamBytes, Bytes{0});
            EXPECT_EQ(StreamPos, 0);
        } else {
            EXPECT_EQ(StreamBytes.size(), 1'000'001U);
            EXPECT_EQ(StreamBytes.back(), 0x55);
        }
    }
    // What was not read yet goes on behind the compaction.
    StreamBytes.assign(1'100'000, 0);
    addTime(StreamBytes, 5);
    add(StreamBytes, 3, {{4, 17}});
    StreamBytes.push_back(0);
    StreamPos = 0;
    Decoded tick;
    tick.run(true, 1);
    EXPECT_LT(StreamBytes.size(), 100U);
    EXPECT_EQ(LastValue[4], 0);
    tick.run(true, 500);
    EXPECT_EQ(LastValue[4], 17);
}

/// Answers a formula's message as a person does who goes back to edit mode.
class LeavesPlay final : public Prompter {
public:
    LeavesPlay() : m_before(setPrompter(this)) {}
    ~LeavesPlay() override { setPrompter(m_before); }
    Answer message(const MessageRequest&) override {
        ++messages;
        PlayMode = false;
        return Answer::Ok;
    }
    std::optional<QString> input(const InputRequest&) override { return {}; }
    std::optional<QString> openFile(const FileRequest&) override { return {}; }
    std::optional<QString> saveFile(const FileRequest&) override { return {}; }
    std::optional<std::int32_t> colour(std::int32_t) override { return {}; }
    std::optional<FontChoice> font(const FontChoice&) override { return {}; }
    int messages = 0;

private:
    Prompter* m_before;
};

const QString kFaultyScript = QStringLiteral("Function Output\nOutput = 1 / 0\nEnd Function");

TEST(DecodeStream, EditModeInTheFirstMessageEndsIt) {
    makeTable();
    createFormulaEvaluators();
    for (const int row : {4, 5, 50}) setFormula(row, kFaultyScript);
    VariableTable[50].VariableType = kCalculatedType;
    SetupVariables();
    LeavesPlay person;
    for (int i = 0; i < 50; ++i) add(StreamBytes, 3, {{4, 1}, {5, 1}, {6, 1}});
    PlayMode = true;
    Decoded tick;
    tick.run(false);
    EXPECT_EQ(person.messages, 1) << "neither the rest of the message nor the others nor the calculated rows";
    EXPECT_FALSE(tick.updated[6]);
}

TEST(DecodeStream, JunkIsGoneThroughInSlices) {
    constexpr std::size_t kLong = 8'000'000;
    for (const int junk : {0x55, 0x7E, 0x00, 0x7D}) {
        makeTable();
        StreamBytes.assign(kLong, static_cast<std::uint8_t>(junk));
        addTime(StreamBytes, 12);
        StreamBytes.push_back(0); // as behind every read
        StreamPos = 0;
        TickValueArray values{};
        TickFlagArray updated{};
        float target = 1;
        int slices = 1;
        const auto slice = [&] {
            SliceLimits limits;
            limits.until = std::chrono::steady_clock::now() + std::chrono::milliseconds(1);
            return decodeSlice(StreamBytes, values, updated, target, true, limits);
        };
        SliceEnd end = slice();
        while (end == SliceEnd::timeOver) {
            ASSERT_LT(++slices, 100000);
            end = slice();
        }
        EXPECT_EQ(end, SliceEnd::targetReached) << int(junk);
        EXPECT_EQ(target, 12) << int(junk);
    }
}

TEST(DecodeStream, HasBytesAndConcatanateBytes) {
    Bytes target;
    Bytes addition = {1, 2};
    EXPECT_FALSE(HasBytes(target));
    ConcatanateBytes(target, addition);
    EXPECT_EQ(target, (Bytes{1, 2}));
    EXPECT_FALSE(HasBytes(addition));
    addition = {3};
    ConcatanateBytes(target, addition);
    EXPECT_EQ(target, (Bytes{1, 2, 3}));
    ConcatanateBytes(target, addition);
    EXPECT_EQ(target, (Bytes{1, 2, 3}));
}

/// A recorded run in a file, opened for play.
struct Recording {
    QTemporaryDir dir;

    explicit Recording(const Bytes& stream) {
        Bytes bytes = runFileHead();
        bytes.insert(bytes.end(), stream.begin(), stream.end());
        QFile file(dir.filePath(QStringLiteral("a.run")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        file.close();
        DataSourceDescriptor = QStringLiteral("FIL,") + file.fileName();
        EXPECT_TRUE(OpenDataSource());
        PlayMode = true;
    }
    ~Recording() { CloseDataSource(); }
};

using Calls = std::vector<std::pair<QString, float>>;

Calls runTick(AcquisitionTick& tick) {
    Calls calls;
    tick.run([&](const QString& name, float value) { calls.emplace_back(name, value); });
    return calls;
}

TEST(AcquisitionTick, PlaysARecordingAtItsOwnPace) {
    makeTable();
    HandClock clock(5000);
    Bytes stream;
    for (int step = 0; step < 10; ++step) {
        addTime(stream, 100 + step * 0.25);
        add(stream, 3, {{4, static_cast<double>(step)}, {2, 1000.0 + step}});
    }
    Recording recording(stream);
    AcquisitionTick tick;
    EXPECT_EQ(TimeBase, kNotStartedTimeBase);
    EXPECT_EQ(runTick(tick), (Calls{{QStringLiteral("P1"), 100.0F}}));
    EXPECT_EQ(TimeBase, 5000);
    clock.moveTo(5000.6);
    // Up to the first time not below 100.6; ascending numbers, one call for each variable, the last value of
    // each.
    EXPECT_EQ(runTick(tick), (Calls{{QStringLiteral("P1"), 100.75F},
                                    {QStringLiteral("P2"), 1002.0F},
                                    {QStringLiteral("P4"), 2.0F}}));
    clock.moveTo(6000);
    runTick(tick);
    EXPECT_EQ(LastValue[4], 9);
    EXPECT_TRUE(runTick(tick).empty()); // at the end nothing more comes
}

TEST(AcquisitionTick, ARecordingWithoutTimeIsConsumedAtOnce) {
    makeTable();
    Bytes stream;
    for (int i = 0; i < 100; ++i) add(stream, 3, {{4, static_cast<double>(i)}});
    Recording recording(stream);
    AcquisitionTick tick;
    EXPECT_EQ(runTick(tick), (Calls{{QStringLiteral("P4"), 99.0F}}));
    EXPECT_TRUE(runTick(tick).empty());
}

TEST(AcquisitionTick, ALongRecordingIsReadPieceByPieceAndLosesNothing) {
    constexpr int kMessages = 150000; // more than two megabytes
    makeTable();
    setFormula(5, QStringLiteral("VAR_0007 + x")); // row 5 counts
    setFormula(7, QStringLiteral("VAR_0005"));
    createFormulaEvaluators();
    Bytes stream;
    addTime(stream, 1);
    for (int i = 0; i < kMessages; ++i) appendMessage(stream, 3, std::vector<ChannelValue>{{5, 1}, {7, 0}});
    addTime(stream, 2);
    ASSERT_GT(stream.size(), 2'500'000U);
    HandClock clock(100);
    Recording recording(stream);
    AcquisitionTick tick;
    std::size_t largest = 0;
    for (int i = 0; i < 100000 && LastValue[1] < 2; ++i) {
        runTick(tick);
        largest = std::max(largest, StreamBytes.size());
        clock.moveTo(200);
    }
    EXPECT_EQ(LastValue[5], kMessages);
    EXPECT_LT(largest, 3'000'000U);
    EXPECT_TRUE(notices().empty());
}

TEST(AcquisitionTick, WhatCannotBePlayedIsToldOnce) {
    struct Case {
        int messages; ///< without a time
        std::size_t junk;
        const char* words;
    };
    const Case cases[] = {{0, 0, "holds no message that can be read"},
                          {0, 3'000'000, "holds no message that can be read"},
                          {3, 0, "holds no time message"}};
    for (const Case& c : cases) {
        clearNotices();
        makeTable();
        Bytes stream(c.junk, 0x55);
        for (int i = 0; i < c.messages; ++i) add(stream, 3, {{4, 1}});
        Recording recording(stream);
        AcquisitionTick tick;
        EXPECT_FALSE(tick.state().ended);
        for (int i = 0; i < 100000 && !tick.state().ended; ++i) runTick(tick);
        for (int i = 0; i < 3; ++i) runTick(tick);
        ASSERT_EQ(notices().size(), 1U) << c.words;
        EXPECT_TRUE(notices().back().text.contains(QLatin1String(c.words)));
        EXPECT_EQ(tick.state().messages, std::uint64_t(c.messages));
    }
}

TEST(AcquisitionTick, PlaysAndIntegratesOnPastMidnight) {
    for (const bool wraps : {false, true}) {
        makeTable();
        VariableTable[4].Calculus = 1;
        LastValue[4] = 0;
        SampleTime[4] = 0;
        double day = 86399.25;
        double steady = 0;
        setClock([&day] { return day; }, [&steady] { return steady; });
        Bytes stream;
        for (int step = 0; step < 8; ++step) {
            add(stream, 3, {{4, 2.0}});
            addTime(stream, step * 0.5);
        }
        startClock(wraps);
        Recording recording(stream);
        AcquisitionTick tick;
        for (int i = 0; i < 8; ++i) {
            runTick(tick);
            steady += 0.5;
            day = std::fmod(86399.25 + steady, 86400);
        }
        if (wraps) {
            EXPECT_LT(LastValue[4], -100000) << "the old reckoning, when it is wanted";
        } else {
            EXPECT_NEAR(LastValue[4], 2 + 2 * 0.5 * 7, 0.05);
            EXPECT_EQ(LastValue[1], 3.5F);
        }
        setClock({});
    }
}

TEST(AcquisitionTick, DoesNothingOutsidePlayModeAndNeverTwiceAtOnce) {
    makeTable();
    Bytes stream;
    for (int i = 0; i < 100000; ++i) add(stream, 3, {{4, static_cast<double>(i)}});
    Recording recording(stream);
    AcquisitionTick tick;
    PlayMode = false;
    EXPECT_TRUE(runTick(tick).empty());
    PlayMode = true;
    int firings = 0;
    int nested = 0;
    QTimer again;
    QObject::connect(&again, &QTimer::timeout, [&] {
        ++firings;
        nested += static_cast<int>(runTick(tick).size());
    });
    again.start(0);
    EXPECT_EQ(runTick(tick).size(), 1U);
    EXPECT_GT(firings, 0);
    EXPECT_EQ(nested, 0);
}

TEST(AcquisitionTick, ClosingTheSourceInTheMiddleOfABurstDoesNoHarm) {
    makeTable();
    Bytes stream;
    for (int i = 0; i < 200000; ++i) add(stream, 3, {{4, static_cast<double>(i)}});
    Recording recording(stream);
    AcquisitionTick tick;
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [] {
        PlayMode = false;
        CloseDataSource();
    });
    closing.setSingleShot(true);
    closing.start(2);
    while (PlayMode) runTick(tick);
    EXPECT_LT(LastValue[4], 199999);
    EXPECT_EQ(TimeBase, kLiveTimeBase);
    EXPECT_TRUE(StreamBytes.empty());
}

} // namespace
} // namespace vistor
