// The commands that load, save and restore the variable definitions. In: the person's answers. Out: the
// tables, the tree, the files.
#include "dashboard/Hourglass.h"
#include "dashboard/Recovery.h"
#include "dashboard/frmInterface.h"
#include "maths/VariableFiles.h"
#include "platform/Prompts.h"
#include "shell/Startup.h"
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

namespace vistor {
namespace {

FileRequest definitionFile(const char* title) {
    return {QLatin1String(title),
            QLatin1String(kVariableFileForm.filter),
            QLatin1String(kVariableFileForm.extension),
            {}};
}

} // namespace

void frmMain::mnuLoadVarInfo_Click() {
    const QString question = QStringLiteral(
        "Are you sure you wish to replace the current variable configuration with one from file?");
    if (MsgBox(question, Icon::Question, Buttons::YesNo) != Answer::Yes) return;
    const auto path = OpenFile(definitionFile("Load Variable Information..."));
    if (!path || path->isEmpty()) return;
    m_dashboard->keepTable(RecoveryReason::LoadVariables);
    replaceVariables(*path);
}

void frmMain::replaceVariables(const QString& path) {
    const Hourglass hourglass;
    loadVariables(path);
    m_dashboard->takeVariableTable();
    // Where there was no table and the file was none, the working file may still be mended.
    if (!VariableTable.empty()) saveVariables(VariableFilePath);
}

void frmMain::mnuSaveVarInfo_Click() {
    const auto path = SaveFile(definitionFile("Save Variable Information..."));
    if (!path || path->isEmpty()) return;
    const Hourglass hourglass;
    saveVariables(*path);
}

void frmMain::mnuRestoreDefaultVar_Click() {
    if (MsgBox(QStringLiteral("Do you want to restore default variable information?"), Icon::Question,
               Buttons::YesNo) != Answer::Yes)
        return;
    m_dashboard->keepTable(RecoveryReason::RestoreVariables);
    const QString restored = restoreDefinitionFile();
    if (restored.isEmpty()) {
        MsgBox(QStringLiteral("Can't find default variable file"), Icon::Stop);
        return;
    }
    const Hourglass hourglass;
    loadVariables(restored);
    m_dashboard->takeVariableTable();
}

} // namespace vistor
