#include "shell/CarSettings.h"

#include "maths/ConfigPairs.h"
#include "maths/ConvertUnits.h"
#include "platform/CodePage.h"
#include "platform/Notices.h"
#include "platform/WholeFile.h"
#include "shell/Startup.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace vistor {
namespace {

constexpr qint64 kLargestCarFile = 1 << 20;
constexpr double kAny = std::numeric_limits<float>::max(); ///< the constants have 32 bits
constexpr std::size_t kMeasured = 4;                       ///< the first ones, which every car has

constexpr CarSetting constant(const char* key, int place, const char* name, const char* caption) {
    return {key, place, name, caption, "", -kAny, kAny};
}

constexpr std::array<CarSetting, kCarSettings> kSettings = {{
    {"IGNTIONPULSESREV", -1, "", "Ignition pulses per turn", "pulses", 0.1, 20},
    {"CDAVAL", 0, "CdA", "Aerodynamic resistance", "m\u00B2", 0, kAny},
    {"ROLLINGVAL", 1, "Roll", "Rolling resistance", "N/m\u00B2", 0, kAny},
    {"CARMASS", 2, "Mass", "Vehicle mass", "kg", 0, kAny},
    constant("CARCONSTANT1", 6, "CAR_1", "Constant 1"),
    constant("CARCONSTANT2", 7, "CAR_2", "Constant 2"),
    constant("CARCONSTANT3", 8, "CAR_3", "Constant 3"),
    constant("CARCONSTANT4", 9, "CAR_4", "Constant 4"),
    constant("CARCONSTANT5", 10, "CAR_5", "Constant 5"),
    constant("CARCONSTANT6", 11, "CAR_6", "Constant 6"),
    constant("CARCONSTANT7", 12, "CAR_7", "Constant 7"),
    constant("CARCONSTANT8", 13, "CAR_8", "Constant 8"),
    constant("CARCONSTANT9", 14, "CAR_9", "Constant 9"),
    constant("CARCONSTANT10", 15, "CAR_10", "Constant 10"),
}};

CarNumbers numbersIn(const QByteArray& bytes) {
    CarNumbers numbers;
    for (const ConfigPair& pair : configPairs(bytes)) {
        const auto* setting = std::find_if(kSettings.begin(), kSettings.end(),
                                           [&](const auto& s) { return pair.key == QLatin1String(s.key); });
        if (setting == kSettings.end()) continue;
        auto& number = numbers[static_cast<std::size_t>(setting - kSettings.begin())];
        if (!number) number = pair.number; // the first one counts
    }
    return numbers;
}

} // namespace

std::span<const CarSetting, kCarSettings> carSettings() {
    return kSettings;
}

QString carFile() {
    return WorkingFolder + QStringLiteral("Car.cfg");
}

CarNumbers readCarNumbers() {
    return numbersIn(unmarked(readWholeFile(carFile(), kLargestCarFile).bytes));
}

QString writeCarNumbers(const CarNumbers& numbers) {
    const FileBytes file = readWholeFile(carFile(), kLargestCarFile);
    if (!file.problem.isEmpty() && !file.missing) return file.problem; // what could not be read is not lost
    QByteArray bytes = unmarked(file.bytes);
    const CarNumbers before = numbersIn(bytes);
    for (std::size_t i = 0; i < kCarSettings; ++i)
        if (numbers[i] && numbers[i] != before[i])
            bytes = withConfigNumber(bytes, QLatin1String(kSettings[i].key), *numbers[i]);
    return writeWholeFile(carFile(), bytes);
}

void takeCarNumbers() {
    readIgnitionPulses();
    readCarConstants();
    createFormulaEvaluators(); // what has the constants in it is made anew
}

void tellMissingCarNumbers() {
    const CarNumbers numbers = readCarNumbers();
    QStringList missing;
    for (std::size_t i = 0; i < kMeasured; ++i)
        if (!numbers[i]) missing << QLatin1String(kSettings[i].caption).toString().toLower();
    if (missing.isEmpty()) return;
    const QString effect =
        numbers[0] ? QStringLiteral("Formulas take 0") : QStringLiteral("The engine speed is far too high");
    notify(QStringLiteral("Not set for this car: %1. %2 until you enter it under Window > Car...")
               .arg(missing.join(QStringLiteral(", ")), effect));
}

} // namespace vistor
