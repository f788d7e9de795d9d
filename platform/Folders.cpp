#include "platform/Folders.h"

#include <QCoreApplication>
#include <QDir>

namespace vistor {
namespace {

QString otherProgramFolder;

QString withSlash(QString folder) {
    if (!folder.isEmpty() && !folder.endsWith(u'/')) folder += u'/';
    return folder;
}

} // namespace

QString applicationDataFolder() {
    const QString configured = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (configured.startsWith(u'/')) return withSlash(configured); // a relative one counts as not set
    const QString home = qEnvironmentVariable("HOME");
    return home.isEmpty() ? QString() : withSlash(home) + QStringLiteral(".config/");
}

QString programFolder() {
    if (!otherProgramFolder.isEmpty()) return otherProgramFolder;
    return withSlash(QCoreApplication::applicationDirPath());
}

QString deliveredFolder() {
    return withSlash(QDir::cleanPath(programFolder() + QStringLiteral("../../OtherFiles")));
}

void setProgramFolder(const QString& folder) {
    otherProgramFolder = withSlash(folder);
}

} // namespace vistor
