// The road of a sample: the whole of it beside its bare parts, on the same frames and rows, and the tick.
#include "acquisition/AcquisitionTick.h"
#include "acquisition/HandleSerialData.h"
#include "acquisition/StreamDecoder.h"
#include "acquisition/StreamEncoder.h"
#include "maths/ConvertUnits.h"
#include "platform/Clock.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SamplePipeline.h"
#include "variables/SetupVariables.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <muParser.h>
#include <new>
#include <random>

namespace {

std::size_t allocations = 0;

} // namespace

// Counts what the program allocates, for the figures that have to be none.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace vistor {
namespace {

constexpr int kValuesPerMessage = 21;
constexpr int kMessages = 1000;
constexpr int kSamples = kValuesPerMessage * kMessages;

/// A table in which every row converts by `formula`; an empty one is the identity.
void makeRows(const QString& formula) {
    ResetGlobals();
    UnitConversions = {{QStringLiteral("NONE"), {}, QStringLiteral("$1$0"), {}}};
    VariableTable.assign(kVariableCount, {});
    for (int row = 1; row < kVariableCount; ++row) {
        VariableDefinition& definition = VariableTable[static_cast<std::size_t>(row)];
        definition.IndexNumber = row;
        definition.PhysicalName = QStringLiteral("Channel%1").arg(row);
        definition.ApplyTransformation = QStringLiteral("NONE");
        definition.UseCustomTrans = formula.isEmpty() ? kFalse16 : kTrue16;
        definition.CustomTransformation = formula;
    }
    SetupVariables();
    createFormulaEvaluators();
}

/// The channels of all messages, in random order over `rows` rows.
std::vector<std::int32_t> channels(int rows) {
    std::mt19937 random(1);
    std::vector<std::int32_t> numbers(kSamples);
    for (auto& number : numbers)
        number = 2 + static_cast<std::int32_t>(random() % static_cast<unsigned>(rows));
    return numbers;
}

std::vector<std::uint8_t> frames(int rows) {
    std::vector<std::uint8_t> stream;
    const auto numbers = channels(rows);
    for (int message = 0; message < kMessages; ++message) {
        std::vector<ChannelValue> values;
        for (int i = 0; i < kValuesPerMessage; ++i) {
            const auto sample = static_cast<std::size_t>(message * kValuesPerMessage + i);
            values.push_back(
                {static_cast<std::uint16_t>(numbers[sample]), static_cast<double>(sample) * 0.37});
        }
        appendMessage(stream, 3, values);
    }
    return stream;
}

void countSamples(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * kSamples);
}

void wholeRoad(benchmark::State& state, const QString& formula) {
    makeRows(formula);
    StreamBytes = frames(static_cast<int>(state.range(0)));
    TickValueArray values{};
    TickFlagArray updated{};
    const auto decode = [&] {
        float target = -1; // from the first byte
        DecodeStream(StreamBytes, values, updated, target, false);
    };
    decode();
    const std::size_t before = allocations;
    for (auto unused : state) decode();
    state.counters["allocations"] = static_cast<double>(allocations - before);
    countSamples(state);
}

void roadIdentity(benchmark::State& state) {
    wholeRoad(state, {});
}
void roadGainAndOffset(benchmark::State& state) {
    wholeRoad(state, QStringLiteral("$1.5$-3"));
}
void roadExpression(benchmark::State& state) {
    wholeRoad(state, QStringLiteral("VAR_0100*2+VAR_0200-x"));
}
BENCHMARK(roadIdentity)->Arg(200)->Arg(7990);
BENCHMARK(roadGainAndOffset)->Arg(200)->Arg(7990);
BENCHMARK(roadExpression)->Arg(200);

void partDecode(benchmark::State& state) {
    const auto stream = frames(static_cast<int>(state.range(0)));
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> numbers{};
    std::span<const std::uint8_t> body;
    for (auto unused : state) {
        StreamDecoder decoder;
        std::int32_t position = 0, count = 0, second = 0, third = 0, number = 0, status = 0;
        while (status != kNoMessageNow) {
            decoder.DecodeMessage(stream, position, static_cast<std::int32_t>(stream.size()) - 1, values,
                                  numbers, count, body, second, third, number, status, true);
            benchmark::DoNotOptimize(values);
        }
    }
    countSamples(state);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(stream.size()));
}
BENCHMARK(partDecode)->Arg(200)->Arg(7990);

void partClock(benchmark::State& state) {
    for (auto unused : state) {
        for (int i = 0; i < kSamples; ++i) benchmark::DoNotOptimize(Timer());
    }
    countSamples(state);
}
BENCHMARK(partClock);

void partStages(benchmark::State& state) {
    makeRows({});
    const auto numbers = channels(static_cast<int>(state.range(0)));
    const double now = Timer();
    for (auto unused : state) {
        for (const std::int32_t number : numbers) {
            float value = 3;
            TransformSample(number, value, value);
            benchmark::DoNotOptimize(LastValue[static_cast<std::size_t>(number)] =
                                         ProcessSample(number, value, now));
        }
    }
    countSamples(state);
}
BENCHMARK(partStages)->Arg(200)->Arg(7990);

void transform(benchmark::State& state, const QString& formula) {
    makeRows(formula);
    float output = 0;
    std::int32_t number = 0;
    const auto rows = static_cast<std::int32_t>(state.range(0));
    for (auto unused : state) {
        number = number % rows + 1;
        TransformSample(number, 3, output);
        benchmark::DoNotOptimize(output);
    }
}
void transformIdentity(benchmark::State& state) {
    transform(state, {});
}
void transformGainAndOffset(benchmark::State& state) {
    transform(state, QStringLiteral("$1.5$-3"));
}
void transformExpression(benchmark::State& state) {
    transform(state, QStringLiteral("VAR_0100*2+VAR_0200-x"));
}
BENCHMARK(transformIdentity)->Arg(1)->Arg(200);
BENCHMARK(transformGainAndOffset)->Arg(1)->Arg(200);
BENCHMARK(transformExpression)->Arg(1)->Arg(200);

void bareParser(benchmark::State& state) {
    std::vector<mu::Parser> parsers(static_cast<std::size_t>(state.range(0)));
    double x = 3, a = 1, b = 2;
    for (mu::Parser& parser : parsers) {
        parser.DefineVar("X", &x);
        parser.DefineVar("VAR_0100", &a);
        parser.DefineVar("VAR_0200", &b);
        parser.SetExpr("VAR_0100*2+VAR_0200-X");
        parser.Eval();
    }
    std::size_t number = 0;
    for (auto unused : state) {
        number = (number + 1) % parsers.size();
        benchmark::DoNotOptimize(parsers[number].Eval());
    }
}
BENCHMARK(bareParser)->Arg(1)->Arg(200);

/// A tick with nothing to do: a live source that is silent and no calculated rows.
void tickIdle(benchmark::State& state) {
    makeRows({});
    StreamBytes.assign(1, 0);
    TimeBase = static_cast<float>(Timer()); // a recording that has been played to its end
    PlayMode = true;
    AcquisitionTick tick;
    int calls = 0;
    const RefreshFunction refresh = [&](const QString&, float) { ++calls; };
    for (auto unused : state) tick.run(refresh);
    if (calls != 0) state.SkipWithError("a tick with nothing to do delivered values");
    PlayMode = false;
}
BENCHMARK(tickIdle)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace vistor
