#include "platform/QtPrompts.h"

#include "platform/Events.h"
#include "platform/Notices.h"

#include <QAction>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class QtPromptsTest : public testing::Test {
protected:
    QtPromptsTest() {
        before = setPrompter(&prompts);
        window.setCentralWidget(&button);
        QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
        window.show();
    }
    ~QtPromptsTest() override {
        setPrompter(before);
        window.takeCentralWidget();
    }
    QMessageBox* box() { return window.findChild<QMessageBox*>(); }

    QtPrompts prompts;
    Prompter* before;
    QPushButton button;
    QMainWindow window;
    int clicks = 0;
};

TEST_F(QtPromptsTest, AMessageKeepsInputToItself) {
    QTimer::singleShot(50, [this] {
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(box()->button(QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), Icon::Question, Buttons::YesNo), Answer::No);
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(QtPromptsTest, AMessageKeepsShortcutsFromTheCommandsBehindIt) {
    QAction command;
    command.setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    QObject::connect(&command, &QAction::triggered, [this] { ++clicks; });
    window.addAction(&command);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(clicks, 1);
    QTimer::singleShot(50, [this] {
        window.activateWindow(); // as a click on its title bar does
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.windowHandle(), Qt::Key_O, Qt::ControlModifier);
        QTest::keyClick(box()->button(QMessageBox::Yes), Qt::Key_N, Qt::AltModifier); // the box's own
        if (box()->isVisible()) QTest::mouseClick(box()->button(QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), Icon::Question, Buttons::YesNo), Answer::No);
    EXPECT_EQ(clicks, 1);
    command.setParent(&window);
    command.setProperty(kUnderMessages, true);
    QTimer::singleShot(50, [this] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(box()));
        QTest::keyClick(box()->windowHandle(), Qt::Key_O, Qt::ControlModifier);
        QTest::mouseClick(box()->button(QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), Icon::Question, Buttons::YesNo), Answer::No);
    EXPECT_EQ(clicks, 2) << "the one that is the way out";
    command.setParent(nullptr);
}

TEST_F(QtPromptsTest, TheWindowCanBeClosedUnderAMessageThatAlwaysComesBack) {
    QTimer::singleShot(50, [this] { window.close(); });
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 1000; ++i) MsgBox(QStringLiteral("There is an error"));
    EXPECT_FALSE(window.isVisible());
    EXPECT_LT(clock.elapsed(), 5000);
}

TEST_F(QtPromptsTest, WorkBehindADialogTellsInANoticeOnce) {
    QDialog about(&window);
    about.open();
    for (int tick = 0; tick < 3; ++tick) {
        const InputHeld held;
        EXPECT_EQ(MsgBox(QStringLiteral("Division by zero at line 2"), Icon::Stop), Answer::Ok);
        EXPECT_EQ(MsgBox(QStringLiteral("Type mismatch at line 1"), Icon::Stop), Answer::Ok);
    }
    EXPECT_EQ(notices().size(), 2U);
    EXPECT_EQ(box(), nullptr);
    about.close();
    QTimer::singleShot(0, [this] { QTest::mouseClick(box()->button(QMessageBox::Ok), Qt::LeftButton); });
    const InputHeld held;
    EXPECT_EQ(MsgBox(QStringLiteral("Division by zero at line 2"), Icon::Stop), Answer::Ok);
    EXPECT_EQ(notices().size(), 2U) << "without a dialog it is a message again";
}

TEST_F(QtPromptsTest, MinimisingAnswersNothing) {
    bool stood = false;
    QTimer::singleShot(50, [&] {
        for (QWidget* gone : {static_cast<QWidget*>(&window), static_cast<QWidget*>(box())}) {
            QHideEvent hidden;
            QSpontaneKeyEvent::setSpontaneous(&hidden); // as a window system tells it
            qApp->notify(gone, &hidden);
        }
        QTimer::singleShot(0, [&] {
            stood = box() && box()->isVisible();
            QTest::mouseClick(box()->button(QMessageBox::Yes), Qt::LeftButton);
        });
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Save?"), Icon::Question, Buttons::YesNoCancel), Answer::Yes);
    EXPECT_TRUE(stood);
}

TEST_F(QtPromptsTest, ABoxWithoutAButtonPressedIsCancelled) {
    const std::pair<Buttons, Answer> cases[] = {
        {Buttons::YesNoCancel, Answer::Cancel}, {Buttons::YesNo, Answer::No}, {Buttons::Ok, Answer::Ok}};
    for (const bool overAnother : {false, true}) {
        QDialog other(&window);
        other.setModal(true);
        other.setVisible(overAnother);
        for (const auto& [buttons, answer] : cases) {
            QTimer::singleShot(0, [] {
                for (QWidget* any : QApplication::topLevelWidgets())
                    if (auto* asked = qobject_cast<QMessageBox*>(any)) asked->done(0);
            });
            EXPECT_EQ(MsgBox(QStringLiteral("Save?"), Icon::Question, buttons), answer);
        }
    }
    QTimer::singleShot(50, &window, [this] { window.close(); }); // under the first of them
    for (const auto& [buttons, answer] : cases)
        EXPECT_EQ(MsgBox(QStringLiteral("Save?"), Icon::Question, buttons), answer);
    EXPECT_FALSE(window.isVisible());
}

TEST(ToolkitFilter, EveryFileNeedsNoEnding) {
    const std::pair<const char*, const char*> cases[] = {
        {"vis Files|*.vis", "vis Files (*.vis)"},
        {"Run analysis files (*.run )|*.run|Show All Files (*.*)|*.*",
         "Run analysis files (*.run);;Show All Files (*)"},
        {"Pictures|*.png;*.bmp", "Pictures (*.png *.bmp)"},
        {"Some|*.a; *.* ", "Some (*.a *)"},
    };
    for (const auto& [given, shown] : cases) EXPECT_EQ(toolkitFilter(QLatin1String(given)), shown);
}

} // namespace
} // namespace vistor
