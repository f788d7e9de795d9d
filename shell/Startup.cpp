#include "shell/Startup.h"

#include "maths/FileSupportFunctions.h"
#include "maths/VariableFiles.h"
#include "platform/Folders.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "platform/Prompts.h"
#include "platform/WholeFile.h"
#include "shell/CarSettings.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace vistor {
namespace {

constexpr qint64 kLargestDelivered = 32 << 20; ///< bytes

/// False when there is nothing to copy.
bool copyDefinitions(const QString& from, const QString& target) {
    if (!FileExists(QString(from))) return false;
    if (QFileInfo(from).canonicalFilePath() == QFileInfo(target).canonicalFilePath()) return true;
    const FileBytes source = readWholeFile(from, kLargestDelivered);
    if (source.problem.isEmpty())
        writeOrTell(target, source.bytes, QStringLiteral("The delivered variable definitions"));
    else
        notify(QStringLiteral("The delivered variable definitions in %1 cannot be read: %2.")
                   .arg(from, source.problem));
    return true;
}

bool copyDelivered(const QString& name) {
    if (!copyDefinitions(deliveredFolder() + name, WorkingFolder + name)) return false;
    readDecimalSeparator(); // the numbers in texts have it
    if (name == QLatin1String(kTextForm.workingFile)) localiseDelivered(WorkingFolder + name);
    return true;
}

} // namespace

void findWorkingFolder() {
    WorkingFolder = GetUserDataFolder();
    if (!WorkingFolder.isEmpty() && !PathExists(QString(WorkingFolder))) QDir().mkpath(WorkingFolder);
    LibraryPath = WorkingFolder + QStringLiteral("VisControl.cfg");
    SettingsPath = WorkingFolder + QStringLiteral("vxvis.cfg");
}

bool findDefinitionFile() {
    const QString name = QLatin1String(kVariableFileForm.workingFile);
    const QString path = WorkingFolder + name;
    if (!FileExists(QString(path)) && !copyDelivered(name)) {
        MsgBox(QStringLiteral("An important system file cannot be found, please uninstall and re-install"),
               Icon::Stop, Buttons::Ok, QStringLiteral("file not found"));
        return false;
    }
    VariableFilePath = FileExists(QString(path)) ? path : QString();
    if (VariableFilePath.isEmpty())
        MsgBox(QStringLiteral("The variable definition file could not be found..."));
    return true;
}

QString restoreDefinitionFile() {
    const QString name = QLatin1String(kVariableFileForm.workingFile);
    if (!FileExists(QString(programFolder() + name))) return {};
    for (const QString& file : variableFileNames())
        copyDefinitions(programFolder() + file, WorkingFolder + file);
    if (UseXmlVariableFiles) localiseDelivered(WorkingFolder + name);
    return WorkingFolder + name;
}

void loadDefinitions() {
    if (VariableFilePath.isEmpty()) return;
    if (UseXmlVariableFiles) {
        const QString units = QLatin1String(kVariableFileForm.unitsFile);
        if (!FileExists(QString(WorkingFolder + units))) copyDelivered(units);
        readDecimalSeparator(); // the numbers in texts have it
    }
    loadVariables(VariableFilePath);
}

double ReadCarConstant(const QString& path, const QString& key) {
    return ReadConfigValue(path, key);
}

void readIgnitionPulses() {
    const CarSetting& setting = carSettings().front();
    const double pulses = ReadCarConstant(carFile(), QLatin1String(setting.key));
    IgnitionPulsesPerRev = static_cast<float>(Clamp(setting.low, pulses, setting.high));
}

void readDecimalSeparator() {
    DecimalSeparator = GetDecimalSeparator();
    if (DecimalSeparator.contains(QChar(u'\0'))) DecimalSeparator.chop(1);
}

void readCarConstants() {
    CarConstants.fill(0);
    CarConstants[3] = 30; // air: degrees Celsius, kPa, and no humidity
    CarConstants[4] = 101;
    const QString path = carFile();
    for (const CarSetting& setting : carSettings()) {
        if (setting.constant < 0) continue;
        const double value = ReadCarConstant(path, QLatin1String(setting.key));
        const auto single = static_cast<float>(ParseNumber(QString::number(value, 'g', 15)));
        if (std::isfinite(single)) CarConstants[static_cast<std::size_t>(setting.constant)] = single;
    }
}

QString lastLayout() {
    return readIniValue(SettingsPath, QStringLiteral("VXVISTOR"), QStringLiteral("LASTFILE"), QString(),
                        kLongestPath);
}

QString offerLayout(const QString& last) {
    const bool first = last.isEmpty();
    const QString path = first ? programFolder() + QStringLiteral("default.vis") : last;
    if (!FileExists(QString(path))) return {};
    const QString question = first ? QStringLiteral("Do you want to load default configuration file?")
                                   : QStringLiteral("Do you want to load last configuration file?");
    return MsgBox(question, Icon::None, Buttons::YesNo) == Answer::Yes ? path : QString();
}

QString mainWindowTitle() {
    return QStringLiteral("Vistor - Version " VISTOR_VERSION);
}

} // namespace vistor
