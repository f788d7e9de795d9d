// Any bytes as a data source: the first line as its descriptor, taken apart and put together, and the rest as
// a run file that is opened, read and played for some ticks.
#include "acquisition/AcquisitionTick.h"
#include "acquisition/DataSource.h"
#include "acquisition/SourceChoice.h"
#include "fuzz/Harness.h"
#include "platform/Clock.h"
#include "variables/GlobalVarsAndTypes.h"

#include <algorithm>

namespace {

using namespace vistor;

constexpr int kTicks = 20;

void checkDescriptor(const QString& descriptor) {
    const SourceChoice choice = choiceOf(descriptor);
    portOf(descriptor);
    const QString once = descriptorOf(choice);
    if (choice.file && choiceOf(once).fileName != choice.fileName) std::abort();
}

void play(const QString& path) {
    static double now = 100;
    static AcquisitionTick tick;
    setClock([] { return now; });
    DataSourceDescriptor = QStringLiteral("FIL,") + path;
    if (OpenDataSource() != IsRunFile(path)) std::abort();
    PlayMode = true;
    for (int i = 0; i < kTicks; ++i, now += 0.5) tick.run([](const QString&, float) {});
    PlayMode = false;
    CloseDataSource();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    silence();
    const auto* end = std::find(data, data + size, '\n');
    const auto length = static_cast<std::size_t>(end - data);
    checkDescriptor(QString::fromUtf8(bytesOf(data, length)));
    if (length == size) return 0;
    play(fileOf("a.run", end + 1, size - length - 1));
    return 0;
}
