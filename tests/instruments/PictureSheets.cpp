// Pictures of every kind at every size to be looked at by a person; no test. VISTOR_SHEETS names the folder:
//   VISTOR_SHEETS=/some/folder vistor_tests --gtest_also_run_disabled_tests --gtest_filter='*PictureSheets*'
// QT_SCALE_FACTOR=2 before it shows them for a screen of that ratio.
#include "instruments/Instrument.h"
#include "instruments/displays/AngularGaugeProperties.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/LinearGaugeProperties.h"
#include "instruments/displays/NumLedDisplay.h"
#include "instruments/displays/PercentProperties.h"
#include "instruments/displays/StripTable.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr QSize kSizes[] = {{40, 30},  {60, 60},   {60, 200},  {100, 40},  {120, 90},  {160, 120},
                            {90, 300}, {300, 100}, {240, 180}, {400, 300}, {800, 450}, {1600, 900}};
constexpr int kSheetWidth = 1640;

void feed(Instrument& instrument, int many) {
    for (int i = 0; i < many; ++i) {
        const double t = i * 0.05;
        for (std::int16_t pin = 1; pin <= 3; ++pin) {
            const double wave = 50 + 45 * std::sin(t * (0.6 + 0.3 * pin)) + (i % 97 == 0 ? 30 : 0);
            const bool xy = instrument.kind() == Kind::XYGraph;
            instrument.refreshValue(pin, 0, static_cast<float>(xy ? 50 + 40 * std::cos(t + pin) : t));
            instrument.refreshValue(pin, 1, static_cast<float>(wave));
        }
        if (i == many / 2) instrument.interruptData();
    }
}

void setUp(Instrument& instrument, int variant) {
    PropertyStore& p = instrument.inCTRL().properties();
    const bool graph = instrument.kind() == Kind::TimeGraph || instrument.kind() == Kind::XYGraph;
    for (int pin = 1; pin <= (graph ? 3 : 1); ++pin)
        for (const auto axis : {std::uint8_t{0}, std::uint8_t{1}})
            instrument.AssignPin(pin, axis, QStringLiteral("EngineSpeed"));
    if (graph) {
        p.setNumber(StripTraceCount, 3);
        p.setNumber(StripLength, instrument.kind() == Kind::XYGraph ? 100 : 20);
        if (variant == 1) {
            p.setNumber(StripLineCount, 3);
            for (int i = 0; i < 3; ++i) p.setNumber(StripLineStyle, i, i + 1);
        }
        return feed(instrument, 1200);
    }
    const bool wide = variant == 1;
    switch (instrument.kind()) {
    case Kind::LinearGauge:
        p.setNumber(LinearPointerNumber, 0, -1);
        if (wide) p.setNumber(LinearOnPage, -1);
        if (wide) p.setNumber(LinearScaleMin, 0, -12000);
        if (wide) p.setNumber(LinearScaleMax, 0, 12000);
        break;
    case Kind::AngularGauge:
        if (wide) p.setNumber(GaugeFace, 0);
        if (wide) p.setNumber(TicStartValue, 0, -12000);
        if (wide) p.setNumber(TicStopValue, 0, 12000);
        break;
    case Kind::PercentageBar:
        if (wide) p.setNumber(PercentDisplayMode, 1);
        if (wide) p.setNumber(PortionText, 0, int(PortionTextForm::Value));
        break;
    case Kind::Alphanumeric:
        p.setText(NumLedUnit, u"km/h");
        break;
    default:
        break;
    }
    instrument.refreshValue(1, wide ? -9876.5F : 64.25F);
}

TEST(DISABLED_PictureSheets, Write) {
    const QString folder = qEnvironmentVariable("VISTOR_SHEETS");
    ASSERT_FALSE(folder.isEmpty());
    for (const KindInfo& info : kInstrumentKinds)
        for (const bool light : {false, true})
            for (const int variant : {0, 1}) {
                QImage sheet(kSheetWidth, 2000, QImage::Format_RGB32);
                sheet.fill(light ? QColor(0xF4, 0xF4, 0xF0) : QColor(0x18, 0x1A, 0x1E));
                QPainter painter(&sheet);
                QPoint place(10, 10);
                int deepest = 0;
                for (const QSize& size : kSizes) {
                    const auto instrument = makeInstrument(info.kind, nullptr);
                    instrument->setColour(light ? 0xF0F4F4 : 0x1E1A18, light ? 0 : 0xFFFFFF);
                    InnerDisplay& display = instrument->inCTRL();
                    display.resize(size);
                    setUp(*instrument, variant);
                    const double ratio = display.devicePixelRatioF();
                    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
                    image.setDevicePixelRatio(ratio);
                    display.render(&image);
                    image.setDevicePixelRatio(1);
                    if (place.x() + image.width() > kSheetWidth) place = {10, deepest + 10};
                    painter.drawImage(place, image);
                    deepest = std::max(deepest, place.y() + image.height());
                    place.rx() += image.width() + 10;
                }
                painter.end();
                sheet.copy(0, 0, kSheetWidth, std::min(deepest + 10, sheet.height()))
                    .save(folder + QStringLiteral("/%1-%2-%3.png")
                                       .arg(QLatin1String(info.className))
                                       .arg(light ? QStringLiteral("light") : QStringLiteral("dark"))
                                       .arg(variant));
            }
}

} // namespace
} // namespace vistor
