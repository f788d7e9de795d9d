#include "maths/DefinitionTables.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

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

TEST(DefinitionTables, AnyTextSurvivesInAnyEncodingOfTheFile) {
    Definitions two;
    two.units = {{"None", "", "$1$0", QString::fromUtf8("\u03A9\u6CB9\U0001F600")}};
    two.variables.resize(kVariableCount);
    for (const auto& [row, name] : {std::pair(1, "\u2126 left"), std::pair(2, "\u03C9 left"),
                                    std::pair(3, "\u00B5"), std::pair(4, "\u03BC")}) {
        two.variables[static_cast<std::size_t>(row)].IndexNumber = row;
        two.variables[static_cast<std::size_t>(row)].PhysicalName = QString::fromUtf8(name);
    }
    const DefinitionTables tables = printTables(two);
    TableFault fault;
    for (const DefinitionTables& form :
         {tables, DefinitionTables{"\xEF\xBB\xBF" + tables.variables,
                                   QByteArray(tables.units).replace('\n', '\r')}}) {
        const auto again = readTables(form, fault);
        ASSERT_TRUE(again) << qPrintable(fault.message);
        EXPECT_EQ(definitionBytes(again->units, again->variables), definitionBytes(two.units, two.variables));
    }
    const auto old = readTables({"Number\tPhysicalName\n1\t\xD6l\n", "Key\nNone\n"}, fault);
    ASSERT_TRUE(old);
    EXPECT_EQ(old->variables[1].PhysicalName, QString::fromUtf8("\u00D6l"));
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

} // namespace
} // namespace vistor
