#include "instruments/displays/NumLedDisplay.h"

#include "instruments/Colours.h"
#include "instruments/InstrumentKinds.h"
#include "instruments/VXALPHANUME.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr int kLit = 0x2EB4FF;

/// How many pixels of a part have a colour.
int pixelsOf(const QImage& picture, const QColor& colour, const QRect& part) {
    int found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) found += picture.pixelColor(x, y) == colour ? 1 : 0;
    return found;
}

int litPixels(NumLedDisplay& display, const QRect& part) {
    return pixelsOf(display.grab().toImage(), colourOf(kLit), part);
}

TEST(NumLedDisplay, LitSegmentsFollowTheValue) {
    for (const QSize size : {QSize(200, 60), QSize(800, 240)}) {
        NumLedDisplay display;
        display.resize(size);
        PropertyStore& p = display.properties();
        p.setNumber(NumLedDecimals, 0);
        const QRect all = display.rect();
        const QRect lastDigits(size.width() / 2, 0, size.width() / 2, size.height());
        p.setNumber(NumLedValue, 1);
        const int one = litPixels(display, all);
        p.setNumber(NumLedValue, 8);
        const int eight = litPixels(display, all);
        p.setNumber(NumLedValue, 888888);
        const int eights = litPixels(display, all);
        EXPECT_GT(one, 0) << size.width();
        EXPECT_GT(eight, 2 * one) << size.width();
        EXPECT_NEAR(eights, 6 * eight, eight / 10) << "every digit comes from the same picture";
        p.setNumber(NumLedValue, 8);
        EXPECT_EQ(litPixels(display, lastDigits), eight) << "numbers stand on the right";
        p.setNumber(NumLedAlignment, 0);
        EXPECT_EQ(litPixels(display, lastDigits), 0);
    }
}

TEST(NumLedDisplay, CoversItsWholeRectangle) {
    for (const QSize size : {QSize(1, 1), QSize(7, 300), QSize(300, 7), QSize(200, 60)}) {
        NumLedDisplay display;
        display.resize(size);
        PropertyStore& p = display.properties();
        p.setNumber(NumLedShading, 0);
        p.setNumber(NumLedBorder, 0);
        p.setNumber(NumLedShowUnlit, 0);
        p.setNumber(NumLedDisplayMode, kAlphaNumericMode);
        EXPECT_EQ(pixelsOf(display.grab().toImage(), colourOf(p.integer(NumLedBackColour)), display.rect()),
                  size.width() * size.height());
    }
}

TEST(NumLedDisplay, StaticPictureFollowsPropertiesAndRatio) {
    NumLedDisplay display;
    display.resize(200, 60);
    display.grab();
    display.properties().setNumber(NumLedLitColour, 0x00FF00);
    display.properties().setNumber(NumLedValue, 88);
    EXPECT_GT(pixelsOf(display.grab().toImage(), QColor(Qt::green), display.rect()), 0);
    QImage sharp(400, 120, QImage::Format_RGB32);
    sharp.setDevicePixelRatio(2);
    display.render(&sharp);
    EXPECT_GT(pixelsOf(sharp, QColor(Qt::green), QRect(0, 0, 400, 120)), 0);
}

/// Counts the paints that a display really makes.
class PaintCounter final : public QObject {
public:
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST(NumLedDisplay, ManyUpdatesCostOnePaint) {
    VXALPHANUME readout(nullptr);
    readout.show();
    QTest::qWait(20);
    PaintCounter counter;
    readout.inCTRL().installEventFilter(&counter);
    for (int i = 0; i < 100; ++i) readout.refreshValue(1, float(i));
    EXPECT_EQ(counter.paints, 0) << "a repaint is asked for, not forced";
    QTest::qWait(20);
    EXPECT_EQ(counter.paints, 1);
    readout.refreshValue(1, 99);
    QTest::qWait(20);
    EXPECT_EQ(counter.paints, 1) << "the same value again needs none";
}

TEST(VXALPHANUME, WritesValueAndTextAsTheModeAsks) {
    DecimalSeparator = QStringLiteral(",");
    VXALPHANUME readout(nullptr);
    PropertyStore& p = readout.inCTRL().properties();
    p.setNumber(NumLedDecimals, 3);
    p.setText(NumLedText, u"before");
    readout.refreshValue(1, 12.34567F);
    EXPECT_FLOAT_EQ(float(p.number(NumLedValue)), 12.346F);
    EXPECT_EQ(p.text(NumLedText), "before") << "numeric mode writes no text";
    p.setNumber(NumLedDisplayMode, kAlphaNumericMode);
    readout.refreshValue(9, 12.5F);
    EXPECT_EQ(p.text(NumLedText), "12.500") << "the display never sees the comma";
    readout.refreshValue(1, 7);
    EXPECT_EQ(p.number(NumLedValue), 7);
    EXPECT_EQ(p.text(NumLedText), "12.500") << "a whole number leaves the text";
}

} // namespace
} // namespace vistor
