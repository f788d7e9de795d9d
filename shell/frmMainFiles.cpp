// The file menu's lists, of recent layouts and of kept copies; and what is stored when others end the
// program.
#include "acquisition/DataSource.h"
#include "dashboard/RecoverDialog.h"
#include "dashboard/RecoveryKeeper.h"
#include "dashboard/frmInterface.h"
#include "platform/Notices.h"
#include "platform/Prompts.h"
#include "platform/Scratch.h"
#include "shell/RecentFiles.h"
#include "shell/Startup.h"
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFileInfo>
#include <QMenu>
#include <QTemporaryFile>

namespace vistor {
namespace {

/// Of the entries that stand for files.
constexpr const char* kRecentEntry = "recent";

} // namespace

void frmMain::fillRecent(QMenu* menu) {
    menu->setToolTipsVisible(true);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { showRecent(menu); });
}

/// Read anew each time, so that two windows of the program see each other's files.
void frmMain::showRecent(QMenu* menu) {
    for (QAction* action : menu->actions())
        if (action->property(kRecentEntry).toBool()) delete action;
    QAction* clear = command(QStringLiteral("clearRecentFiles"));
    const QStringList files = readRecentFiles(SettingsPath);
    clear->setEnabled(!files.isEmpty());
    int number = 0;
    for (const QString& path : files) {
        auto* action = new QAction(recentCaption(path, ++number), menu);
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { openRecent(path); });
        action->setProperty(kRecentEntry, true);
        menu->insertAction(clear, action);
    }
    if (number > 0) menu->insertSeparator(clear)->setProperty(kRecentEntry, true);
}

void frmMain::openRecent(const QString& path) {
    if (QFileInfo(path).isFile()) return m_dashboard->openRecent(path);
    notify(QStringLiteral(
               "\"%1\" is not there any more. Bring it back, or look for it with File > Load Profile.")
               .arg(path));
}

void frmMain::keepRecent(const QStringList& files) {
    if (files != readRecentFiles(SettingsPath)) writeRecentFiles(SettingsPath, files);
}

void frmMain::clearRecentFiles() {
    keepRecent({});
}

void frmMain::recoverWork() {
    RecoverDialog dialog(recoveryFolder(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    const RecoveryCopy copy = dialog.chosen();
    if (!copy.isTable) return m_dashboard->openRecovered(copy);
    const QString question = QStringLiteral(
        "Are you sure you wish to replace the current variable configuration with one from file?");
    if (MsgBox(question, Icon::Question, Buttons::YesNo) != Answer::Yes) return;
    recoverVariables(copy);
}

/// By way of a scratch file: keeping the table that stands may push the copy out of its folder.
void frmMain::recoverVariables(const RecoveryCopy& copy) {
    const FileBytes file = readRecovery(recoveryFolder(), copy);
    if (!file.problem.isEmpty()) return tellUnreadable(file.problem);
    QTemporaryFile scratch;
    if (!scratch.open() || scratch.write(file.bytes) != file.bytes.size() || !scratch.flush())
        return tellUnreadable(scratch.errorString());
    m_dashboard->keepTable(RecoveryReason::LoadVariables);
    replaceVariables(scratch.fileName());
}

void frmMain::endBySignal() {
    m_dashboard->storeForEnd();
    CloseDataSource();
    deleteScratchFolder();
}

} // namespace vistor
