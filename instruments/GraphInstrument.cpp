#include "instruments/GraphInstrument.h"

#include "instruments/displays/StripDisplay.h"

#include <charconv>
#include <cmath>

namespace vistor {
namespace {

enum Column { ColumnX, ColumnY, ColumnLatestX, ColumnLatestY, ColumnNewX, ColumnNewY };

/// The number that the text of a value stands for: 0.1 and not the nearest 32-bit number to it.
double numberAsWritten(float value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value);
    double number = value;
    std::from_chars(text, end.ptr, number);
    return number;
}

QString waitingText(bool waiting) {
    return waiting ? QStringLiteral("-1") : QStringLiteral("0");
}

} // namespace

GraphInstrument::GraphInstrument(Kind kind, StripDisplay* display, QWidget* parent)
    : Instrument(kind, display, parent) {
    GraphInstrument::UserControl_Initialize();
}

StripDisplay& GraphInstrument::strip() {
    return static_cast<StripDisplay&>(inCTRL());
}

const StripDisplay& GraphInstrument::strip() const {
    return static_cast<const StripDisplay&>(inCTRL());
}

void GraphInstrument::UserControl_Initialize() {
    Instrument::UserControl_Initialize();
    inCTRL().properties().setNumber(StripTraceCount, 1);
    forgetValues();
}

PinTable GraphInstrument::curVarTable() const {
    PinTable table = Instrument::curVarTable();
    for (int row = 1; row <= table.upperBound(); ++row) {
        const Track& track = m_tracks[static_cast<std::size_t>(row)];
        if (track.x.known) table.set(row, textOfNumber(track.x.value, true), ColumnLatestX);
        if (track.y.known) table.set(row, textOfNumber(track.y.value, true), ColumnLatestY);
        table.set(row, waitingText(track.x.waiting), ColumnNewX);
        table.set(row, waitingText(track.y.waiting), ColumnNewY);
    }
    return table;
}

void GraphInstrument::refreshValue(std::int16_t pin, std::uint8_t axis, float value) {
    if (pin < 1 || static_cast<std::size_t>(pin) >= m_tracks.size()) return;
    Track& track = m_tracks[static_cast<std::size_t>(pin)];
    (axis == 0 ? track.x : track.y) = {value, true, true};
    if (!track.x.waiting || !track.y.waiting) return;
    track.x.waiting = track.y.waiting = false;
    if (!hasPin(pin)) return;                                                   // its track was removed
    if (!std::isfinite(track.x.value) || !std::isfinite(track.y.value)) return; // no place on any axis
    const double x = numberAsWritten(track.x.value);
    const double y = numberAsWritten(track.y.value);
    strip().addPoint(pin - 1, x, y);
    followPoint(x, y);
    inCTRL().call(kStripRedraw);
}

void GraphInstrument::ClearCurrentData() {
    forgetHalves();
    strip().clearPoints();
}

void GraphInstrument::interruptData() {
    forgetHalves();
    strip().interrupt();
}

void GraphInstrument::Deserialise(const QStringList& list) {
    Instrument::Deserialise(list);
    forgetValues();
}

PinTable GraphInstrument::AssignPin(int pin, std::uint8_t axis, const QString& name) {
    if (pin >= 1 && static_cast<std::size_t>(pin) < m_tracks.size()) {
        Track& track = m_tracks[static_cast<std::size_t>(pin)];
        (axis == 0 ? track.x : track.y).waiting = false; // what waited was another variable's
    }
    Instrument::AssignPin(pin, axis, name);
    return curVarTable();
}

PinTable GraphInstrument::RemovePin(int pin, std::uint8_t axis) {
    Instrument::RemovePin(pin, axis);
    return curVarTable();
}

void GraphInstrument::pinsChanged() {
    const PinTable table = Instrument::curVarTable();
    m_tracks.resize(static_cast<std::size_t>(table.upperBound()) + 1);
    nameTraces(table);
}

void GraphInstrument::forgetValues() {
    m_tracks.clear();
    pinsChanged();
}

/// A half that waits would make a point with one of another time.
void GraphInstrument::forgetHalves() {
    for (Track& track : m_tracks) track.x.waiting = track.y.waiting = false;
}

void GraphInstrument::nameTraces(const PinTable& table) {
    QStringList names;
    for (int row = 1; row <= table.upperBound(); ++row) names << trackName(table, row);
    strip().setTraceNames(names);
}

QString GraphInstrument::trackName(const PinTable& table, int track) const {
    return table.at(track, ColumnY);
}

void GraphInstrument::showX(double origin) {
    inCTRL().properties().setNumber(StripOrigin, origin);
    strip().tellVisible();
}

void GraphInstrument::showX(double origin, double length) {
    inCTRL().properties().setNumber(StripLength, length);
    showX(origin);
}

void GraphInstrument::showConfigured(bool openSheet) {
    showX(inCTRL().properties().number(StripOrigin));
    inCTRL().redraw();
    if (openSheet) inCTRL().openPropertySheet();
}

void GraphInstrument::scaleYToPoints() {
    PropertyStore& p = inCTRL().properties();
    p.setNumber(StripMaximumY, strip().highestY(0));
    p.setNumber(StripMinimumY, strip().lowestY(0));
}

} // namespace vistor
