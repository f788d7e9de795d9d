// What a person is shown before choosing a pin: the pins of an instrument and what stands on them. In: a pin
// table. Out: rows of text.
#pragma once

#include "instruments/PinTable.h"

#include <cstdint>
#include <vector>

namespace vistor {

class Instrument;

/// A variable that was dropped on an instrument of several pins.
struct PinQuestion {
    QString pinLabel; ///< what a pin is called
    int pins = 0;     ///< how many there are to choose from
    Instrument* VXControl = nullptr;
    QString className;
    QString name; ///< PhysicalName of the variable
    PinTable table;
};

struct PinRow {
    int pin = 0;
    std::uint8_t axis = 0; ///< of a graph, 0 X and 1 Y
    QString variable;      ///< empty: nothing is bound
    QString group;         ///< of the variable, empty for an unknown one
    bool leftOver = false; ///< there is nothing that the pin could move: its needle or track was removed
};

/// The bound pins of an instrument with one row of names. Those beyond `count` are left over.
std::vector<PinRow> boundPins(const PinTable& pins, int count);

/// The Y of every track, or where `bothAxes` its X and its Y; tracks from 1 to `count`, then what is bound
/// beyond them.
std::vector<PinRow> trackPins(const PinTable& pins, int count, bool bothAxes);

/// All pins from 1 to `count`, bound or not, then what is bound beyond them.
std::vector<PinRow> everyPin(const PinTable& pins, int count);

/// A pin as a person reads it: its number, and for one that is left over that there is no needle, track ...
/// of that number. `pinLabel` is what the kind calls a pin.
QString pinText(int pin, bool leftOver, const QString& pinLabel);

/// The groups that a person chooses variables from, in their order.
QStringList pinGroups();

/// The names of the variables of one of them that this system has, in the table's order.
QStringList variablesOfGroup(const QString& group);

/// "X" or "Y".
QString axisName(std::uint8_t axis);

} // namespace vistor
