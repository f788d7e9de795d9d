#include "instruments/VXLED.h"

#include "instruments/Colours.h"
#include "instruments/displays/LedDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QImage>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

TEST(LedRows, LampsAreLitByValueOrByBits) {
    const struct {
        LampValue value;
        const char* lit; ///< lamps 1 to 9
    } cases[] = {
        {{LedModeForm::LedValue, 0, 1}, "........."},
        {{LedModeForm::LedValue, 3, 1}, "###......"},
        {{LedModeForm::LedValue, 99, 1}, "#########"},
        {{LedModeForm::LedValue, -4, 1}, "........."},
        {{LedModeForm::LedValue, 2999, 1000}, "##......."},
        {{LedModeForm::LedValue, std::numeric_limits<std::int32_t>::min(), 32767}, "........."},
        {{LedModeForm::Bitwise, 0, 1}, "........."},
        {{LedModeForm::Bitwise, 165, 1}, "#.#..#.#."},
        {{LedModeForm::Bitwise, -1, 1}, "#########"},
        {{LedModeForm::Bitwise, -2, 1}, ".########"},
    };
    for (const auto& c : cases) {
        std::string lit;
        for (int lamp = 1; lamp <= 9; ++lamp) lit += lampIsLit(c.value, lamp) ? '#' : '.';
        EXPECT_EQ(lit, c.lit) << c.value.value;
    }
    EXPECT_TRUE(lampIsLit({LedModeForm::Bitwise, -1, 1}, 32));
    EXPECT_FALSE(lampIsLit({LedModeForm::Bitwise, -1, 1}, 33)) << "a value has no more bits";
}

TEST(LedRows, RowsStandInTheMiddleOfTheirRoom) {
    const QRectF room(10, 20, 200, 100);
    const struct {
        const char* name;
        std::vector<LedRowStyle> rows;
        std::size_t row;
        int lamp;
        QRectF place;
    } cases[] = {
        {"as told", {{4, {20, 10}, 5, false, false, LedSizing::AsTold}}, 0, 0, {62.5, 65, 20, 10}},
        {"to the right", {{4, {20, 10}, 5, false, false, LedSizing::AsTold}}, 0, 3, {137.5, 65, 20, 10}},
        {"backward", {{4, {20, 10}, 5, false, true, LedSizing::AsTold}}, 0, 0, {137.5, 65, 20, 10}},
        {"filling the width", {{4, {20, 10}, 0, false, false, LedSizing::Lamps}}, 0, 1, {60, 57.5, 50, 25}},
        {"filling the height", {{1, {10, 10}, 0, false, false, LedSizing::Lamps}}, 0, 0, {60, 20, 100, 100}},
        {"a column from its foot", {{2, {10, 10}, 0, true, false, LedSizing::Lamps}}, 0, 0, {85, 70, 50, 50}},
        {"a column from its head", {{2, {10, 10}, 0, true, true, LedSizing::Lamps}}, 0, 0, {85, 20, 50, 50}},
        {"the second row",
         {{2, {10, 10}, 5, false, false, LedSizing::AsTold},
          {1, {10, 20}, 0, false, false, LedSizing::AsTold}},
         1,
         0,
         {105, 67.5, 10, 20}},
        {"larger than the room",
         {{1, {400, 400}, 0, false, false, LedSizing::AsTold}},
         0,
         0,
         {-90, -130, 400, 400}},
    };
    for (const auto& c : cases) {
        const auto places = ledPlaces(c.rows, room);
        ASSERT_EQ(places.size(), c.rows.size());
        EXPECT_EQ(places[c.row].at(c.lamp), c.place) << c.name;
    }
    EXPECT_TRUE(ledPlaces({}, room).empty());
}

TEST(LedRows, StatesAndNumbersRunThroughTheRows) {
    PropertyStore p(kLedTable);
    for (const auto& [lamp, state] : {std::pair(1, 0), {5, 0}, {6, 1}, {7, 1}, {8, 2}, {100, 2}, {0, 0}})
        EXPECT_EQ(lampState(p, lamp), state) << lamp;
    p.setNumber(LedStateFrom, 0, 50);
    EXPECT_EQ(lampState(p, 1), 0) << "what no state claims shows the first";
    p.setNumber(LedStates, 0);
    EXPECT_EQ(lampState(p, 1), -1);
    p.setNumber(LedRows, 3);
    p.setNumber(LedLamps, 0, 4);
    EXPECT_EQ(firstLamp(p, 1), 5);
    EXPECT_EQ(firstLamp(p, 2), 13);
    p.setNumber(LedFirst, 1, 100);
    EXPECT_EQ(firstLamp(p, 1), 100);
    EXPECT_EQ(firstLamp(p, 2), 108);
    p.setNumber(LedValue, 0, 7);
    EXPECT_EQ(lampValue(p, 2).value, 7) << "all rows show the one value";
    p.setNumber(LedOwnValue, 2, -1);
    EXPECT_EQ(lampValue(p, 2).value, 0);
}

/// The lamps as they are seen: a lit one has a bright middle.
std::string seenLamps(VXLED& led, std::size_t row = 0) {
    const auto* display = static_cast<LedDisplay*>(&led.inCTRL());
    const QImage picture = led.inCTRL().grab().toImage();
    std::string seen;
    for (int i = 0; i < led.inCTRL().properties().integer(LedLamps, int(row)); ++i) {
        const QPoint middle = display->places()[row].at(i).center().toPoint();
        seen += picture.pixelColor(middle).value() > 150 ? '#' : '.';
    }
    return seen;
}

TEST(VXLED, ShowsWhatItsValueLights) {
    for (const int width : {100, 240, 800}) {
        VXLED led(nullptr);
        PropertyStore& p = led.inCTRL().properties();
        led.setSizeTwips(width * 15, width * 6);
        for (const auto& [value, seen] : {std::pair(0.0F, "........"),
                                          {3.4F, "###....."},
                                          {7.6F, "########"},
                                          {-3.0F, "........"},
                                          {1e30F, "########"},
                                          {-1e30F, "........"}}) {
            led.refreshValue(9, value);
            EXPECT_EQ(seenLamps(led), seen) << width << ": " << value;
        }
        led.refreshValue(1, 2);
        led.refreshValue(1, std::numeric_limits<float>::quiet_NaN());
        EXPECT_EQ(seenLamps(led), "##......") << "what is no number changes nothing";
        p.setNumber(LedMode, 1);
        p.setNumber(LedRows, 2);
        p.setNumber(LedMode, 1, 1);
        led.refreshValue(1, 0x0405);
        EXPECT_EQ(seenLamps(led, 0), "#.#.....");
        EXPECT_EQ(seenLamps(led, 1), "..#.....");
    }
}

TEST(VXLED, LitLampsTakeTheirStatesColour) {
    VXLED led(nullptr);
    PropertyStore& p = led.inCTRL().properties();
    p.setNumber(LedShading, 0);
    led.refreshValue(1, 8);
    const auto colourAt = [&](int lamp) {
        const QPoint middle = static_cast<LedDisplay&>(led.inCTRL()).places()[0].at(lamp).center().toPoint();
        return led.inCTRL().grab().toImage().pixelColor(middle);
    };
    EXPECT_EQ(colourAt(0), colourOf(p.integer(LedLitColour, 0)));
    EXPECT_EQ(colourAt(5), colourOf(p.integer(LedLitColour, 1)));
    EXPECT_EQ(colourAt(7), colourOf(p.integer(LedLitColour, 2)));
    p.setNumber(LedOneColour, -1);
    EXPECT_EQ(colourAt(0), colourOf(p.integer(LedLitColour, 2)));
    led.refreshValue(1, 6);
    EXPECT_EQ(colourAt(0), colourOf(p.integer(LedLitColour, 1)));
    EXPECT_EQ(colourAt(7), colourOf(p.integer(LedUnlitColour, 2)));
    p.setNumber(LedStates, 0);
    EXPECT_NE(colourAt(0), colourAt(7)) << "without states lamps still light";
}

/// How many pixel rows of the first lamp hold lettering, which is dark on a lit lamp.
int letteringRows(VXLED& led) {
    const QRect lamp =
        static_cast<LedDisplay&>(led.inCTRL()).places()[0].at(0).toRect().adjusted(2, 2, -2, -2);
    const QImage picture = led.inCTRL().grab(lamp).toImage();
    int rows = 0;
    for (int y = 0; y < picture.height(); ++y) {
        bool dark = false;
        for (int x = 0; x < picture.width(); ++x) dark |= picture.pixelColor(x, y).value() < 100;
        rows += dark ? 1 : 0;
    }
    return rows;
}

TEST(VXLED, TextsOfAllLampsHaveTheSizeThatTheLongestCanHave) {
    VXLED led(nullptr);
    led.setSizeTwips(400 * 15, 100 * 15);
    PropertyStore& p = led.inCTRL().properties();
    p.setNumber(LedShading, 0);
    p.setNumber(LedLamps, 2);
    p.setNumber(LedWidth, 80);
    p.setNumber(LedHeight, 40);
    p.setNumber(LedShape, int(LampShape::Rectangle));
    p.setNumber(LedStateFrom, 1, 2);
    p.setText(LedStateText, 0, u"OIL");
    led.refreshValue(1, 1);
    const int large = letteringRows(led);
    EXPECT_GT(large, 15);
    p.setText(LedStateText, 1, u"FUEL PRESSURE LOW");
    EXPECT_LT(letteringRows(led), large * 2 / 3);
    EXPECT_GT(letteringRows(led), 5);
}

TEST(VXLED, PanelTakesTheSizeOfItsLamps) {
    VXLED led(nullptr);
    led.setColour(0x00C864, 0);
    PropertyStore& p = led.inCTRL().properties();
    const auto corner = [&] { return led.inCTRL().grab().toImage().pixelColor(1, 1); };
    EXPECT_NE(corner(), colourOf(0x00C864));
    p.setNumber(LedAutoSize, 1);
    p.setNumber(LedLamps, 2);
    EXPECT_EQ(corner(), colourOf(0x00C864));
    p.setNumber(LedAutoSize, 0);
    EXPECT_NE(corner(), colourOf(0x00C864));
}

TEST(VXLED, ChangedLampsLeaveNoTrace) {
    VXLED led(nullptr);
    led.mode(false);
    led.show();
    QTest::qWait(20);
    for (const float value : {3.0F, 8.0F, 8.0F, 1.0F, 0.0F, 5.0F}) {
        led.refreshValue(1, value);
        QTest::qWait(20);
        const QImage screen = led.screen()->grabWindow(led.winId()).toImage();
        EXPECT_EQ(screen.convertToFormat(QImage::Format_RGB32),
                  led.grab().toImage().convertToFormat(QImage::Format_RGB32))
            << value;
    }
}

TEST(VXLED, FeedsThePropertiesWindow) {
    VXLED led(nullptr);
    led.show();
    PropertyStore& p = led.inCTRL().properties();
    QSignalSpy shown(&led, &Instrument::propertiesShown);
    PropertiesWindowShown = true;
    QTest::mouseMove(led.windowHandle(), QPoint(50, 30));
    for (const LedProperty number : {LedMode, LedDirection, LedOrientation, LedAutoSize})
        p.setNumber(number, 1);
    QTest::mouseMove(led.windowHandle(), QPoint(52, 30));
    for (const LedProperty number : {LedMode, LedDirection, LedOrientation, LedAutoSize})
        p.setNumber(number, 7);
    QTest::mouseMove(led.windowHandle(), QPoint(54, 30));
    ASSERT_EQ(shown.count(), 3);
    EXPECT_EQ(shown.at(0).at(0).toString(), "LED");
    EXPECT_EQ(shown.at(0).at(1).toStringList(), (QStringList{"Mode", "Direction", "Orientation", "Auto Size",
                                                             "LED Width", "LED Height", "LED Seperation"}));
    const QStringList expected[] = {
        {"LEDValue", "Forward", "Horizontal", "SizeLEDs", "22", "22", "6"},
        {"Bitwise", "Backward", "Vertical", "SizeControl", "22", "22", "6"},
        {"LEDValue", "Forward", "Vertical", "SizeLEDs", "22", "22", "6"},
    };
    for (int i = 0; i < 3; ++i) EXPECT_EQ(shown.at(i).at(2).toStringList(), expected[i]) << i;
}

} // namespace
} // namespace vistor
