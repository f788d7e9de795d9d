// No number is ever shown cut: at any size it stands whole in the room it has, smaller, as dashes, or not at
// all.
#include "instruments/Colours.h"
#include "instruments/displays/AngularGaugeDisplay.h"
#include "instruments/displays/AngularGaugeFace.h"
#include "instruments/displays/AngularGaugeLayout.h"
#include "instruments/displays/FittedText.h"
#include "instruments/displays/LinearGaugeDisplay.h"
#include "instruments/displays/LinearGaugeFace.h"
#include "instruments/displays/LinearGaugePointer.h"
#include "instruments/displays/OdometerDrums.h"
#include "instruments/displays/PercentDisplay.h"
#include "instruments/displays/PercentText.h"
#include "instruments/displays/StripDisplay.h"
#include "tests/instruments/RecordedTexts.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr QSize kSizes[] = {{40, 30},  {60, 60},   {60, 200},  {100, 40},  {120, 90},  {160, 120},
                            {90, 300}, {300, 100}, {240, 180}, {400, 300}, {800, 450}, {1600, 900}};

bool isNumber(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar sign) { return sign.isDigit() || sign == u'-'; });
}

/// Answers how many numbers were painted.
int expectWhole(const TextRecorder& recorder, const QSize& size, bool clipped = true) {
    int numbers = 0;
    for (const RecordedText& text : recorder.texts()) {
        if (!isNumber(text.text)) continue;
        ++numbers;
        const QRectF panel{QPointF(), QSizeF(size)};
        const QRectF seen = clipped ? text.clip & panel : panel;
        EXPECT_TRUE(seen.adjusted(-0.6, -0.6, 0.6, 0.6).contains(text.place))
            << text.text.toStdString() << " at " << text.place.left() << ".." << text.place.right() << ", "
            << text.place.top() << ".." << text.place.bottom() << " of " << size.width() << "x"
            << size.height();
    }
    return numbers;
}

TEST(NeverCut, LinearGauge) {
    int labels = 0;
    for (const QSize& size : kSizes)
        for (const auto& [low, high] : {std::pair{0.0, 100.0}, {-12000.0, 12000.0}})
            for (const double value : {-8.8, -123456.75, 1e8}) {
                LinearGaugeDisplay gauge;
                PropertyStore& p = gauge.properties();
                p.setNumber(LinearPointerNumber, 0, -1);
                p.setNumber(LinearScaleMin, 0, low);
                p.setNumber(LinearScaleMax, 0, high);
                p.setNumber(LinearPointerValue, 0, value);
                TextRecorder recorder(size);
                QPainter painter(&recorder);
                const LinearLayout layout = layOutLinearGauge(p, QRectF(QPointF(), size), Qt::black);
                paintLinearFace(painter, p, layout);
                painter.setClipRect(layout.room);
                LinearNumber number(layout.numbers.at(0));
                number.paint(painter, p);
                labels += expectWhole(recorder, size);
                const QString shown = recorder.texts().back().text;
                EXPECT_TRUE(shown.startsWith(u'-') || value > 0) << shown.toStdString();
                EXPECT_TRUE(number.bounds().adjusted(-1, 0, 1, 0).contains(recorder.texts().back().place));
            }
    EXPECT_GT(labels, 300);
}

TEST(NeverCut, AngularGaugeAndItsTics) {
    int labels = 0;
    for (const QSize& size : kSizes)
        for (const auto& [low, high] : {std::pair{0.0, 100.0}, {-12000.0, 12000.0}})
            for (const bool turned : {false, true}) {
                AngularGaugeDisplay gauge;
                PropertyStore& p = gauge.properties();
                p.setNumber(TicStartValue, 0, low);
                p.setNumber(TicStopValue, 0, high);
                p.setNumber(TicLabelsTurned, 0, turned);
                TextRecorder recorder(size);
                QPainter painter(&recorder);
                const DialLayout layout = layOutDial(p, QRectF(QPointF(), size), Qt::black);
                paintFace(painter, p, layout);
                labels += expectWhole(recorder, size);
                const DialPlace dial = layout.scaleAt(0).place;
                const double tics = p.number(TicInnerRadius, 0) * dial.radius;
                for (const RecordedText& text : recorder.texts())
                    for (const QPointF& corner : {text.place.topLeft(), text.place.topRight(),
                                                  text.place.bottomLeft(), text.place.bottomRight()}) {
                        if (turned || !isNumber(text.text)) continue;
                        EXPECT_LT(std::hypot(corner.x() - dial.centre.x(), corner.y() - dial.centre.y()),
                                  tics)
                            << text.text.toStdString() << " " << size.width();
                    }
            }
    EXPECT_GT(labels, 150);
}

TEST(NeverCut, PercentageBar) {
    int texts = 0;
    for (const QSize& size : kSizes)
        for (const int round : {0, 1})
            for (const int vertical : {0, 1})
                for (const double value : {50.0, -7654321.0, 123456789.0}) {
                    PercentDisplay bar;
                    PropertyStore& p = bar.properties();
                    p.setNumber(PercentDisplayMode, round);
                    p.setNumber(PercentOrientation, vertical);
                    p.setNumber(PortionText, 0, int(PortionTextForm::Value));
                    TextRecorder recorder(size);
                    QPainter painter(&recorder);
                    const PercentPlan plan = layOutPercent(p, QRectF(QPointF(), size), Qt::black);
                    const double values[] = {value};
                    PortionSpan spans[1];
                    placePortions(plan.rule, values, spans);
                    paintPercentTexts(painter, plan, values, spans);
                    for (const RecordedText& text : recorder.texts()) {
                        ++texts;
                        if (round == 1) continue;
                        const PercentBar& placed = plan.barOf(0);
                        EXPECT_LE(text.place.width(),
                                  (vertical == 1 ? placed.line.width() : placed.length()) + 1)
                            << text.text.toStdString();
                    }
                    expectWhole(recorder, size,
                                false); // a bar's text is painted in two colours, half by half
                }
    EXPECT_GT(texts, 50);
}

TEST(NeverCut, NumbersBesideAGraphAndAllOfItsLegend) {
    int numbers = 0;
    for (const QSize& size : kSizes)
        for (const double reach : {1.0, 123456.7, 1e-7, 3e12}) {
            StripDisplay strip(kStripTable, true);
            strip.resize(size);
            PropertyStore& p = strip.properties();
            p.setNumber(StripTraceCount, 6);
            p.setNumber(StripOrigin, reach);
            p.setNumber(StripLength, reach * 1.37);
            p.setNumber(StripMinimumY, -reach);
            p.setNumber(StripMaximumY, reach);
            strip.setTraceNames({"EngineSpeed", "Oil", "GroundSpeed", "WheelSpeedFrontLeft", "T", "Last"});
            TextRecorder recorder(size);
            QPainter painter(&recorder);
            strip.paintTexts(painter);
            numbers += expectWhole(recorder, size);
            if (strip.layoutNow().legend.isEmpty()) continue;
            const QString last = recorder.texts().back().text;
            EXPECT_TRUE(last == "Last" || last.endsWith(u'\u2026') || last.isEmpty()) << last.toStdString();
        }
    EXPECT_GT(numbers, 200);
}

TEST(NeverCut, ANumberShrinksThenGivesWayToDashes) {
    QFont font;
    font.setPixelSize(20);
    const double whole = QFontMetricsF(font).horizontalAdvance(QStringLiteral("-123456"));
    const struct {
        double room;
        const char* text;
    } cases[] = {{whole, "-123456"}, {whole * 0.6, "-123456"}, {whole * 0.2, "---"}, {6, "-"}, {0, ""}};
    for (const auto& c : cases) {
        const FittedText fitted = fittedNumber(font, QStringLiteral("-123456"), c.room);
        EXPECT_EQ(fitted.text, c.text) << c.room;
        EXPECT_LE(QFontMetricsF(fitted.font).horizontalAdvance(fitted.text), c.room + 1e-9);
    }
}

TEST(NeverCut, AnOdometerBelowItsLastNumber) {
    const DrumRow row = drumRow(-123456, {.digits = 6, .decimals = 0, .leadingZeros = true});
    for (int i = 0; i < row.count; ++i)
        EXPECT_EQ(row.drums[static_cast<std::size_t>(i)].face, Drum::Face::Minus) << i;
    EXPECT_EQ(drumRow(-99999, {.digits = 6}).drums[1].position, 9);
}

TEST(NeverCut, TextsAreReadableOnWhateverTheyStandOn) {
    for (const QColor ground : {QColor(0xF8, 0xF8, 0xF4), QColor(0x10, 0x12, 0x16), QColor(0x80, 0x80, 0x80)})
        for (const QColor wanted : {QColor(0xF0, 0xEC, 0xE8), QColor(Qt::black), QColor(0x84, 0x80, 0x7C)})
            EXPECT_GT(std::abs(brightness(legibleOn(wanted, ground)) - brightness(ground)), 69);
    LinearGaugeDisplay gauge;
    PropertyStore& p = gauge.properties();
    p.setNumber(LinearOnPage, -1);
    const QColor page(0xF8, 0xF8, 0xF4);
    TextRecorder recorder({160, 300});
    QPainter painter(&recorder);
    paintLinearFace(painter, p, layOutLinearGauge(p, QRectF(0, 0, 160, 300), page));
    ASSERT_FALSE(recorder.texts().empty());
    for (const RecordedText& text : recorder.texts()) EXPECT_LT(brightness(text.colour), 180);
}

} // namespace
} // namespace vistor
