// Profiles at the start and the end of the program, and the keys of its commands.
#include "acquisition/StreamEncoder.h"
#include "dashboard/frmInterface.h"
#include "platform/IniFile.h"
#include "shell/Options.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QTest>

namespace vistor {
namespace {

class ProfileStartTest : public FreshAccount {
protected:
    ProfileStartTest() {
        deliver();
        write(last(), "[TABS]\nWIDTH=15000\nPIC=1\n[TAB]\n0=The last\n");
    }
    QString last() const { return root.filePath("person/last.vis"); }
    QString standard() const { return root.filePath("build/program/default.vis"); }
    void remember(const QString& path) const {
        write(working("vxvis.cfg"), "[VXVISTOR]\nLASTFILE=" + path.toLatin1() + "\n");
    }
};

TEST_F(ProfileStartTest, OffersTheLastLayoutOrTheDefaultOne) {
    const char* lastWords = "Do you want to load last configuration file?";
    const char* defaultWords = "Do you want to load default configuration file?";
    struct Case {
        QString remembered;
        bool standardThere;
        Answer answer;
        QStringList words;
        const char* caption; ///< of the first tab
    };
    const Case cases[] = {
        {"", false, Answer::Yes, {}, "VX"},
        {"", true, Answer::Yes, {defaultWords}, "The default"},
        {"", true, Answer::No, {defaultWords}, "VX"},
        {last(), true, Answer::Yes, {lastWords}, "The last"},
        {last(), true, Answer::No, {lastWords}, "VX"}, // and not the default one instead
        {last() + "gone", true, Answer::Yes, {}, "VX"},
    };
    for (const Case& c : cases) {
        remember(c.remembered);
        QFile::remove(standard());
        if (c.standardThere) write(standard(), "[TAB]\n0=The default\n");
        prompts.answers = {c.answer};
        frmMain window;
        ASSERT_TRUE(window.MDIForm_Load());
        EXPECT_EQ(prompts.takeWords(), c.words);
        EXPECT_EQ(window.dashboard().mainTab->TabCaption(0), c.caption);
        const bool loaded = QLatin1String(c.caption) != QLatin1String("VX");
        EXPECT_EQ(window.dashboard().HasProfilePath, loaded);
        EXPECT_FALSE(window.dashboard().ProfileChanged);
        EXPECT_TRUE(window.close()); // without a question
        EXPECT_TRUE(prompts.takeWords().isEmpty());
        const QString kept = readIniValue(working("vxvis.cfg"), "VXVISTOR", "LASTFILE", {}, 200);
        EXPECT_EQ(kept, loaded ? window.dashboard().ProfilePath : c.remembered) << "a No forgets nothing";
    }
    for (const MessageRequest& request : prompts.messages) EXPECT_EQ(request.buttons, Buttons::YesNo);
}

TEST_F(ProfileStartTest, AProfileOnTheCommandLineSkipsTheOffer) {
    remember(root.filePath("other.vis"));
    write(root.filePath("other.vis"), "[TAB]\n0=Other\n");
    const Options options = readOptions({"vistor", last()});
    EXPECT_EQ(options.problem, "");
    frmMain window;
    ASSERT_TRUE(window.MDIForm_Load(options.profile));
    EXPECT_TRUE(prompts.takeWords().isEmpty());
    EXPECT_EQ(window.dashboard().mainTab->TabCaption(0), "The last");
    EXPECT_TRUE(window.windowTitle().startsWith("Vistor - Version"));

    EXPECT_TRUE(QFileInfo(readOptions({"vistor", QDir().relativeFilePath(last())}).profile).isAbsolute());
    for (const QStringList& words :
         {QStringList{"vistor", root.filePath("none.vis")}, QStringList{"vistor", root.path()},
          QStringList{"vistor", last(), last()}})
        EXPECT_FALSE(readOptions(words).problem.isEmpty());
}

TEST_F(ProfileStartTest, KeysActThroughTheMenusAndFollowTheMode) {
    frmMain window;
    ASSERT_TRUE(window.MDIForm_Load());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto press = [&window](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(&window, key, modifiers);
    };
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(prompts.takeWords(), QStringList("Do you want to save changes ?"));
    press(Qt::Key_O, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QStringList titles;
    for (const FileRequest& request : prompts.fileRequests) titles << request.title;
    EXPECT_EQ(titles, QStringList({"Load Profile...", "Save Profile...", "Save Profile As..."}));

    const std::vector<std::uint8_t> head = runFileHead();
    prompts.inputs = {QStringLiteral("Two")};
    window.command("mnuNewTab")->trigger();
    press(Qt::Key_Tab, Qt::ControlModifier); // of the tabs, not of the windows inside the main window
    EXPECT_EQ(window.dashboard().CurrentTab, 0);
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(window.dashboard().CurrentTab, 1);

    write(root.filePath("a.run"),
          QByteArray(reinterpret_cast<const char*>(head.data()), static_cast<qsizetype>(head.size())));
    DataSourceDescriptor = "FIL," + root.filePath("a.run");
    press(Qt::Key_F5, Qt::NoModifier);
    prompts.takeWords();
    ASSERT_TRUE(PlayMode);
    press(Qt::Key_N, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(prompts.takeWords().isEmpty());
    EXPECT_EQ(prompts.fileRequests.size(), 3U);
    press(Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_FALSE(PlayMode);
}

TEST_F(ProfileStartTest, NewAsksFromTheMenuToo) {
    frmMain window;
    ASSERT_TRUE(window.MDIForm_Load(last()));
    prompts.answers = {Answer::Cancel, Answer::No};
    window.command("mnuNew")->trigger();
    EXPECT_EQ(window.dashboard().mainTab->TabCaption(0), "The last");
    window.command("mnuNew")->trigger();
    EXPECT_EQ(window.dashboard().mainTab->TabCaption(0), "VX");
    EXPECT_EQ(prompts.takeWords().size(), 2);
    EXPECT_FALSE(window.dashboard().HasProfilePath);
}

} // namespace
} // namespace vistor
