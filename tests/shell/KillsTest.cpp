// Kills in the middle of every kind of save: each file is then one of the whole documents that were written.
// VISTOR_KILLS in the environment says how many (scripts/kills).
#include "dashboard/CustomLibrary.h"
#include "dashboard/ProfileFile.h"
#include "maths/DefinitionForms.h"
#include "maths/DefinitionTables.h"
#include "maths/modXML.h"
#include "platform/CodePage.h"
#include "platform/WholeFile.h"
#include "tests/shell/FreshAccount.h"
#include "tools/SimulatedStream.h"

#include <QElapsedTimer>

#include <csignal>
#include <fcntl.h>
#include <random>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vistor {
namespace {

constexpr int kVersions = 4;
constexpr int kFewKills = 40;
constexpr unsigned kLeastLife = 2000; ///< us

/// A file, how its versions are saved, and what they are.
struct Document {
    const char* name;
    QString path;
    std::function<void(int version)> save;
    std::vector<QByteArray> versions{};
    unsigned saveTime = 0; ///< us, of the last of them
    int seen[kVersions] = {};
};

class Kills : public FreshAccount {
protected:
    Kills() {
        Definitions delivered =
            readDefinitions(viewOf(read(VISTOR_SOURCE_DIR "/OtherFiles/VistorVars.cfg"))).value();
        replaceTables(std::move(delivered));
        LibraryPath = path("VisControl.cfg");
        for (int version = 0; version < kVersions; ++version)
            m_runs.push_back(simulateRunFile({1, static_cast<std::uint64_t>(version), 0, false}));
    }
    QString path(const char* name) const { return root.filePath(QLatin1String(name)); }

    static Profile profile(int version) {
        Profile made;
        made.captions = {"VX", QString::number(version)};
        for (int i = 0; i < 40 * version; ++i)
            made.instruments.push_back(
                {Kind::Led, 0, i + 1, 15.0 * i, 0, 99, QStringList(100, QString::number(i))});
        return made;
    }
    static void saveProfile(const QString& path, int version) {
        IniFile file;
        WriteProfileLayout(profile(version), file);
        WriteProfileInstruments(profile(version), file);
        writeWholeFile(path, file.toBytes());
    }
    static void saveSettings(const QString& path, int version) {
        IniFile file = IniFile::load(path);
        for (int i = 0; i < 200; ++i)
            file.setValue("VXVISTOR", QString::number(i), QString::number(i * version));
        file.saveOrTell(path, "The settings");
    }
    static void saveCustoms(int version) {
        IniFile library;
        for (int i = 0; i <= version; ++i)
            addCustomEntry(library, Kind::Led, "c" + QString::number(i), QStringList(300, "3000"), 299,
                           "a.bmp");
        saveLibrary(library);
    }
    static void change(int version) {
        for (std::size_t row = 1; row < VariableTable.size(); ++row)
            VariableTable[row].Description = QString(4 * version, QChar(u'a' + version));
    }
    void saveTables(int version) const {
        change(version);
        const DefinitionTables tables = printTables({UnitConversions, VariableTable});
        writeWholeFile(path("variables.tsv"), tables.variables);
    }
    void saveRun(int version) const {
        const auto& run = m_runs[static_cast<std::size_t>(version)];
        writeWholeFile(path("a.run"),
                       {reinterpret_cast<const char*>(run.data()), static_cast<qsizetype>(run.size())});
    }
    void saveForm(const char* name, int version) const {
        change(version);
        QString fault, loss;
        writeForm(path(name), {UnitConversions, VariableTable}, fault, loss);
    }

    std::vector<Document> documents() {
        std::vector<Document> all = {
            {"Profile", path("a.vis"), [this](int v) { saveProfile(path("a.vis"), v); }},
            {"settings", path("vxvis.cfg"), [this](int v) { saveSettings(path("vxvis.cfg"), v); }},
            {"library", LibraryPath, saveCustoms},
            {"definitions", path("a.cfg"), [this](int v) { change(v), SaveVariableFile(path("a.cfg")); }},
            {"text form", path("a.xvr"), [this](int v) { change(v), SaveXvrDocument(path("a.xvr")); }},
            {"vxdefs, binary", path("b.var"), [this](int v) { saveForm("b.var", v); }},
            {"vxdefs, tables", path("variables.tsv"), [this](int v) { saveTables(v); }},
            {"vxstream", path("a.run"), [this](int v) { saveRun(v); }},
        };
        for (Document& document : all) {
            for (int version = 0; version < kVersions; ++version) {
                QElapsedTimer timer;
                timer.start();
                document.save(version);
                document.saveTime = static_cast<unsigned>(timer.nsecsElapsed() / 1000);
                document.versions.push_back(read(document.path));
            }
        }
        return all;
    }
    /// Saves until it is killed.
    [[noreturn]] static void saveForEver(const Document& document, unsigned seed) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // it shall not outlive the test
        std::mt19937 random(seed);
        while (true) document.save(static_cast<int>(random() % kVersions));
    }
    static void killOne(const Document& document, unsigned seed, unsigned microseconds) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) saveForEver(document, seed);
        usleep(microseconds);
        ASSERT_EQ(kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
    }
    QStringList leftOvers() const {
        return QDir(root.path()).entryList({".vistor-*"}, QDir::Files | QDir::Hidden);
    }

private:
    std::vector<std::vector<std::uint8_t>> m_runs;
};

TEST_F(Kills, LeaveAWholeDocument) {
    const int asked = qEnvironmentVariableIntValue("VISTOR_KILLS");
    const int kills = asked > 0 ? asked : kFewKills;
    std::vector<Document> all = documents();
    std::mt19937 random(static_cast<unsigned>(kills));
    int mixtures = 0;
    qsizetype left = 0;
    for (int i = 0; i < kills; ++i) {
        Document& document = all[static_cast<std::size_t>(i) % all.size()];
        killOne(document, static_cast<unsigned>(random()),
                static_cast<unsigned>(random()) % (3 * document.saveTime + kLeastLife));
        if (HasFatalFailure()) return;
        const auto found = std::find(document.versions.begin(), document.versions.end(), read(document.path));
        if (found == document.versions.end())
            ++mixtures;
        else
            ++document.seen[found - document.versions.begin()];
    }
    left = leftOvers().size();
    EXPECT_EQ(mixtures, 0);
    std::printf("%d kills, %d files that are no whole document, %lld killed in the middle of writing\n",
                kills, mixtures, static_cast<long long>(left));
    for (const Document& document : all) {
        std::printf("  %-16s", document.name);
        for (const int times : document.seen) std::printf(" %5d", times);
        std::printf("\n");
    }
    // What they left goes with the next save of another process, once it is a minute old.
    for (const QString& name : leftOvers()) {
        const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
        utimensat(AT_FDCWD, QFile::encodeName(root.filePath(name)), old, 0);
    }
    const pid_t next = fork();
    if (next == 0) _exit(writeWholeFile(path("./next"), "x").isEmpty() ? 0 : 1);
    waitpid(next, nullptr, 0);
    EXPECT_TRUE(leftOvers().isEmpty());
}

} // namespace
} // namespace vistor
