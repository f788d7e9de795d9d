#include "maths/ConvertUnits.h"

#include "maths/FormulaEvaluator.h"
#include "maths/Transformation.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

float converted(const QString& formula, float value, int row = 17) {
    EXPECT_TRUE(ConvertValue(formula, row, value, false)) << formula.toStdString();
    return value;
}

TEST(ConvertUnits, FormIsFoundInOrder) {
    const std::pair<const char*, FormulaForm> cases[] = {
        {"", FormulaForm::Identity},
        {"0", FormulaForm::Identity},
        {"$1$0", FormulaForm::Identity},
        {"$1$0 ", FormulaForm::GainAndOffset},
        {"0.0", FormulaForm::Expression},
        {"Function Output : Output = \"$\"", FormulaForm::GainAndOffset},
        {"function output", FormulaForm::Script},
        {"External DLL \"a\"", FormulaForm::External},
        {"x + 1", FormulaForm::Expression}};
    for (const auto& [text, form] : cases) EXPECT_EQ(formOf(QString::fromLatin1(text)), form) << text;
}

TEST(ConvertUnits, GainAndOffset) {
    const std::tuple<const char*, float, float> cases[] = {
        {"$2.5$-1", 4, 9}, {"$1$0", 4, 4},    {"$$5", 4, 5}, {"$3", 4, 12},
        {"7$2$1", 4, 9},   {"$2$1$99", 4, 9}, {"$", 4, 0},   {"$1E3$0", 2, 2000}};
    for (const auto& [formula, value, expected] : cases)
        EXPECT_FLOAT_EQ(converted(QString::fromLatin1(formula), value), expected) << formula;
    EXPECT_EQ(converted(QStringLiteral("$1E38$0"), 1000), 1000); // overflow leaves the value alone
    DecimalSeparator = QStringLiteral(",");
    tableChanged();
    EXPECT_FLOAT_EQ(converted(QStringLiteral("$2,5$-1"), 4), 9);
}

TEST(ConvertUnits, EverythingTheEditorOffers) {
    const std::tuple<const char*, double, double> cases[] = {
        {"x+1-2*3/4^2", 5, 5.625},
        {"(x)", 3, 3},
        {"SQR(x)", 3, 9},
        {"sin(x)", 1, 0.8414709848},
        {"COS(U)", 1, 0.5403023059},
        {"ATAN(x)", 1, 0.7853981634},
        {"SINH(x)", 1, 1.1752011936},
        {"COSH(x)", 1, 1.5430806348},
        {"COTAN(x)", 1, 0.6420926159},
        {"TAN(x)", 1, 1.5574077247},
        {"EXP(x)", 1, 2.7182818285},
        {"LN(x)", 10, 2.302585093},
        {"LOG(x)", 1000, 3},
        {"SQRT(x)", 16, 4},
        {"ABS(x)", -2, 2},
        {"SIGN(x)", -2, -1},
        {"SIGN(x)", 0, 0},
        {"TRUNC(x)", -3.2, -3},
        {"CEIL(x)", 3.2, 4},
        {"CEIL(x)", -3.2, -3},
        {"FLOOR(x)", -3.2, -4},
        {"INTPOW(2, x)", 3, 8},
        {"POW(x, 0.5)", 9, 3},
        {"LOGN(10, x)", 100, 2},
        {"MIN(2, x)", 3, 2},
        {"MAX(2, x)", 3, 3},
        {"IF(x, 5, 6)", 1, 5},
        {"IF(x > 2, 5, 6)", 1, 6},
        {"SUM(2,x,5)", 3, 10},
        {"RND() * 0 + x", 3, 3},
        {"{SIN}(x)", 1, 0.8414709848},
        {"SIN (x)", 1, 0.8414709848},
        {"{SIN} \r\n(x)", 1, 0.8414709848},
        {"2*\t(x+1)", 1, 4},
        {"x{/}2", 3, 1.5},
        {"{x}", 3, 3},
        {"x = 3", 3, 1},
        {"x <> 3", 3, 0},
        {"(x >= 3) + (x <= 2) + (x == 3) + (x != 4)", 3, 3},
        {"1e3*X", 2, 2000},
        {"-x^2", 3, -9},
        {"2^3^2", 0, 512},
        {"x>1 && x<5", 3, 1},
        {"x>9 || x<5", 3, 1},
        {"2 - -x", 3, 5},
        {"--x", 3, 3},
        {"- - -x^2", 3, -9},
        {"x--x", 3, 6},
        {"x - + -\t- 1", 3, 2},
        {"2^--x*2", 3, 16},
        {"SUM(1, - -x, +-2)*1e-1", 3, 0.2},
        {"(--x)--(x)>- -5", 3, 1},
    };
    makeTable();
    for (const auto& [formula, value, expected] : cases)
        EXPECT_NEAR(static_cast<double>(converted(QString::fromLatin1(formula), static_cast<float>(value))),
                    expected, 1e-5)
            << formula;
    for (const FormulaItem& item : formulaFunctions())
        EXPECT_TRUE(std::any_of(
            std::begin(cases), std::end(cases),
            [&](const auto& c) { return QLatin1String(std::get<0>(c)).contains(QLatin1String(item.token)); }))
            << item.token << " is offered and not tried";
}

TEST(ConvertUnits, ReadsOtherVariablesAndItself) {
    makeTable();
    CarConstants = {0.5F, 0.25F, 900, 30, 101, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    createFormulaEvaluators();
    LastValue[100] = 7;
    LastValue[17] = 1000;
    const std::tuple<const char*, float, float> cases[] = {
        {"VAR_0100 + x", 1, 8},
        {"VAR_0017 * 2", 3, 6}, // its own name is the raw value
        {"VAR_0100 + VAR_0100", 0, 14},
        {"CAR_1 + CAR_10 + cdA + ROLL", 0, 11.75F},
        {"Mass + Temp + Press + Humid", 0, 1031},
        {"VAR_0100 + nosuch", 1, 0}, // an error is 0 and nothing is shown
        {"VAR_9000", 1, 0},
        {"1/(x-x)", 1, 0},
        {"x +", 1, 0},
        {"x, 2", 1, 0},
        {"1e300", 1, 0},
    };
    for (const auto& [formula, value, expected] : cases)
        EXPECT_FLOAT_EQ(converted(QString::fromLatin1(formula), value), expected) << formula;
    EXPECT_EQ(converted(QStringLiteral("var_0200"), 1, 30),
              0); // lower case is not fed, and here not known either
    LastValue[100] = 8;
    EXPECT_FLOAT_EQ(converted(QStringLiteral("VAR_0100"), 1), 8);
    EXPECT_FLOAT_EQ(EvaluateExpression(QStringLiteral("U*2"), 4, 8000), 8);
    EXPECT_EQ(EvaluateExpression(QStringLiteral("U*2"), 4, 8001), 0);
}

TEST(ConvertUnits, CheckTellsWhatAFormulaUses) {
    std::vector<std::int32_t> variables;
    std::vector<bool> items;
    EXPECT_TRUE(CheckExpression(QStringLiteral("VAR_0017 + VAR_8000*CAR_2 + Humid"), variables, items));
    EXPECT_EQ(variables, (std::vector<std::int32_t>{17, 8000}));
    ASSERT_EQ(items.size(), 17U);
    for (std::size_t item = 0; item < items.size(); ++item)
        EXPECT_EQ(items[item], item == 2 || item == 16) << item;
    EXPECT_TRUE(CheckExpression(QStringLiteral("x"), variables, items));
    EXPECT_EQ(variables, std::vector<std::int32_t>{0});
    for (const char* bad : {"", "1/", "VAR_8001", "foo", "SIN", "(", "x x", "1,2", "\xC3\xA9", "--", "x--",
                            "1e---5", "x*/2", "(+)", "SUM(1,-)", "SIN()", "x$"})
        EXPECT_FALSE(CheckExpression(QString::fromUtf8(bad), variables, items)) << bad;
    EXPECT_EQ(variables.size(), std::size_t(kVariableCount)); // nothing has shortened it
}

// The check knows no sample; that 1 for all names has no finite result does not make a text wrong.
TEST(ConvertUnits, AFormulaWithoutAResultForOneIsRight) {
    makeTable();
    CarConstants[6] = 2;
    CarConstants[7] = 6;
    createFormulaEvaluators();
    const std::tuple<const char*, float, float> cases[] = {
        {"(x-CAR_1)/(CAR_2-CAR_1)", 4, 0.5F}, {"1/(x-1)", 3, 0.5F}, {"LN(x-1)", 2, 0}, {"SQRT(x-5)", 9, 2},
        {"1/(VAR_0100-VAR_0200)", 1, 0},      {"1/0", 3, 0},        {"1e300", 3, 0},   {"SQRT(x-5)", 1, 0}};
    ScriptedPrompts prompts;
    for (const auto& [text, value, expected] : cases) {
        const QString formula = QString::fromLatin1(text);
        bool valid = false;
        CheckFormulaFormat(formula, 17, valid);
        EXPECT_TRUE(valid) << text;
        EXPECT_FLOAT_EQ(converted(formula, value), expected) << text; // 0: none for this sample
    }
    EXPECT_TRUE(prompts.takeWords().isEmpty());
}

TEST(ConvertUnits, CheckModeTellsAWrongFormulaAndTouchesNothing) {
    ScriptedPrompts prompts;
    float value = 4;
    EXPECT_TRUE(ConvertValue(QStringLiteral("x*2"), 17, value, true));
    EXPECT_FALSE(ConvertValue(QStringLiteral("x*"), 17, value, true));
    EXPECT_EQ(value, 4);
    EXPECT_EQ(prompts.takeWords(), QStringList{"There is an error in the formula: x*"});
    EXPECT_EQ(prompts.messages.back().icon, Icon::Stop);
}

TEST(ConvertUnits, HostileTextsEndInAnError) {
    const QString deep = QString(20000, u'(') + u'x' + QString(20000, u')');
    const QString wide = QStringLiteral("x") + QStringLiteral("+x").repeated(4000);
    float value = 1;
    EXPECT_TRUE(ConvertValue(deep, 5, value, false));
    value = 1;
    EXPECT_TRUE(ConvertValue(wide, 5, value, false));
    EXPECT_FLOAT_EQ(value, 4001);
    EXPECT_EQ(converted(QStringLiteral("\"text\""), 1), 0);
    EXPECT_EQ(converted(QString(QChar(u'\0')) + u'x', 1), 0);
}

TEST(FormulaEvaluator, VariablesOutliveTheTextTheyWereSetFor) {
    FormulaEvaluator evaluator;
    double value = -1;
    evaluator.Expression(QStringLiteral("a*2"));
    EXPECT_FALSE(evaluator.Value(value));
    EXPECT_EQ(value, -1);
    evaluator.SetVariable(QStringLiteral("A"), 4);
    ASSERT_TRUE(evaluator.Value(value));
    EXPECT_EQ(value, 8);
    evaluator.Expression(QStringLiteral("a*3"));
    ASSERT_TRUE(evaluator.Value(value));
    EXPECT_EQ(value, 12);
    evaluator.SetVariable(QStringLiteral("sin"), 4);
    evaluator.SetVariable(QStringLiteral("not a name"), 4);
    evaluator.Reset();
    EXPECT_FALSE(evaluator.Value(value));
}

TEST(ConvertUnits, NumericKeys) {
    for (std::int16_t key = 0; key < 256; ++key) {
        std::int16_t filtered = key;
        NumericKeyFilter(filtered);
        const bool allowed = (key >= '0' && key <= '9') || key == 8 || key == '.' || key == 13 || key == '-';
        EXPECT_EQ(filtered, allowed ? key : 0) << key;
    }
}

TEST(ConvertUnits, ScriptsRunForRealAlsoWhenChecked) {
    CarConstants[8] = 30;
    createFormulaEvaluators();
    for (const bool checkMode : {false, true}) {
        float value = 4;
        EXPECT_TRUE(
            ConvertValue("Function Output\nOutput = InputValue + CAR_3\nEnd Function", 1, value, checkMode));
        EXPECT_EQ(value, 34);
        EXPECT_FALSE(ConvertValue("external dll \"No.Such\"", 1, value, checkMode));
        EXPECT_FALSE(ConvertValue("Function Output", 1, value, checkMode));
        EXPECT_EQ(value, 34);
    }
}

} // namespace
} // namespace vistor
