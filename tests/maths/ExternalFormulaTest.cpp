#include "maths/ExternalFormula.h"

#include "platform/Folders.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {
namespace {

const char* const kSpeedRatio = "external dll \"SpeedRatio\"";

class ExternalFormula : public testing::Test {
protected:
    void SetUp() override {
        setProgramFolder(VISTOR_EXTERNAL_FOLDER);
        CarConstants[6] = 3;
        LastValue[17] = 5;
        LastValue[18] = 2;
        IndexNumbers[17] = 100;
    }
    void TearDown() override { setProgramFolder({}); }

    void expectError(const QString& formula) {
        m_prompts.messages.clear();
        float value = 4;
        EXPECT_FALSE(runExternalFormula(formula, value)) << formula.toStdString();
        EXPECT_EQ(value, 4);
        ASSERT_EQ(m_prompts.messages.size(), 1U) << formula.toStdString();
        EXPECT_EQ(m_prompts.messages[0].text, "There was an error with the external DLL");
        EXPECT_EQ(m_prompts.messages[0].icon, Icon::Stop);
    }

    ScriptedPrompts m_prompts;
};

TEST_F(ExternalFormula, ClassNames) {
    const std::pair<const char*, const char*> cases[] = {
        {"external dll \"Abc\"", "Abc"},
        {"EXTERNAL DLL \"Abc.Def\" \"X\"", "Abc"},
        {"external dll", ""},
        {"external dll \"Abc", "Abc"},
        {"external dll \"\" \"X\"", ""},
        {"external dll \".Abc\"", ""},
    };
    for (const auto& [formula, name] : cases)
        EXPECT_EQ(externalClassName(formula).toStdString(), name) << formula;
}

TEST_F(ExternalFormula, EverySampleHasItsOwnObject) {
    for (int sample = 0; sample < 3; ++sample) { // the example refuses a second call on one object
        float value = 0;
        EXPECT_TRUE(runExternalFormula("external dll \"SpeedRatio.Any\"", value));
        EXPECT_EQ(value, 107.5F);
    }
    EXPECT_TRUE(m_prompts.messages.empty());
}

TEST_F(ExternalFormula, FailuresAreShownEachTime) {
    for (int sample = 0; sample < 2; ++sample) {
        expectError("external dll \"Missing\"");
        expectError("external dll \"Throwing\"");
        expectError("external dll \"Outdated\"");
        expectError("external dll");
    }
    LastValue[18] = 0; // the example's own error
    expectError(kSpeedRatio);
}

TEST_F(ExternalFormula, AnOverflowLeavesTheValue) {
    LastValue[17] = 3e38F;
    float value = 4;
    EXPECT_TRUE(runExternalFormula(kSpeedRatio, value));
    EXPECT_EQ(value, 4);
}

TEST_F(ExternalFormula, TheWorkingFolderComesSecond) {
    QTemporaryDir program;
    QTemporaryDir working;
    setProgramFolder(program.path());
    expectError(kSpeedRatio);
    WorkingFolder = working.path() + '/';
    QDir(working.path()).mkdir("ExternalVars");
    const QString name = "/ExternalVars/VxExternalVars.SpeedRatio.so";
    ASSERT_TRUE(QFile::copy(VISTOR_EXTERNAL_FOLDER + name, working.path() + name));
    float value = 0;
    EXPECT_TRUE(runExternalFormula(kSpeedRatio, value));
    EXPECT_EQ(value, 107.5F);
}

/// Files of such names lie where a name that is not checked would find them.
TEST_F(ExternalFormula, OnlyIdentifiersReachTheFileSystem) {
    QTemporaryDir program;
    setProgramFolder(program.path());
    QDir(program.path()).mkpath("ExternalVars/VxExternalVars.");
    const QString example = VISTOR_EXTERNAL_FOLDER "/ExternalVars/VxExternalVars.SpeedRatio.so";
    for (const char* name : {"a-b", "1a", "a b", "/x", "\u00e9"}) {
        const QString path =
            program.path() + "/ExternalVars/VxExternalVars." + QString::fromUtf8(name) + ".so";
        ASSERT_TRUE(QFile::copy(example, path)) << name;
        expectError(QStringLiteral("external dll \"%1\"").arg(QString::fromUtf8(name)));
    }
    expectError("external dll \"../ExternalVars/SpeedRatio\"");
    expectError(QStringLiteral("external dll \"Speed%1Ratio\"").arg(QChar(0)));
}

} // namespace
} // namespace vistor
