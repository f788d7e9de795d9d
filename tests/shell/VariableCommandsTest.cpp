#include "dashboard/frmInterface.h"
#include "maths/DefinitionForms.h"
#include "maths/VariableFiles.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"
#include "variables/VariableTreeView.h"

namespace vistor {
namespace {

class VariableCommandsTest : public FreshAccount {
protected:
    VariableCommandsTest() : delivered(deliver()) { window.MDIForm_Load(); }
    void trigger(const char* name) { window.command(QLatin1String(name))->trigger(); }
    static QString& baseName() { return VariableTable[2].BaseName; }
    bool treeHas(const char* name) {
        return window.dashboard().VarTree->itemOf("#USERNAME#" + QString(name));
    }
    static QString fileName(const char* name) {
        return QLatin1String(name) + u'.' + QLatin1String(kVariableFileForm.extension);
    }
    /// The name of row 2 in a definition file of the build's form.
    static QString nameInFile(const QString& path) {
        QString fault;
        const auto definitions = readForm(path, fault);
        return definitions ? definitions->variables.at(2).BaseName : fault;
    }
    /// A definition file in which row 2 has another name.
    QString otherFile() {
        const QString path = root.filePath(fileName("other"));
        const QString before = std::exchange(baseName(), "Revs");
        saveVariables(path);
        baseName() = before;
        return path;
    }

    QByteArray delivered;
    frmMain window;
};

TEST_F(VariableCommandsTest, LoadAsksAndReachesTableTreeAndWorkingFile) {
    const QString path = otherFile();
    prompts.answers = {Answer::No};
    trigger("mnuLoadVarInfo");
    EXPECT_TRUE(prompts.fileRequests.empty());
    EXPECT_EQ(prompts.takeWords(), QStringList{"Are you sure you wish to replace the current variable "
                                               "configuration with one from file?"});
    prompts.answers = {Answer::Yes, Answer::Yes};
    prompts.files = {std::nullopt, path};
    trigger("mnuLoadVarInfo");
    EXPECT_EQ(baseName(), "Engine speed");
    EXPECT_EQ(prompts.fileRequests.back().title, "Load Variable Information...");
    EXPECT_EQ(prompts.fileRequests.back().filter, kVariableFileForm.filter);
    EXPECT_EQ(prompts.fileRequests.back().extension, kVariableFileForm.extension);
    trigger("mnuLoadVarInfo");
    EXPECT_EQ(baseName(), "Revs");
    EXPECT_EQ(VariableTableEdit[2].BaseName, "Revs");
    EXPECT_TRUE(treeHas("Revs"));
    EXPECT_EQ(nameInFile(VariableFilePath), "Revs");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(VariableCommandsTest, ADamagedFileLeavesEverythingAsItWas) {
    const QString path = root.filePath(fileName("bad"));
    write(path, read(otherFile()).chopped(5));
    prompts.answers = {Answer::Yes};
    prompts.files = {path};
    trigger("mnuLoadVarInfo");
    EXPECT_TRUE(prompts.takeWords().last().startsWith(
        UseXmlVariableFiles ? "Your XVR Document failed to load"
                            : "The variable file appears to be corrupted, cannot continue operation"));
    EXPECT_EQ(baseName(), "Engine speed");
    EXPECT_TRUE(treeHas("Engine speed"));
    EXPECT_EQ(nameInFile(VariableFilePath), "Engine speed");
}

TEST_F(VariableCommandsTest, SaveReplacesAnOldFileWholly) {
    const QString path = root.filePath(fileName("saved"));
    write(path, QByteArray(4 << 20, 'x'));
    prompts.files = {path};
    trigger("mnuSaveVarInfo");
    EXPECT_EQ(prompts.fileRequests.back().title, "Save Variable Information...");
    EXPECT_EQ(prompts.fileRequests.back().extension, kVariableFileForm.extension);
    EXPECT_EQ(read(path), read(VariableFilePath));
    trigger("mnuSaveVarInfo"); // cancelled
    EXPECT_TRUE(prompts.takeWords().isEmpty());
}

TEST_F(VariableCommandsTest, RestoreBringsBackTheDefault) {
    const QString file = working(kVariableFileForm.workingFile);
    prompts.answers = {Answer::Yes};
    prompts.files = {otherFile()};
    trigger("mnuLoadVarInfo");
    prompts.takeWords();

    trigger("mnuRestoreDefaultVar"); // answered no
    EXPECT_EQ(prompts.takeWords(), QStringList{"Do you want to restore default variable information?"});
    EXPECT_EQ(prompts.messages.back().icon, Icon::Question);
    EXPECT_EQ(baseName(), "Revs");
    prompts.answers = {Answer::Yes, Answer::Yes};
    for (const QString& name : variableFileNames())
        QFile::copy(root.filePath("OtherFiles/" + name), root.filePath("build/program/" + name));
    trigger("mnuRestoreDefaultVar");
    EXPECT_EQ(baseName(), "Engine speed");
    EXPECT_TRUE(treeHas("Engine speed"));
    EXPECT_EQ(read(file), delivered);

    baseName() = QStringLiteral("Revs");
    QFile::remove(root.filePath("build/program/") + QLatin1String(kVariableFileForm.workingFile));
    prompts.takeWords();
    trigger("mnuRestoreDefaultVar");
    EXPECT_EQ(prompts.takeWords().last(), "Can't find default variable file");
    EXPECT_EQ(prompts.messages.back().icon, Icon::Stop);
    EXPECT_EQ(baseName(), "Revs");
    EXPECT_TRUE(QFile::exists(file));
}

} // namespace
} // namespace vistor
