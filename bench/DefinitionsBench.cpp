// The definition file: what start-up and every committed edit pay for it.
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "maths/modXML.h"
#include "platform/Folders.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace vistor {
namespace {

const QString& deliveredFile() {
    static const QString path = deliveredFolder() + QStringLiteral("VistorVars.cfg");
    return path;
}

std::size_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void loadDefinitions(benchmark::State& state) {
    replaceTables({});
    const std::size_t before = heapInUse();
    for (auto _ : state) LoadVariableFile(deliveredFile());
    state.counters["heapKiB"] = static_cast<double>(heapInUse() - before) / 1024;
    ResetGlobals();
}
BENCHMARK(loadDefinitions)->Unit(benchmark::kMillisecond);

void parseDefinitions(benchmark::State& state) {
    const QByteArray bytes = readDefinitionFile(deliveredFile()).bytes;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            readDefinitions({bytes.constData(), static_cast<std::size_t>(bytes.size())}));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytes.size());
}
BENCHMARK(parseDefinitions)->Unit(benchmark::kMillisecond);

void saveDefinitions(benchmark::State& state) {
    const QTemporaryDir dir;
    LoadVariableFile(deliveredFile());
    for (auto _ : state) SaveVariableFile(dir.filePath(QStringLiteral("a.var")));
    ResetGlobals();
}
BENCHMARK(saveDefinitions)->Unit(benchmark::kMillisecond);

/// A table whose 8001 rows all have something to tell, as the text form.
QString fullTextFile(const QTemporaryDir& dir) {
    const VariableDefinition row = VariableTable[2];
    for (std::size_t number = 0; number < VariableTable.size(); ++number) {
        VariableTable[number] = row;
        VariableTable[number].IndexNumber = static_cast<std::int32_t>(number);
    }
    return dir.filePath(QStringLiteral("a.xvr"));
}

void saveText(benchmark::State& state) {
    const QTemporaryDir dir;
    LoadVariableFile(deliveredFile());
    const QString path = fullTextFile(dir);
    for (auto _ : state) SaveXvrDocument(path);
    ResetGlobals();
}
BENCHMARK(saveText)->Unit(benchmark::kMillisecond);

void loadText(benchmark::State& state) {
    const QTemporaryDir dir;
    LoadVariableFile(deliveredFile());
    const QString path = fullTextFile(dir);
    SaveXvrDocument(path);
    for (auto _ : state) LoadXvrDocument(path, false);
    const std::size_t before = heapInUse();
    XmlDocument document;
    document.load(path);
    state.counters["treeMiB"] = static_cast<double>(heapInUse() - before) / 1024 / 1024;
    ResetGlobals();
}
BENCHMARK(loadText)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vistor
