#include "instruments/Instrument.h"

#include "SampleTable.h"
#include "instruments/Colours.h"
#include "instruments/Snapshot.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/NumLedDisplay.h"
#include "platform/Scratch.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QDateTime>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace vistor {
namespace {

/// A display that paints one colour.
class PlainDisplay final : public InnerDisplay {
public:
    explicit PlainDisplay(const KindTable& table) : InnerDisplay(table, nullptr) {}

protected:
    void paintStatic(QPainter& painter) override { painter.fillRect(rect(), Qt::red); }
    void paintMoving(QPainter&) override {}
};

/// An instrument of several pins that notes when it has to ask for one.
class SampleInstrument final : public Instrument {
public:
    explicit SampleInstrument(const KindTable& table)
        : Instrument(Kind::AngularGauge, new PlainDisplay(table), nullptr) {}

    QStringList asked;

protected:
    void choosePin(const QString& name) override { asked << name; }
};

constexpr QSize kSize(201, 101); // 3015 by 1515 twips

std::unique_ptr<Instrument> shownReadout() {
    auto instrument = makeInstrument(Kind::Alphanumeric, nullptr);
    instrument->resize(kSize);
    instrument->show();
    instrument->mode(true);
    QTest::qWait(0);
    return instrument;
}

QStringList texts(const PinTable& pins) {
    QStringList list;
    for (int row = 0; row <= pins.upperBound(); ++row) list << pins.at(row);
    return list;
}

TEST(Instrument, HandlesAreFoundAndDragged) {
    const auto instrument = shownReadout();
    QWindow* window = instrument->windowHandle();
    const struct {
        QPoint place;
        int handle;
        Qt::CursorShape pointer;
    } cases[] = {{{1, 1}, 0, Qt::SizeFDiagCursor},   {{100, 2}, 1, Qt::SizeVerCursor},
                 {{199, 1}, 2, Qt::SizeBDiagCursor}, {{2, 50}, 3, Qt::SizeHorCursor},
                 {{199, 50}, 4, Qt::SizeHorCursor},  {{1, 99}, 5, Qt::SizeBDiagCursor},
                 {{100, 99}, 6, Qt::SizeVerCursor},  {{199, 99}, 7, Qt::SizeFDiagCursor},
                 {{50, 2}, -1, Qt::SizeAllCursor}};
    for (const auto& c : cases) {
        QSignalSpy sizing(instrument.get(), &Instrument::ControlSizing);
        QSignalSpy sized(instrument.get(), &Instrument::ControlSized);
        QSignalSpy moving(instrument.get(), &Instrument::ControlMoving);
        QSignalSpy moved(instrument.get(), &Instrument::ControlMoved);
        QTest::mouseMove(window, c.place);
        EXPECT_EQ(instrument->cursor().shape(), c.pointer) << c.handle;
        QTest::mousePress(window, Qt::LeftButton, {}, c.place);
        QTest::mouseMove(window, QPoint(60, 40));
        QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(60, 40));
        QTest::mouseMove(window, QPoint(62, 2));
        const bool isHandle = c.handle >= 0;
        ASSERT_EQ(sizing.count(), isHandle ? 1 : 0) << c.handle;
        ASSERT_EQ(sized.count(), isHandle ? 1 : 0) << c.handle;
        ASSERT_EQ(moving.count(), isHandle ? 0 : 1) << c.handle;
        ASSERT_EQ(moved.count(), isHandle ? 0 : 1) << c.handle;
        if (isHandle) {
            EXPECT_EQ(sizing.at(0),
                      (QVariantList{QVariant::fromValue(std::uint8_t(c.handle)), 900.0F, 600.0F}));
            EXPECT_EQ(sized.at(0).at(1).toFloat(), 900.0F);
        } else {
            EXPECT_EQ(moving.at(0), (QVariantList{750.0F, 30.0F, 900.0F, 600.0F}));
            EXPECT_EQ(moved.at(0), (QVariantList{750.0F, 30.0F, 900.0F, 600.0F}));
        }
    }
}

TEST(Instrument, PlayModeIsDeafToTheMouse) {
    const auto instrument = shownReadout();
    QWindow* window = instrument->windowHandle();
    QSignalSpy sizing(instrument.get(), &Instrument::ControlSizing);
    QSignalSpy moving(instrument.get(), &Instrument::ControlMoving);
    QSignalSpy menu(instrument.get(), &Instrument::menuWanted);
    QTest::mousePress(window, Qt::LeftButton, {}, QPoint(1, 1));
    PlayMode = true;
    instrument->mode(false);
    QTest::mouseMove(window, QPoint(50, 2));
    EXPECT_EQ(instrument->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(50, 2));
    QTest::mouseClick(window, Qt::RightButton, {}, QPoint(100, 50));
    PlayMode = false;
    instrument->mode(true);
    QTest::mouseMove(window, QPoint(60, 2));
    EXPECT_EQ(sizing.count() + moving.count() + menu.count(), 0) << "a drag does not outlive the mode";
}

TEST(Instrument, DisplayAsksForMenuAndFeedsThePropertiesWindow) {
    const auto instrument = shownReadout();
    QWindow* window = instrument->windowHandle();
    QSignalSpy menu(instrument.get(), &Instrument::menuWanted);
    QSignalSpy shown(instrument.get(), &Instrument::propertiesShown);
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(100, 50));
    EXPECT_EQ(menu.count(), 0);
    QTest::mouseClick(window, Qt::RightButton, {}, QPoint(100, 50));
    EXPECT_EQ(menu.count(), 1);
    QTest::mouseMove(window, QPoint(101, 51));
    EXPECT_EQ(shown.count(), 0) << "the window is not showing";
    PropertiesWindowShown = true;
    QTest::mouseMove(window, QPoint(102, 52));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.at(0).at(0).toString(), "Alphanumaric");
    EXPECT_EQ(shown.at(0).at(1).toStringList(),
              (QStringList{"Value", "Display Mode", "Digits", "Decimals", "Leading Zeros",
                           "Leading PlusMinus", "Leading One Digit", "Fixed Decimals"}));
    EXPECT_EQ(shown.at(0).at(2).toStringList(),
              (QStringList{"0", "Numeric", "6", "1", "False", "False", "False", "True"}));
}

TEST(Instrument, ModesPaintAndClearTheFrame) {
    const auto instrument = shownReadout();
    const auto pixel = [&](int x, int y) { return instrument->grab().toImage().pixelColor(x, y); };
    instrument->setColour(0x0000FF, 0);
    instrument->mode(true);
    EXPECT_EQ(pixel(1, 1), QColor(Qt::black)) << "a handle";
    const QImage edge = instrument->grab().toImage().copy(10, 0, 60, 4);
    std::set<QRgb> colours;
    for (int x = 0; x < edge.width(); ++x) colours.insert(edge.pixel(x, 2));
    EXPECT_TRUE(colours.count(qRgb(255, 255, 255))) << "white ground";
    EXPECT_GT(colours.size(), 1U) << "hatched";
    EXPECT_TRUE(instrument->inCTRL().isEnabled());
    instrument->mode(false);
    EXPECT_EQ(pixel(1, 1), QColor(Qt::red));
    EXPECT_EQ(pixel(50, 2), QColor(Qt::red));
    EXPECT_FALSE(instrument->inCTRL().isEnabled());
    instrument->resize(220, 101);
    EXPECT_EQ(pixel(1, 1), QColor(Qt::black)) << "a resize paints the frame, in play mode too";
}

TEST(Instrument, ShowingInPlayModeLeavesTheFrameClear) {
    const auto instrument = makeInstrument(Kind::Alphanumeric, nullptr);
    instrument->resize(kSize);
    instrument->setColour(0x0000FF, 0);
    instrument->mode(false);
    instrument->show();
    EXPECT_EQ(instrument->grab().toImage().pixelColor(1, 1), QColor(Qt::red));
    EXPECT_EQ(instrument->inCTRL().geometry(), QRect(5, 5, 191, 91));
}

TEST(Instrument, LayoutStaysWhereThereIsNoRoom) {
    const auto instrument = shownReadout();
    const QRect before = instrument->inCTRL().geometry();
    instrument->setSizeTwips(150, 1500);
    EXPECT_EQ(instrument->inCTRL().geometry(), before);
    instrument->setSizeTwips(3000, 1500);
    EXPECT_EQ(instrument->inCTRL().geometry(), QRect(5, 5, 190, 90));
}

TEST(Instrument, TagTakesItsBandAndItsCaption) {
    VariableTable.resize(8001);
    VariableTable[10].PhysicalName = QStringLiteral("EngineSpeed");
    tableChanged();
    const auto instrument = shownReadout();
    instrument->AssignPin(1, "EngineSpeed");
    EXPECT_EQ(instrument->tagText(), "") << "the caller refreshes the caption";
    instrument->TagOn(true);
    EXPECT_EQ(instrument->tagText(), "[1] EngineSpeed");
    EXPECT_EQ(instrument->inCTRL().geometry(), QRect(5, 19, 191, 77));
    instrument->RemovePin(1);
    EXPECT_EQ(instrument->tagText(), "");
    instrument->TagOn(true);
    EXPECT_TRUE(instrument->tagIsOn());
    instrument->mnuTag_Click();
    EXPECT_EQ(instrument->inCTRL().geometry(), QRect(5, 5, 191, 91));
}

TEST(Instrument, DropTakesPinOneOrAsks) {
    const auto readout = makeInstrument(Kind::Alphanumeric, nullptr);
    QSignalSpy changed(readout.get(), &Instrument::layoutChanged);
    readout->AssignPin(3, "old");
    readout->FunctionDrop("first");
    readout->FunctionDrop("second");
    EXPECT_EQ(texts(readout->curVarTable()), (QStringList{"1", "second"}));
    EXPECT_EQ(changed.count(), 3);

    SampleInstrument several(kSampleTable);
    several.FunctionDrop("a");
    EXPECT_EQ(several.asked, QStringList{"a"});
    several.inCTRL().properties().setNumber(30, 1);
    several.FunctionDrop("b");
    EXPECT_EQ(texts(several.curVarTable()), (QStringList{"1", "b"}));

    SampleInstrument graph(kSampleGraphTable);
    graph.FunctionDrop("c");
    EXPECT_EQ(graph.asked, QStringList{"c"}) << "a graph asks for the axis, however few tracks it has";
    graph.AssignPin(1, std::uint8_t(1), "y");
    EXPECT_EQ(graph.curVarTable().at(1, 1), "y");
    EXPECT_EQ(graph.curVarTable().at(1, 5), "0");
    EXPECT_EQ(graph.curVarTable().count(0), 0);
}

TEST(Instrument, ValuesGoToTheSectionOfTheirPin) {
    SampleInstrument gauge(kSampleTable);
    gauge.refreshValue(1, 10);
    gauge.refreshValue(2, 20);
    EXPECT_EQ(gauge.inCTRL().properties().number(32, 1), 10);
    EXPECT_EQ(gauge.inCTRL().properties().number(32, 0), 20);
}

/// Items of the readout's list, every one a value of its own.
QStringList readoutList() {
    return {"3015",  "1515",    "km/h",     "0",   "-1",      "1234567", "2",           "3",  "255", "65280",
            "-1",    "1",       "16711680", "1",   "Caption", "8",       "2",           "11", "18",  "44",
            "33023", "4210752", "-1",       "-1",  "0",       "0",       "2",           "6",  "5",   "1",
            "1",     "12.5x",   "12.25",    "0.5", "1",       "2",       "EngineSpeed", ""};
}

TEST(Instrument, ReadoutListKeepsEveryPosition) {
    const auto instrument = makeInstrument(Kind::Alphanumeric, nullptr);
    const QStringList list = readoutList();
    instrument->Deserialise(list);
    QStringList written;
    EXPECT_EQ(instrument->Serialise(written), 37);
    EXPECT_EQ(written, list);
    const PropertyStore& p = instrument->inCTRL().properties();
    EXPECT_EQ(p.text(23), "12.5x");
    EXPECT_EQ(p.number(8), 12.25);
    EXPECT_EQ(p.number(0), 0.5);
    EXPECT_EQ(p.number(-501), 1234567);
    EXPECT_EQ(instrument->size(), kSize);
    instrument->AssignPin(3, "lost");
    instrument->RemovePin(1);
    instrument->Serialise(written);
    EXPECT_EQ(written.mid(34), (QStringList{"1", "3", "", "", ""})) << "what stands behind a hole is lost";
}

TEST(Instrument, ListsHoldPointsWhateverTheLocale) {
    DecimalSeparator = QStringLiteral(",");
    const auto instrument = makeInstrument(Kind::Alphanumeric, nullptr);
    QStringList list = readoutList();
    list[32] = QStringLiteral("12,75");
    instrument->Deserialise(list);
    QStringList written;
    instrument->Serialise(written);
    EXPECT_EQ(written.at(32), "12.75");
}

TEST(Instrument, WrongListsComeUpWithWhatCanBeUsed) {
    const QStringList good = readoutList();
    const auto read = [](const QStringList& list) {
        const auto instrument = makeInstrument(Kind::Alphanumeric, nullptr);
        const QSize before = instrument->size();
        instrument->Deserialise(list);
        QImage picture(instrument->size().boundedTo({400, 200}), QImage::Format_RGB32);
        instrument->render(&picture);
        EXPECT_FALSE(instrument->size().isEmpty());
        EXPECT_TRUE(!list.isEmpty() || instrument->size() == before);
        QStringList written;
        const int count = instrument->Serialise(written);
        EXPECT_EQ(count, written.size() - 1);
        EXPECT_LE(written.size(), 36 + PinTable::kMaximumBound);
    };
    for (qsizetype size = 0; size <= good.size(); ++size) read(good.first(size));
    for (const char* item : {"", "x", "-1", "1e300", "-99999999999", "nan", "0", "\n"}) {
        read(QStringList(good.size(), QString::fromLatin1(item)));
        for (qsizetype place = 0; place < good.size(); ++place) {
            QStringList list = good;
            list[place] = QString::fromLatin1(item);
            read(list);
        }
    }
    read(good + QStringList(100000, QStringLiteral("9")));
}

TEST(Instrument, CopyAndCutCarryTheList) {
    const auto instrument = makeInstrument(Kind::Alphanumeric, nullptr);
    instrument->Deserialise(readoutList());
    QSignalSpy copied(instrument.get(), &Instrument::ControlCopy);
    QSignalSpy cut(instrument.get(), &Instrument::ControlCut);
    instrument->mnuCopy_Click();
    instrument->mnuCut_Click();
    EXPECT_EQ(copied.at(0).at(0).toStringList(), readoutList());
    EXPECT_EQ(cut.at(0).at(0).toStringList(), readoutList());
}

TEST(Instrument, SnapshotIsNamedByTheTime) {
    EXPECT_EQ(snapshotName(QDateTime(QDate(2026, 2, 3), QTime(4, 5, 6))), "2634040506.bmp");
    EXPECT_EQ(snapshotName(QDateTime(QDate(2024, 12, 31), QTime(23, 59, 0))), "24366235900.bmp");
}

TEST(Instrument, SnapshotIsSavedInOneSize) {
    const QTemporaryDir folder;
    WorkingFolder = folder.path() + u'/';
    const auto instrument = shownReadout();
    QStringList order;
    QObject::connect(instrument.get(), &Instrument::SnapshotBegin, [&] { order << "begin"; });
    QObject::connect(instrument.get(), &Instrument::SnapshotEnd, [&] { order << "end"; });
    QString name;
    QObject::connect(instrument.get(), &Instrument::CustomDefined, [&](const QString& file) {
        order << "defined";
        name = file;
    });
    instrument->mnuDefineCustom_Click();
    EXPECT_EQ(order, (QStringList{"begin", "end", "defined"}));
    EXPECT_EQ(instrument->size(), kSize);
    const QImage picture(scratchFolder(WorkingFolder) + name);
    EXPECT_EQ(picture.size(), QSize(192, 192));
    EXPECT_NE(picture.pixelColor(0, 100), QColor(Qt::white)) << "the frame is left out";
    deleteScratchFolder();
}

TEST(InstrumentKinds, NamesAreFoundInTheirOrder) {
    for (const KindInfo& info : kInstrumentKinds) {
        EXPECT_EQ(kindOf(QLatin1String(info.className)), info.kind);
        EXPECT_EQ(&kindInfo(info.kind), &info);
        const auto made = makeInstrument(info.kind, nullptr);
        const std::string name = made ? made->metaObject()->className() : "";
        EXPECT_TRUE(!made || name == std::string("vistor::") + info.className) << name;
    }
    EXPECT_FALSE(kindOf("vxled"));
}

TEST(Colours, SystemColoursFollowThePalette) {
    EXPECT_EQ(colourOf(0x0000FF), QColor(Qt::red));
    EXPECT_EQ(numberOf(QColor(1, 2, 3)), 0x030201);
    EXPECT_EQ(colourOf(-2147483633), QApplication::palette().color(QPalette::Button));
    EXPECT_TRUE(colourOf(-1).isValid());
}

} // namespace
} // namespace vistor
