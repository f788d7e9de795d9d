#include "instruments/displays/LedRows.h"

#include <algorithm>

namespace vistor {
namespace {

QSizeF extentOf(const LedRowStyle& row) {
    const double gaps = std::max(row.lamps - 1, 0) * row.separation;
    const QSizeF all = row.lamp * std::max(row.lamps, 0);
    return row.vertical ? QSizeF(row.lamp.width(), all.height() + gaps)
                        : QSizeF(all.width() + gaps, row.lamp.height());
}

bool areColumns(std::span<const LedRowStyle> rows) {
    return !rows.empty() && rows.front().vertical;
}

/// The distance between two rows.
double gapOf(std::span<const LedRowStyle> rows) {
    double gap = 0;
    for (const LedRowStyle& row : rows) gap = std::max(gap, row.separation);
    return gap;
}

LedRowPlace placeOf(const LedRowStyle& row, const QPointF& centre, double fitting) {
    const double scale = row.sizing == LedSizing::Lamps ? fitting : 1;
    LedRowPlace place;
    place.lamp = row.lamp * scale;
    QRectF taken(QPointF(), extentOf(row) * scale);
    taken.moveCenter(centre);
    const double side = row.vertical ? row.lamp.height() : row.lamp.width();
    const double pitch = (side + row.separation) * scale;
    place.step = row.vertical ? QPointF(0, -pitch) : QPointF(pitch, 0); // a column fills from its foot
    place.first = row.vertical ? taken.bottomLeft() - QPointF(0, place.lamp.height()) : taken.topLeft();
    if (!row.backward) return place;
    place.first += (row.lamps - 1) * place.step;
    place.step = -place.step;
    return place;
}

/// The scale at which all rows fill the room, for those that size their lamps by it.
double fittingScale(std::span<const LedRowStyle> rows, const QSizeF& room) {
    const bool fits =
        std::ranges::any_of(rows, [](const LedRowStyle& row) { return row.sizing == LedSizing::Lamps; });
    const QSizeF told = ledExtent(rows);
    if (!fits) return 1;
    const double scale =
        std::min(room.width() / std::max(told.width(), 1.0), room.height() / std::max(told.height(), 1.0));
    return std::max(scale, 0.0);
}

} // namespace

LedRowStyle ledRowStyle(const PropertyStore& properties, int row) {
    return {.lamps = properties.bounded(LedLamps, row),
            .lamp = QSizeF(properties.bounded(LedWidth, row), properties.bounded(LedHeight, row)),
            .separation = double(properties.bounded(LedSeparation, row)),
            .vertical = properties.choice(LedOrientation, row) == 1,
            .backward = properties.choice(LedDirection, row) == 1,
            .sizing = LedSizing(properties.choice(LedAutoSize, row))};
}

QSizeF ledExtent(std::span<const LedRowStyle> rows) {
    const bool columns = areColumns(rows);
    QSizeF extent;
    double along = rows.empty() ? 0 : double(rows.size() - 1) * gapOf(rows);
    double across = 0;
    for (const LedRowStyle& row : rows) {
        const QSizeF one = extentOf(row);
        along += columns ? one.width() : one.height();
        across = std::max(across, columns ? one.height() : one.width());
    }
    return columns ? QSizeF(along, across) : QSizeF(across, along);
}

std::vector<LedRowPlace> ledPlaces(std::span<const LedRowStyle> rows, const QRectF& room) {
    const bool columns = areColumns(rows);
    const double scale = fittingScale(rows, room.size());
    QRectF all(QPointF(), ledExtent(rows) * scale);
    all.moveCenter(room.center());
    QPointF start = all.topLeft();
    const double gap = gapOf(rows) * scale;
    std::vector<LedRowPlace> places;
    places.reserve(rows.size());
    for (const LedRowStyle& row : rows) {
        const QSizeF taken = extentOf(row) * scale;
        const QPointF centre = columns ? QPointF(start.x() + taken.width() / 2, all.center().y())
                                       : QPointF(all.center().x(), start.y() + taken.height() / 2);
        places.push_back(placeOf(row, centre, scale));
        start += columns ? QPointF(taken.width() + gap, 0) : QPointF(0, taken.height() + gap);
    }
    return places;
}

int firstLamp(const PropertyStore& properties, int row) {
    int first = 1;
    for (int i = 0; i <= row; ++i) {
        if (const int told = properties.bounded(LedFirst, i); told > 0) first = told;
        if (i < row) first += properties.bounded(LedLamps, i);
    }
    return first;
}

LampValue lampValue(const PropertyStore& properties, int row) {
    const int source = properties.flag(LedOwnValue, row) ? row : 0;
    return {.mode = LedModeForm(properties.choice(LedMode, row)),
            .value = properties.integer(LedValue, source),
            .perLamp = properties.bounded(LedValuePerLamp)};
}

bool lampIsLit(const LampValue& value, int lamp) {
    if (value.mode == LedModeForm::LedValue)
        return std::int64_t{value.value} >= std::int64_t{lamp} * value.perLamp;
    constexpr int kBits = 32;
    return lamp >= 1 && lamp <= kBits && (static_cast<std::uint32_t>(value.value) >> (lamp - 1) & 1U) != 0;
}

int lampState(const PropertyStore& properties, int lamp) {
    int found = properties.integer(LedStates) > 0 ? 0 : -1;
    int from = 0;
    for (int state = 0; state < properties.integer(LedStates); ++state) {
        const int own = properties.integer(LedStateFrom, state);
        if (own > lamp || own < from) continue;
        found = state;
        from = own;
    }
    return found;
}

} // namespace vistor
