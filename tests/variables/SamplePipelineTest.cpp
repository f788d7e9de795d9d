#include "variables/SamplePipeline.h"

#include "tests/TestTables.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr int kRow = 2;

VariableDefinition& row() {
    return VariableTable[kRow];
}

/// One sample as the decoding loop sends it.
float process(float value, double now) {
    return LastValue[kRow] = ProcessSample(kRow, value, now);
}

TEST(SamplePipeline, RateStageLooksAtTheTimeOnly) {
    makeTable();
    row().MaximumROC = 5;
    LastValue[kRow] = 7;
    SampleTime[kRow] = 100;
    EXPECT_EQ(process(1000, 100.5), 1000); // any jump passes within a second
    EXPECT_EQ(process(1, 101.5), 1);
    EXPECT_EQ(process(50, 103.5), 1); // after two seconds the last value is repeated
    row().MaximumROC = 0;
    EXPECT_EQ(process(60, 109), 60);
    row().MaximumROC = -1;
    EXPECT_EQ(process(70, 119), 70);
}

TEST(SamplePipeline, SmoothingFollowsTheRealSpacing) {
    makeTable();
    row().SmoothingTime = 1;
    EXPECT_FLOAT_EQ(process(10, 40000), 10); // the first sample has full weight
    EXPECT_FLOAT_EQ(process(0, 40001), 10 * static_cast<float>(std::exp(-1.0)));
    const float before = LastValue[kRow];
    EXPECT_FLOAT_EQ(process(99, 40001), before); // no time passed: the old value stays
    row().SmoothingTime = 1e-5F;
    EXPECT_FLOAT_EQ(process(42, 3), 42); // midnight: the weight overflows and the sample passes
}

TEST(SamplePipeline, CalculusModes) {
    struct Case {
        const char* what;
        int mode;
        double oldTime, now;
        double oldDistance, distance;
        float last, value, expected;
    };
    const Case cases[] = {{"first sample passes", 1, 0, 100, 0, 0, 3, 8, 8},
                          {"integral by time", 1, 100, 102, 0, 0, 3, 8, 19},
                          {"derivative by time", 2, 100, 102, 0, 0, 3, 8, 2.5F},
                          {"derivative in no time", 2, 100, 100, 0, 0, 3, 8, 8},
                          {"derivative within one step of the stamp", 2, 80000, 80000.001, 0, 0, 3, 8, 8},
                          {"integral by distance", 3, 100, 102, 10, 14, 3, 8, 35},
                          {"integral over no distance", 3, 100, 102, 10, 10, 3, 8, 3},
                          {"derivative by distance", 4, 100, 102, 10, 14, 3, 8, 1.25F},
                          {"derivative over no distance", 4, 100, 102, 10, 10, 3, 8, 8},
                          {"unknown mode", 5, 100, 102, 10, 14, 3, 8, 8},
                          {"negative mode", -1, 100, 102, 10, 14, 3, 8, 8}};
    for (const Case& c : cases) {
        ResetGlobals();
        makeTable();
        row().Calculus = c.mode;
        VariableTable[kDistanceRow].IndexNumber = 18; // row 17 may name another variable
        SampleTime[kRow] = static_cast<float>(c.oldTime);
        SampleDistance[kRow] = c.oldDistance;
        LastValue[18] = static_cast<float>(c.distance);
        LastValue[kRow] = c.last;
        EXPECT_FLOAT_EQ(ProcessSample(kRow, c.value, c.now), c.expected) << c.what;
        EXPECT_EQ(SampleDistance[kRow], c.distance) << c.what;
        EXPECT_EQ(SampleTime[kRow], static_cast<float>(c.now)) << c.what;
    }
    row().Calculus = 1;
    row().Available = kFalse16;
    EXPECT_EQ(ProcessSample(kRow, 8, 104), 8); // not on a row that this system lacks
}

TEST(SamplePipeline, StampsNeverGetCoarserThanOnTheFirstDay) {
    for (const double now : {0.3, 5000.6, 86399.99, 86400.01, 131071.99})
        EXPECT_EQ(timeStamp(now), static_cast<double>(static_cast<float>(now))) << now;
    for (const double now : {131072.0, 200000.0, 1e6}) {
        EXPECT_EQ(timeStamp(now + 1.0 / 128), now + 1.0 / 128);
        EXPECT_EQ(timeStamp(now + 0.001), now);
    }
    makeTable();
    row().Calculus = 1;
    process(0, 300000);
    process(-10, 300000.0078125);
    EXPECT_FLOAT_EQ(LastValue[kRow], -0.078125F);
}

TEST(SamplePipeline, DerivativeComparesWithThePreviousOutput) {
    makeTable();
    row().Calculus = 2;
    process(10, 100);
    EXPECT_FLOAT_EQ(process(20, 101), 10);
    EXPECT_FLOAT_EQ(process(30, 102), 20); // against the derivative 10, not the input 20
}

TEST(SamplePipeline, ClampAndFailures) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    struct Case {
        float low, high, value, expected;
    };
    const Case cases[] = {
        {0, 100, -1, 0},      {0, 100, 101, 100},   {0, 100, 100, 100},         {10, 5, 1e6F, 1e6F},
        {0, 0, 1e19F, 1e19F}, {0, 0, 1e21F, 1e20F}, {0, 0, -kInfinity, -1e20F}, {-5, -2, 0, -2}};
    for (const Case& c : cases) {
        makeTable();
        row().DefaultMin = c.low;
        row().DefaultMax = c.high;
        EXPECT_EQ(ProcessSample(kRow, c.value, 5), c.expected) << c.low << ' ' << c.high << ' ' << c.value;
    }
    makeTable();
    row().Calculus = 1;
    SampleTime[kRow] = 1;
    LastValue[kRow] = 1e20F;
    EXPECT_EQ(ProcessSample(kRow, 3e38F, 60000),
              1e20F); // the sum overflows: the sample goes on alone, into the clamp
    EXPECT_EQ(ProcessSample(-1, 3, 1), 3);
    EXPECT_EQ(ProcessSample(kVariableCount, 3, 1), 3);
}

TEST(SamplePipeline, ANumberThatIsNoneDoesNotPoisonAnIntegral) {
    makeTable();
    row().Calculus = 1;
    process(1, 100);
    process(std::numeric_limits<float>::quiet_NaN(), 101);
    EXPECT_TRUE(std::isfinite(process(2, 102)));
}

TEST(SamplePipeline, TransformsByConversionOrOwnFormula) {
    makeTable();
    UnitConversions.push_back({QStringLiteral("KMH"), {}, QStringLiteral("$3.6$0"), QStringLiteral("km/h")});
    UnitConversions.push_back({QStringLiteral("BAD"), {}, QStringLiteral("function output broken"), {}});
    SetupVariables();
    const auto transformed = [](float value) {
        float output = -1;
        TransformSample(kRow, value, output);
        return output;
    };
    EXPECT_FLOAT_EQ(transformed(10), 10);
    row().ApplyTransformation = QStringLiteral("KMH"); // acts on the next sample
    EXPECT_FLOAT_EQ(transformed(10), 36);
    row().ApplyTransformation = QStringLiteral("none such");
    EXPECT_FLOAT_EQ(transformed(10), 10);
    setFormula(kRow, QStringLiteral("x+1"));
    EXPECT_FLOAT_EQ(transformed(10), 11);
    row().CustomTransformation = QStringLiteral("x+2");
    EXPECT_FLOAT_EQ(transformed(10), 12);
    UnitConversions.clear();
    row().UseCustomTrans = kFalse16;
    tableChanged();
    EXPECT_FLOAT_EQ(transformed(10), 10);
    float output = 5;
    TransformSample(-3, 1, output);
    EXPECT_EQ(output, 5);
    VariableTable.clear();
    tableChanged();
    EXPECT_FLOAT_EQ(transformed(4), 4); // with no table a sample passes as it came
}

} // namespace
} // namespace vistor
