#include "instruments/VXODO.h"

#include "instruments/Colours.h"
#include "instruments/displays/OdometerDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QImage>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

/// Drums as a text: a digit at rest, one on its way with its turn in hundredths, " " and "-".
std::string words(const DrumRow& row) {
    std::string text;
    for (int i = 0; i < row.count; ++i) {
        const Drum& drum = row.drums[std::size_t(i)];
        if (i == row.count - row.decimals && row.decimals > 0) text += '.';
        if (drum.face != Drum::Face::Digit) {
            text += drum.face == Drum::Face::Minus ? '-' : ' ';
            continue;
        }
        const double rest = std::floor(drum.position);
        text += std::to_string(int(rest));
        if (drum.position > rest) text += '(' + std::to_string(int((drum.position - rest) * 100)) + ')';
    }
    return text;
}

TEST(OdometerDrums, DrumsFollowTheValue) {
    const DrumForm usual{.digits = 6, .decimals = 1};
    const DrumForm steps{.digits = 6, .decimals = 1, .smooth = false};
    const DrumForm ends{.digits = 6, .decimals = 1, .rollOver = false};
    const DrumForm bare{.digits = 6, .decimals = 1, .leadingZeros = false};
    const struct {
        double value;
        DrumForm form;
        const char* drums;
    } cases[] = {
        {0, usual, "00000.0"},
        {12345.6, usual, "12345.6"},
        {12345.65, usual, "12345.6(50)"},
        {float(12345.6F), usual, "12345.6"},
        {18.925, usual, "00018(25).9(25)"},
        {19.975, usual, "0001(75)9(75).9(75)"},
        {99999.95, usual, "9(50)9(50)9(50)9(50)9(50).9(50)"},
        {100000, usual, "00000.0"},
        {1234567.5, usual, "34567.5"},
        {-42.5, usual, "-0042.5"},
        {-12345.6, usual, "-----.-"},
        {-0.0001, usual, "00000.0"},
        {12345.66, steps, "12345.7"},
        {0.04, steps, "00000.0"},
        {1e6, ends, "99999.9"},
        {-1e6, ends, "-9999.9"},
        {kInfinite, ends, "99999.9"},
        {-kInfinite, ends, "-9999.9"},
        {kInfinite, usual, "-----.-"},
        {1e300, {.digits = 16, .decimals = 15, .rollOver = false}, "9.999999999999999"},
        {std::nan(""), usual, "-----.-"},
        {54.3, bare, "   54.3"},
        {-54.3, bare, "  -54.3"},
        {0, bare, "    0.0"},
        {7, {.digits = 1, .decimals = 5}, "7"},
        {-7, {.digits = 1}, "-"},
        {12, {.digits = 3, .decimals = 9}, "2.00"},
        {5, {.digits = 90}, "0000000000000005"},
    };
    for (const auto& c : cases) EXPECT_EQ(words(drumRow(c.value, c.form)), c.drums) << c.value;
}

TEST(OdometerDrums, HugeValuesKeepDrumsInRange) {
    for (const double value : {1e15, 1e30, 1e300, -1e300, 1.7e308, 5e-324}) {
        for (const bool roll : {false, true}) {
            const DrumRow row = drumRow(value, {.digits = 16, .decimals = 15, .rollOver = roll});
            for (int i = 0; i < row.count; ++i) {
                EXPECT_GE(row.drums[std::size_t(i)].position, 0) << value;
                EXPECT_LT(row.drums[std::size_t(i)].position, 10) << value;
            }
        }
    }
}

TEST(OdometerDrums, DrumsFillTheirRoom) {
    const struct {
        int count;
        int decimals;
        QRectF room;
    } cases[] = {
        {6, 1, {0, 0, 200, 50}}, {1, 0, {0, 0, 100, 100}}, {16, 8, {5, 5, 90, 30}}, {6, 2, {0, 0, 800, 300}}};
    for (const auto& c : cases) {
        for (const double pixel : {1.0, 0.5}) {
            const DrumLayout layout = drumLayout(c.count, c.decimals, 0.07, c.room, pixel);
            EXPECT_TRUE(c.room.adjusted(-1, -1, 1, 1).contains(layout.window)) << c.count;
            EXPECT_LT(std::abs(layout.window.center().x() - c.room.center().x()), 1);
            for (int i = 0; i < c.count; ++i) {
                const QPointF corner = layout.at(i).topLeft() / pixel;
                EXPECT_EQ(corner, QPointF(corner.toPoint())) << "on whole device pixels";
                EXPECT_TRUE(i == 0 || layout.at(i).left() >= layout.at(i - 1).right());
            }
            if (c.decimals == 0) continue;
            EXPECT_GT(layout.markPlace().x(), layout.at(c.count - c.decimals - 1).right());
            EXPECT_LT(layout.markPlace().x(), layout.at(c.count - c.decimals).left());
        }
    }
    EXPECT_GT(drumLayout(16, 3, 1, QRectF(0, 0, 1, 1), 1).drum.width(), 0) << "never less than a pixel";
}

QImage drumPicture(VXODO& odometer, int drum) {
    const QImage all = odometer.inCTRL().grab().toImage();
    const QRectF place = static_cast<OdometerDisplay&>(odometer.inCTRL()).layout().at(drum);
    return all.copy(place.toRect()).convertToFormat(QImage::Format_RGB32);
}

TEST(VXODO, DrumsShowTheirDigits) {
    for (const int width : {100, 200, 800}) {
        VXODO odometer(nullptr);
        odometer.setSizeTwips(width * 15, width * 5);
        odometer.refreshValue(4, 11311.1F);
        EXPECT_EQ(drumPicture(odometer, 0), drumPicture(odometer, 1)) << "equal digits look alike";
        EXPECT_NE(drumPicture(odometer, 1), drumPicture(odometer, 2));
        EXPECT_NE(drumPicture(odometer, 4), drumPicture(odometer, 5)) << "decimals have colours of their own";
        const QImage one = drumPicture(odometer, 0);
        odometer.refreshValue(1, 21311.1F);
        EXPECT_NE(drumPicture(odometer, 0), one);
        odometer.refreshValue(1, std::numeric_limits<float>::quiet_NaN());
        EXPECT_EQ(drumPicture(odometer, 0), drumPicture(odometer, 3));
    }
}

TEST(VXODO, DrumTurnsUpwards) {
    VXODO odometer(nullptr);
    odometer.setSizeTwips(6000, 3000);
    PropertyStore& p = odometer.inCTRL().properties();
    p.setNumber(OdoDigits, 1);
    p.setNumber(OdoDecimals, 0);
    p.setNumber(OdoShading, 0);
    const auto lowestInk = [&](double value) {
        p.setNumber(OdoValue, value);
        const QImage drum = drumPicture(odometer, 0);
        const QRgb ground = colourOf(p.integer(OdoDrumColour)).rgb();
        for (int y = drum.height() / 2; y >= 0; --y)
            if (drum.pixel(drum.width() / 2, y) != ground) return y; // of the upper half
        return -1;
    };
    p.setNumber(OdoValue, 1);
    const int before = lowestInk(1.3);
    EXPECT_GT(before, lowestInk(1.45)) << "a digit leaves at the top";
}

TEST(VXODO, TurningDrumsLeaveNoTrace) {
    VXODO odometer(nullptr);
    odometer.mode(false);
    EXPECT_TRUE(odometer.inCTRL().isEnabled()) << "play mode clears the frame only";
    odometer.show();
    QTest::qWait(20);
    for (const float value : {3.0F, 9.97F, -9.97F, 1e30F, 12345.67F}) {
        odometer.refreshValue(1, value);
        QTest::qWait(20);
        const QImage screen = odometer.screen()->grabWindow(odometer.winId()).toImage();
        EXPECT_EQ(screen.convertToFormat(QImage::Format_RGB32),
                  odometer.grab().toImage().convertToFormat(QImage::Format_RGB32))
            << value;
    }
}

TEST(VXODO, FeedsThePropertiesWindow) {
    VXODO odometer(nullptr);
    odometer.setSizeTwips(3000, 900);
    odometer.show();
    odometer.refreshValue(1, 12.3F); // whose text is not that of the nearest double
    QSignalSpy shown(&odometer, &Instrument::propertiesShown);
    PropertiesWindowShown = true;
    QTest::mouseMove(odometer.windowHandle(), QPoint(50, 30));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.at(0).at(0).toString(), "ODO Meter");
    EXPECT_EQ(shown.at(0).at(1).toStringList(),
              (QStringList{"Width", "Height", "Digits", "Decimals", "Value"}));
    EXPECT_EQ(shown.at(0).at(2).toStringList(), (QStringList{"2840", "740", "6", "1", "12.3"}));
}

} // namespace
} // namespace vistor
