#include "dashboard/DemoPage.h"

#include "dashboard/Twips.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/NumLedDisplay.h"

namespace vistor {
namespace {

constexpr std::int32_t kGround = 0x201B17; ///< 0x00BBGGRR
constexpr std::int32_t kLabel = 0xD8D2CC;
constexpr std::int32_t kEngine = 0x46C8FF;
constexpr std::int32_t kFluids = 0x6EE06E;
constexpr std::int32_t kLaps = 0xFFD27A;
constexpr std::int32_t kChassis = 0xF0F0F0;

struct Readout {
    const char* variable; ///< PhysicalName
    const char* caption;
    const char* unit;
    int digits;
    int decimals;
    std::int32_t colour;
};

/// Row by row.
constexpr Readout kReadouts[] = {
    {"EngineSpeed", "ENGINE", "rpm", 5, 0, kEngine},
    {"VehicleSpeed", "SPEED", "km/h", 5, 1, kEngine},
    {"Gear", "GEAR", "", 2, 0, kEngine},
    {"Throttle", "THROTTLE", "%", 5, 1, kEngine},
    {"CoolantTemp", "COOLANT", "°C", 5, 1, kFluids},
    {"OilTemp", "OIL TEMPERATURE", "°C", 5, 1, kFluids},
    {"OilPressure", "OIL PRESSURE", "bar", 5, 2, kFluids},
    {"FuelPressure", "FUEL PRESSURE", "bar", 5, 2, kFluids},
    {"LapNumber", "LAP", "", 3, 0, kLaps},
    {"LapTime", "LAP TIME", "s", 6, 2, kLaps},
    {"LastLapTime", "LAST LAP", "s", 6, 2, kLaps},
    {"BestLapTime", "BEST LAP", "s", 6, 2, kLaps},
    {"LateralG", "LATERAL", "g", 5, 2, kChassis},
    {"BrakePressureFront", "FRONT BRAKES", "bar", 5, 1, kChassis},
    {"Lambda", "LAMBDA", "", 5, 3, kChassis},
    {"BatteryVoltage", "BATTERY", "V", 5, 2, kChassis},
};

constexpr int kColumns = 4;
constexpr int kRowCount = static_cast<int>(std::size(kReadouts)) / kColumns;
constexpr int kMargin = 8; ///< pixels, around the page and between readouts
constexpr QSize kSmallest(160, 80);
constexpr QSize kLargest(420, 210);

/// As large as the page lets all of them be, within what looks well.
QSize readoutSize(const QSize& page) {
    const QSize room((page.width() - kMargin) / kColumns - kMargin,
                     (page.height() - kMargin) / kRowCount - kMargin);
    return room.expandedTo(kSmallest).boundedTo(kLargest);
}

void dress(Instrument& instrument, const Readout& readout) {
    PropertyStore draft = instrument.inCTRL().properties();
    draft.setNumber(NumLedDigits, readout.digits);
    draft.setNumber(NumLedDecimals, readout.decimals);
    draft.setNumber(NumLedFixedDecimals, -1);
    draft.setNumber(NumLedLitColour, readout.colour);
    draft.setNumber(NumLedShowCaption, -1);
    draft.setText(NumLedCaption, QString::fromUtf8(readout.caption));
    draft.setText(NumLedUnit, QString::fromUtf8(readout.unit));
    instrument.inCTRL().setProperties(draft);
}

void addReadout(frmInterface& dashboard, const Readout& readout, int column, int row) {
    Page* page = dashboard.pic.front();
    Instrument* added = dashboard.addInstrument(Kind::Alphanumeric, page);
    if (!added) return;
    const QSize size = readoutSize(page->size());
    dress(*added, readout);
    added->AssignPin(1, QLatin1String(readout.variable));
    added->move(kMargin + column * (size.width() + kMargin), kMargin + row * (size.height() + kMargin));
    added->setSizeTwips(toTwips(size.width()), toTwips(size.height()));
    added->show();
}

} // namespace

void buildDemoPage(frmInterface& dashboard) {
    dashboard.setCurBackColour(kGround, kLabel);
    dashboard.mainTab->TabCaption(0, QStringLiteral("Car"));
    for (int row = 0; row < kRowCount; ++row) {
        for (int column = 0; column < kColumns; ++column)
            addReadout(dashboard, kReadouts[row * kColumns + column], column, row);
    }
    dashboard.ProfileChanged = false;
}

QString demoValues(const frmInterface& dashboard) {
    QStringList values;
    for (const InstrumentElement& element : dashboard.instruments.all()) {
        if (element.number == 0 || element.kind != Kind::Alphanumeric) continue;
        const PropertyStore& properties = element.instrument->inCTRL().properties();
        values += element.instrument->curVarTable().at(1) + u'=' +
                  QString::number(properties.number(NumLedValue), 'f',
                                  static_cast<int>(properties.number(NumLedDecimals)));
    }
    return values.join(u' ');
}

} // namespace vistor
