// Every way in which the program writes a file, on a disk that fails at one call after the other.
#include "dashboard/CustomLibrary.h"
#include "dashboard/frmInterface.h"
#include "dashboard/frmOptions.h"
#include "instruments/frmProperties.h"
#include "maths/DefinitionForms.h"
#include "maths/modXML.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "platform/WholeFile.h"
#include "shell/CarSettings.h"
#include "shell/RecentFiles.h"
#include "shell/Startup.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"

#include <sys/stat.h>

namespace vistor {
namespace {

struct Saver {
    const char* name;
    QString file;
    std::function<void(int version)> save; ///< what it writes differs from version to version
    std::function<bool()> isTold = [] { return !notices().empty(); };
};

class Savers : public FreshAccount {
protected:
    Savers() {
        deliver();
        for (const QString& name : variableFileNames())
            QFile::copy(root.filePath("OtherFiles/" + name), root.filePath("build/program/" + name));
        window.MDIForm_Load();
        window.dashboard().ProfilePath = root.filePath("a.vis");
        window.dashboard().HasProfilePath = true;
    }
    static void name(int version) { VariableTable[2].BaseName = "Revs " + QString::number(version); }
    QString path(const char* file) const { return root.filePath(QLatin1String(file)); }

    /// A saver that only answers whether it could write.
    Saver silent(const char* name, const char* file, const std::function<bool(int)>& save) {
        return {name, path(file), [this, save](int version) { m_saved = save(version); },
                [this] { return !m_saved; }};
    }
    std::vector<Saver> savers() {
        frmInterface& dashboard = window.dashboard();
        return {
            {"Profile", path("a.vis"),
             [&](int version) {
                 dashboard.mainTab->TabCaption(0, QString::number(version));
                 dashboard.mnuSaveConfig_Click();
             }},
            {"recent files", SettingsPath,
             [](int version) {
                 writeRecentFiles(SettingsPath, {"/one", QString::number(version)});
             }},
            silent("car", "person/Kelvane/Car.cfg",
                   [](int version) {
                       return writeCarNumbers({1.0, version}).isEmpty();
                   }),
            {"options", SettingsPath,
             [&](int version) {
                 frmOptions options(dashboard, nullptr);
                 options.findChild<QLineEdit*>("txtGridSize")->setText(QString::number(100 + version));
                 options.findChild<QPushButton*>("cmdOk")->click();
             }},
            {"library", LibraryPath,
             [](int version) {
                 IniFile library;
                 addCustomEntry(library, Kind::Led, "cone", {QString::number(version)}, 0, "a.bmp");
                 saveLibrary(library);
             },
             [this] {
                 return prompts.takeWords() ==
                        QStringList("The library of custom instruments cannot be written");
             }},
            {"definitions", working("VistorVars.cfg"),
             [](int version) { name(version), SaveVariableFile({}); }},
            {"text form", path("a.xvr"),
             [this](int version) { name(version), SaveXvrDocument(path("a.xvr")); }},
            {"Save Variable Information", path("a.var"),
             [this](int version) {
                 name(version);
                 prompts.files = {path("a.var")};
                 window.command("mnuSaveVarInfo")->trigger();
             }},
            {"restored definitions", working(kVariableFileForm.workingFile),
             [this](int version) {
                 write(root.filePath("build/program/") + QLatin1String(kVariableFileForm.workingFile),
                       "definitions " + QByteArray::number(version));
                 restoreDefinitionFile();
             }},
            silent("converted definitions", "b.var",
                   [this](int version) {
                       name(version);
                       QString fault, loss;
                       return writeForm(path("b.var"), {UnitConversions, VariableTable}, fault, loss) ||
                              fault.isEmpty();
                   }),
            silent("one key", "c.cfg",
                   [this](int version) {
                       return writeIniValue(path("c.cfg"), "A", "k", QString::number(version));
                   }),
        };
    }
    static QStringList filesBeside(const QString& file) {
        return QFileInfo(file).dir().entryList({".*", "*.??????"}, QDir::Files | QDir::Hidden);
    }

    frmMain window;

private:
    bool m_saved = false;
};

TEST_F(Savers, AFailureAtAnyCallLeavesTheOldFileAndIsTold) {
    for (const Saver& saver : savers()) {
        saver.save(1);
        ASSERT_TRUE(QFile::exists(saver.file)) << saver.name;
        const QByteArray old = read(saver.file);
        const QStringList beside = filesBeside(saver.file);
        int failures = 0;
        for (int n = 1; failures == n - 1; ++n) {
            clearNotices();
            prompts.takeWords();
            failFileCall(n);
            saver.save(2);
            if (failFileCall(0) > 0) break; // it came through
            ++failures;
            EXPECT_EQ(read(saver.file), old) << saver.name << ' ' << n;
            EXPECT_TRUE(saver.isTold()) << saver.name << ' ' << n;
            EXPECT_EQ(filesBeside(saver.file), beside) << saver.name << ' ' << n;
        }
        EXPECT_GE(failures, 6) << saver.name;
        EXPECT_NE(read(saver.file), old) << saver.name << ": the last try was without a failure";
    }
}

TEST_F(Savers, OfALinkTheTargetIsReplaced) {
    const QString far = root.filePath("far");
    QDir().mkpath(far);
    for (const Saver& saver : savers()) {
        const QString target = far + "/target";
        QFile::remove(saver.file);
        QFile::remove(target);
        ASSERT_TRUE(QFile::link(target, saver.file));
        saver.save(3);
        EXPECT_TRUE(QFileInfo(saver.file).isSymLink()) << saver.name;
        EXPECT_GT(QFileInfo(target).size(), 0) << saver.name;
        QFile::remove(saver.file);
        ASSERT_TRUE(QFile::link("/dev/null", saver.file));
        clearNotices();
        prompts.takeWords();
        saver.save(4);
        EXPECT_EQ(QFile::symLinkTarget(saver.file), "/dev/null") << saver.name;
        EXPECT_TRUE(saver.isTold()) << saver.name;
        QFile::remove(saver.file);
        saver.save(5);
    }
}

/// A mere start and stop leaves every file of the person's as it lies.
TEST_F(Savers, NothingIsRewrittenThatDidNotChange) {
    window.dashboard().ProfilePath.clear();
    window.close();
    const auto startAndStop = [] {
        ResetGlobals();
        frmMain again;
        EXPECT_TRUE(again.MDIForm_Load());
        EXPECT_TRUE(again.close());
    };
    startAndStop();
    const QStringList files = {SettingsPath, working("Car.cfg"), working(kVariableFileForm.workingFile)};
    const auto identities = [&files] {
        QList<quint64> numbers;
        for (const QString& file : files) {
            struct stat status = {};
            EXPECT_EQ(stat(QFile::encodeName(file), &status), 0) << file.toStdString();
            numbers += {status.st_ino, quint64(status.st_mtim.tv_sec), quint64(status.st_mtim.tv_nsec)};
        }
        return numbers;
    };
    const auto before = identities();
    startAndStop();
    EXPECT_EQ(identities(), before);
}

} // namespace
} // namespace vistor
