#include "instruments/VXLGAUGE.h"

#include "ShownGauge.h"
#include "instruments/Colours.h"
#include "instruments/displays/LinearGaugeLayout.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QSignalSpy>

#include <limits>

namespace vistor {
namespace {

TEST(VXLGAUGE, FeedsThePropertiesWindowFromTheCurrentSections) {
    VXLGAUGE gauge(nullptr);
    gauge.show();
    PropertyStore& p = gauge.inCTRL().properties();
    p.setNumber(LinearTicStep, 1, 2.5);
    p.setNumber(LinearTicStopValue, 1, 40);
    p.setNumber(LinearTicSelector, 1);
    gauge.refreshValue(1, 12.5F);
    QSignalSpy shown(&gauge, &Instrument::propertiesShown);
    PropertiesWindowShown = true;
    QTest::mouseMove(gauge.windowHandle(), QPoint(40, 60));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.at(0).at(0).toString(), "Linear Gauge");
    EXPECT_EQ(shown.at(0).at(1).toStringList(),
              (QStringList{"Tic Stat Value", "Tic Stop Value", "Tic Delta Value", "Tic Labels", "Style",
                           "Scale Min", "Scale Max", "Direction", "Orientation", "pointer Value"}));
    EXPECT_EQ(shown.at(0).at(2).toStringList(), (QStringList{"0", "40", "2.5", "Off", "BandRectangle", "0",
                                                             "100", "Forward", "Vertical", "12.5"}));
    const struct {
        LinearGaugeProperty property;
        int value;
        int row;
        const char* word;
    } words[] = {{LinearBandStyle, 1, 4, "BandEllipse"},      {LinearBandStyle, 2, 4, "BandThermometer"},
                 {LinearBandStyle, 3, 4, "BandTank"},         {LinearBandStyle, 4, 4, "UserDefinedBand"},
                 {LinearBandStyle, -7, 4, "UserDefinedBand"}, {LinearDirection, 1, 7, "Backward"},
                 {LinearDirection, 9, 7, "Forward"},          {LinearOrientation, 0, 8, "Horizontal"},
                 {LinearOrientation, -1, 8, "Vertical"}};
    for (const auto& w : words) {
        p.setNumber(w.property, w.value);
        QTest::mouseMove(gauge.windowHandle(), QPoint(40, 61 + int(shown.count())));
        EXPECT_EQ(shown.last().at(2).toStringList().at(w.row), w.word);
    }
}

/// A gauge to look at, with the places that its display paints to.
struct ShownLinear {
    VXLGAUGE gauge{nullptr};
    PropertyStore& p = gauge.inCTRL().properties();

    ShownLinear(int width, int height) { gauge.setSizeTwips(width * 15, height * 15); }
    LinearLayout layout() const { return layOutLinearGauge(p, gauge.inCTRL().rect(), Qt::white); }
    /// The colour where a value stands on scale 1, at a share across.
    QColor at(double value, double share) {
        const LinearScale scale = layout().scaleAt(0);
        const QPointF place = scale.point(scale.along(value), scale.across(share));
        return pictureOf(gauge).pixelColor(int(place.x()), int(place.y()));
    }
    bool barAt(double value) {
        return isNearly(at(value, 0.67), colourOf(p.integer(LinearPointerColour, 0)));
    }
};

TEST(VXLGAUGE, BarReachesItsValueEitherWay) {
    constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinite = std::numeric_limits<float>::infinity();
    const struct {
        float value;
        double inside, outside; ///< values that the bar covers and leaves; -1: none
    } cases[] = {{50, 47, 53}, {20, 17, 23},         {100, 97, -1},       {1e30F, 97, -1}, {-1, -1, 3},
                 {0, -1, 3},   {kNotANumber, -1, 3}, {kInfinite, 97, -1}, {97, 94, 99.9}};
    for (const int orientation : {0, 1}) {
        for (const int direction : {0, 1}) {
            ShownLinear shown(300, 300);
            shown.p.setNumber(LinearOrientation, orientation);
            shown.p.setNumber(LinearDirection, direction);
            const LinearScale scale = shown.layout().scaleAt(0);
            EXPECT_EQ(scale.start < scale.stop, (orientation == 0) == (direction == 0));
            for (const auto& c : cases) {
                shown.gauge.refreshValue(1, c.value);
                EXPECT_TRUE(c.inside < 0 || shown.barAt(c.inside)) << c.value;
                EXPECT_FALSE(c.outside >= 0 && shown.barAt(c.outside)) << c.value;
            }
        }
    }
}

TEST(VXLGAUGE, BarsGrowFromTheirBaseInEveryForm) {
    for (int form = 0; form <= int(BandStyle::Tank); ++form) {
        ShownLinear shown(130, 300);
        shown.p.setNumber(LinearScaleMin, -100);
        shown.p.setNumber(LinearBarForm, form);
        shown.p.setNumber(LinearPointerFromBase, -1);
        shown.gauge.refreshValue(1, 60);
        EXPECT_TRUE(shown.barAt(30)) << form;
        EXPECT_FALSE(shown.barAt(80)) << form;
        EXPECT_FALSE(shown.barAt(-60)) << form;
        shown.gauge.refreshValue(1, -60);
        EXPECT_TRUE(shown.barAt(-30)) << form;
        EXPECT_FALSE(shown.barAt(-80)) << form;
        EXPECT_FALSE(shown.barAt(60)) << form;
    }
}

TEST(VXLGAUGE, PartsStandWhereTheyAreAsked) {
    ShownLinear shown(130, 300);
    const QColor zone = colourOf(shown.p.integer(LinearBandColour, 1));
    EXPECT_EQ(shown.at(90, 0.79), zone);
    EXPECT_NE(shown.at(70, 0.79), zone);
    EXPECT_EQ(shown.at(90, 0.67), colourOf(shown.p.integer(LinearBandColour, 0))) << "the track";
    EXPECT_EQ(shown.at(30, 0.47), colourOf(shown.p.integer(LinearTicColour, 0)));
    EXPECT_NE(shown.at(33, 0.47), colourOf(shown.p.integer(LinearTicColour, 0)));
    for (int style = 0; style <= int(BandStyle::UserDefined); ++style) {
        shown.p.setNumber(LinearBandStyle, 1, style);
        EXPECT_TRUE(isNearly(shown.at(90, 0.79), zone)) << style;
    }
    shown.gauge.setColour(0x00C864, 0);
    EXPECT_NE(pictureOf(shown.gauge).pixelColor(20, 2), colourOf(0x00C864));
    shown.p.setNumber(LinearOnPage, -1);
    EXPECT_EQ(pictureOf(shown.gauge).pixelColor(20, 2), colourOf(0x00C864)) << "the page behind";
}

TEST(VXLGAUGE, ScalesLeaveRoomForTextAndBulbs) {
    ShownLinear shown(130, 300);
    const auto bottomAndTop = [&] {
        const LinearScale scale = shown.layout().scaleAt(0);
        return std::pair(scale.start, scale.stop);
    };
    const auto [bottom, top] = bottomAndTop();
    shown.p.setText(LinearCaptionText, 0, u"WATER");
    EXPECT_GT(bottomAndTop().second, top) << "a caption above";
    EXPECT_EQ(bottomAndTop().first, bottom);
    shown.p.setNumber(LinearBandStyle, 0, int(BandStyle::Thermometer));
    EXPECT_LT(bottomAndTop().first, bottom) << "a bulb below";
    shown.p.setNumber(LinearScaleStop, 0, 0.5);
    EXPECT_NEAR(bottomAndTop().first, 289, 1.5) << "places of its own, whatever else there is";
    EXPECT_NEAR(bottomAndTop().second, 145, 1.5);
    ShownLinear tiny(14, 14);
    EXPECT_FALSE(pictureOf(tiny.gauge).isNull());
}

TEST(VXLGAUGE, TextsStayInsideFromTopToBottom) {
    QFont font;
    font.setPixelSize(20);
    const QFontMetricsF metrics(font);
    const double half = metrics.capHeight() / 2;
    const QRectF room(10, 100, 200, 80);
    EXPECT_EQ(linearTextPlace(room, 0.25, 0.5, font), QPointF(60, 140));
    for (const double share : {-3.0, 0.0, 0.05})
        EXPECT_GE(linearTextPlace(room, 0, share, font).y() - half, room.top()) << share;
    for (const double share : {0.95, 1.0, 3.0})
        EXPECT_LE(linearTextPlace(room, 0, share, font).y() + half + metrics.descent(), room.bottom())
            << share;
    EXPECT_GE(linearTextPlace({0, 0, 50, 4}, 0, 0.5, font).y(), 0) << "no room for it at all";
}

TEST(VXLGAUGE, ValuesGoToThePointerOfTheirPin) {
    const struct {
        int pointers;
        int pin;
        int section; ///< -1: none
    } cases[] = {{1, 1, 0}, {1, 7, -1}, {3, 1, 1}, {3, 3, 0}, {3, 5, -1}, {0, 1, -1}};
    for (const auto& c : cases) {
        VXLGAUGE gauge(nullptr);
        PropertyStore& p = gauge.inCTRL().properties();
        p.setNumber(LinearPointers, c.pointers);
        EXPECT_EQ(gauge.pinCount(), c.pointers);
        gauge.refreshValue(std::int16_t(c.pin), 12.5F);
        for (int i = 0; i < c.pointers; ++i)
            EXPECT_EQ(p.number(LinearPointerValue, i), i == c.section ? 12.5 : 0) << c.pin;
    }
}

TEST(VXLGAUGE, MovingPointersLeaveNoTrace) {
    for (int form = 0; form <= int(BandStyle::Tank); ++form) {
        ShownLinear shown(160, 300);
        PropertyStore& p = shown.p;
        p.setNumber(LinearPointers, 4);
        for (int i = 1; i < 4; ++i) p.setNumber(LinearPointerStyle, i, i);
        p.setNumber(LinearBarForm, 0, form);
        p.setNumber(LinearPointerFromBase, 0, form % 2 == 0 ? 0 : -1);
        p.setNumber(LinearPointerBase, 0, 50);
        p.setNumber(LinearPointerNumber, 0, -1);
        shown.gauge.mode(false);
        shown.gauge.show();
        QTest::qWait(20);
        for (const float value :
             {3.0F, 97.0F, 40.0F, 41.0F, 250.0F, std::numeric_limits<float>::quiet_NaN()}) {
            for (int pin = 1; pin <= 4; ++pin)
                shown.gauge.refreshValue(std::int16_t(pin), pin % 2 == 0 ? value : 100 - value);
            expectNoTrace(shown.gauge, value);
        }
    }
}

TEST(VXLGAUGE, BarsLeaveNoTraceAtTheStartOfTheirScale) {
    for (int form = 0; form <= int(BandStyle::Tank); ++form)
        for (int backward = 0; backward <= 1; ++backward) {
            ShownLinear shown(160, 300);
            shown.p.setNumber(LinearScaleMin, 40);
            shown.p.setNumber(LinearBarForm, form);
            shown.p.setNumber(LinearDirection, backward);
            shown.gauge.mode(false);
            shown.gauge.show();
            QTest::qWait(20);
            for (const float value : {45.0F, 40.0F, 0.0F, 55.0F}) {
                shown.gauge.refreshValue(1, value);
                expectNoTrace(shown.gauge, value);
            }
        }
}

} // namespace
} // namespace vistor
