// Placing and editing with mouse and keys on the real dashboard window.
#include "dashboard/Palette.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/NumLedDisplay.h"
#include "platform/Events.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableDrag.h"
#include "variables/VariableTreeView.h"

#include <QDialog>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class PlacingTest : public testing::Test {
protected:
    PlacingTest() {
        SettingsPath = folder.filePath("vxvis.cfg");
        makeTable();
        VariableTable[1].PhysicalName = QStringLiteral("Time");
        tableChanged();
        window.Form_Load();
        window.resize(1300, 800);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.initGrid(80, 1, 0);
    }
    Page* page(std::size_t number = 0) { return window.pic.at(number); }
    Instrument* placed(float x, float y) {
        Instrument* added = window.NewVXALPHANUME(x, y);
        added->setSizeTwips(3000, 1500);
        window.ProfileChanged = false;
        return added;
    }
    void newTab(const char* caption) {
        prompts.inputs = {QLatin1String(caption)};
        window.mnuNewTab_Click();
    }
    QPoint onWindow(QPoint place) { return page()->mapTo(&window, place); }
    // The mouse as the window system tells it; places are on page 0 in pixels.
    void press(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(window.windowHandle(), button, {}, onWindow(place));
    }
    void move(QPoint place) { QTest::mouseMove(window.windowHandle(), onWindow(place)); }
    void release(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(window.windowHandle(), button, {}, onWindow(place));
    }
    void drag(std::initializer_list<QPoint> road) {
        press(*road.begin());
        for (const QPoint& place : road) move(place);
        release(*(road.end() - 1));
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.windowHandle(), pressed, modifiers);
    }
    static PlacedBox box(const Instrument& i) {
        return {float(i.leftTwips()), float(i.topTwips()), float(i.widthTwips()), float(i.heightTwips())};
    }
    std::vector<Instrument*> standing() {
        std::vector<Instrument*> all;
        for (const InstrumentElement& element : window.instruments.all()) {
            if (element.number != 0) all.push_back(element.instrument.get());
        }
        return all;
    }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmInterface window;
};

TEST_F(PlacingTest, NewInstrumentsOfEveryKindComeInTheDashboardsState) {
    using New = Instrument* (frmInterface::*)(float, float);
    const New operations[] = {
        &frmInterface::NewVXAGAUGE, &frmInterface::NewVXALPHANUME, &frmInterface::NewVXLED,
        &frmInterface::NewVXLGAUGE, &frmInterface::NewVXODO,       &frmInterface::NewVXPCTBAR,
        &frmInterface::NewVXSTRIP,  &frmInterface::NewVXXYGRAPH,   &frmInterface::NewVXTEXTTAG};
    newTab("Two");
    window.TagsOn(1);
    for (std::size_t i = 0; i < std::size(operations); ++i) {
        window.ProfileChanged = false;
        const Kind kind = kInstrumentKinds[i].kind;
        Instrument* added = (window.*operations[i])(100, 250);
        ASSERT_TRUE(added) << i;
        EXPECT_TRUE(window.ProfileChanged);
        EXPECT_EQ(added->kind(), kind);
        EXPECT_EQ(pageOf(*added), page(1)) << "the page in front";
        EXPECT_EQ(QPointF(added->leftTwips(), added->topTwips()), QPointF(100, 250)) << "not snapped";
        EXPECT_TRUE(added->isVisible());
        EXPECT_EQ(added->tagIsOn(), kind != Kind::TextTag);
        EXPECT_EQ(added->size(), makeInstrument(kind, nullptr)->size());
        const bool isStrip = kind == Kind::TimeGraph;
        EXPECT_EQ(added->curVarTable().at(1, 0), isStrip ? "Time" : "");
        if (!isStrip) continue;
        EXPECT_EQ(added->tagText(), "[1] Time");
    }
    PlayMode = true;
    EXPECT_FALSE(window.NewVXALPHANUME(0, 0)->inCTRL().isEnabled());
    PlayMode = false;
}

TEST_F(PlacingTest, MenusPlaceAtTheCornerOrWhereThePageWasClicked) {
    window.SnapToGrid = 1;
    window.mnuVXAGAUGE_Click();
    press({421, 277}, Qt::RightButton);
    release({421, 277}, Qt::RightButton);
    window.mnuDDVXSTRIP_Click();
    const auto all = standing();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0]->pos(), QPoint(0, 0));
    EXPECT_EQ(all[1]->pos(), QPoint(421, 277));
    EXPECT_EQ(all[1]->kind(), Kind::TimeGraph);
}

TEST_F(PlacingTest, ADragFollowsThePointer) {
    Instrument* moved = placed(300, 300);
    drag({{60, 22}, {65, 22}, {61, 22}});
    EXPECT_EQ(moved->pos(), QPoint(21, 20)) << "no jump at the first move";
    drag({{61, 22}, {70, 40}, {81, 52}});
    EXPECT_EQ(box(*moved), (PlacedBox{615, 750, 3000, 1500}));
    EXPECT_TRUE(window.ProfileChanged);
    drag({{81, 52}, {-400, -400}});
    EXPECT_EQ(moved->pos(), QPoint(0, 0));
    drag({{60, 2}, {5000, 5000}});
    EXPECT_EQ(moved->pos(), QPoint(page()->width() - 20, page()->height() - 20)) << "in reach";
    const QPoint corner = moved->pos() + QPoint(2, 10);
    drag({corner, {400, 300}});
    EXPECT_EQ(moved->pos(), QPoint(398, 290)) << "and taken back by what is left of it";
}

TEST_F(PlacingTest, AClickIsNoDrag) {
    window.SnapToGrid = 1;
    Instrument* clicked = placed(1510, 1515); // beside the grid
    const PlacedBox before = box(*clicked);
    const QPoint handles[] = {{101, 101}, {200, 101}, {299, 101}, {101, 150},
                              {299, 150}, {101, 199}, {200, 199}, {299, 199}};
    const QPoint frame(160, 102);
    const auto click = [&](const QPoint& at, const QPoint& shake) {
        press(at);
        move(at + shake);
        release(at + shake);
        EXPECT_EQ(box(*clicked), before) << at.x() << ',' << at.y();
        EXPECT_FALSE(window.ProfileChanged);
    };
    for (const QPoint& shake : {QPoint(0, 0), QPoint(-1, -1), QPoint(2, 1)}) {
        for (const QPoint& handle : handles) click(handle, shake);
        click(frame, shake);
    }
    key(Qt::Key_Delete);
    EXPECT_TRUE(standing().empty()) << "the keys are free again";
}

/// The button goes up over a window that came up in the middle, and nobody tells the instrument.
TEST_F(PlacingTest, ADragEndsWithADialogInItsMiddle) {
    Instrument* dragged = placed(1500, 1500);
    for (const QPoint from : {QPoint(160, 102), QPoint(298, 198)}) {
        press(from);
        move(from + QPoint(30, 20));
        const PlacedBox then = box(*dragged);
        {
            QDialog dialog(&window);
            dialog.open();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        }
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        move(from + QPoint(60, 60));
        move(from + QPoint(90, 90));
        EXPECT_EQ(box(*dragged), then);
        key(Qt::Key_Escape); // of no drag any more
        EXPECT_EQ(box(*dragged), then);
        dragged->placeTwips(QRectF(1500, 1500, 3000, 1500));
    }
    // Where the keyboard was not lost in between, the mouse without its button tells.
    press({160, 102});
    move({190, 122});
    const PlacedBox then = box(*dragged);
    QMouseEvent hover(QEvent::MouseMove, QPointF(50, 2), dragged->mapToGlobal(QPointF(50, 2)), Qt::NoButton,
                      Qt::NoButton, {});
    QCoreApplication::sendEvent(dragged, &hover);
    EXPECT_EQ(box(*dragged), then);
    move({260, 222});
    EXPECT_EQ(box(*dragged), then);
    release({260, 222});
    EXPECT_EQ(box(*dragged), then);
}

TEST_F(PlacingTest, ADragOnTheGridLandsOnLinesAndDoesNotWaver) {
    window.SnapToGrid = 1;
    Instrument* moved = placed(800, 800);
    QSet<int> places;
    const QPoint start(80, 55);
    press(start);
    for (int x = 0; x <= 40; ++x) {
        const QPoint place = start + QPoint(x, 0);
        move(place);
        const double first = moved->leftTwips();
        move(place + QPoint(0, 1)); // the pointer does not go along this line: nor may the instrument
        move(place);
        EXPECT_EQ(moved->leftTwips(), first) << x;
        EXPECT_EQ(first, std::floor((800 + 15 * x) / 80.0) * 80) << x;
        places.insert(moved->x());
    }
    release(start + QPoint(40, 0));
    EXPECT_EQ(places.size(), 8);
    EXPECT_EQ(moved->x(), qRound(1360 / 15.0)) << "at the dot";
}

TEST_F(PlacingTest, HandlesSizeFromTheCornerThatStays) {
    Instrument* sized = placed(1500, 1500); // pixels 100, 100 to 299, 199
    const QPoint handles[] = {{101, 101}, {200, 101}, {298, 101}, {101, 150},
                              {298, 150}, {101, 198}, {200, 198}, {298, 198}};
    const PlacedBox after[] = {
        {1635, 1635, 2865, 1365}, {1500, 1635, 3000, 1365}, {1500, 1635, 3165, 1365},
        {1635, 1500, 2865, 1500}, {1500, 1500, 3165, 1500}, {1635, 1500, 2865, 1665},
        {1500, 1500, 3000, 1665}, {1500, 1500, 3165, 1665},
    };
    for (int handle = 0; handle < 8; ++handle) {
        sized->placeTwips(QRectF(1500, 1500, 3000, 1500));
        window.ProfileChanged = false;
        const QPoint from = handles[handle];
        const QPoint inner(from.x() == 298 ? 309 : 110, from.y() == 198 ? 209 : 110);
        drag({from, {from.x() == 298 ? 304 : 105, from.y() == 198 ? 204 : 105}, inner});
        EXPECT_EQ(box(*sized), after[handle]) << handle;
        EXPECT_TRUE(window.ProfileChanged);
    }
}

TEST_F(PlacingTest, AHandleAcrossTheOppositeEdgeTurnsTheInstrumentOver) {
    Instrument* sized = placed(4500, 4500);
    const QPoint corner(300 + 199, 300 + 99);
    drag({corner, {400, 350}, {301, 301}, {250, 280}, {200, 250}, {180, 240}});
    EXPECT_EQ(box(*sized), (PlacedBox{2715, 3615, 1785, 885})) << "from its own corner to the pointer";
    drag({{181, 241}, {277, 297}, {299, 299}});
    EXPECT_EQ(box(*sized), (PlacedBox{4485, 4485, 180, 180})) << "never smaller";
}

TEST_F(PlacingTest, EscapePutsBackWhatADragChanged) {
    Instrument* dragged = placed(1510, 1515); // beside whole pixels
    const PlacedBox before = box(*dragged);
    for (const QPoint from : {QPoint(160, 102), QPoint(299, 199)}) {
        for (const bool changed : {false, true}) {
            window.ProfileChanged = changed;
            press(from);
            move(from + QPoint(40, 40));
            EXPECT_NE(box(*dragged), before);
            EXPECT_TRUE(window.ProfileChanged);
            key(Qt::Key_Delete); // waits for the end of the drag
            key(Qt::Key_Escape);
            EXPECT_EQ(box(*dragged), before);
            EXPECT_EQ(window.ProfileChanged, changed);
            move(from + QPoint(50, 50));
            release(from + QPoint(50, 50));
            EXPECT_EQ(box(*dragged), before) << "the rest of the drag means nothing";
        }
    }
    EXPECT_EQ(standing().size(), 1U);
}

TEST_F(PlacingTest, KeysActOnTheInstrumentThatWasClicked) {
    window.SnapToGrid = 1;
    Instrument* first = placed(1600, 1600);
    Instrument* second = placed(1600, 4000);
    const auto edge = [](Instrument* any) { return any->grab().toImage().pixelColor(20, 0); };
    press({150, 130}); // inside the first one's display
    release({150, 130});
    EXPECT_TRUE(first->hasFocus());
    EXPECT_EQ(edge(first), window.palette().color(QPalette::Active, QPalette::Highlight));
    EXPECT_NE(edge(second), edge(first));
    EXPECT_FALSE(window.ProfileChanged);

    key(Qt::Key_Right);
    key(Qt::Key_Down);
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(box(*first), (PlacedBox{1665, 1680, 3000, 1500}));
    EXPECT_TRUE(window.ProfileChanged);
    EXPECT_EQ(box(*second).left, 1600);

    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(window.ClipboardKind, 2);
    press({700, 300}, Qt::RightButton);
    release({700, 300}, Qt::RightButton);
    EXPECT_EQ(window.clickedInstrument(), first) << "a right click leaves it";
    EXPECT_TRUE(first->hasFocus());
    key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(standing().size(), 3U);
    EXPECT_EQ(standing().back()->pos(), QPoint(700, 300));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(standing().size(), 3U) << "one copy, one paste";

    key(Qt::Key_Delete);
    ASSERT_EQ(standing().size(), 2U) << "the pasted one had the keyboard";
    key(Qt::Key_Delete);
    EXPECT_EQ(standing().size(), 2U) << "which goes to no other";

    press({150, 130});
    release({150, 130});
    press({600, 20});
    release({600, 20});
    EXPECT_EQ(window.clickedInstrument(), nullptr) << "a click on the page";
    key(Qt::Key_Delete);
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(standing().size(), 2U);
}

TEST_F(PlacingTest, PlayModeIsDeafToKeysAndDrags) {
    Instrument* instrument = placed(1500, 1500);
    window.ClipboardKind = 2;
    PlayMode = true;
    instrument->mode(false);
    EXPECT_FALSE(instrument->hasFocus());
    instrument->setFocus();
    key(Qt::Key_Right);
    key(Qt::Key_Delete);
    key(Qt::Key_V, Qt::ControlModifier);
    drag({{160, 102}, {190, 140}});
    PlayMode = false;
    ASSERT_EQ(standing().size(), 1U);
    EXPECT_EQ(box(*instrument), (PlacedBox{1500, 1500, 3000, 1500}));
    EXPECT_FALSE(window.ProfileChanged);
}

TEST_F(PlacingTest, CutKeepsTheInstrumentUntilThePaste) {
    newTab("Two");
    window.mainTab->Tab(0);
    QSignalSpy commands(&window, &frmInterface::commandEnabled);
    Instrument* source = placed(1500, 1500);
    source->AssignPin(1, QStringLiteral("P5"));
    source->mnuCut_Click();
    EXPECT_EQ(commands.takeLast(), (QVariantList{"mnuPaste", true}));
    EXPECT_TRUE(source->isVisible());
    EXPECT_EQ(window.ClipboardIsCopy, 0);
    TagsVisible = true;
    window.mainTab->Tab(1);
    window.PopupX = 400;
    window.PopupY = 500;
    window.mnuPaste_Click();
    ASSERT_EQ(standing().size(), 1U);
    Instrument* pasted = standing().front();
    EXPECT_NE(pasted, source);
    EXPECT_EQ(pageOf(*pasted), page(1));
    EXPECT_EQ(box(*pasted), (PlacedBox{400, 500, 3000, 1500}));
    EXPECT_EQ(pasted->curVarTable().at(1), "P5");
    EXPECT_EQ(pasted->tagText(), "[1] P5") << "labels are on";
    EXPECT_EQ(commands.takeLast(), (QVariantList{"mnuPaste", false}));
    EXPECT_TRUE(window.ProfileChanged);

    window.mnuPaste_Click(); // as the instruments' own menu does, which is never disabled
    EXPECT_EQ(standing().size(), 2U);
}

TEST_F(PlacingTest, ADeletedCutLeavesNothingForThePasteToRemove) {
    Instrument* source = placed(1500, 1500);
    source->mnuCut_Click();
    source->mnuDelete_Click();
    EXPECT_TRUE(standing().empty());
    window.ProfileChanged = false;
    for (const bool collected : {false, true}) {
        if (collected) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window.mnuPaste_Click();
    }
    EXPECT_EQ(standing().size(), 2U);
    EXPECT_TRUE(window.ProfileChanged);
    window.ClipboardKind = 10;
    window.mnuPaste_Click();
    window.ClipboardKind = 0;
    window.mnuPaste_Click();
    EXPECT_EQ(standing().size(), 2U);
}

TEST_F(PlacingTest, ThePagesMenuActsOnTheClickedInstrument) {
    QSignalSpy commands(&window, &frmInterface::commandEnabled);
    const auto offered = [&] {
        commands.clear();
        press({700, 300}, Qt::RightButton);
        release({700, 300}, Qt::RightButton);
        return commands.contains(QVariantList{"mnuCut", true});
    };
    EXPECT_FALSE(offered());
    window.mnuDelete_Click(); // nothing to act on
    placed(1500, 1500);
    EXPECT_TRUE(offered());
    window.mnuCopy_Click();
    EXPECT_EQ(window.ClipboardIsCopy, 1);
    window.mnuCut_Click();
    EXPECT_EQ(window.CutInstrument, standing().front());
    window.mnuDelete_Click();
    EXPECT_TRUE(standing().empty());
    EXPECT_FALSE(offered());
}

TEST_F(PlacingTest, PaletteEntriesFallWhereTheyAreDropped) {
    window.SnapToGrid = 1;
    QTreeWidgetItem* strip = nullptr;
    for (int i = 0; i < window.trvControl->topLevelItemCount(); ++i) {
        QTreeWidgetItem* root = window.trvControl->topLevelItem(i);
        if (root->data(0, kPaletteKeyRole) == QLatin1String("gSTRIP")) strip = root;
    }
    ASSERT_TRUE(strip);
    QWidget* tree = window.trvControl->viewport();
    QTest::mousePress(tree, Qt::LeftButton, {}, window.trvControl->visualItemRect(strip).center());
    window.pic_DragDrop(page(), window.lvControl, 100, 100); // not where the press was
    window.pic_DragDrop(page(), window.VarTree, 100, 100);
    EXPECT_TRUE(standing().empty());
    window.pic_DragDrop(page(), window.trvControl, 100, 130);
    ASSERT_EQ(standing().size(), 1U);
    EXPECT_EQ(standing().front()->kind(), Kind::TimeGraph);
    EXPECT_EQ(QPointF(standing().front()->leftTwips(), standing().front()->topTwips()), QPointF(80, 80))
        << "on the grid";
    EXPECT_EQ(standing().front()->curVarTable().at(1, 0), "Time");
    QTest::mouseRelease(tree, Qt::LeftButton);
    window.pic_DragDrop(page(), window.trvControl, 100, 130);
    EXPECT_EQ(standing().size(), 1U) << "nothing is held";

    QWidget* list = window.lvControl->viewport();
    const QRect item = window.lvControl->visualItemRect(window.lvControl->item(0));
    QTest::mousePress(list, Qt::LeftButton, {}, item.center());
    window.SnapToGrid = 0;
    window.pic_DragDrop(page(), window.lvControl, 3001, 1e6F);
    ASSERT_EQ(standing().size(), 2U);
    EXPECT_EQ(standing().back()->leftTwips(), 3001) << "where it was dropped without the grid";
    EXPECT_EQ(standing().back()->y(), page()->height() - 20) << "and in reach";
    QTest::mouseRelease(list, Qt::LeftButton, {}, item.center());
}

TEST_F(PlacingTest, OnlyTheTreeBindsAndOnlyWherePinsAre) {
    Instrument* readout = placed(1500, 1500);
    window.DragVariableName = QStringLiteral("P5");
    QMimeData data;
    data.setData(QLatin1String(kVariableDragType), "P5");
    QMimeData other;
    other.setText(QStringLiteral("P5"));
    const auto entered = [&](Instrument& target, const QMimeData& what) {
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &what, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &enter);
        const bool accepted = enter.isAccepted() && target.showsDropTarget();
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&target, &leave);
        return accepted && !target.showsDropTarget();
    };
    EXPECT_TRUE(entered(*readout, data));
    EXPECT_FALSE(entered(*readout, other));
    const auto droppedBy = [&](QObject* source) {
        Q_EMIT readout->variableDropped(source);
        QCoreApplication::processEvents();
        return readout->curVarTable().at(1);
    };
    EXPECT_EQ(droppedBy(window.lvControl), "");
    EXPECT_EQ(droppedBy(nullptr), "");
    EXPECT_FALSE(window.ProfileChanged);
    EXPECT_EQ(droppedBy(window.VarTree), "P5");
    EXPECT_TRUE(window.ProfileChanged);
    EXPECT_TRUE(window.Subscriptions.front().Entries.empty()) << "only the next play mode sees it";
    Instrument* text = window.NewVXTEXTTAG(0, 0);
    EXPECT_TRUE(!text || !entered(*text, data));
}

TEST_F(PlacingTest, ADeletedInstrumentGetsNothingAnyMore) {
    Instrument* doomed = placed(1500, 1500);
    doomed->AssignPin(1, QStringLiteral("P5"));
    window.RebuildSubscriptions();
    doomed->mnuDelete_Click();
    EXPECT_TRUE(window.ProfileChanged);
    window.refreshControls(QStringLiteral("P5"), 3); // still subscribed, no longer seen
    window.RebuildSubscriptions();
    window.refreshControls(QStringLiteral("P5"), 4);
    EXPECT_EQ(window.instruments.placedCount(), 0);
    EXPECT_EQ(window.NewVXALPHANUME(0, 0)->pos(), QPoint(0, 0));
}

} // namespace
} // namespace vistor
