#include "dashboard/Subscriptions.h"

#include "dashboard/Page.h"
#include "instruments/Instrument.h"
#include "variables/SetupVariables.h"

#include <limits>

namespace vistor {
namespace {

bool isGraph(Kind kind) {
    return kind == Kind::TimeGraph || kind == Kind::XYGraph;
}

void addEntry(SubscriptionTable& table, const InstrumentElement& element, const QString& name, int pin,
              int axis) {
    // Row 0 of the variables belongs to no variable; an empty name on a pin may land there.
    const int variable = FindVariableByPhysicalName(name);
    const Page* page = pageOf(*element.instrument);
    if (variable < 1 || !page || pin > std::numeric_limits<std::int16_t>::max()) return;
    const auto row = static_cast<std::size_t>(variable - 1);
    if (table.size() <= row) table.resize(row + 1);
    SubscriptionRow& subscribed = table[row];
    if (subscribed.Count == std::numeric_limits<std::int16_t>::max()) return;
    subscribed.Entries.push_back({static_cast<std::int16_t>(page->number()), element.instrument,
                                  static_cast<std::int16_t>(pin), static_cast<std::uint8_t>(axis)});
    ++subscribed.Count;
}

void addColumn(SubscriptionTable& table, const InstrumentElement& element, const PinTable& pins, int column) {
    if (pins.count(column) == 0) return;
    for (int pin = 1; pin <= pins.upperBound(); ++pin)
        if (element.instrument->hasPin(pin)) addEntry(table, element, pins.at(pin, column), pin, column);
}

void hand(const SubscriptionEntry& entry, float value) {
    try {
        if (isGraph(entry.Instrument->kind()))
            entry.Instrument->refreshValue(entry.Pin, entry.Axis, value);
        else
            entry.Instrument->refreshValue(entry.Pin, value);
    } catch (...) {
        // One faulty instrument must not stop the tick.
    }
}

} // namespace

SubscriptionTable subscriptionsOf(const InstrumentArrays& instruments) {
    SubscriptionTable table(1);
    for (const InstrumentElement& element : instruments.all()) {
        if (element.kind == Kind::TextTag) continue;
        if (isGraph(element.kind)) element.instrument->ClearCurrentData();
        if (element.number == 0) continue;
        const PinTable pins = element.instrument->curVarTable();
        addColumn(table, element, pins, 0);
        if (isGraph(element.kind)) addColumn(table, element, pins, 1);
    }
    return table;
}

void dispatchValue(const SubscriptionTable& table, int tab, const QString& name, float value) {
    const int variable = FindVariableByPhysicalName(name);
    if (variable < 1 || static_cast<std::size_t>(variable) > table.size()) return;
    for (const SubscriptionEntry& entry : table[static_cast<std::size_t>(variable - 1)].Entries) {
        if (entry.Tab == tab) hand(entry, value);
    }
}

} // namespace vistor
