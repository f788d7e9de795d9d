#include "instruments/displays/StripRaster.h"

#include "instruments/displays/StripDashes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace vistor {
namespace {

constexpr QSize kSize(100, 60);
const AxisMap kMapX(AxisRange{0, 100}, 0, 100); ///< one unit a pixel
const AxisMap kMapY(AxisRange{0, 60}, 60, 0);

TraceRing ringOf(std::initializer_list<std::pair<double, double>> points) {
    TraceRing ring;
    for (const auto& [x, y] : points) ring.add(x, y);
    return ring;
}

QImage painted(const TraceRing& ring, const RasterStroke& stroke) {
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::black);
    StripRaster raster(image, image.rect(), 1);
    for (std::size_t i = 0; i < ring.runCount(); ++i)
        raster.paintRun(ring, ring.run(i), kMapX, kMapY, stroke);
    return image;
}

int light(const QImage& image, int x, int y) {
    return qGreen(image.pixel(x, y));
}

int lightInColumn(const QImage& image, int x) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) sum += light(image, x, y);
    return sum;
}

constexpr RasterStroke kWhite{0xFFFFFFFF, 2};

TEST(ColumnSpans, KeepEveryExtreme) {
    // A million points, of which two stick out.
    constexpr int kPoints = 1'000'000;
    TraceRing ring;
    ring.setCapacity(kPoints);
    for (int i = 0; i < kPoints; ++i) ring.add(i * 1e-4, i == 333'750 ? 55 : i == 778'750 ? 5 : 30);
    std::vector<ColumnSpan> spans(400);
    const PointRun touched = columnSpans(ring, ring.run(0), kMapX, kMapY, 4, spans);
    EXPECT_EQ(touched.first, 0U);
    EXPECT_EQ(touched.last, 400U);
    for (std::size_t c = 0; c < spans.size(); ++c) {
        EXPECT_EQ(spans[c].top, c == 133 ? 5 : 30) << c;
        EXPECT_EQ(spans[c].bottom, c == 311 ? 55 : 30) << c;
    }
}

TEST(ColumnSpans, FollowTheLineBetweenFewPoints) {
    const TraceRing ring = ringOf({{-10, 0}, {10, 20}, {20, 20}, {150, 20}});
    std::vector<ColumnSpan> spans(100);
    const PointRun touched = columnSpans(ring, ring.run(0), kMapX, kMapY, 1, spans);
    EXPECT_EQ(touched.last, 100U) << "a line that leaves is drawn to the edge";
    EXPECT_FLOAT_EQ(spans[0].bottom, 50) << "and one that enters from it";
    EXPECT_FLOAT_EQ(spans[0].top, 49);
    EXPECT_FLOAT_EQ(spans[5].top, 44);
    EXPECT_FLOAT_EQ(spans[60].top, 40);
    EXPECT_EQ(spans[60].top, spans[60].bottom);
}

TEST(ColumnSpans, AreEmptyWithoutAnythingInSight) {
    std::vector<ColumnSpan> spans(100);
    const TraceRing before = ringOf({{-5, 1}, {-3, 1}});
    const TraceRing behind = ringOf({{100.5, 1}, {130, 1}});
    for (const TraceRing* ring : {&before, &behind}) {
        const PointRun touched = columnSpans(*ring, ring->run(0), kMapX, kMapY, 1, spans);
        EXPECT_EQ(touched.first, touched.last);
    }
}

TEST(StripRaster, PaintsPointsLinesAndNothingAcrossAJump) {
    const QImage image = painted(ringOf({{10.5, 30}, {40, 30}, {5, 10}, {8, 10}, {2, 50}}), kWhite);
    EXPECT_EQ(light(image, 25, 29), 255);
    EXPECT_EQ(light(image, 25, 30), 255);
    EXPECT_EQ(light(image, 25, 26) + light(image, 25, 33), 0);
    EXPECT_EQ(lightInColumn(image, 43), 0);
    EXPECT_GT(light(image, 6, 50), 200) << "the run after the jump";
    EXPECT_GT(light(image, 2, 10), 60) << "a point alone";
    EXPECT_EQ(light(image, 20, 40) + light(image, 22, 20), 0) << "no line from run to run";
}

TEST(StripRaster, LinesOfAnySlopeCarryTheirWidth) {
    const struct { double rise; } cases[] = {{0}, {5}, {20}, {50}};
    for (const auto& c : cases) {
        const QImage image = painted(ringOf({{30, 5}, {70, 5 + c.rise}}), {0xFFFFFFFF, 3});
        double ink = 0;
        for (int x = 0; x < kSize.width(); ++x) ink += lightInColumn(image, x) / 255.0;
        const double wanted = std::hypot(40, c.rise) * 3 + 2.25 * 3.14159; // with round ends
        EXPECT_NEAR(ink, wanted, wanted * 0.08) << c.rise; // columns are a quarter of a pixel wide
    }
}

constexpr double kTenAndTen[] = {10, 10};

QImage paintedInDashes(const TraceRing& ring, const AxisMap& x = kMapX) {
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::black);
    StripRaster raster(image, image.rect(), 1);
    for (std::size_t run = 0; run < ring.runCount(); ++run) {
        const PathPieces pieces = dashedInOrder(ring, ring.run(run), x, kMapY, kSize, 1, kTenAndTen);
        for (std::size_t i = 0; i < pieces.count(); ++i) raster.paintLine(pieces.piece(i), {0xFFFFFFFF, 1});
    }
    return image;
}

int lightInRow(const QImage& image, int y) {
    int sum = 0;
    for (int x = 0; x < image.width(); ++x) sum += light(image, x, y);
    return sum;
}

TEST(StripDashes, RunAlongTheLine) {
    const QImage flat = paintedInDashes(ringOf({{0, 30}, {100, 30}}));
    const QImage upright = paintedInDashes(ringOf({{0, 0}, {0.001, 60}}));
    for (int at = 0; at < 50; ++at) {
        if (at % 10 == 0 || at % 10 == 9) continue; // ends are round
        EXPECT_EQ(lightInColumn(flat, at) > 0, at % 20 < 10) << at;
        EXPECT_EQ(lightInRow(upright, 59 - at) > 0, at % 20 < 10) << at;
    }
}

TEST(StripDashes, StayOnTheirData) {
    TraceRing ring;
    for (int i = 0; i <= 2000; ++i) ring.add(i * 0.1, 30 + 20 * std::sin(i * 0.02));
    const QImage here = paintedInDashes(ring);
    const QImage later = paintedInDashes(ring, AxisMap(AxisRange{7, 107}, 0, 100));
    for (int x = 8; x < 98; ++x) EXPECT_NEAR(lightInColumn(later, x - 7), lightInColumn(here, x), 60) << x;
}

TEST(StripDashes, HideNothingThatSticksOut) {
    for (int spike = 5; spike < 95; ++spike) {
        TraceRing ring;
        for (int i = 0; i <= 10'000; ++i)
            ring.add(i * 0.01, i == spike * 100 + 50 ? 55 : 30 + (i % 2) * 0.01);
        EXPECT_GT(lightInRow(paintedInDashes(ring), 5), 100) << spike;
    }
    TraceRing noise;
    noise.setCapacity(100'000);
    std::mt19937 random(1);
    for (int i = 0; i < 100'000; ++i) noise.add(i * 0.001, double(random() % 60));
    const PathPieces pieces = dashedInOrder(noise, noise.run(0), kMapX, kMapY, kSize, 1, kTenAndTen);
    EXPECT_LT(pieces.points.size(), 1000U) << "solid, in bounded ink";
}

TEST(StripRaster, NarrowerThanItsLine) {
    const TraceRing ring = ringOf({{-3, 5}, {10, 50}, {20, 3}, {90, 40}});
    const QPointF path[] = {{-5, -5}, {3, 20}, {1, 8}, {40, 40}};
    for (const double ratio : {1.0, 2.0, 3.0})
        for (int width = 1; width < 24; ++width)
            for (const double pen : {0.5, 3.0, 10.0, 30.0}) {
                QImage image(width, 50, QImage::Format_RGB32);
                image.fill(Qt::black);
                StripRaster raster(image, image.rect(), ratio);
                raster.paintRun(ring, ring.run(0), kMapX, kMapY, {0xFFFFFFFF, pen});
                raster.paintLine(path, {0xFFFFFFFF, pen});
                EXPECT_GT(lightInColumn(image, 0), 0) << width << " " << pen;
            }
}

TEST(StripRaster, FarPointsStayWithinTheImage) {
    const TraceRing ring = ringOf({{0, -1e300}, {50, 1e300}, {51, 30}, {1e300, 30}});
    const QImage image = painted(ring, kWhite);
    EXPECT_GT(lightInColumn(image, 80), 200);
    QImage line(kSize, QImage::Format_RGB32);
    line.fill(Qt::black);
    const QPointF path[] = {{-1e5, -1e5}, {1e5, 1e5}, {50, 30}, {50, 30}};
    StripRaster(line, line.rect(), 1).paintLine(path, kWhite);
    EXPECT_GT(light(line, 40, 40), 150) << "on the diagonal";
    EXPECT_GT(light(line, 60, 40), 0) << "and on the way back";
}

PathPieces thinned(const TraceRing& ring, const QSize& image) {
    PathCells visited(image, PathCells::kFine);
    return thinnedPath(ring, kMapX, kMapY, image, 2, visited);
}

TEST(StripPath, ThinsWithoutLosingWhereThePathWent) {
    TraceRing ring;
    ring.setCapacity(200'000);
    for (int i = 0; i < 200'000; ++i) {
        const double angle = i * 0.01; // hundreds of laps
        ring.add(50 + 30 * std::cos(angle), 30 + 20 * std::sin(angle));
    }
    const PathPieces path = thinned(ring, kSize);
    EXPECT_LT(path.points.size(), 3000U);
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::black);
    StripRaster raster(image, image.rect(), 1);
    for (std::size_t i = 0; i < path.count(); ++i) raster.paintLine(path.piece(i), kWhite);
    for (double angle = 0; angle < 6.28; angle += 0.05)
        EXPECT_GT(light(image, int(50 + 30 * std::cos(angle)), int(30 - 20 * std::sin(angle))), 60) << angle;
    EXPECT_EQ(light(image, 50, 30), 0);
}

TEST(StripPath, FarStepsAreCutToTheImage) {
    constexpr double kDashes[] = {3, 2};
    TraceRing ring;
    for (int i = 0; i < 2000; ++i) ring.add(i % 2 == 0 ? -1e300 : 1e300, i * 0.03);
    const PathPieces path = thinned(ring, kSize);
    EXPECT_GT(path.count(), 20U);
    EXPECT_LT(dashed(path, kDashes).count(), 50'000U);
    for (const QPointF& point : path.points)
        EXPECT_TRUE(QRectF(-2.1, -2.1, 104.2, 64.2).contains(point)) << point.x() << " " << point.y();
}

TEST(StripPath, DashesStayWhileThePathGrows) {
    constexpr double kDashes[] = {6, 4};
    TraceRing ring;
    const auto starts = [&] {
        std::vector<double> at;
        const PathPieces pieces = dashed(thinned(ring, kSize), kDashes);
        for (std::size_t i = 0; i < pieces.count(); ++i) at.push_back(pieces.piece(i).front().x());
        return at;
    };
    for (int x = -20; x <= 55; ++x) ring.add(x, 30);
    const std::vector<double> before = starts();
    ASSERT_EQ(before.size(), 6U);
    for (std::size_t i = 1; i < before.size(); ++i) EXPECT_NEAR(before[i], 10.0 * double(i), 1e-9);
    for (int x = 56; x <= 58; ++x) ring.add(x, 30);
    const std::vector<double> after = starts();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_NEAR(after[i], before[i], 1e-9);
}

TEST(StripPath, NoiseEndsInBoundedInk) {
    TraceRing ring;
    ring.setCapacity(300'000);
    std::mt19937 random(1);
    for (int i = 0; i < 300'000; ++i) ring.add(double(random() % 100), double(random() % 60));
    const PathPieces path = thinned(ring, {100, 60});
    EXPECT_LT(path.points.size(), 30'000U);
}

TEST(StripPath, SymbolsKeepTheirDistanceAndTheirPlaces) {
    TraceRing ring;
    for (int i = 0; i <= 1000; ++i) ring.add(i * 0.1, 30);
    const auto here = symbolPlacesInOrder(ring, ring.run(0), kMapX, kMapY, kSize, 10);
    ASSERT_EQ(here.size(), 11U);
    EXPECT_NEAR(here[3].x() - here[2].x(), 10, 0.2);
    const AxisMap scrolled(AxisRange{3.3, 103.3}, 0, 100);
    const auto later = symbolPlacesInOrder(ring, ring.run(0), scrolled, kMapY, kSize, 10);
    EXPECT_NEAR(later[2].x() + 3.3, here[2].x(), 1e-6);
    EXPECT_EQ(symbolPlaces(ring, kMapX, kMapY, kSize, 10).size(), 11U);
}

} // namespace
} // namespace vistor
