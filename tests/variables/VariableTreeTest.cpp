#include "variables/VariableTree.h"

#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"
#include "variables/VariableEdits.h"
#include "variables/VariableFilter.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {
namespace {

VariableDefinition& row(int number) {
    return VariableTable[static_cast<std::size_t>(number)];
}

/// A table in which only the given rows are enabled, all standard variables.
void makeRows(std::initializer_list<int> numbers) {
    makeTable();
    for (VariableDefinition& definition : VariableTable) definition.Enabled = kFalse16;
    for (const int number : numbers) {
        row(number).Enabled = kTrue16;
        row(number).VariableType = 1;
    }
}

/// The lines below the groups, each as its parent's key, its key, its text and its picture.
QStringList block() {
    const std::vector<TreeLine> lines = variableTreeLines(VariableTable);
    QStringList told;
    for (const TreeLine& line : lines) {
        if (line.parent < 0) continue;
        told += QStringList{lines[static_cast<std::size_t>(line.parent)].key, line.key, line.text,
                            QLatin1String(line.picture)}
                    .join(u'|');
    }
    return told;
}

QStringList keys() {
    QStringList found;
    for (const TreeLine& line : variableTreeLines(VariableTable)) found += line.key;
    return found.mid(9);
}

TEST(VariableTree, AVariableHasItsBlockInOrder) {
    makeRows({2});
    EXPECT_EQ(block(), QStringList({"VT_1|#AVAILABLETYPE#B2|B2  (B2 [-])|Some",
                                    "#AVAILABLETYPE#B2|B2Advanced|Advanced options|Advanced",
                                    "B2Advanced|#FILTERING#B2|Filtering : None|Filter",
                                    "B2Advanced|#CALCULUS#B2|Calculus : None|Calc",
                                    "B2Advanced|#MAXROC#B2|Maximum rate of change: None Set|Roc",
                                    "#AVAILABLETYPE#B2|#TRANSFORMTYPE#B2|units: [-]|Units",
                                    "#AVAILABLETYPE#B2|#USERNAME#B2|Variable Name: B2|Name",
                                    "#AVAILABLETYPE#B2|#MINVAL#B2|Minimum: None Set|Min",
                                    "#AVAILABLETYPE#B2|#MAXVAL#B2|Maximum: None Set|Max",
                                    "#AVAILABLETYPE#B2|#SMOOTHING#B2|Smoothed over: None Set|Smooth"}));
    QStringList groups;
    for (const TreeLine& line : variableTreeLines({}))
        groups += line.key + u'|' + line.text + u'|' + QLatin1String(line.picture);
    EXPECT_EQ(
        groups,
        QStringList({"VT_1|Standard variables|N", "VT_2|External inputs|I", "VT_3|GPS variables|G",
                     "VT_4|User defined variables|U", "VT_5|Serial variables|S", "VT_6|External variables|E",
                     "VT_7|Debugging variables|D", "VT_8|Lap timing variables|T", "VT_9|Misc variables|M"}));
}

TEST(VariableTree, SomeRowsHaveOtherLines) {
    makeRows({1, 20, 30, 31, 32});
    const QStringList found = keys();
    for (const int number : {1, 20, 30, 31, 32}) {
        const QString name = row(number).BaseName;
        EXPECT_EQ(found.contains("#TRANSFORMTYPE#" + name), number == 20 || number == 32) << number;
        EXPECT_EQ(found.contains("#POWERCORRECTIONSTDKEY#" + name), number == 20) << number;
    }
    EXPECT_TRUE(block().contains("#AVAILABLETYPE#B20|#POWERCORRECTIONSTDKEY#B20|Correction standard|S"));
    row(32).VariableType = 12; // a group that there is not
    EXPECT_FALSE(keys().join(u' ').contains("B32"));
}

TEST(VariableTree, TextsFollowTheSettings) {
    DecimalSeparator = QStringLiteral(",");
    makeTable();
    using Change = void (*)(VariableDefinition&);
    const std::tuple<LineKind, Change, const char*> cases[] = {
        {LineKind::Calculus, [](auto& r) { r.Calculus = 1; }, "Calculus : Integrate by time"},
        {LineKind::Calculus, [](auto& r) { r.Calculus = 2; }, "Calculus : Differentiate by time"},
        {LineKind::Calculus, [](auto& r) { r.Calculus = 3; }, "Calculus : Integrate by distance"},
        {LineKind::Calculus, [](auto& r) { r.Calculus = 4; }, "Calculus : Differentiate by distance"},
        {LineKind::Calculus, [](auto& r) { r.Calculus = -1; }, "Calculus : None"},
        {LineKind::MaximumROC, [](auto& r) { r.MaximumROC = 2.5F; }, "Maximum rate of change: 2,5"},
        {LineKind::MaximumROC, [](auto& r) { r.MaximumROC = -0.0F; }, "Maximum rate of change: None Set"},
        {LineKind::Smoothing, [](auto& r) { r.SmoothingTime = 0.1F; }, "Smoothed over: 0,1 seconds"},
        {LineKind::Minimum, [](auto& r) { r.DefaultMax = 5; }, "Minimum: 0"},
        {LineKind::Maximum, [](auto& r) { r.DefaultMin = -5; }, "Maximum: 0"},
        {LineKind::Minimum, [](auto& r) { r.DefaultMin = -1e20F; }, "Minimum: -1E+20"},
        {LineKind::Minimum, [](auto& r) { r.DefaultMin = 1234567.8F; }, "Minimum: 1234568"},
        {LineKind::Minimum, [](auto& r) { r.DefaultMin = 0.00001F; }, "Minimum: 1E-05"},
        {LineKind::Units, [](auto& r) { r.VariableType = 4; }, "edit equation"},
        {LineKind::Units, [](auto& r) { r.VariableType = 2; }, "sensor type/units: [-]"},
        {LineKind::Units, [](auto& r) { r.UseCustomTrans = 1, r.CustomUnits = "V"; }, "units: [V]"},
        {LineKind::Filtering, [](auto& r) { r.FilterDesign = 4; }, "Filtering : Butterworth "},
        {LineKind::Filtering,
         [](auto& r) { r.FilterDesign = 4, r.FilterLowVal = 1.5F, r.FilterHighVal = 20; },
         "Filtering : Butterworth Bandpass, 1,5Hz to 20Hz"},
        {LineKind::Filtering, [](auto& r) { r.FilterDesign = 5, r.FilterLowVal = 3, r.FilterHighVal = -1; },
         "Filtering : Chebyshev Highpass,  3Hz"},
        {LineKind::Filtering, [](auto& r) { r.FilterDesign = 5, r.FilterLowVal = -1, r.FilterHighVal = 9; },
         "Filtering : Chebyshev Lowpass,  9Hz"},
        {LineKind::Filtering, [](auto& r) { r.FilterLowVal = 3; }, "Filtering : None"},
    };
    for (const auto& [kind, change, expected] : cases) {
        VariableDefinition changed = row(2);
        change(changed);
        EXPECT_EQ(lineText(kind, changed), QLatin1String(expected));
    }
}

TEST(VariableTree, ATakenKeyIsRefusedAndTheNextLineTried) {
    makeRows({1, 2, 70});
    row(2).BaseName = row(1).BaseName;
    const QStringList found = keys();
    EXPECT_EQ(found.count("#AVAILABLETYPE#B1"), 1);
    EXPECT_EQ(found.count("#MINVAL#B1"), 1);
    // The first of the two had no such line: it takes the second one's.
    EXPECT_EQ(found.filter("#B1").last(), "#TRANSFORMTYPE#B1");
    EXPECT_TRUE(found.contains("#SMOOTHING#B70"));
    for (const char* name : {"", "#", "a#MINVAL#b", "[", "VT_1", "Advanced"}) {
        row(2).BaseName = QLatin1String(name);
        EXPECT_EQ(keys().size(), 9 + 10 + 10) << name;
    }
}

TEST(VariableTree, LinesWithSettingsCanBeEdited) {
    makeRows({20});
    int settings = 0;
    for (const TreeLine& line : variableTreeLines(VariableTable)) {
        EXPECT_EQ(hasSettings(line.kind), line.kind != LineKind::Group && line.kind != LineKind::Advanced);
        settings += hasSettings(line.kind);
    }
    EXPECT_EQ(settings, 10);
}

TEST(VariableFilter, LeavesVariablesThatHaveAllWords) {
    makeRows({1, 2, 70});
    row(2).VariableType = 3;
    row(70).BaseName = "Oil pressure";
    SetupVariables();
    for (VariableDefinition& definition : VariableTable)
        definition.Enabled = definition.IndexNumber <= 2 || definition.IndexNumber == 70 ? kTrue16 : kFalse16;
    row(0).Enabled = kFalse16;
    const std::vector<TreeLine> lines = variableTreeLines(VariableTable);
    const auto shown = [&](const char* words) {
        std::vector<QString> names;
        for (const TreeLine& line : lines)
            names.push_back(line.row > 0 ? VariableTable[std::size_t(line.row)].PhysicalName : QString());
        const std::vector<bool> flags = linesShown(lines, names, QLatin1String(words));
        QStringList found;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (flags[i] && (lines[i].kind == LineKind::Group || lines[i].kind == LineKind::Smoothing))
                found += lines[i].key;
        }
        return found;
    };
    EXPECT_EQ(shown("PRESS  oil"), QStringList({"VT_1", "#SMOOTHING#Oil pressure"}));
    EXPECT_EQ(shown("gps"), QStringList({"VT_3", "#SMOOTHING#B2"}));
    EXPECT_EQ(shown("minimum"), QStringList());
    EXPECT_EQ(shown("p70"), QStringList({"VT_1", "#SMOOTHING#Oil pressure"})) << "its PhysicalName";
    EXPECT_EQ(shown("  ").size(), 9 + 3);
}

class VariableEdits : public testing::Test {
protected:
    VariableEdits() {
        makeTable();
        VariableTableEdit = VariableTable;
        VariableFilePath = folder.filePath("vars.cfg");
    }
    static VariableDefinition& edited(int number) {
        return VariableTableEdit[static_cast<std::size_t>(number)];
    }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
};

TEST_F(VariableEdits, PromptsAskInTheirWordsAndTakeNumbersOfAnyForm) {
    edited(2).DefaultMin = 1.5F;
    DecimalSeparator = QStringLiteral(",");
    struct Case {
        LineKind kind;
        const char* question;
        const char* title;
        const char* initial;
        std::optional<QString> answer;
        bool changed;
        const char* text; ///< null: no edit
    };
    const Case cases[] = {
        {LineKind::MaximumROC, "Please inputs a new maximum rate of change ", "Maximum rate of change", "0",
         "12,5", true, "Maximum rate of change: 12,5"},
        {LineKind::MaximumROC, "Please inputs a new maximum rate of change ", "Maximum rate of change",
         "12,5", "0", true, "Maximum rate of change: None Set"},
        {LineKind::Minimum, "Please inputs a new minimum value for B2", "Minimum value", "1,5", "-2.5E1",
         true, "Minimum: -25"},
        {LineKind::Minimum, "Please inputs a new minimum value for B2", "Minimum value", "-25", "-25", false,
         "Minimum: -25"},
        {LineKind::Minimum, "Please inputs a new minimum value for B2", "Minimum value", "-25", "", false,
         nullptr},
        {LineKind::Minimum, "Please inputs a new minimum value for B2", "Minimum value", "-25", std::nullopt,
         false, nullptr},
        {LineKind::Minimum, "Please inputs a new minimum value for B2", "Minimum value", "-25", "1E39", false,
         "Minimum: -25"},
        {LineKind::Minimum, "Please inputs a new minimum value for B2", "Minimum value", "-25", "nonsense",
         true, "Minimum: 0"},
        {LineKind::Maximum, "Please inputs a new maximum value for B2", "Maximum value", "0", "7", true,
         "Maximum: 7"},
        {LineKind::Smoothing, "Please inputs a new smoothing time for B2", "Smoothing time", "0", " .05 ",
         true, "Smoothed over: 0,05 seconds"},
        {LineKind::Smoothing, "Please inputs a new smoothing time for B2", "Smoothing time", "0,05", "-0",
         true, "Smoothed over: None Set"},
        {LineKind::Name, "Please inputs a new name for B2", "New name", "B2", "B2", false, "User name: B2"},
        {LineKind::Name, "Please inputs a new name for B2", "New name", "B2", "Oil", true, "User name: Oil"},
    };
    for (const Case& c : cases) {
        prompts.inputs = {c.answer};
        const auto edit = editByPrompt(c.kind, 2);
        EXPECT_EQ(prompts.inputRequests.back().text, QLatin1String(c.question));
        EXPECT_EQ(prompts.inputRequests.back().title, QLatin1String(c.title));
        EXPECT_EQ(prompts.inputRequests.back().initial, QLatin1String(c.initial));
        ASSERT_EQ(edit.has_value(), c.text != nullptr);
        if (!edit) continue;
        EXPECT_EQ(edit->changed, c.changed) << c.text;
        EXPECT_EQ(edit->text, QLatin1String(c.text));
    }
    EXPECT_EQ(row(2).BaseName, "B2") << "the table waits for the commit";
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(VariableEdits, AnOfferedNumberThatIsTakenKeepsAllItsDigits) {
    edited(2).DefaultMax = 16777215.0F;
    prompts.inputs = {numberText(16777215.0F)};
    EXPECT_FALSE(editByPrompt(LineKind::Maximum, 2)->changed);
    EXPECT_EQ(edited(2).DefaultMax, 16777215.0F);
}

TEST_F(VariableEdits, WhatIsNoRowChangesNothing) {
    prompts.inputs = {"5", "5", "5"};
    EXPECT_TRUE(editByPrompt(LineKind::Minimum, kNoVariable));
    EXPECT_EQ(edited(kNoVariable).DefaultMin, 5) << "the inert row";
    VariableTableEdit.resize(10);
    EXPECT_FALSE(editByPrompt(LineKind::Minimum, kNoVariable));
    EXPECT_FALSE(editByPrompt(LineKind::Filtering, 2));
    EXPECT_FALSE(editByPrompt(LineKind::Group, 2));
    EXPECT_EQ(prompts.inputRequests.size(), 1U);
}

TEST_F(VariableEdits, ACommitReachesTheTableWithItsDerivedFieldsAndTheFile) {
    edited(2).BaseName = QString::fromUtf8("Öl \xE6\xB2\xB9");
    edited(2).Enabled = kFalse16;
    commitVariableEdits();
    EXPECT_EQ(row(2).ConstantName, QString::fromUtf8("Öl \xE6\xB2\xB9 [-]"));
    EXPECT_EQ(edited(2).ConstantName, row(2).ConstantName);
    EXPECT_TRUE(edited(2).Enabled);
    EXPECT_EQ(FindVariableByBaseName(edited(2).BaseName), 2);
    QFile file(VariableFilePath);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains(edited(2).BaseName.toUtf8())) << "beyond the code page";
}

} // namespace
} // namespace vistor
