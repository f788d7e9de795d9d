// The table from variables to instruments. In: the pin tables of all instruments, once at each start of play
// mode. Out: each updated variable's value to the instruments that are bound to it and stand on the page in
// front.
#pragma once

#include "dashboard/InstrumentArrays.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace vistor {

struct SubscriptionEntry {
    std::int16_t Tab; ///< number of the page at the rebuild
    std::shared_ptr<vistor::Instrument> Instrument;
    std::int16_t Pin;  ///< from 1
    std::uint8_t Axis; ///< of a graph, 0 or 1: the column of its pin table; else 0
};

struct SubscriptionRow {
    std::int16_t Count = 0;
    std::vector<SubscriptionEntry> Entries;
};

/// Row n belongs to variable n + 1. There is always at least one row.
using SubscriptionTable = std::vector<SubscriptionRow>;

/// A snapshot of all bindings that move something: pins beyond the needles, tracks ... of an instrument are
/// left out. Graphs forget their points, the templates too.
SubscriptionTable subscriptionsOf(const InstrumentArrays& instruments);

/// Hands a value to every instrument on page `tab` that is bound to the variable of that name. An instrument
/// that fails does not keep it from the others.
void dispatchValue(const SubscriptionTable& table, int tab, const QString& name, float value);

} // namespace vistor
