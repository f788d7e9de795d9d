// What a person made is kept before it goes, and comes back: every way by which it can go, worked in the
// window.
#include "dashboard/RecoverDialog.h"
#include "dashboard/Recovery.h"
#include "maths/VariableFiles.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "tests/shell/CommandSession.h"
#include "variables/VariableEdits.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

#include <functional>

namespace vistor {
namespace {

class RecoveryFlowsTest : public CommandAccount {
protected:
    std::vector<RecoveryCopy> copies() const { return recoveryCopies(working("Recovered/")); }
    QString markers() const { return QDir(working("Recovered/")).entryList({"running-*"}).join(u' '); }
    QString note() const { return QString::fromUtf8(read(working("Recovered/") + markers())); }
    /// Opens "Recover", does something in it and waits for its end.
    void inDialog(CommandSession& s, const std::function<void(RecoverDialog&)>& work) {
        bool done = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<RecoverDialog*>(QApplication::activeModalWidget());
            if (!dialog || std::exchange(done, true)) return;
            timer.stop();
            work(*dialog);
            s.closer.rests = false;
        });
        timer.start(0);
        s.closer.rests = true;
        s.window.recoverWork();
        EXPECT_TRUE(done);
    }
    static void press(RecoverDialog& dialog, Qt::Key key) { QTest::keyClick(dialog.copies, key); }
};

TEST_F(RecoveryFlowsTest, EveryWayToLoseALayoutKeepsItFirst) {
    struct Way {
        RecoveryReason reason;
        std::function<void(CommandSession&)> go;
    };
    const auto command = [](const char* name, std::deque<Answer> answers) {
        return [name, answers](CommandSession& s) {
            s.prompts.answers = answers;
            s.command(name)->trigger();
        };
    };
    const Way ways[] = {
        {RecoveryReason::NewLayout, command("mnuNew", {Answer::No})},
        {RecoveryReason::ClearTab, command("mnuClearCurrentTab", {Answer::Yes})},
        {RecoveryReason::ClearTab, command("mnuClearPane", {Answer::Yes})},
        {RecoveryReason::ClearAll, command("mnuClearAllTabs", {Answer::Yes})},
        {RecoveryReason::CloseTab, command("mnuCloseLastTab", {Answer::Yes})},
        {RecoveryReason::CloseTab, command("mnuClosePane", {Answer::Yes})},
        {RecoveryReason::CloseAll, command("mnuCloseAllTabs", {Answer::Yes})},
        {RecoveryReason::NotSaved, command("mnuExit", {Answer::No})},
        {RecoveryReason::Minute, [](CommandSession& s) { s.page.keepEveryMinute(); }},
        {RecoveryReason::Minute, [](CommandSession& s) { s.page.mnuPlayMode_Click(); }},
        {RecoveryReason::Ended, [](CommandSession& s) { s.window.endBySignal(); }},
    };
    for (const Way& way : ways) {
        SCOPED_TRACE(qPrintable(reasonInWords(way.reason)));
        startAfresh();
        CommandSession s(prompts, root.path());
        s.page.ProfileChanged = true;
        way.go(s);
        ASSERT_EQ(copies().size(), 1U);
        EXPECT_EQ(copies()[0].reason, way.reason);
        EXPECT_EQ(contentsInWords(copies()[0]), "1 tab with 1 instrument");
        EXPECT_FALSE(safePicture(readRecoveryPicture(working("Recovered/"), copies()[0])).isNull());
        const IniFile file = IniFile::load(working("Recovered/") + recoveryName(copies()[0]));
        EXPECT_EQ(file.value("TABS", "VXALPHANUME", {}, 10), "1");
        // The next start tells of what nobody answered for.
        const bool isLeft = way.reason == RecoveryReason::Minute || way.reason == RecoveryReason::Ended;
        if (isLeft) {
            EXPECT_EQ(note(), recoveryName(copies()[0]));
        }
        EXPECT_EQ(QFile::exists(SettingsPath) && IniFile::load(SettingsPath).keys("DESIGN").size() == 4,
                  way.reason == RecoveryReason::Ended || way.reason == RecoveryReason::NotSaved);
    }
}

TEST_F(RecoveryFlowsTest, WhatAFileHoldsIsKeptOnlyWhereTheNextSaveWouldTakeIt) {
    CommandSession s(prompts, root.path());
    prompts.files = {s.file("chosen.vis")};
    s.page.mnuSaveAs_Click();
    s.page.ProfileChanged = true; // as after every load
    s.page.keepEveryMinute();
    s.page.storeForEnd();
    EXPECT_TRUE(copies().empty());
    EXPECT_EQ(note(), "");
    s.page.mnuClearAllTabs_Click();
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_EQ(copies()[0].from, "chosen");
    s.page.mnuCloseAllTabs_Click();
    s.page.mnuClearCurrentTab_Click();
    s.page.mnuCloseLastTab_Click();
    EXPECT_EQ(copies().size(), 1U) << "there was nothing left";
    s.page.loadLastFile(s.file("chosen.vis"));
    s.page.mnuNew_Click();
    EXPECT_EQ(copies().size(), 1U);
}

TEST_F(RecoveryFlowsTest, AMinuteIsKeptWhenItBroughtAChange) {
    CommandSession s(prompts, root.path());
    s.page.ProfileChanged = true;
    for (int i = 0; i < 3; ++i) s.page.keepEveryMinute();
    EXPECT_EQ(copies().size(), 1U);
    s.page.mnuPlayMode_Click();
    ASSERT_TRUE(PlayMode);
    s.readout->move(90, 90);
    s.page.keepEveryMinute(); // the tick is not to be held up
    EXPECT_EQ(copies().size(), 1U);
    s.page.mnuEditMode_Click();
    s.page.keepEveryMinute();
    EXPECT_EQ(copies().size(), 2U);
    EXPECT_EQ(note(), recoveryName(copies()[0]));
    prompts.files = {s.file("chosen.vis")};
    s.page.mnuSaveConfig_Click();
    EXPECT_EQ(note(), "") << "nothing would be lost now";
}

TEST_F(RecoveryFlowsTest, ARecoveredLayoutIsNobodysFileAndTakesNoPlace) {
    CommandSession s(prompts, root.path());
    prompts.files = {s.file("chosen.vis")};
    s.page.mnuSaveAs_Click();
    s.readout->move(120, 60);
    s.page.ProfileChanged = true;
    prompts.answers = {Answer::Yes};
    s.command("mnuCloseAllTabs")->trigger();
    const QString name = recoveryName(copies().at(0));
    const QByteArray bytes = read(working("Recovered/") + name);
    for (int round = 0; round < 3; ++round) {
        s.page.mnuNew_Click();
        inDialog(s, [](RecoverDialog& dialog) { press(dialog, Qt::Key_Return); });
        EXPECT_EQ(s.placed(), 1);
        EXPECT_FALSE(s.page.HasProfilePath);
        EXPECT_EQ(s.page.ProfilePath, "");
        EXPECT_EQ(s.page.windowTitle(), "Untitled");
        EXPECT_TRUE(s.page.ProfileChanged);
        EXPECT_EQ(note(), name);
        s.page.keepEveryMinute();
        EXPECT_EQ(copies().size(), 1U);
    }
    s.closer.seen.clear();
    inDialog(s, [](RecoverDialog& dialog) { press(dialog, Qt::Key_Return); });
    EXPECT_TRUE(s.opened("frmLoadOptions")) << "something stands there";
    EXPECT_EQ(s.placed(), 1);
    s.page.mnuSaveConfig_Click();
    EXPECT_EQ(prompts.fileRequests.back().title, "Save Profile...");
    EXPECT_EQ(read(working("Recovered/") + name), bytes);
    EXPECT_FALSE(read(SettingsPath).contains(name.toLatin1()));
}

TEST_F(RecoveryFlowsTest, TheDialogListsDeletesAndIsWorkedByKeys) {
    CommandSession s(prompts, root.path());
    s.page.ProfileChanged = true;
    for (int i = 0; i < 3; ++i) {
        s.readout->move(60 + 15 * i, 60);
        s.page.keepEveryMinute();
    }
    ASSERT_EQ(copies().size(), 3U);
    const RecoveryCopy oldest = copies()[2];
    inDialog(s, [&](RecoverDialog& dialog) {
        EXPECT_EQ(dialog.copies->count(), 3);
        EXPECT_TRUE(dialog.copies->item(0)->text().endsWith("\nUntitled: 1 tab with 1 instrument"));
        const auto* picture = dialog.findChild<QLabel*>("copyPicture");
        EXPECT_FALSE(picture->pixmap(Qt::ReturnByValue).isNull());
        press(dialog, Qt::Key_End);
        prompts.answers = {Answer::No, Answer::Yes};
        press(dialog, Qt::Key_Delete);
        EXPECT_EQ(copies().size(), 3U);
        press(dialog, Qt::Key_Delete);
        EXPECT_EQ(copies().size(), 2U);
        EXPECT_EQ(dialog.copies->currentRow(), 1);
        press(dialog, Qt::Key_Escape);
    });
    EXPECT_NE(recoveryName(copies()[1]), recoveryName(oldest));
    QDir(working("Recovered/")).removeRecursively();
    inDialog(s, [](RecoverDialog& dialog) {
        EXPECT_FALSE(dialog.openButton->isEnabled() || dialog.deleteButton->isEnabled());
        press(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(RecoveryFlowsTest, TablesAreKeptBeforeOthersTakeTheirPlace) {
    CommandSession s(prompts, root.path());
    s.page.ProfileChanged = false;
    for (const QString& name : variableFileNames())
        QFile::copy(root.filePath("OtherFiles/" + name), root.filePath("build/program/" + name));
    const auto restore = [&] {
        prompts.answers = {Answer::Yes};
        s.window.mnuRestoreDefaultVar_Click();
    };
    restore();
    EXPECT_TRUE(copies().empty()) << "the delivered table can be restored";
    VariableTableEdit[2].BaseName = QStringLiteral("Revs");
    commitVariableEdits();
    s.page.keepEveryMinute();
    s.page.keepEveryMinute();
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_TRUE(copies()[0].isTable);
    EXPECT_GT(copies()[0].items, 100);
    restore();
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_EQ(copies()[0].reason, RecoveryReason::RestoreVariables);
    EXPECT_NE(VariableTable[2].BaseName, "Revs");
    prompts.answers = {Answer::Yes};
    inDialog(s, [](RecoverDialog& dialog) { press(dialog, Qt::Key_Return); });
    EXPECT_EQ(VariableTable[2].BaseName, "Revs");
    EXPECT_EQ(variableFileBytes(), read(working("Recovered/") + recoveryName(copies().at(0))));

    VariableTable[2].BaseName = QStringLiteral("Turns");
    saveVariables(s.file("other"));
    prompts.answers = {Answer::Yes};
    prompts.files = {s.file("other")};
    s.window.mnuLoadVarInfo_Click();
    EXPECT_EQ(copies().at(0).reason, RecoveryReason::LoadVariables);
    EXPECT_EQ(copies().size(), 2U) << "that which stood before, and the one of another name";
}

TEST_F(RecoveryFlowsTest, TheStartAfterACrashSaysSo) {
    const QString copy = [&] {
        CommandSession s(prompts, root.path());
        s.page.ProfileChanged = true;
        s.page.keepEveryMinute();
        return recoveryName(copies().at(0));
    }();
    EXPECT_EQ(markers(), "");
    struct Start {
        QByteArray marker; ///< left behind by a process that is no more
        bool tells;
    };
    for (const Start& start : {Start{copy.toUtf8(), true}, Start{"", false}, Start{"gone.vis", false}}) {
        write(working("Recovered/running-1-abcdef"), start.marker);
        clearNotices();
        frmMain window;
        ASSERT_TRUE(window.MDIForm_Load());
        const auto tells = [](const Notice& notice) { return notice.text.contains("File > Recover..."); };
        EXPECT_EQ(std::count_if(notices().begin(), notices().end(), tells), start.tells ? 1 : 0);
        EXPECT_TRUE(window.close());
    }
}

/// A copy of the largest layout that is reasonable; its times are told in docs/reliability.md.
TEST_F(RecoveryFlowsTest, ALargeLayoutIsKeptWithoutAPause) {
    CommandSession s(prompts, root.path());
    for (int tab = 1; tab < 20; ++tab) s.addTab(qPrintable(QString::number(tab)));
    for (int i = 0; i < 500; ++i) {
        Instrument* added =
            s.page.addInstrument(kInstrumentKinds.at(std::size_t(i) % kInstrumentKinds.size()).kind,
                                 s.page.pic[std::size_t(i) % 20]);
        added->move(i % 25 * 30, i % 17 * 30);
        added->show();
    }
    s.page.ProfileChanged = true;
    pumpEvents();
    QElapsedTimer time;
    time.start();
    s.page.keepEveryMinute();
    const qint64 first = time.restart();
    s.page.keepEveryMinute();
    const qint64 unchanged = time.elapsed();
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_EQ(contentsInWords(copies()[0]), "20 tabs with 501 instruments");
    std::printf("kept in %lld ms, unchanged in %lld ms\n", static_cast<long long>(first),
                static_cast<long long>(unchanged));
    EXPECT_LT(first, 3000);
    EXPECT_LT(unchanged, 1000);
}

} // namespace
} // namespace vistor
