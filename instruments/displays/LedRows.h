// Where lamps stand, which of them are lit and in which state. In: settings of rows, a rectangle, values.
// Out: places in logical pixels, answers a lamp. No painting here.
#pragma once

#include "instruments/displays/LedTable.h"

#include <QRectF>

#include <span>
#include <vector>

namespace vistor {

inline constexpr int kMostLamps = 100; ///< in one row

struct LedRowStyle {
    int lamps = 8;
    QSizeF lamp;
    double separation = 0;
    bool vertical = false;
    bool backward = false; ///< from the right, or from the top
    LedSizing sizing = LedSizing::Lamps;
};

/// Lamp i has its top left corner at first + i * step.
struct LedRowPlace {
    QSizeF lamp;
    QPointF first;
    QPointF step;

    QRectF at(int i) const { return {first + i * step, lamp}; }
};

LedRowStyle ledRowStyle(const PropertyStore& properties, int row);

/// What the rows take at the sizes told: below one another, or side by side when the first is vertical.
QSizeF ledExtent(std::span<const LedRowStyle> rows);

/// The rows' places in the middle of a rectangle. Lamps that size themselves fill it, all by one scale, so
/// that they keep the ratio of their sides and of their separation.
std::vector<LedRowPlace> ledPlaces(std::span<const LedRowStyle> rows, const QRectF& room);

/// The number of a row's first lamp.
int firstLamp(const PropertyStore& properties, int row);

/// What lights a row's lamps.
struct LampValue {
    LedModeForm mode = LedModeForm::LedValue;
    std::int32_t value = 0;
    int perLamp = 1;
};
LampValue lampValue(const PropertyStore& properties, int row);

/// Bitwise, lamp n is bit n - 1 of the value, its sign being the last of 32; else it is lit from n times the
/// value of a lamp on.
bool lampIsLit(const LampValue& value, int lamp);

/// The state that colours a lamp: the one with the highest first lamp up to it, or section 0. -1 without
/// states.
int lampState(const PropertyStore& properties, int lamp);

} // namespace vistor
