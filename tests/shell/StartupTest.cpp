#include "shell/Startup.h"

#include "shell/Options.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"
#include "variables/GlobalVarsAndTypes.h"

namespace vistor {
namespace {

using StartupTest = FreshAccount;

TEST_F(StartupTest, AFirstStartInAnEmptyFolderRunsAsAnyOther) {
    const QByteArray delivered = deliver();
    for (const char* start : {"first", "second"}) {
        ResetGlobals();
        frmMain window;
        ASSERT_TRUE(window.MDIForm_Load()) << start;
        EXPECT_EQ(VariableTable.size(), std::size_t(kVariableCount));
        EXPECT_EQ(VariableTableEdit.size(), VariableTable.size());
        EXPECT_EQ(FormulaEvaluators.size(), std::size_t(kVariableCount));
        EXPECT_EQ(VariableFilePath, working(kVariableFileForm.workingFile));
        EXPECT_EQ(read(VariableFilePath), delivered);
        EXPECT_EQ(IgnitionPulsesPerRev, 0.1F); // no such key yet
        EXPECT_TRUE(QFile::exists(working("Car.cfg")));
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.Timer1.interval(), 20);
        EXPECT_FALSE(PlayMode);
        EXPECT_TRUE(window.close());
        EXPECT_FALSE(window.Timer1.isActive());
    }
    EXPECT_TRUE(QFile::exists(working("vxvis.cfg")));
    EXPECT_TRUE(prompts.takeWords().isEmpty());
}

TEST_F(StartupTest, WithoutTheDeliveredFileTheProgramEnds) {
    write(working(kVariableFileForm.workingFile), {}); // an empty one counts as missing
    frmMain window;
    EXPECT_FALSE(window.MDIForm_Load());
    EXPECT_FALSE(window.isVisible());
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text,
              "An important system file cannot be found, please uninstall and re-install");
    EXPECT_EQ(prompts.messages[0].title, "file not found");
    EXPECT_EQ(prompts.messages[0].icon, Icon::Stop);
}

TEST_F(StartupTest, AFolderThatCannotBeMadeLeavesAProgramWithoutVariables) {
    deliver();
    write(root.filePath("person"), "a file where the folder should be");
    findWorkingFolder();
    EXPECT_TRUE(findDefinitionFile());
    EXPECT_TRUE(VariableFilePath.isEmpty());
    EXPECT_EQ(prompts.takeWords(), QStringList("The variable definition file could not be found..."));
    loadDefinitions();
    EXPECT_TRUE(VariableTable.empty());
}

TEST_F(StartupTest, ATruncatedDefinitionFileIsToldOnceAndTheWindowComesUp) {
    write(working(kVariableFileForm.workingFile), deliver().left(5000));
    frmMain window;
    ASSERT_TRUE(window.MDIForm_Load());
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_TRUE(VariableTable.empty());
    EXPECT_TRUE(window.close());
}

TEST_F(StartupTest, IgnitionPulsesAreKeptInRange) {
    findWorkingFolder();
    struct Case {
        const char* file;
        float expected;
    };
    const Case cases[] = {
        {"IGNTIONPULSESREV,0\n", 0.1F},      {"IGNTIONPULSESREV,25\n", 20},
        {"IGNTIONPULSESREV,-3\n", 0.1F},     {"CARMASS,900\nIGNTIONPULSESREV,2.5\n", 2.5F},
        {"igntionpulsesrev,2\n", 0.1F},      {"IGNITIONPULSESREV,2\n", 0.1F},
        {"\"IGNTIONPULSESREV\",\"3\"\n", 3}, {"", 0.1F},
    };
    for (const Case& c : cases) {
        write(working("Car.cfg"), c.file);
        readIgnitionPulses();
        EXPECT_EQ(IgnitionPulsesPerRev, c.expected) << c.file;
    }
}

TEST_F(StartupTest, CarConstantsSurviveACommaLocale) {
    findWorkingFolder();
    write(working("Car.cfg"),
          "CDAVAL,0.75\nROLLINGVAL\n0.0125\nCARMASS,1180\nCARCONSTANT1,-4.5\nCARCONSTANT10,1e-3\n");
    for (const char* mark : {".", ","}) {
        DecimalSeparator = QLatin1String(mark);
        CarConstants.fill(-1);
        readCarConstants();
        const std::array<float, 16> expected = {0.75F, 0.0125F, 1180, 30, 101, 0, -4.5F, 0,
                                                0,     0,       0,    0,  0,   0, 0,     0.001F};
        EXPECT_EQ(CarConstants, expected) << mark;
    }
}

TEST(Options, WordsAreCheckedBeforeAnythingOpens) {
    struct Case {
        QStringList words;
        bool fine;
    };
    const Case cases[] = {
        {{"vistor"}, true},
        {{"vistor", "--play", "--tab", "3", "--source", "FIL,a.run", "--exit-after", "2.5"}, true},
        {{"vistor", "--exit-after", "soon"}, false},
        {{"vistor", "--exit-after", "-1"}, false},
        {{"vistor", "--exit-after", "1e99"}, false},
        {{"vistor", "--exit-after", "nan"}, false},
        {{"vistor", "--tab", "0"}, false},
        {{"vistor", "--tab", "x"}, false},
        {{"vistor", "--source"}, false},
        {{"vistor", "--nonsense"}, false},
        {{"vistor", "layout.vis"}, false},
        // Those of the toolkit, in all their forms, and nothing that only looks like one of them.
        {{"vistor", "-platform", "offscreen", "-style", "windows", "--play"}, true},
        {{"vistor", "--platform", "offscreen", "-style=windows", "-reverse", "--widgetcount"}, true},
        {{"vistor", "-platform", "offscreen", "layout.vis"}, false},
        {{"vistor", "-platforms", "offscreen"}, false},
        {{"vistor", "-reverse", "--nonsense"}, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(readOptions(c.words).problem.isEmpty(), c.fine) << qPrintable(c.words.join(u' '));
    const Options options = readOptions(cases[1].words);
    EXPECT_TRUE(options.play && options.tab == 3);
    EXPECT_EQ(options.source, "FIL,a.run");
    EXPECT_EQ(options.exitAfter, 2.5);
    EXPECT_FALSE(options.styleChosen);
    EXPECT_TRUE(readOptions({"vistor", "--style=windows"}).styleChosen);
}

} // namespace
} // namespace vistor
