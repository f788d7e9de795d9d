#include "maths/Transformation.h"

#include "maths/ConvertUnits.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"

#include <QSet>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class TransformationTest : public testing::Test {
protected:
    TransformationTest() {
        makeTable();
        UnitConversions.push_back({"km/h", "Kilometres", "$3.6$0", "km/h"});
        UnitConversions.push_back({"mph", "Miles", "$2.2$0", "mi"});
        SetupVariables();
        createFormulaEvaluators();
        VariableTableEdit = VariableTable;
        row = VariableTable[2];
        row.AllowTransformations = QStringList{"mph", "km/h", "gone"};
        row.ApplyTransformation = "km/h";
        row.CustomTransformation = "x*2";
        row.CustomUnits = "V";
    }
    float value(const QString& formula) {
        float converted = 4;
        return ConvertValue(formula, 2, converted, false) ? converted : -1;
    }

    ScriptedPrompts prompts;
    VariableDefinition row;
};

TEST_F(TransformationTest, WhatTheGridsInsertEvaluatesAsItStands) {
    const QSet<QString> binary = {"+", "-", "*", "/", "^"};
    const QHash<QString, QString> arguments = {
        {"RND", "()"},    {"INTPOW", "(2,3)"}, {"POW", "(2,0.5)"}, {"LOGN", "(10,100)"},
        {"MIN", "(2,3)"}, {"MAX", "(2,3)"},    {"IF", "(1,2,3)"},  {"SUM", "(2,3,5)"},
    };
    int checked = 0;
    for (const FormulaItem& item : formulaFunctions()) {
        const QString token = QLatin1String(item.token);
        const QString inserted = insertedText(token);
        EXPECT_EQ(inserted.startsWith(u'{'), token == "/" || token[0].isLetter()) << item.token;
        if (token == "(" || token == ")") continue;
        const bool isBinary = binary.contains(token);
        const QString tail = isBinary ? QStringLiteral("2") : arguments.value(token, "(0.5)");
        const QString head = isBinary ? QStringLiteral("x") : QString();
        bool valid = false;
        CheckFormulaFormat(head + inserted + tail, 2, valid);
        EXPECT_TRUE(valid) << item.token;
        if (token != "RND") {
            EXPECT_EQ(value(head + inserted + tail), value(head + token + tail)) << item.token;
        }
        ++checked;
    }
    EXPECT_EQ(checked, 30);
    EXPECT_EQ(insertedText("\\"), "\\");
    CarConstants.fill(3);
    createFormulaEvaluators();
    EXPECT_EQ(formulaConstants().size(), 16U);
    for (const FormulaItem& item : formulaConstants())
        EXPECT_EQ(value(QLatin1String(item.token)), 3) << item.token;
    EXPECT_EQ(QLatin1String(formulaConstants()[15].help), "Car Constant 10 [-]");
    LastValue[31] = 7;
    EXPECT_EQ(value(variableName(31)), 7);
}

TEST_F(TransformationTest, OffersTheEnabledVariablesByGroupAndWords) {
    VariableTableEdit[31].VariableType = 3;
    VariableTableEdit[70].VariableType = 12;
    const std::vector<OfferedVariable> offered = offeredVariables();
    const auto tokens = [&](int group, const char* words) {
        QStringList found;
        for (const OfferedVariable& variable : offered) {
            if (isOffered(variable, group, QLatin1String(words))) found += variable.token;
        }
        return found;
    };
    EXPECT_EQ(groupEntries().size(), 11);
    EXPECT_EQ(groupEntries().first(), "All");
    EXPECT_EQ(groupEntries().last(), "None");
    EXPECT_EQ(tokens(3, ""), QStringList{"VAR_0031"});
    EXPECT_TRUE(tokens(10, "").contains("VAR_0070"));
    EXPECT_FALSE(tokens(10, "").contains("VAR_0031"));
    EXPECT_EQ(tokens(0, "b3100"), QStringList());
    EXPECT_EQ(tokens(0, "B30 [ _003"), QStringList{"VAR_0030"});
    EXPECT_EQ(tokens(0, "").size(), static_cast<qsizetype>(offered.size()));
}

TEST_F(TransformationTest, IllegalAndWrongFormulasAreToldAndTouchNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"$2$0", "The formula contains illegal characters"},
        {"x#", "The formula contains illegal characters"},
        {"VAR_0001[", "The formula contains illegal characters"},
        {"]", "The formula contains illegal characters"},
        {"x +", "There is an error in the formula: x +"},
        {"\xC3\xA9", "There is an error in the formula: \xC3\xA9"},
    };
    const QByteArray before = row.CustomTransformation.toUtf8();
    for (const auto& [formula, words] : cases) {
        EXPECT_FALSE(storeTransformation({true, 0, QString::fromUtf8(formula), "W"}, 2, row));
        EXPECT_EQ(prompts.takeWords(), QStringList{QString::fromUtf8(words)});
        EXPECT_EQ(prompts.messages.back().icon, Icon::Stop);
        EXPECT_EQ(row.CustomTransformation, before);
        EXPECT_EQ(row.CustomUnits, "V");
        EXPECT_FALSE(row.UseCustomTrans);
    }
    EXPECT_TRUE(storeTransformation({false, 0, "$", "W"}, 2, row)) << "not asked for by the standard option";
    EXPECT_TRUE(prompts.messages.empty() || prompts.takeWords().isEmpty());
}

TEST_F(TransformationTest, OkWritesTheFieldsOfTheChosenOptionAlone) {
    ASSERT_TRUE(storeTransformation({true, 0, "", "W"}, 2, row));
    EXPECT_EQ(row.UseCustomTrans, kTrue16);
    EXPECT_EQ(row.CustomTransformation, "0");
    EXPECT_EQ(row.CustomUnits, "W");
    EXPECT_EQ(row.ConstantName, "B2 [W]");
    EXPECT_EQ(row.ApplyTransformation, "km/h");

    ASSERT_TRUE(storeTransformation({false, 0, "x*9", "Z"}, 2, row));
    EXPECT_EQ(row.UseCustomTrans, kFalse16);
    EXPECT_EQ(row.ApplyTransformation, "mph");
    EXPECT_EQ(row.ConstantName, "B2 [mi]");
    EXPECT_EQ(row.CustomTransformation, "0");
    EXPECT_EQ(row.CustomUnits, "W");

    ASSERT_TRUE(storeTransformation({false, -1, "", ""}, 2, row)); // nothing chosen
    EXPECT_EQ(row.ApplyTransformation, "mph");
    ASSERT_TRUE(storeTransformation({false, 2, "", ""}, 2, row)); // a key that there is not: the first unit
    EXPECT_EQ(row.ApplyTransformation, "NONE");
    EXPECT_EQ(row.ConstantName, "B2 [-]");
    UnitConversions.clear();
    tableChanged();
    EXPECT_TRUE(storeTransformation({false, 0, "", ""}, 2, row));
    EXPECT_EQ(row.ApplyTransformation, "NONE");
}

TEST_F(TransformationTest, DraftTitleAndCaption) {
    EXPECT_EQ(draftOf(row).standard, 1);
    EXPECT_EQ(unitCaption("mph"), "[mi]");
    EXPECT_EQ(transformationTitle(row, false), "Set units for B2");
    EXPECT_EQ(transformationTitle(row, true), "Edit equation for B2");
    row.AllowTransformations.reset();
    EXPECT_EQ(draftOf(row).standard, -1);
    EXPECT_TRUE(standardConversions(row).isEmpty());
}

} // namespace
} // namespace vistor
