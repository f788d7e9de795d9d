#include "instruments/GraphInstrument.h"
#include "instruments/GraphScales.h"
#include "instruments/VXSTRIP.h"
#include "instruments/VXXYGRAPH.h"
#include "instruments/displays/StripDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QElapsedTimer>
#include <QImage>

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
constexpr int kSections[] = {2, 1, 3, 1, 2};

QString itemOf(char type, int position) {
    switch (type) {
    case 'b':
        return position % 3 == 0 ? QStringLiteral("0") : QStringLiteral("-1");
    case 's':
        return QStringLiteral("text %1, \"=;").arg(position);
    case 'd':
    case 'f':
        return QString::number(position + 0.25);
    default:
        return QString::number(position + 300);
    }
}

void appendItems(QStringList& list, const char* types) {
    for (; *types != 0; ++types) list << itemOf(*types, static_cast<int>(list.size()));
}

/// A list in which every item can be told from its neighbours.
QStringList sampleList(int flags) {
    QStringList list{QStringLiteral("6000"), QStringLiteral("3000")};
    appendItems(list, kFixedItems);
    for (const int count : kSections) list << QString::number(count);
    for (int i = 0; i < flags; ++i) list << (i % 2 == 0 ? QStringLiteral("True") : QStringLiteral("False"));
    for (std::size_t block = 0; block < std::size(kSections); ++block)
        for (int i = 0; i < kSections[block]; ++i) {
            const auto first = list.size();
            appendItems(list, kSectionItems[block]);
            list[first] = QString::number(i);
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
    const struct {
        Kind kind;
        int flags;
    } cases[] = {{Kind::TimeGraph, 1}, {Kind::XYGraph, 3}};
    for (const auto& c : cases) {
        const auto graph = makeInstrument(c.kind, nullptr);
        const QStringList list = sampleList(c.flags);
        ASSERT_EQ(list.size(), 67 + c.flags + 2 * 8 + 8 + 3 * 24 + 4 + 2 * 14 + 8);
        graph->inCTRL().properties().setNumber(StripTrace, 2);
        graph->Deserialise(list);
        const QStringList back = saved(*graph);
        ASSERT_EQ(back.size(), list.size());
        for (qsizetype i = 0; i < list.size(); ++i) EXPECT_EQ(back[i], list[i]) << "item " << i;
        EXPECT_EQ(graph->inCTRL().properties().number(StripTrace), 0);
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

TEST(GraphScales, FollowTheDataAndTheAspectRule) {
    // X 0 to 10 and Y 2 to 6 were plotted; axes stood at X 100 to 120 and Y -1 to 1.
    const GraphAxes before{.origin = 100, .length = 20, .lowestY = -1, .highestY = 1};
    const GraphData data{.lowestX = 0, .highestX = 10, .lowestY = 2, .highestY = 6};
    const struct {
        const char* name;
        bool autoX, autoY, fixAspect;
        double width, height;
        GraphAxes after;
    } cases[] = {
        {"none", false, false, true, 100, 100, before},
        {"Y", false, true, false, 100, 100, {100, 20, 2, 6}},
        {"X", true, false, false, 100, 100, {0, 10, -1, 1}},
        {"both", true, true, false, 100, 100, {0, 10, 2, 6}},
        // Shape 0.25, data 0.4: k = 0.8, X becomes Y's range widened by 3.2 either way.
        {"flat display widens X", true, true, true, 400, 100, {-1.2, 10.4, 2, 6}},
        // Shape 0.8, data 0.4: k = 1, Y widens by its 4 either way.
        {"tall display widens Y", true, true, true, 100, 80, {0, 10, -2, 10}},
        // Shape 1, data 4 / 20: k = 2.5.
        {"Y alone", false, true, true, 100, 100, {100, 20, -8, 16}},
        {"Y alone, X not widened", false, true, true, 1000, 100, {100, 20, 2, 6}},
        // Shape 0.1, data 2 / 10: k = 1, from the Y range that stands.
        {"X alone", true, false, true, 1000, 100, {-3, 6, -1, 1}},
        {"X alone, Y not widened", true, false, true, 100, 100, {0, 10, -1, 1}},
        {"no display", true, true, true, 0, 0, {0, 10, 2, 6}},
    };
    for (const auto& c : cases) {
        const GraphAxes after = scaledAxes(before, data, {c.autoX, c.autoY, c.fixAspect, c.width, c.height});
        EXPECT_NEAR(after.origin, c.after.origin, 1e-12) << c.name;
        EXPECT_NEAR(after.length, c.after.length, 1e-12) << c.name;
        EXPECT_NEAR(after.lowestY, c.after.lowestY, 1e-12) << c.name;
        EXPECT_NEAR(after.highestY, c.after.highestY, 1e-12) << c.name;
    }
    const GraphData one{.lowestX = 5, .highestX = 5, .lowestY = 2, .highestY = 2};
    EXPECT_EQ(scaledAxes(before, one, {true, true, true, 100, 100}), (GraphAxes{5, 0, 2, 2})) << "one point";
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
