#include "instruments/GraphInstrument.h"
#include "instruments/GraphScales.h"
#include "instruments/VXSTRIP.h"
#include "instruments/VXXYGRAPH.h"
#include "instruments/displays/StripDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QElapsedTimer>
#include <QImage>

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

/// The types of the saved items: i, l whole; d, f fractions; b Boolean; s text. Items 2 to 66, then a section
/// of each block.
constexpr const char* kFixedItems = "sliillbillslllllll"       // 2 to 19
                                    "ddddbblibbilddlillidsllb" // 20 to 43
                                    "illiliiddddsssssss";      // 44 to 61
constexpr const char* kSectionItems[] = {"issfbbbb", "iillldds",
                                         "iblllbldblillidddd"
                                         "iidddd",
                                         "ildd", "iilbbddilllssd"};
using Sections = std::array<int, 5>;
constexpr Sections kSections{2, 1, 3, 1, 2};

constexpr int kShowNumbersItem = 43;

QString itemOf(char type, int position) {
    switch (type) {
    case 'b': // other than the default, so that each is seen to be taken
        return position == kShowNumbersItem ? QStringLiteral("0") : QStringLiteral("-1");
    case 's':
        return QStringLiteral("text %1, \"=;").arg(position);
    case 'd':
    case 'f':
        return position % 4 == 0   ? QString::number(-position - 0.125)
               : position % 4 == 1 ? QStringLiteral("%1E-09").arg(position % 9 + 1.5)
                                   : QString::number(position + 0.25);
    default:
        return QString::number(position + 300);
    }
}

void appendItems(QStringList& list, const char* types) {
    for (; *types != 0; ++types) list << itemOf(*types, static_cast<int>(list.size()));
}

/// A list in which every item can be told from its neighbours. The flags are not those of a new graph.
QStringList sampleList(int flags, const Sections& sections = kSections) {
    QStringList list{QStringLiteral("6005"), QStringLiteral("3010.5")};
    appendItems(list, kFixedItems);
    for (const int count : sections) list << QString::number(count);
    for (int i = 0; i < flags; ++i) list << (i == 2 ? QStringLiteral("True") : QStringLiteral("False"));
    for (std::size_t block = 0; block < sections.size(); ++block)
        for (int i = 0; i < sections[block]; ++i) {
            const auto first = list.size();
            appendItems(list, kSectionItems[block]);
            list[first] = QString::number(i);
            if (block == 2) list[first + 8] = QStringLiteral("0"); // numbers on Y
        }
    list << "1"
         << "2"
         << ""
         << "Time";
    list << "2"
         << "2"
         << "EngineSpeed"
         << "GroundSpeed";
    return list;
}

QStringList saved(const Instrument& instrument) {
    QStringList list;
    const int count = instrument.Serialise(list);
    EXPECT_EQ(count, list.size() - 1);
    return list;
}

TEST(Graph, ListsReadBackPositionByPosition) {
    const Sections cases[] = {kSections, {0, 0, 0, 0, 0}, {1, 0, 256, 2, 0}, {256, 256, 1, 256, 256}};
    DecimalSeparator = QStringLiteral(",");
    for (const Sections& sections : cases)
        for (const auto& [kind, flags] : {std::pair{Kind::TimeGraph, 1}, {Kind::XYGraph, 3}}) {
            const auto graph = makeInstrument(kind, nullptr);
            const QStringList list = sampleList(flags, sections);
            const auto& [fonts, captions, traces, fourths, lines] = sections;
            ASSERT_EQ(list.size(),
                      67 + flags + 8 * fonts + 8 * captions + 24 * traces + 4 * fourths + 14 * lines + 8);
            graph->inCTRL().properties().setNumber(StripTrace, 2);
            graph->Deserialise(list);
            EXPECT_EQ(graph->inCTRL().properties().number(StripTrace), 0);
            graph->inCTRL().properties().setNumber(StripTrace, 5);
            const QStringList back = saved(*graph);
            ASSERT_EQ(back.size(), list.size());
            for (qsizetype i = 0; i < list.size(); ++i) ASSERT_EQ(back[i], list[i]) << "item " << i;
            EXPECT_EQ(graph->inCTRL().properties().number(StripTrace), 5) << "saving leaves it";
        }
}

TEST(Graph, ItemsReachThePropertiesThatTheyStandFor) {
    VXXYGRAPH graph(nullptr);
    const QStringList list = sampleList(3);
    graph.Deserialise(list);
    const PropertyStore& p = graph.inCTRL().properties();
    const qsizetype traces = 70 + 16 + 8;
    const qsizetype lines = traces + 3 * 24 + 4;
    const struct {
        int property, section;
        qsizetype item;
    } cases[] = {
        {StripBackColour, 0, 3},
        {StripBufferSize, 0, 13},
        {StripShowMarker, 0, 16},
        {StripGrid, 0, 18},
        {StripMarkerX, 0, 32},
        {StripMarkerY, 0, 33},
        {StripShowNumbersX, 0, 43},
        {StripMaximumX, 0, 51},
        {StripMinimumX, 0, 52},
        {StripLength, 0, 53},
        {StripOrigin, 0, 54},
        {StripTraceCount, 0, 64},
        {GraphAutoScaleX, 0, 67},
        {GraphAutoScaleY, 0, 68},
        {GraphFixAspect, 0, 69},
        {StripTraceColour, 0, traces + 4},
        {StripShowNumbersY, 1, traces + 24 + 8},
        {StripMaximumY, 1, traces + 24 + 16},
        {StripMinimumY, 2, traces + 48 + 17},
        {StripForeColour, 0, lines + 8},
        {StripLineStyle, 1, lines + 14 + 9},
        {StripSymbolView, 1, lines + 14 + 10},
    };
    for (const auto& c : cases)
        EXPECT_EQ(p.item(c.property, c.section), list[c.item]) << c.property << " in section " << c.section;
}

TEST(Graph, BadListsEndSoonAndLeaveDefaults) {
    const auto with = [](qsizetype item, const char* text) {
        QStringList list = sampleList(1);
        list[item] = text;
        return list;
    };
    const QStringList cases[] = {{},
                                 {"x", "-5"},
                                 sampleList(1).mid(0, 60),
                                 sampleList(1).mid(0, 100),
                                 with(64, "1000000"),
                                 with(66, "-3"),
                                 with(62, "many"),
                                 with(13, "-1"),
                                 with(13, "2000000000"),
                                 with(53, "1e308"),
                                 with(53, "-1"),
                                 with(54, "nan"),
                                 sampleList(1).mid(0, 196) << "3"
                                                           << "-7"
                                                           << "A",
                                 sampleList(1).mid(0, 196) << "9"
                                                           << "2000000000"
                                                           << "A",
                                 QStringList(5000, QStringLiteral("1e9"))};
    QElapsedTimer timer;
    timer.start();
    for (const QStringList& list : cases) {
        VXSTRIP graph(nullptr);
        graph.Deserialise(list);
        graph.AssignPin(1, std::uint8_t{0}, "Time");
        graph.AssignPin(1, std::uint8_t{1}, "EngineSpeed");
        for (int i = 0; i < 100; ++i) {
            graph.refreshValue(1, std::uint8_t{0}, float(i));
            graph.refreshValue(1, std::uint8_t{1}, float(i));
        }
        EXPECT_LE(graph.pinCount(), PropertyStore::kMaximumSections);
        EXPECT_LE(graph.curVarTable().upperBound(), 5000);
        EXPECT_FALSE(graph.grab().isNull());
    }
    EXPECT_LT(timer.elapsed(), 20'000);
    VXSTRIP cut(nullptr);
    cut.Deserialise(sampleList(1).mid(0, 60));
    EXPECT_EQ(cut.inCTRL().properties().number(StripTraceCount), 1) << "what the list lacks stays";
    EXPECT_EQ(cut.inCTRL().properties().number(GraphAutoScaleY), -1);
}

/// A time graph of two traces with names on all pins.
std::unique_ptr<VXSTRIP> boundStrip() {
    auto graph = std::make_unique<VXSTRIP>(nullptr);
    graph->inCTRL().properties().setNumber(StripTraceCount, 2);
    for (const int pin : {1, 2}) {
        graph->AssignPin(pin, std::uint8_t{0}, "Time");
        graph->AssignPin(pin, std::uint8_t{1}, QStringLiteral("Y%1").arg(pin));
    }
    return graph;
}

void feed(Instrument& graph, int pin, double x, double y) {
    graph.refreshValue(static_cast<std::int16_t>(pin), std::uint8_t{0}, static_cast<float>(x));
    graph.refreshValue(static_cast<std::int16_t>(pin), std::uint8_t{1}, static_cast<float>(y));
}

QStringList row(const Instrument& graph, int pin) {
    QStringList texts;
    const PinTable table = graph.curVarTable();
    for (int column = 0; column < table.columns(); ++column) texts << table.at(pin, column);
    return texts;
}

TEST(Graph, PairsXAndYInEitherOrder) {
    const auto first = boundStrip();
    first->refreshValue(1, std::uint8_t{1}, 7);
    EXPECT_EQ(row(*first, 1), (QStringList{"Time", "Y1", "", "7", "0", "-1"}));
    first->refreshValue(1, std::uint8_t{0}, 3);
    EXPECT_EQ(row(*first, 1), (QStringList{"Time", "Y1", "3", "7", "0", "0"}));
    EXPECT_EQ(first->inCTRL().properties().number(StripOrigin), 3) << "Y may come before X";
    const auto graph = boundStrip();
    const auto& strip = static_cast<const StripDisplay&>(graph->inCTRL());
    const PropertyStore& p = strip.properties();
    graph->refreshValue(1, std::uint8_t{0}, 1.5F);
    graph->refreshValue(1, std::uint8_t{0}, 2.5F);
    EXPECT_EQ(row(*graph, 1), (QStringList{"Time", "Y1", "2.5", "", "-1", "0"}));
    EXPECT_EQ(p.number(StripOrigin), 30) << "no point yet";
    graph->refreshValue(1, std::uint8_t{1}, 0.1F);
    EXPECT_EQ(row(*graph, 1), (QStringList{"Time", "Y1", "2.5", "0.1", "0", "0"}));
    EXPECT_EQ(p.number(StripOrigin), 2.5);
    EXPECT_EQ(p.number(StripMaximumX), 2.5);
    EXPECT_EQ(p.number(StripMinimumX), -27.5);
    EXPECT_EQ(strip.highestY(0), 0.1) << "as its text says it";
    graph->refreshValue(1, std::uint8_t{7}, 9);
    EXPECT_EQ(row(*graph, 1), (QStringList{"Time", "Y1", "2.5", "9", "0", "-1"}));
    graph->AssignPin(1, std::uint8_t{1}, "Other");
    EXPECT_EQ(row(*graph, 1), (QStringList{"Time", "Other", "2.5", "9", "0", "0"}))
        << "a new name waits anew";
    graph->refreshValue(1, std::uint8_t{0}, 3);
    EXPECT_EQ(p.number(StripOrigin), 2.5);
    for (const int pin : {-1, 0, 3, 32767}) feed(*graph, pin, 100, 100);
    EXPECT_EQ(p.number(StripOrigin), 2.5) << "no such track";
    graph->Deserialise(saved(*graph));
    EXPECT_EQ(row(*graph, 1), (QStringList{"Time", "Other", "", "", "0", "0"}))
        << "nothing waits after loading";
}

TEST(Graph, FirstTraceAloneSetsTheScale) {
    const auto graph = boundStrip();
    PropertyStore& p = graph->inCTRL().properties();
    feed(*graph, 2, 1, 500);
    EXPECT_EQ(p.number(StripMaximumY, 0), 100) << "the first trace holds nothing yet";
    feed(*graph, 1, 2, -4);
    feed(*graph, 1, 3, 6);
    feed(*graph, 2, 4, 900);
    EXPECT_EQ(p.number(StripMaximumY, 0), 6);
    EXPECT_EQ(p.number(StripMinimumY, 0), -4);
    EXPECT_EQ(p.number(StripOrigin), 4);
    EXPECT_EQ(rangeY(p, 1), (AxisRange{-4, 6})) << "all are painted on it";
    p.setNumber(GraphAutoScaleY, 0);
    feed(*graph, 1, 5, 70);
    EXPECT_EQ(p.number(StripMaximumY, 0), 6);
    EXPECT_EQ(rangeY(p, 1), (AxisRange{0, 100}));
    feed(*graph, 1, NAN, 70);
    feed(*graph, 1, 6, INFINITY);
    EXPECT_EQ(p.number(StripOrigin), 5) << "what is not finite is left out";
}

TEST(Graph, OldestPointsLeaveTheRing) {
    const auto graph = boundStrip();
    PropertyStore& p = graph->inCTRL().properties();
    p.setNumber(StripBufferSize, 3);
    const auto& strip = static_cast<const StripDisplay&>(graph->inCTRL());
    for (const double y : {9, 1, 2, 3}) feed(*graph, 1, 0, y);
    EXPECT_EQ(strip.highestY(0), 3);
    graph->ClearCurrentData();
    feed(*graph, 1, 0, -5);
    EXPECT_EQ(strip.highestY(0), -5);
}

TEST(Graph, PinsGrowAndShrinkOnBothAxes) {
    VXXYGRAPH graph(nullptr);
    EXPECT_EQ(graph.curVarTable().upperBound(), 0);
    EXPECT_EQ(graph.curVarTable().at(0, 0) + graph.curVarTable().at(0, 1), "00");
    PinTable table = graph.AssignPin(3, std::uint8_t{1}, "Lat");
    EXPECT_EQ(table.upperBound(), 3);
    EXPECT_EQ(table.count(0), 0);
    EXPECT_EQ(table.count(1), 1);
    table = graph.AssignPin(3, std::uint8_t{0}, "Lon");
    table = graph.AssignPin(3, std::uint8_t{0}, "Lon2");
    EXPECT_EQ(table.count(0), 1);
    table = graph.RemovePin(3, std::uint8_t{1});
    EXPECT_EQ(table.upperBound(), 3) << "its X is bound";
    table = graph.RemovePin(3, std::uint8_t{0});
    EXPECT_EQ(table.upperBound(), 0);
    graph.AssignPin(1, std::uint8_t{1}, "a");
    graph.AssignPin(2, std::uint8_t{1}, "b");
    graph.AssignPin(4, std::uint8_t{0}, "c");
    table = graph.RemovePin(1, std::uint8_t{1});
    EXPECT_EQ(table.upperBound(), 4) << "a hole";
    table = graph.RemovePin(4, std::uint8_t{0});
    EXPECT_EQ(table.upperBound(), 2) << "empty tracks before it go too";
    table = graph.RemovePin(1, std::uint8_t{0});
    EXPECT_EQ(table.count(0), 0) << "never below none";
}

TEST(Graph, WhoeverHearsOfAPinCanReadTheTable) {
    VXXYGRAPH graph(nullptr);
    QStringList heard;
    QObject::connect(&graph, &Instrument::layoutChanged, [&] { heard << row(graph, 6).join('|'); });
    graph.AssignPin(6, std::uint8_t{1}, "Lat");
    graph.refreshValue(6, std::uint8_t{1}, 2);
    graph.AssignPin(6, std::uint8_t{1}, "Other");
    graph.RemovePin(6, std::uint8_t{1});
    EXPECT_EQ(heard, (QStringList{"|Lat|||0|0", "|Other||2|0|0", "|||||"}));
}

TEST(Graph, TellsTheEndsOfWhatIsVisible) {
    for (const bool scrolling : {true, false}) {
        StripDisplay strip(scrolling ? kStripTable : kXYGraphTable, scrolling);
        PropertyStore draft = strip.properties();
        draft.setNumber(StripOrigin, 50);
        draft.setNumber(StripLength, 20);
        strip.setProperties(draft);
        EXPECT_EQ(strip.properties().number(StripMaximumX), scrolling ? 50 : 70);
        EXPECT_EQ(strip.properties().number(StripMinimumX), scrolling ? 30 : 50);
    }
}

TEST(Graph, SizesInTwipsOutliveTheirPixels) {
    VXXYGRAPH graph(nullptr);
    graph.setSizeTwips(3010, 2993.5);
    EXPECT_EQ(graph.size(), QSize(201, 200));
    EXPECT_EQ(saved(graph).first(2), (QStringList{"3010", "2993.5"}));
    graph.resize(201, 150);
    EXPECT_EQ(saved(graph).first(2), (QStringList{"3010", "2250"})) << "as a person drags it";
}

TEST(Graph, NewTimeGraphPlotsOverTime) {
    VXSTRIP strip(nullptr);
    strip.AssignPin(1, std::uint8_t{0}, "Distance");
    bindPlaced(strip);
    EXPECT_EQ(strip.curVarTable().at(1, 0), "Time");
    EXPECT_EQ(strip.curVarTable().count(0), 1);
    VXXYGRAPH xy(nullptr);
    bindPlaced(xy);
    EXPECT_EQ(xy.curVarTable().upperBound(), 0);
}

TEST(Graph, XYGraphKeepsItsExtremesAndMarksTheNewestPoint) {
    VXXYGRAPH graph(nullptr);
    graph.AssignPin(1, std::uint8_t{0}, "Lon");
    graph.AssignPin(1, std::uint8_t{1}, "Lat");
    const PropertyStore& p = graph.inCTRL().properties();
    for (const auto& [x, y] : {std::pair{4.0, 10.0}, {-2.0, 30.0}, {1.0, 20.0}}) feed(graph, 1, x, y);
    EXPECT_EQ(p.number(StripOrigin), -2);
    EXPECT_EQ(p.number(StripLength), 6);
    EXPECT_EQ(p.number(StripMaximumX), 4);
    EXPECT_EQ(p.number(StripMinimumY), 10);
    EXPECT_EQ(p.number(StripMarkerX), 1);
    EXPECT_EQ(p.number(StripMarkerY), 20);
    graph.ClearCurrentData();
    feed(graph, 1, 0, 5);
    EXPECT_EQ(p.number(StripLength), 6) << "X extremes outlive the points";
    EXPECT_EQ(p.number(StripMaximumY), 5) << "Y is that of the points held";
    graph.inCTRL().properties().setNumber(StripTraceCount, 2);
    graph.AssignPin(2, std::uint8_t{0}, "Lon");
    graph.AssignPin(2, std::uint8_t{1}, "Lat");
    feed(graph, 2, 11, 900);
    feed(graph, 2, NAN, 1);
    feed(graph, 1, 99, INFINITY);
    EXPECT_EQ(p.number(StripMaximumX), 11) << "X of every track counts";
    EXPECT_EQ(p.number(StripMinimumX), -2);
    EXPECT_EQ(p.number(StripMaximumY), 5) << "Y of the first one";
    EXPECT_EQ(p.number(StripMarkerX), 11) << "what is not finite moves nothing";
    EXPECT_EQ(p.number(StripMarkerY), 900);
}

TEST(Graph, AspectTakesTheShapeOfTheDisplayInTwips) {
    const struct {
        double width, height;
        bool tag;
        double shape;
    } cases[] = {
        {3160, 1660, false, 0.5}, {3160, 1660, true, 1300.0 / 3000}, {3167, 1660, false, 1500.0 / 3007}};
    for (const auto& c : cases) {
        VXXYGRAPH graph(nullptr);
        graph.AssignPin(1, std::uint8_t{0}, "Lon");
        graph.AssignPin(1, std::uint8_t{1}, "Lat");
        graph.TagOn(c.tag);
        graph.setSizeTwips(c.width, c.height);
        PropertyStore& p = graph.inCTRL().properties();
        p.setNumber(GraphFixAspect, -1);
        p.setNumber(GraphAutoScaleX, 0);
        p.setNumber(StripOrigin, 0);
        p.setNumber(StripLength, 100);
        feed(graph, 1, 10, 0);
        feed(graph, 1, 20, 4);
        const double k = c.shape / (4 / 100.0) / 2;
        EXPECT_DOUBLE_EQ(p.number(StripMaximumY), 4 + 4 * k) << c.shape;
        EXPECT_DOUBLE_EQ(p.number(StripMinimumY), -4 * k) << c.shape;
    }
}

TEST(Graph, TellsThePropertiesWindow) {
    VXSTRIP strip(nullptr);
    PropertiesWindowShown = true;
    QStringList labels, values;
    QObject::connect(
        &strip, &Instrument::propertiesShown,
        [&](const QString&, const QStringList& l, const QStringList& v) { labels = l, values = v; });
    Q_EMIT strip.inCTRL().moved();
    EXPECT_EQ(labels.value(0), "Time Along X Axis");
    EXPECT_EQ(values, (QStringList{"30", "True", "0", "100", "BothGrid", "SolidLine", "No Symbol", "True"}));
    VXXYGRAPH graph(nullptr);
    QObject::connect(
        &graph, &Instrument::propertiesShown,
        [&](const QString&, const QStringList& l, const QStringList& v) { labels = l, values = v; });
    Q_EMIT graph.inCTRL().moved();
    EXPECT_EQ(labels.value(10), "Fix Aspect Ratio 1:1");
    EXPECT_EQ(values, (QStringList{"BothGrid", "True", "0", "100", "True", "0", "100", "No Symbol", "True",
                                   "10000", "False", "True", "True"}));
}

/// The colour at shares of the ranges.
QColor near(const QImage& image, const StripLayout& layout, double x, double y) {
    const QRectF& d = layout.data;
    return image.pixelColor(QPointF(d.left() + d.width() * x, d.bottom() - d.height() * y).toPoint());
}

TEST(Graph, PaintsTracesWhereTheirPointsAre) {
    const auto graph = boundStrip();
    graph->mode(true);
    EXPECT_TRUE(graph->inCTRL().isEnabled());
    graph->mode(false);
    EXPECT_TRUE(graph->inCTRL().isEnabled()) << "a graph stays enabled";
    auto& strip = static_cast<StripDisplay&>(graph->inCTRL());
    PropertyStore& p = strip.properties();
    p.setNumber(GraphAutoScaleY, 0);
    p.setNumber(StripGrid, 0);
    p.setNumber(StripLineCount, 1);
    p.setNumber(StripLineWidth, 3);
    p.setNumber(StripTraceColour, 0, 0x0000FF);
    p.setNumber(StripTraceColour, 1, 0x00FF00);
    p.setNumber(StripMaximumY, 1, 200);
    for (int i = 0; i <= 100; ++i) {
        feed(*graph, 1, i * 0.3, i < 50 ? 25 : 75);
        feed(*graph, 2, i * 0.3, 100);
    }
    const QImage image = strip.grab().toImage();
    const StripLayout layout = strip.layoutNow();
    EXPECT_EQ(near(image, layout, 0.25, 0.25), QColor(Qt::red));
    EXPECT_EQ(near(image, layout, 0.75, 0.75), QColor(Qt::red));
    EXPECT_EQ(near(image, layout, 0.25, 0.5), QColor(Qt::green)) << "on a range of its own";
    EXPECT_NE(near(image, layout, 0.25, 0.75), QColor(Qt::red));
}

/// A strip of one red trace over X 0 to 100 and Y 0 to 100 without numbers and grid.
struct BareStrip {
    StripDisplay strip{kStripTable, true};
    PropertyStore& p = strip.properties();

    explicit BareStrip(int grid = 0) {
        strip.resize(300, 200);
        for (const auto& [number, value] :
             std::initializer_list<std::pair<int, double>>{{GraphAutoScaleY, 0},
                                                           {StripGrid, double(grid)},
                                                           {StripShowNumbersX, 0},
                                                           {StripLength, 100},
                                                           {StripOrigin, 100},
                                                           {StripTraceColour, 0x0000FF},
                                                           {StripLineWidth, 3}})
            p.setNumber(number, value);
    }
    QColor at(double x, double y) {
        return near(strip.grab().toImage(), strip.layoutNow(), x / 100, y / 100);
    }
    int redAlong(double y) {
        const QImage image = strip.grab().toImage();
        int red = 0;
        for (int x = 0; x < 100; ++x)
            red += near(image, strip.layoutNow(), x / 100.0, y / 100) == QColor(Qt::red);
        return red;
    }
};

TEST(Graph, NoLineLeadsBackToANewLap) {
    BareStrip bare;
    for (const int lap : {20, 80})
        for (int x = 5; x <= 95; ++x) bare.strip.addPoint(0, x, lap);
    EXPECT_EQ(bare.at(50, 20), QColor(Qt::red));
    EXPECT_EQ(bare.at(50, 80), QColor(Qt::red));
    EXPECT_NE(bare.at(50, 50), QColor(Qt::red)) << "half way from the end of one to the start of the next";
}

TEST(Graph, NoHalfOutlivesWhatItBelongsTo) {
    const struct {
        const char* what;
        void (*forget)(GraphInstrument&);
    } cases[] = {{"cleared", [](GraphInstrument& graph) { graph.ClearCurrentData(); }},
                 {"interrupted", [](GraphInstrument& graph) { graph.interruptData(); }}};
    for (const auto& c : cases) {
        const auto graph = boundStrip();
        const auto& strip = static_cast<const StripDisplay&>(graph->inCTRL());
        const double before = strip.highestY(0);
        graph->refreshValue(1, 0, 7);
        c.forget(*graph);
        EXPECT_EQ(graph->curVarTable().at(1, 4), "0") << c.what;
        graph->refreshValue(1, 1, 900);
        EXPECT_EQ(strip.highestY(0), before) << c.what;
        graph->refreshValue(1, 0, 8);
        EXPECT_EQ(strip.highestY(0), 900) << c.what;
    }
}

TEST(Graph, GridFollowsItsFourWords) {
    for (int grid = 0; grid < 4; ++grid) {
        BareStrip bare(grid);
        const QColor ground = bare.at(33, 33);
        EXPECT_EQ(bare.at(33, 40) != ground, grid == 1 || grid == 3) << "lines across, word " << grid;
        EXPECT_EQ(bare.at(40, 33) != ground, grid == 2 || grid == 3) << "lines upward, word " << grid;
    }
}

TEST(Graph, LineStylesAndSymbolsAreSeen) {
    const auto redOf = [](int style, int symbol) {
        BareStrip bare;
        bare.p.setNumber(StripLineStyle, style);
        bare.p.setNumber(StripSymbolView, symbol);
        bare.p.setNumber(StripSymbolSize, 20);
        for (int x = 0; x <= 100; ++x) bare.strip.addPoint(0, x, 50);
        return std::pair{bare.redAlong(50), bare.redAlong(52)};
    };
    EXPECT_EQ(redOf(0, 0), std::pair(100, 0));
    for (int style = 1; style <= 4; ++style) {
        EXPECT_GT(redOf(style, 0).first, 20) << style;
        EXPECT_LT(redOf(style, 0).first, 80) << style;
    }
    for (int symbol = 1; symbol <= 4; ++symbol) EXPECT_GT(redOf(0, symbol).second, 10) << symbol;
}

TEST(Graph, NumbersAndMarkerComeWithTheirSwitches) {
    BareStrip bare;
    const double width = bare.strip.layoutNow().frame.width();
    bare.p.setNumber(StripShowNumbersX, -1);
    EXPECT_LT(bare.strip.layoutNow().frame.width(), width);
    bare.p.setNumber(StripShowNumbersX, 0);
    bare.strip.addPoint(0, 30, 40);
    bare.strip.addPoint(0, 60, 70);
    const QColor ground = bare.at(60, 20);
    bare.p.setNumber(StripShowMarker, 1);
    EXPECT_NE(bare.at(60, 20), ground) << "its line through the newest point";
    EXPECT_NE(bare.at(90, 70), ground);
    EXPECT_EQ(bare.p.number(StripMarkerX), 0) << "which no property tells on a scrolling graph";
}

TEST(Graph, NewPointsAreSeenAlsoWhereNoPropertyChanges) {
    const auto graph = boundStrip();
    auto& strip = static_cast<StripDisplay&>(graph->inCTRL());
    strip.properties().setNumber(GraphAutoScaleY, 0);
    strip.properties().setNumber(StripTraceColour, 0, 0x0000FF);
    graph->show();
    feed(*graph, 1, 10, 20);
    const QImage before = strip.grab().toImage();
    feed(*graph, 1, 10, 90);
    EXPECT_NE(strip.grab().toImage(), before);
}

} // namespace
} // namespace vistor
