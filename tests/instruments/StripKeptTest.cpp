// A graph whose picture only grows looks like one that was painted whole.
#include "instruments/displays/StripDisplay.h"
#include "instruments/displays/StripStyle.h"

#include <QImage>

#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr QSize kSize(300, 200);

void setUp(StripDisplay& graph, int held) {
    graph.resize(kSize);
    PropertyStore& p = graph.properties();
    p.setNumber(StripTraceCount, 2);
    p.setNumber(StripBufferSize, held);
    p.setNumber(StripOrigin, -1.2);
    p.setNumber(StripLength, 2.4);
    p.setNumber(StripMinimumY, -1.2);
    p.setNumber(StripMaximumY, 1.2);
}

void addPoint(StripDisplay& graph, int number) {
    const double angle = number * 0.037;
    graph.addPoint(0, std::cos(angle), std::sin(angle * 1.5));
    if (number % 3 == 0) graph.addPoint(1, 0.5 * std::sin(angle * 0.7), 0.8 * std::cos(angle));
}

QImage painted(StripDisplay& graph) {
    QImage image(kSize, QImage::Format_RGB32);
    graph.render(&image);
    return image;
}

/// How many pixels differ clearly.
int differences(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < kSize.height(); ++y)
        for (int x = 0; x < kSize.width(); ++x)
            if (std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 40) ++count;
    return count;
}

/// A graph that shows the same points and was never painted before.
QImage paintedAtOnce(int held, int first, int points, double length = 2.4) {
    StripDisplay graph(kXYGraphTable, false);
    setUp(graph, held);
    graph.properties().setNumber(StripLength, length);
    for (int i = first; i < points; ++i) addPoint(graph, i);
    return painted(graph);
}

TEST(StripKept, growingLooksLikePaintingWhole) {
    StripDisplay graph(kXYGraphTable, false);
    setUp(graph, 5000);
    for (int i = 0; i < 1000; ++i) {
        addPoint(graph, i);
        if (i % 7 == 0) painted(graph);
    }
    EXPECT_LT(differences(painted(graph), paintedAtOnce(5000, 0, 1000)), 40);
}

TEST(StripKept, noLineLeadsOverAGap) {
    StripDisplay growing(kXYGraphTable, false);
    StripDisplay whole(kXYGraphTable, false);
    for (StripDisplay* graph : {&growing, &whole}) {
        setUp(*graph, 50);
        graph->properties().setNumber(StripMaximumY, 2);
        graph->properties().setNumber(StripLineWidth, 5);
        for (const auto& [x, y] : {std::pair{-1.0, 1.5}, {-0.9, 1.5}, {0.9, 1.5}, {1.0, 1.5}}) {
            if (x == 0.9) graph->interrupt();
            graph->addPoint(0, x, y);
            if (graph == &growing) painted(*graph);
        }
    }
    EXPECT_EQ(differences(painted(growing), painted(whole)), 0);
    StripDisplay joined(kXYGraphTable, false);
    setUp(joined, 50);
    joined.properties().setNumber(StripMaximumY, 2);
    joined.addPoint(0, -1, 1.5);
    joined.addPoint(0, 1, 1.5);
    EXPECT_GT(differences(painted(growing), painted(joined)), 100);
    growing.interrupt();
    growing.addPoint(0, 0, 0);
    const int dot = differences(painted(growing), painted(whole));
    EXPECT_GT(dot, 0) << "a point alone is seen";
    EXPECT_LT(dot, 40);
}

TEST(StripKept, stepsTooShortToSeeAreDrawnOnceTheyHaveSummedUp) {
    StripDisplay graph(kXYGraphTable, false);
    setUp(graph, 5000);
    for (int i = 0; i <= 2000; ++i) { // a tenth of a pixel each
        graph.addPoint(0, -1 + i * 0.001, 0.3);
        painted(graph);
    }
    StripDisplay other(kXYGraphTable, false);
    setUp(other, 5000);
    other.addPoint(0, -1, 0.3);
    other.addPoint(0, 1, 0.3);
    EXPECT_LT(differences(painted(graph), painted(other)), 6);
}

TEST(StripKept, whatIsLostOrChangedIsPaintedAnew) {
    StripDisplay graph(kXYGraphTable, false);
    setUp(graph, 10);
    for (int i = 0; i < 300; ++i) { // few are held: each that goes is taken away at once
        addPoint(graph, i);
        painted(graph);
    }
    EXPECT_LT(differences(painted(graph), paintedAtOnce(10, 270, 300)), 6);
    graph.properties().setNumber(StripLength, 4);
    EXPECT_LT(differences(painted(graph), paintedAtOnce(10, 270, 300, 4)), 6);
    graph.properties().setNumber(StripLength, 2.4);
    painted(graph);
    graph.clearPoints();
    for (int i = 40; i < 70; ++i) addPoint(graph, i); // as many as there were, other ones
    EXPECT_LT(differences(painted(graph), paintedAtOnce(10, 40, 70)), 6);
}

TEST(StripKept, aFullGraphForgetsAfterASixteenth) {
    StripDisplay graph(kXYGraphTable, false);
    setUp(graph, 160);
    for (int i = 0; i < 160; ++i) graph.addPoint(0, -1, -1 + i * 0.01);
    painted(graph);
    const QImage withOldest = painted(graph);
    for (int i = 0; i < 11; ++i) graph.addPoint(0, 1, -1 + i * 0.01);
    StripDisplay fresh(kXYGraphTable, false);
    setUp(fresh, 160);
    for (int i = 11; i < 160; ++i) fresh.addPoint(0, -1, -1 + i * 0.01);
    for (int i = 0; i < 11; ++i) fresh.addPoint(0, 1, -1 + i * 0.01);
    EXPECT_EQ(painted(graph), painted(fresh));
    EXPECT_NE(painted(graph), withOldest);
}

} // namespace
} // namespace vistor
