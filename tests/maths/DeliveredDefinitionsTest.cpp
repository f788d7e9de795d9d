// What the program is delivered with: the definition file and the tables it is made from.
#include "maths/ConvertUnits.h"
#include "maths/DefinitionTables.h"
#include "variables/SetupVariables.h"

#include <QFile>
#include <QRegularExpression>

#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

const QString kDelivered = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/");

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

DefinitionTables deliveredTables() {
    return {bytesOf(kDelivered + kVariablesTable), bytesOf(kDelivered + kUnitsTable)};
}

/// Brings the delivered file into the live tables, as a load does.
void loadDelivered() {
    const QByteArray bytes = bytesOf(kDelivered + "VistorVars.cfg");
    auto read = readDefinitions({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    ASSERT_TRUE(read);
    replaceTables(std::move(*read));
}

TEST(DeliveredDefinitions, FileIsMadeFromTheTables) {
    const DefinitionTables tables = deliveredTables();
    TableFault fault;
    auto read = readTables(tables, fault);
    ASSERT_TRUE(read) << qPrintable(fault.file) << fault.line << qPrintable(fault.message);
    const DefinitionTables printed = printTables(*read);
    EXPECT_EQ(printed.variables, tables.variables);
    EXPECT_EQ(printed.units, tables.units);
    replaceTables(std::move(*read));
    EXPECT_TRUE(definitionBytes(UnitConversions, VariableTable) == bytesOf(kDelivered + "VistorVars.cfg"))
        << "build/.../vxdefs build OtherFiles makes it anew";
}

TEST(DeliveredDefinitions, EveryAvailableVariableIsTold) {
    loadDelivered();
    ASSERT_EQ(VariableTable.size(), static_cast<std::size_t>(kVariableCount));
    for (int number = 0; number < kVariableCount; ++number) {
        const VariableDefinition& row = VariableTable[static_cast<std::size_t>(number)];
        EXPECT_FALSE(isAvailableNumber(number) && row.PhysicalName.isEmpty()) << number;
        if (row.PhysicalName.isEmpty()) continue;
        EXPECT_EQ(row.IndexNumber, number);
        EXPECT_EQ(FindVariableByPhysicalName(row.PhysicalName), number);
        EXPECT_EQ(FindVariableByBaseName(row.BaseName), number);
        // The tree parts its keys at "#", and look-ups end a name at "[".
        EXPECT_FALSE(row.BaseName.contains(u'#') || row.BaseName.contains(u'[')) << number;
        EXPECT_FALSE(row.Description.isEmpty()) << number;
        EXPECT_TRUE(row.VariableType >= 1 && row.VariableType <= 9) << number;
        EXPECT_TRUE(row.DefaultMin < row.DefaultMax || (row.DefaultMin == 0 && row.DefaultMax == 0))
            << number;
    }
}

TEST(DeliveredDefinitions, RowsWithAMeaningOfTheirOwn) {
    loadDelivered();
    const std::pair<int, const char*> cases[] = {{1, "Time [s]"},
                                                 {2, "Engine speed [rpm]"},
                                                 {17, "Distance [m]"},
                                                 {30, "GPS latitude [\u00B0]"},
                                                 {31, "GPS longitude [\u00B0]"},
                                                 {204, "Brake pressure front [bar]"},
                                                 {2000, "Fuel used [l]"},
                                                 {2030, "User channel 8 []"}};
    for (const auto& [number, name] : cases)
        EXPECT_EQ(VariableTable[static_cast<std::size_t>(number)].ConstantName, QString::fromUtf8(name));
    for (int number = 200; number <= 231; ++number) {
        const VariableDefinition& row = VariableTable[static_cast<std::size_t>(number)];
        EXPECT_EQ(row.VariableType, 2) << number;
        EXPECT_GT(row.AllowTransformations->size(), 1) << number;
    }
    for (int number = 2000; number <= 2030; ++number) {
        const VariableDefinition& row = VariableTable[static_cast<std::size_t>(number)];
        EXPECT_EQ(row.VariableType, kCalculatedType) << number;
        EXPECT_FALSE(row.CustomTransformation.isEmpty()) << number;
    }
    EXPECT_FALSE(VariableTable[kNoVariable].Enabled);
}

/// Gain and offset of a conversion in that form; no value for an expression.
std::optional<std::pair<double, double>> gainAndOffset(const QString& formula) {
    const QStringList parts = formula.split(u'$');
    if (parts.size() != 3 || !parts[0].isEmpty()) return {};
    return std::pair(parts[1].toDouble(), parts[2].toDouble());
}

TEST(DeliveredDefinitions, ConversionsAreWhole) {
    loadDelivered();
    EXPECT_GE(UnitConversions.size(), 80U);
    EXPECT_EQ(UnitConversions[0].Conversion, "$1$0"); // where failed look-ups land
    EXPECT_EQ(UnitConversions[0].Uniit, "");
    for (const UnitConversion& unit : UnitConversions) {
        EXPECT_FALSE(unit.Description.isEmpty()) << qPrintable(unit.UnitName);
        const auto line = gainAndOffset(unit.Conversion);
        if (unit.Conversion.contains(u'$')) {
            ASSERT_TRUE(line) << qPrintable(unit.UnitName);
            EXPECT_TRUE(line->first != 0 && std::isfinite(line->first + line->second))
                << qPrintable(unit.UnitName);
        } else {
            EXPECT_TRUE(unit.Conversion.contains(u'x')) << qPrintable(unit.UnitName);
            EXPECT_EQ(unit.Conversion.count(u'('), unit.Conversion.count(u')')) << qPrintable(unit.UnitName);
        }
    }
    for (const VariableDefinition& row : VariableTable) {
        if (row.PhysicalName.isEmpty()) continue;
        ASSERT_TRUE(row.AllowTransformations);
        EXPECT_TRUE(row.AllowTransformations->contains(row.ApplyTransformation)) << qPrintable(row.BaseName);
        for (const QString& key : *row.AllowTransformations) {
            const UnitConversion& unit = UnitConversions[static_cast<std::size_t>(FindUnit(key))];
            EXPECT_EQ(unit.UnitName, key) << qPrintable(row.BaseName);
        }
    }
}

TEST(DeliveredDefinitions, LimitsLetPlausibleValuesPassInEveryUnit) {
    loadDelivered();
    // A raw value as the logger may send it; sensors' volts where the conversion is a sensor's.
    struct Case {
        const char* name;
        double raw;
        double volts;
    };
    const Case cases[] = {
        {"CoolantTemp", 140, 0},        {"CoolantTemp", -30, 0},   {"OilPressure", 9.5, 0},
        {"VehicleSpeed", 420, 0},       {"EngineSpeed", 19500, 0}, {"Lambda", 1.6, 0},
        {"BrakePressureFront", 0, 4.5}, {"LateralG", -5, 0.5},     {"SteeringAngle", -500, 4.9},
        {"DamperTravelFL", 120, 4.9},   {"FuelFlow", 300, 0},      {"FuelLevel", 110, 4.5},
        {"ExhaustTemp", 1100, 4.9},     {"TyrePressureRR", 3, 0},  {"GPSAltitude", 4000, 0},
    };
    for (const Case& c : cases) {
        const int number = FindVariableByPhysicalName(c.name);
        const VariableDefinition& row = VariableTable[static_cast<std::size_t>(number)];
        for (const QString& key : row.AllowTransformations.value_or(QStringList())) {
            const auto line =
                gainAndOffset(UnitConversions[static_cast<std::size_t>(FindUnit(key))].Conversion);
            if (!line) continue;
            const double value =
                line->first * (key.contains(QRegularExpression(QStringLiteral(" m?V"))) ? c.volts : c.raw) +
                line->second;
            EXPECT_GE(value, row.DefaultMin) << c.name << " in " << qPrintable(key);
            EXPECT_LE(value, row.DefaultMax) << c.name << " in " << qPrintable(key);
        }
    }
}

TEST(DeliveredDefinitions, EveryExpressionIsUnderstood) {
    loadDelivered();
    std::vector<std::int32_t> variables;
    std::vector<bool> carItems;
    const auto check = [&](const QString& formula) {
        if (formOf(formula) != FormulaForm::Expression) return;
        EXPECT_TRUE(CheckExpression(formula, variables, carItems)) << qPrintable(formula);
        for (const std::int32_t number : variables) {
            const bool known =
                number == 0 || !VariableTable[static_cast<std::size_t>(number)].BaseName.isEmpty();
            EXPECT_TRUE(known) << qPrintable(formula) << " reads " << number;
        }
    };
    for (const UnitConversion& unit : UnitConversions) check(unit.Conversion);
    for (const VariableDefinition& row : VariableTable) check(row.CustomTransformation);
}

TEST(DeliveredDefinitions, ConversionsGiveKnownValues) {
    loadDelivered();
    CarConstants = {0.6F, 200, 1000, 15, 101.325F};
    createFormulaEvaluators();
    struct Case {
        const char* unit;
        float raw;
        float expected;
    };
    const Case cases[] = {
        {"mph", 100, 62.137F},
        {"\u00B0F", 100, 212},
        {"K", 0, 273.15F},
        {"psi", 1, 14.504F},
        {"inHg", 1.01325F, 29.921F},
        {"rad/s", 60, 6.2832F},
        {"AFR petrol", 1, 14.7F},
        {"Equivalence ratio", 0.8F, 1.25F},
        {"lbf ft", 100, 73.756F},
        {"0.5-4.5 V, 0-100 bar", 0.5F, 0},
        {"0.5-4.5 V, 0-100 bar", 4.5F, 100},
        {"0.5-4.5 V, 0-100 bar in psi", 4.5F, 1450.4F},
        {"MAP 0.4-4.65 V, 20-250 kPa", 4.65F, 250},
        {"2.5 V \u00B1 0.5 V/g", 3, 1},
        {"NTC 2.5k, 1k pull-up", 5 * 2500.0F / 3500, 25},
        {"NTC 2.5k, 1k pull-up in \u00B0F", 5 * 2500.0F / 3500, 77},
        {"NTC 10k, 2.2k pull-up", 5 * 10000.0F / 12200, 25},
        {"PT1000, 1k pull-up", 5 * 1385.0F / 2385, 100},
        {"Tank 0.5-4.5 V, 0-80 l", 4.9F, 80},
        {"Pitot 0.5-4.5 V, 0-5 kPa", 0.3F, 0},
        {"Pitot 0.5-4.5 V, 0-5 kPa", 1.48F, 161}, // 1.225 kPa at sea level
        {"Gear drum 0.7 V/gear", 2.2F, 3},
        {"Switch, on above 2.5 V", 4, 1},
        {"Switch, on below 2.5 V", 4, 0},
        {"Pulses, 20 teeth, 1.90 m", 100, 34.2F},
    };
    for (const Case& c : cases) {
        const UnitConversion& unit =
            UnitConversions[static_cast<std::size_t>(FindUnit(QString::fromUtf8(c.unit)))];
        EXPECT_EQ(unit.UnitName, QString::fromUtf8(c.unit));
        float value = c.raw;
        EXPECT_TRUE(ConvertValue(unit.Conversion, 231, value, false));
        EXPECT_NEAR(value, c.expected, 1e-4 * std::abs(c.expected) + 2e-3) << c.unit;
    }
}

TEST(DeliveredDefinitions, UserFormulasGiveKnownValues) {
    loadDelivered();
    CarConstants = {0.6F, 200, 1000, 15, 101.325F};
    createFormulaEvaluators();
    const std::pair<int, float> values[] = {{2, 4930},  {4, 100},     {200, 100}, {201, 100}, {202, 110},
                                            {203, 110}, {204, 60},    {205, 40},  {207, 3},   {208, 4},
                                            {213, 36},  {302, 92.5F}, {303, 91},  {72, 110},  {70, 90}};
    for (const auto& [number, value] : values) LastValue[static_cast<std::size_t>(number)] = value;
    const std::pair<const char*, float> cases[] = {
        {"FuelUsed", 0.01F},     {"WheelSlip", 10},
        {"GearEstimate", 3},     {"CombinedG", 5},
        {"BrakeBalance", 60},    {"FuelEconomy", 36},
        {"LapLoss", 1.5F},       {"OilOverCoolant", 20},
        {"BrakingTime", 1},      {"FullThrottleTime", 0},
        {"MeanWheelSpeed", 105}, {"CornerRadius", 26.227F},
        {"WheelPower", 1102.9F}, {"Warnings", 4 + 8 + 16 + 32},
        {"DriveState", 2 + 16},
    };
    const auto evaluated = [](const char* name) {
        const int number = FindVariableByPhysicalName(QString::fromUtf8(name));
        float value = 0;
        ConvertValue(VariableTable[static_cast<std::size_t>(number)].CustomTransformation, number, value,
                     false);
        return value;
    };
    for (const auto& [name, expected] : cases)
        EXPECT_NEAR(evaluated(name), expected, 1e-3 * std::abs(expected) + 1e-4) << name;
    LastValue.fill(0); // a car that stands divides by nothing
    for (const char* name : {"WheelSlip", "GearEstimate", "BrakeBalance", "CornerRadius", "FuelLapsLeft"})
        EXPECT_EQ(evaluated(name), 0) << name;
}

} // namespace
} // namespace vistor
