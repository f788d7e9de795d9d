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

TEST(DefinitionTables, OddTextsAndArraysSurvive) {
    Definitions odd;
    odd.units = {{"", "", "", ""},
                 {"a|b", "tab\tand\\", "Function Output\r\n x = 1\nEnd Function", "\u00B0"}};
    odd.variables.resize(kVariableCount);
    VariableDefinition& row = odd.variables[5];
    row.IndexNumber = 17;
    row.PhysicalName = "P";
    row.CustomTransformation = "\\e|\n";
    row.AllowTransformations = QStringList{"a|b", ""};
    row.allowLowerBound = 1;
    row.DefaultMax = 1e20F;
    row.SmoothingTime = 0.1F;
    row.FilterRipple = 1.17549435e-38F;
    row.Misc = 255;
    odd.variables[6].AllowTransformations = QStringList{""};
    odd.variables[7].AllowTransformations.emplace();
    odd.variables[8].IndexNumber = -3;
    TableFault fault;
    const auto again = readTables(printTables(odd), fault);
    ASSERT_TRUE(again) << qPrintable(fault.message);
    EXPECT_EQ(definitionBytes(again->units, again->variables), definitionBytes(odd.units, odd.variables));
}

TEST(DefinitionTables, FaultsNameFileAndLine) {
    const QByteArray units = "Key\tConversion\nNone\t$1$0\n";
    const QByteArray head = "Number\tPhysicalName\tUnit\tMin\tUseFormula\tMisc\n\n1\tTime\tNone\n";
    struct Case {
        QByteArray variables;
        QByteArray units;
        const char* file;
        int line;
        const char* words;
    };
    const Case cases[] = {
        {head, "Kee\n", kUnitsTable, 1, "no column"},
        {head, "Label\n", kUnitsTable, 1, "missing"},
        {head, "Key\tKey\n", kUnitsTable, 1, "twice"},
        {head, units + "K\t1\t2\n", kUnitsTable, 3, "more cells"},
        {head, units + "None\n", kUnitsTable, 3, "twice"},
        {head, units + "\u03BB\n", kUnitsTable, 3, "cannot stand"},
        {head, units + "a\\x\n", kUnitsTable, 3, "cannot stand"},
        {head + "x\n", units, kVariablesTable, 4, "cannot stand"},
        {head + "8001\n", units, kVariablesTable, 4, "0 to 8000"},
        {head + "-1\n", units, kVariablesTable, 4, "0 to 8000"},
        {head + "2\n1\n", units, kVariablesTable, 5, "twice"},
        {head + "2\t TIME \n", units, kVariablesTable, 4, "twice"},
        {head + "2\tA\tFurlong\n", units, kVariablesTable, 4, "no unit"},
        {head + "2\tA\t\t1,5\n", units, kVariablesTable, 4, "cannot stand"},
        {head + "2\tA\t\t\tno\n", units, kVariablesTable, 4, "cannot stand"},
        {head + "2\tA\t\t\t\t256\n", units, kVariablesTable, 4, "cannot stand"},
    };
    for (const Case& c : cases) {
        TableFault fault;
        EXPECT_FALSE(readTables({c.variables, c.units}, fault));
        EXPECT_EQ(fault.file, c.file) << c.words;
        EXPECT_EQ(fault.line, c.line) << qPrintable(fault.message);
        EXPECT_TRUE(fault.message.contains(c.words)) << qPrintable(fault.message);
    }
    TableFault fault;
    EXPECT_TRUE(readTables({head + "2\tA\tNone\t-1.5\tyes\t255\r\n", units}, fault));
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
                                                 {2030, "User channel 10 []"}};
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

} // namespace
} // namespace vistor
