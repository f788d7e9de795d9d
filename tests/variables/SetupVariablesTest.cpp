#include "variables/SetupVariables.h"

#include "tests/TestTables.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(SetupVariables, MarksTheAvailableRowsWhateverTheFileSaid) {
    makeTable();
    VariableTable[3].Available = kTrue16;
    VariableTable[1].Available = kFalse16;
    VariableTable[kNoVariable].Available = kTrue16;
    SetupVariables();
    int available = 0;
    for (const VariableDefinition& row : VariableTable) {
        EXPECT_EQ(row.Available, row.Enabled);
        available += row.Available ? 1 : 0;
    }
    EXPECT_EQ(available, 230);
    const std::pair<int, bool> cases[] = {{1, true},    {3, false},    {17, false},  {31, true},
                                          {32, false},  {199, false},  {231, true},  {232, false},
                                          {2030, true}, {2031, false}, {5081, true}, {6000, false},
                                          {6025, true}, {6026, false}, {8000, false}};
    for (const auto& [number, expected] : cases)
        EXPECT_EQ(VariableTable[static_cast<std::size_t>(number)].Available != 0, expected) << number;
}

TEST(SetupVariables, DerivesTheShownNameAndRunsTwiceWithoutChange) {
    makeTable();
    UnitConversions.push_back({QStringLiteral("KMH"), {}, QStringLiteral("$3.6$0"), QStringLiteral("km/h")});
    VariableTable[2].ApplyTransformation = QStringLiteral("KMH");
    VariableTable[4].ApplyTransformation = QStringLiteral("no such unit");
    setFormula(10, QStringLiteral("x*2"));
    VariableTable[10].CustomUnits = QStringLiteral("%");
    for (int pass = 0; pass < 2; ++pass) {
        SetupVariables();
        EXPECT_EQ(VariableTable[2].ConstantName, "B2 [km/h]");
        EXPECT_EQ(VariableTable[4].ConstantName, "B4 [-]");
        EXPECT_EQ(VariableTable[10].ConstantName, "B10 [%]");
    }
    UnitConversions.clear();
    VariableTable[2].BaseName = QStringLiteral("Other");
    SetupVariables();
    EXPECT_EQ(VariableTable[2].ConstantName, "B2 [km/h]"); // without units the name stays
}

TEST(SetupVariables, AShortTableLosesOnlyWhatDoesNotFit) {
    VariableTable.assign(3, {});
    SetupVariables();
    EXPECT_TRUE(VariableTable[2].Available);
    VariableTable.clear();
    SetupVariables();
    EXPECT_EQ(FindVariableByPhysicalName(QStringLiteral("P1")), kNoVariable);
}

TEST(SetupVariables, FindsNamesAsAWalkWould) {
    makeTable();
    VariableTable[5].PhysicalName = QStringLiteral("  Oil Temp ");
    VariableTable[9].PhysicalName = QStringLiteral("oil temp");
    VariableTable[12].BaseName = QStringLiteral("Oil [hot]");
    VariableTable[13].PhysicalName = QStringLiteral("Odd [x]");
    SetupVariables();
    struct Case {
        QString name;
        int expected;
    };
    const Case cases[] = {{"Oil Temp", 5},
                          {"OIL TEMP [°C]", 5},
                          {" oil temp ", 5},
                          {QString::fromLatin1("oil\0 temp", 9), 5},
                          {"oil", kNoVariable},
                          {"p8000", 8000},
                          {"P17", 17},
                          {"oil temp", 5},
                          {"Odd [x]", kNoVariable},
                          {"[", 0}};
    for (const Case& c : cases)
        EXPECT_EQ(FindVariableByPhysicalName(c.name), c.expected) << c.name.toStdString();
    EXPECT_EQ(FindVariableByBaseName(QStringLiteral("b2 [km/h]")), 2);
    EXPECT_EQ(FindVariableByBaseName(QStringLiteral("Oil [hot]")),
              kNoVariable); // the row's own name is not cut
    EXPECT_EQ(FindUnit(QStringLiteral("none")), 0);
    UnitConversions.push_back({QStringLiteral("A"), {}, {}, {}});
    UnitConversions.push_back({QStringLiteral("A"), {}, {}, {}});
    tableChanged();
    EXPECT_EQ(FindUnit(QStringLiteral("A")), 1);
    EXPECT_EQ(FindUnit(QStringLiteral("a")), 0);
}

TEST(SetupVariables, ReadsNumbersInAnyLocale) {
    struct Case {
        const char* text;
        double expected;
    };
    const Case cases[] = {{"", 0},        {"abc", 0},          {"-", 0},
                          {"1.5", 1.5},   {" -1.5E2 ", -150},  {"2e3", 2000},
                          {"05", 5},      {"1.05", 1.05},      {"1.005", 1.005},
                          {"1.2.3", 1.2}, {".25", 0.25},       {"7.", 7},
                          {"1 km/h", 1},  {"1E-3", 0.001},     {"1E", 1},
                          {"E5", 0},      {"--5", 5},          {"Port 12", 12},
                          {"1E999", 0},   {"3-4", 0},          {"-0.5", -0.5},
                          {"1.50", 1.5},  {"100.001", 100.001}};
    for (const Case& c : cases)
        EXPECT_NEAR(ParseNumber(QString::fromLatin1(c.text)), c.expected, std::abs(c.expected) * 1e-12)
            << c.text;
    EXPECT_NEAR(ParseNumber(QString(50, u'1')), 1.1111111111111111e39, 1e25); // 40 digits are read
    DecimalSeparator = QStringLiteral(",");
    QString text = QStringLiteral("1,5");
    EXPECT_EQ(ParseNumber(text), 1.5);
    EXPECT_EQ(text, "1.5");
    EXPECT_EQ(ParseNumber(QStringLiteral("1.5")), 1.5);
}

TEST(SetupVariables, ClampAndLarger) {
    EXPECT_EQ(Clamp(0.1, 0, 20), 0.1);
    EXPECT_EQ(Clamp(0.1, 25, 20), 20);
    EXPECT_EQ(Clamp(0.1, 2, 20), 2);
    EXPECT_EQ(Larger(2, 3), 3);
    EXPECT_EQ(Larger(3, 2), 3);
}

} // namespace
} // namespace vistor
