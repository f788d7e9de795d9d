// Any text as a CSV log: it becomes a run file that reads back whole, with times that never fall and are at
// most a tick apart, or one line of words and no file.
#include "acquisition/StreamDecoder.h"
#include "fuzz/Harness.h"
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "platform/CodePage.h"
#include "tools/CsvImport.h"

#include <QBuffer>

#include <array>
#include <cmath>

namespace {

using namespace vistor;

constexpr std::size_t kLargestRun = 1 << 20;

const Definitions& delivered() {
    static const Definitions definitions = [] {
        const FileBytes file =
            readDefinitionFile(QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/VistorVars.cfg"));
        return readDefinitions(viewOf(file.bytes)).value();
    }();
    return definitions;
}

void check(const std::vector<std::uint8_t>& run) {
    StreamDecoder decoder;
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
    std::span<const std::uint8_t> raw;
    std::int32_t position = 8, count = 0, second = 0, third = 0, number = 0, status = kMessageDecoded;
    double time = -1;
    while (status == kMessageDecoded) {
        decoder.DecodeMessage(run, position, static_cast<std::int32_t>(run.size()) - 1, values, channels,
                              count, raw, second, third, number, status, true);
        if (status != kMessageDecoded || count != 1 || channels[0] != kTimeVariable) continue;
        if (values[0] < time || (time >= 0 && values[0] > time + 0.036)) std::abort(); // 32-bit times
        time = values[0];
    }
    if (status != kNoMessageNow || time < 0) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) return 0;
    QByteArray text = bytesOf(data + 1, size - 1);
    QBuffer in(&text);
    in.open(QIODevice::ReadOnly);
    CsvOptions options;
    options.fromZero = (data[0] & 1) != 0;
    options.largestRun = kLargestRun;
    if ((data[0] & 2) != 0) options.timeColumn = QStringLiteral("t");
    const CsvResult result = importCsv(in, options, (data[0] & 4) != 0 ? Definitions() : delivered());
    if (result.error.isEmpty() == result.run.empty()) std::abort();
    if (!result.run.empty()) check(result.run);
    return 0;
}
