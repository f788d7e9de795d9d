// A person lays out a page from nothing with mouse and keys, keeps it, plays a run on it and opens it again.
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/NumLedDisplay.h"
#include "instruments/displays/StripDisplay.h"
#include "platform/Clock.h"
#include "platform/Events.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"
#include "tools/SimulatedStream.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableTreeView.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTreeWidgetItemIterator>
#include <QWindow>

namespace vistor {
namespace {

class LayoutSession : public FreshAccount {
protected:
    LayoutSession() {
        deliver();
        window.resize(1300, 850);
        EXPECT_TRUE(window.MDIForm_Load());
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    ~LayoutSession() override { setClock({}); }

    frmInterface& dashboard() { return window.dashboard(); }
    Page* page() { return dashboard().pic[static_cast<std::size_t>(dashboard().CurrentTab)]; }
    void trigger(const char* name) { window.command(QLatin1String(name))->trigger(); }
    QPoint onWindow(QPoint place) { return page()->mapTo(&window, place); }
    void drag(QPoint from, QPoint to) {
        QWindow* handle = window.windowHandle();
        QTest::mousePress(handle, Qt::LeftButton, {}, onWindow(from));
        for (int step = 1; step <= 8; ++step)
            QTest::mouseMove(handle, onWindow(from + (to - from) * step / 8));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, onWindow(to));
    }
    void rightClick(QPoint place) {
        QTest::mouseClick(page(), Qt::RightButton, {}, place);
        if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.windowHandle(), pressed, modifiers);
    }
    Instrument* last() { return dashboard().instruments.all().back().instrument.get(); }
    /// Where the tree shows a variable, in the window, once the person has typed its name into the filter.
    QPoint inTree(const QString& variable) {
        VariableTreeView* tree = dashboard().VarTree;
        dashboard().findChild<QLineEdit*>(QStringLiteral("VarFilter"))->setText(variable);
        tree->expandAll();
        for (QTreeWidgetItemIterator item(tree); *item; ++item) {
            const QRect place = tree->visualItemRect(*item);
            if (place.isEmpty()) continue; // the filter hides it
            if (tree->variableOf(*item) == variable && tree->viewport()->rect().contains(place.center()))
                return tree->viewport()->mapTo(&window, place.center());
        }
        return {};
    }
    /// Drags a variable from the tree, and lets it fall on an instrument. The offscreen platform has no drag
    /// of its own: the drop is told to the instrument, what was dragged to the tree.
    void dropOn(Instrument* target, const char* variable) {
        const QPoint from = inTree(QLatin1String(variable));
        ASSERT_FALSE(from.isNull());
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, from);
        QTest::mouseMove(window.windowHandle(), from + QPoint(-40, 0));
        EXPECT_EQ(dashboard().DragVariableName, QLatin1String(variable));
        Q_EMIT target->variableDropped(dashboard().VarTree);
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, from);
        QCoreApplication::processEvents();
    }
    /// The first lap of the simulated car that the demo shows.
    void useRun() {
        const std::vector<std::uint8_t> run = simulateRunFile({.laps = 1});
        const QString path = root.filePath("a.run");
        write(path, QByteArray(reinterpret_cast<const char*>(run.data()), qsizetype(run.size())));
        DataSourceDescriptor = "FIL," + path;
    }

    frmMain window;
};

TEST_F(LayoutSession, APageFromNothing) {
    trigger("mnuVXAlphaNume");
    Instrument* readout = last();
    drag({50, 2}, {250, 102}); // by its frame
    EXPECT_EQ(readout->pos(), QPoint(197, 96)) << "on the grid of 80 twips";
    const QRect before = readout->geometry();
    drag(before.bottomRight() - QPoint(1, 1), before.bottomRight() + QPoint(60, 30));
    EXPECT_GT(readout->width(), before.width() + 50);
    EXPECT_EQ(readout->pos(), before.topLeft());
    key(Qt::Key_Down);
    EXPECT_EQ(readout->topTwips(), 1520);
    dropOn(readout, "LapTime");
    EXPECT_EQ(readout->curVarTable().at(1), "LapTime");

    key(Qt::Key_C, Qt::ControlModifier);
    rightClick({200, 300});
    key(Qt::Key_V, Qt::ControlModifier);
    Instrument* copy = last();
    ASSERT_NE(copy, readout);
    EXPECT_EQ(copy->size(), readout->size());
    key(Qt::Key_Delete);
    EXPECT_EQ(dashboard().instruments.placedCount(), 1);

    rightClick({20, 250});
    trigger("mnuDDVXSTRIP");
    Instrument* strip = last();
    EXPECT_EQ(strip->pos(), QPoint(20, 250));
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, &window, [&person] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return; // not open yet
        person.stop();
        QTest::keyClick(dialog->findChild<QComboBox*>("cmbPin"), Qt::Key_1);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    person.start(1);
    dropOn(strip, "LapTime");
    EXPECT_EQ(strip->curVarTable().at(1, 1), "LapTime");

    window.activateWindow(); // without a window manager nobody gives it the focus back
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QString file = root.filePath("mine.vis");
    prompts.files = {file};
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(dashboard().ProfileChanged);
    const QByteArray saved = read(file);
    EXPECT_TRUE(saved.contains("TOP=1520"));

    prompts.inputs = {QStringLiteral("Two")};
    trigger("mnuNewTab");
    key(Qt::Key_1, Qt::ControlModifier);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, onWindow(strip->geometry().center()));
    useRun();
    double clock = 1000;
    setClock([&clock] { return clock; });
    key(Qt::Key_F5);
    ASSERT_TRUE(PlayMode);
    key(Qt::Key_2, Qt::ControlModifier); // tabs change while the program plays
    EXPECT_EQ(dashboard().CurrentTab, 1);
    key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(dashboard().CurrentTab, 0);
    window.Timer1.stop(); // the ticks are given by hand
    window.Timer1_Timer();
    clock = 1010;
    window.Timer1_Timer();
    EXPECT_GT(readout->inCTRL().properties().number(NumLedValue), 0);
    EXPECT_GT(static_cast<StripDisplay&>(strip->inCTRL()).highestY(0), 5) << "seconds of the first lap";
    key(Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_FALSE(PlayMode);
    EXPECT_TRUE(prompts.messages.empty()) << qPrintable(prompts.takeWords().join(u'|'));
}

} // namespace
} // namespace vistor
