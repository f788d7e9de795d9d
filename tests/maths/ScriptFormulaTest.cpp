#include "maths/ScriptFormula.h"

#include "maths/RewriteScript.h"
#include "maths/ScriptEngine.h"
#include "maths/ScriptFunctions.h"
#include "maths/script/Conversions.h"
#include "maths/script/Parser.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <chrono>
#include <gtest/gtest.h>

namespace vistor {
namespace {

QString rewrite(QString text) {
    RewriteScript(text);
    return text;
}

TEST(RewriteScript, ReplacesEverywhereWithoutRegardToCase) {
    const std::pair<const char*, const char*> cases[] = {
        {"VAR_0017", "script_VAR(0017)"},
        {"var_00175", "script_var(0017)5"},
        {"VAR_017", "VAR_017"},
        {"CAR_3 + car_10", "script_CAR(3) + script_car(10)"},
        {"CAR_123", "script_CAR(12)3"},
        {"sign x)", "Script_sign( x)"},
        {"sign(x)", "Script_sign((x)"},
        {"ASIN y) + Floor z)", "Script_asin( y) + Script_floor( z)"},
        {"a = min 1, 2) ' the min", "a = Script_min( 1, 2) ' the Script_min("},
        {"minute", "Script_min(ute"},
        {"design", "deScript_sign("},
        {"ceil acos atan sinh cosh tanh max",
         "Script_ceil( Script_acos( Script_atan( Script_sinh( Script_cosh( "
         "Script_tanh( Script_max("},
        {"sin cos tan", "sin cos tan"},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(rewrite(text).toStdString(), expected);
}

class ScriptFormula : public testing::Test {
protected:
    void SetUp() override {
        createScriptObject();
        LastValue[17] = 2.5F;
        LastValue[18] = 4;
    }

    ScriptedPrompts m_prompts;
};

TEST_F(ScriptFormula, GivesAValue) {
    struct Case {
        const char* formula;
        float sample;
        float expected;
    };
    const Case cases[] = {
        {"Function Output\nOutput = InputValue * 2\nEnd Function", 21, 42},
        {"Function Output\nOutput = InputValue\nEnd Function", 2.5F, 2},
        {"Function Output\nOutput = InputValue\nEnd Function", 3.5F, 4},
        {"function output()\noutput = var_0017 * VAR_0018\nend function", 0, 10},
        {"Function Output\nOutput = max VAR_0017, VAR_0018)\nEnd Function", 0, 4},
        {"Function Output\nOutput = \"1.5\"\nEnd Function", 0, 1.5F},
        {"Function Output\nOutput = True\nEnd Function", 0, -1},
        {"Function Output\nEnd Function", 9, 0},
        {"n = 3\nFunction Output\nn = n + 1\nOutput = n\nEnd Function", 0, 4},
    };
    for (const Case& c : cases) {
        for (int again = 0; again < 2; ++again) { // the second run starts from nothing, too
            float value = c.sample;
            EXPECT_TRUE(runScriptFormula(c.formula, value)) << c.formula;
            EXPECT_EQ(value, c.expected) << c.formula;
        }
    }
    EXPECT_TRUE(m_prompts.messages.empty());
}

TEST_F(ScriptFormula, AResultThatIsNoNumberLeavesTheValue) {
    for (const char* result : {"\"abc\"", "Null", "1E300", "Array(1)"}) {
        float value = 5;
        EXPECT_TRUE(runScriptFormula(QStringLiteral("Function Output\nOutput = %1\nEnd Function").arg(result),
                                     value));
        EXPECT_EQ(value, 5) << result;
    }
    EXPECT_TRUE(m_prompts.messages.empty());
}

TEST_F(ScriptFormula, ShowsEveryFailure) {
    const std::pair<const char*, const char*> cases[] = {
        {"Function Output\nOutput = 1 / 0\nEnd Function", "Division by zero at line 2"},
        {"Function Output\nOutput = 1", "Expected 'End' at line 2"},
        {"' function output\nx = 1", "Invalid procedure call or argument at line 0"},
        {"x = CInt(\"q\")\nFunction Output\nEnd Function", "Type mismatch at line 1"},
        {"Function Output(x)\nEnd Function",
         "Wrong number of arguments or invalid property assignment at line 0"},
        {"Function Output\nOutput = sign(1)\nEnd Function", "Expected ')' at line 2"},
    };
    for (const auto& [formula, message] : cases) {
        for (int again = 0; again < 2; ++again) {
            m_prompts.messages.clear();
            float value = 5;
            EXPECT_FALSE(runScriptFormula(formula, value));
            EXPECT_EQ(value, 5);
            ASSERT_EQ(m_prompts.messages.size(), 1U) << formula;
            EXPECT_EQ(m_prompts.messages[0].text.toStdString(), message);
            EXPECT_EQ(m_prompts.messages[0].icon, Icon::Stop);
        }
    }
}

TEST_F(ScriptFormula, ASampleBeyondTheFieldLeavesTheOneBefore) {
    const QString formula = "Function Output\nOutput = InputValue\nEnd Function";
    float value = 7;
    EXPECT_TRUE(runScriptFormula(formula, value));
    value = 1e20F;
    EXPECT_TRUE(runScriptFormula(formula, value));
    EXPECT_EQ(value, 7);
}

TEST_F(ScriptFormula, WorksWithoutTheObject) {
    ScriptObject.reset();
    float value = 1;
    EXPECT_TRUE(runScriptFormula("Function Output\nOutput = 3\nEnd Function", value));
    EXPECT_EQ(value, 3);
}

/// Whatever a script does, the clock ends it, also inside one built-in function.
TEST(ScriptMachine, RunsEndInTime) {
    const char16_t* const bodies[] = {
        u"Do : Loop",
        u"On Error Resume Next : Do : x = 1 / 0 : Loop",
        u"a = String(8000000, \"a\") : b = String(4000000, \"a\") & \"b\" : x = InStr(a, b)",
        u"a = String(8000000, \"a\") : b = String(4000000, \"A\") & \"B\" : x = InStrRev(a, b, -1, 1)",
        u"a = Space(8000000) : Do : x = (a = Space(8000000)) : Loop",
        u"Do : x = UCase(Space(1000000)) : Loop",
        u"a = Space(20000000) : On Error Resume Next : Do : x = Trim(a) : Loop",
        u"a = Space(20000000) : On Error Resume Next : Do : x = IsNumeric(a) + CDbl(a) : Loop",
        u"a = Space(20000000) : On Error Resume Next : Do : x = a & a : x = StrReverse(a) : Loop",
        u"a = Space(20000000) : On Error Resume Next : Do : x = Split(a) : Loop",
        u"a = Space(20000000) : On Error Resume Next : Do : Err.Description = a : Err.Raise 9, a, a : Loop",
        u"a = Space(20000000) : b = Array(1) : On Error Resume Next : Do : x = Join(b, a) + Split(\"\", a) : "
        u"Loop",
        u"a = Space(20000000) : On Error Resume Next : Do : x = CStr(a) : x = String(20000000, a) : Loop",
    };
    for (const char16_t* body : bodies) {
        script::Setup setup;
        setup.timeout = std::chrono::milliseconds(100);
        script::Machine machine(script::parse(std::u16string(u"Sub Main\n") + body + u"\nEnd Sub", {}),
                                setup);
        ASSERT_TRUE(machine.runMain());
        script::Value result;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(machine.run(u"main", {}, result));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
        EXPECT_EQ(machine.error().description, u"Script execution timed out");
        EXPECT_EQ(machine.error().line, 2);
    }
}

TEST(ScriptEngine, TheTimeoutIsInSeconds) {
    ScriptEngine engine;
    engine.Timeout(1);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(engine.AddCode("Do\nLoop"));
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_GE(taken, std::chrono::seconds(1));
    EXPECT_LT(taken, std::chrono::seconds(3));
    EXPECT_EQ(engine.Error().Description, "Script execution timed out");
}

TEST(ScriptEngine, PassesArguments) {
    ScriptEngine engine;
    ASSERT_TRUE(engine.AddCode("Function Add(a, ByVal b)\nAdd = a + b\nEnd Function"));
    const script::Value arguments[] = {script::Value::integer(2), script::Value::number(0.5)};
    script::Value result;
    ASSERT_TRUE(engine.Run("ADD", arguments, result));
    EXPECT_EQ(script::singleOf(result), 2.5F);
    EXPECT_FALSE(engine.Run("Add", {}, result));
    EXPECT_EQ(engine.Error().Number, 450);
    EXPECT_FALSE(engine.Run("Sub", {}, result));
    EXPECT_EQ(engine.Error().Number, 5);
}

TEST(ScriptEngine, KnowsOneLanguage) {
    ScriptEngine engine;
    engine.Language("JScript");
    EXPECT_FALSE(engine.AddCode("x = 1"));
    engine.Language("vbscript");
    EXPECT_TRUE(engine.AddCode("x = 1"));
}

/// A text that was parsed with an object in sight must not be taken for the same text without it.
TEST(ScriptEngine, TheSameTextWithAndWithoutTheObject) {
    const QString text = "Function Output\nOutput = TypeName(Mass)\nEnd Function";
    const auto typeOfMass = [&](bool members) {
        ScriptEngine engine;
        engine.AddObject("Math", std::make_shared<ScriptFunctions>(), members);
        script::Value result;
        EXPECT_TRUE(engine.AddCode(text) && engine.Run("Output", {}, result));
        return QString::fromStdU16String(script::toText(result));
    };
    EXPECT_EQ(typeOfMass(true), "Single");
    EXPECT_EQ(typeOfMass(false), "Empty");
    EXPECT_EQ(typeOfMass(true), "Single");
}

/// Nesting, long chains and long texts end in an error with a line, never in the machine's own limits.
TEST(ScriptEngine, HostileTextsEndInAnError) {
    const auto many = [](const char* text, int count) { return QString::fromLatin1(text).repeated(count); };
    const QString texts[] = {
        "x = " + many("(", 50000),
        "x = " + many("-", 50000) + "1",
        "x = " + many("Not ", 20000) + "1",
        "x = 1" + many("+1", 40000),
        "x = a" + many("(1)", 30000),
        "x = a" + many(".b", 40000),
        "x = 1" + many("^1", 40000),
        many("If 1 Then ", 9000),
        many("If 1 Then\n", 9000),
        many("Do\n", 30000),
        many("x ", 50001),
        "Dim a(2147483646)",
        QString(QChar(0)),
    };
    for (const QString& text : texts) {
        ScriptEngine engine;
        EXPECT_FALSE(engine.AddCode(text)) << text.left(20).toStdString();
        EXPECT_FALSE(engine.Error().Description.isEmpty());
        EXPECT_GT(engine.Error().Line, 0)
            << text.left(20).toStdString() << engine.Error().Description.toStdString();
    }
}

/// Deep calls whose statements and expressions nest as deep as the parser allows.
TEST(ScriptEngine, DeepCallsOfDeepTreesEndInAnError) {
    const QString code = "Function Deep(n)\n" + QString("If True Then\n").repeated(250) + "Deep = 0" +
                         QString("+(0").repeated(10) + QString("+0").repeated(300) + "+Deep(n)" +
                         QString(")").repeated(10) + "\n" + QString("End If\n").repeated(250) +
                         "End Function";
    ScriptEngine engine;
    ASSERT_TRUE(engine.AddCode(code)) << engine.Error().Description.toStdString();
    script::Value result;
    const script::Value argument = script::Value::integer(1);
    EXPECT_FALSE(engine.Run("Deep", {&argument, 1}, result));
    EXPECT_EQ(engine.Error().Description, "Out of stack space");
}

} // namespace
} // namespace vistor
