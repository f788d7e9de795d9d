// A dashboard of 500 instruments over 20 tabs on its way into a file and out of one, through the window's own
// commands.
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

constexpr int kTabs = 20;
constexpr int kInstruments = 500;

/// Answers every question of the new tabs with a number, and nothing else.
class Captions final : public Prompter {
public:
    Captions() : m_before(setPrompter(this)) {}
    ~Captions() override { setPrompter(m_before); }
    Answer message(const MessageRequest&) override { return Answer::No; }
    std::optional<QString> input(const InputRequest&) override { return QString::number(++m_count); }
    std::optional<QString> openFile(const FileRequest&) override { return std::nullopt; }
    std::optional<QString> saveFile(const FileRequest&) override { return std::nullopt; }
    std::optional<std::int32_t> colour(std::int32_t) override { return std::nullopt; }
    std::optional<FontChoice> font(const FontChoice&) override { return std::nullopt; }

private:
    Prompter* m_before;
    int m_count = 0;
};

/// A window on the screen with its settings in a folder of its own.
struct OpenWindow {
    explicit OpenWindow(const QTemporaryDir& folder) {
        ResetGlobals();
        SettingsPath = folder.filePath(QStringLiteral("vxvis.cfg"));
        window.Form_Load();
        window.resize(1300, 800);
        window.show();
    }
    frmInterface window;
};

void layOut(frmInterface& window) {
    const Captions captions;
    for (int tab = 1; tab < kTabs; ++tab) window.mnuNewTab_Click();
    for (int i = 0; i < kInstruments; ++i) {
        Page* page = window.pic[static_cast<std::size_t>(i * kTabs / kInstruments)];
        const std::size_t kind = static_cast<std::size_t>(i) % kInstrumentKinds.size();
        Instrument* added = window.addInstrument(kInstrumentKinds[kind].kind, page);
        added->move(180 * (i % 5), 120 * (i / 5 % 5));
        added->AssignPin(1, QStringLiteral("EngineSpeed"));
        added->show();
    }
}

void saveProfile(benchmark::State& state) {
    const QTemporaryDir folder;
    OpenWindow open(folder);
    layOut(open.window);
    open.window.HasProfilePath = true;
    open.window.ProfilePath = folder.filePath(QStringLiteral("many.vis"));
    for (auto unused : state) open.window.mnuSaveConfig_Click();
    state.counters["KiB"] = static_cast<double>(QFileInfo(open.window.ProfilePath).size()) / 1024;
}
BENCHMARK(saveProfile)->Unit(benchmark::kMillisecond);

void loadProfile(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("many.vis"));
    {
        OpenWindow open(folder);
        layOut(open.window);
        open.window.HasProfilePath = true;
        open.window.ProfilePath = path;
        open.window.mnuSaveConfig_Click();
    }
    for (auto unused : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenWindow>(folder);
        state.ResumeTiming();
        open->window.loadLastFile(path);
        state.PauseTiming();
        if (open->window.instruments.placedCount() != kInstruments)
            state.SkipWithError("not all were loaded");
        open.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(loadProfile)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace
} // namespace vistor
