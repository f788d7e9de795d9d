// Pipes, devices and folders where the program looks for files: no call may wait for them.
#include "acquisition/DataSource.h"
#include "dashboard/Thumbnails.h"
#include "maths/DefinitionForms.h"
#include "maths/ExternalFormula.h"
#include "maths/FileSupportFunctions.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "shell/HelpPages.h"
#include "shell/Startup.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"

#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

namespace vistor {
namespace {

constexpr unsigned kTooLong = 60; ///< s; the run ends then, which is a failure as well

class SpecialFiles : public FreshAccount {
protected:
    SpecialFiles() { alarm(kTooLong); }
    ~SpecialFiles() override { alarm(0); }
    /// A pipe that nobody writes to.
    QString pipe(const QString& path) const {
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_EQ(mkfifo(QFile::encodeName(path), 0600), 0) << path.toStdString();
        return path;
    }
    QString pipe(const char* name) const { return pipe(root.filePath(QLatin1String(name))); }
    static int run(const char* program, const QStringList& arguments) {
        return QProcess::execute(QLatin1String(program), arguments);
    }
};

TEST_F(SpecialFiles, ReadersRefuseAPipe) {
    QString fault;
    EXPECT_FALSE(IniFile::load(pipe("a.vis")).problem().isEmpty());
    EXPECT_FALSE(readForm(pipe("a.var"), fault));
    EXPECT_FALSE(readForm(pipe("a.xvr"), fault));
    EXPECT_EQ(ReadConfigValue(pipe("Car.cfg"), "CARMASS"), 0);
    EXPECT_FALSE(IsRunFile(pipe("a.run")));
    pipe("README.md");
    EXPECT_TRUE(readHelpPages(root.path()).contents.empty());
    findWorkingFolder();
    pipe(thumbnailPath("a.bmp"));
    EXPECT_TRUE(loadThumbnail("a.bmp").isNull());
    pipe(programFolder() + "ExternalVars/VxExternalVars.Waits.so");
    float value = 0;
    EXPECT_FALSE(runExternalFormula("external dll \"Waits\"", value));
}

TEST_F(SpecialFiles, ToolsRefuseAPipe) {
    const QString in = pipe("in");
    const QString out = pipe("out");
    pipe("tables/variables.tsv");
    EXPECT_EQ(run(VISTOR_VXSTREAM, {"dump", in}), 1);
    EXPECT_EQ(run(VISTOR_VXSTREAM, {"from-csv", in, "--out", root.filePath("a.run")}), 1);
    EXPECT_EQ(run(VISTOR_VXSTREAM, {"simulate", "--laps", "1", "--out", out}), 1);
    EXPECT_EQ(run(VISTOR_VXDEFS, {"print", in}), 1);
    EXPECT_EQ(run(VISTOR_VXDEFS, {"build", root.filePath("tables")}), 1);
    EXPECT_EQ(run(VISTOR_VXDEFS, {"convert", VISTOR_SOURCE_DIR "/OtherFiles/VistorVars.cfg", out}), 1);
    EXPECT_FALSE(QFileInfo(out).isFile());
}

TEST_F(SpecialFiles, AStartAmongThemComesUpAndLeavesThemAlone) {
    deliver();
    QDir().mkpath(root.filePath("person/Kelvane"));
    const QString definitions = working(kVariableFileForm.workingFile);
    ASSERT_TRUE(QFile::link("/dev/null", definitions));
    for (const char* name : {"vxvis.cfg", "VisControl.cfg", "Car.cfg"}) pipe(working(name));
    for (const char* name : {"User.ico", "Splash.jpg", "default.vis"})
        pipe(programFolder() + QLatin1String(name));
    {
        frmMain window;
        ASSERT_TRUE(window.MDIForm_Load());
        EXPECT_EQ(prompts.takeWords(), QStringList("The variable definition file could not be found..."));
        EXPECT_TRUE(VariableTable.empty());
        EXPECT_TRUE(window.close());
    }
    EXPECT_EQ(QFile::symLinkTarget(definitions), "/dev/null");
    QStringList told;
    for (const Notice& notice : notices()) told += notice.text.section(u' ', 0, 3);
    EXPECT_EQ(told, QStringList({"The delivered variable definitions", "Not set for this",
                                 "The settings could not"}));
    for (const char* name : {"vxvis.cfg", "VisControl.cfg", "Car.cfg"}) {
        EXPECT_TRUE(QFileInfo::exists(working(name)) && !QFileInfo(working(name)).isFile()) << name;
    }
}

} // namespace
} // namespace vistor
