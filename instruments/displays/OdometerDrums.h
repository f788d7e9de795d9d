// What the drums of a counter show and where they stand. In: a value, settings, a rectangle. Out: positions
// and places. Nothing here paints or allocates.
#pragma once

#include <QRectF>

#include <array>
#include <cstdint>

namespace vistor {

inline constexpr int kMostDrums = 16;

/// One drum. A digit's position runs from 0 to 10: 3.25 has turned a quarter of the way from 3 to 4.
struct Drum {
    enum class Face : std::uint8_t { Digit, Blank, Minus };

    Face face = Face::Blank;
    double position = 0;

    bool operator==(const Drum&) const = default;
};

struct DrumForm {
    int digits = 6; ///< all drums, 1 to 16
    int decimals = 0;
    bool leadingZeros = true;
    bool smooth = true;   ///< the last drum turns with the value; else it steps
    bool rollOver = true; ///< beyond its drums the counter begins again; else it rests at its end
};

struct DrumRow {
    std::array<Drum, kMostDrums> drums{}; ///< from the left
    int count = 0;
    int decimals = 0;

    bool operator==(const DrumRow&) const = default;
};

/// The drums for a value. A drum turns on while the one to its right goes from 9 to 0. The sign takes a drum,
/// the first one or that before the first digit. What is not a number shows a dash on each, and so does one
/// below 0 beyond the drums of a counter that rolls over: none runs round that way.
DrumRow drumRow(double value, const DrumForm& form);

/// Drums side by side with a gap for the decimal mark.
struct DrumLayout {
    QRectF window; ///< the recess that they turn in
    QSizeF drum;
    QPointF first;
    double pitch = 0;
    double markGap = 0;
    int count = 0;
    int decimals = 0;

    QRectF at(int drum) const;
    /// Centre and radius of the decimal mark; the radius is 0 without one.
    QPointF markPlace() const;
    double markRadius() const { return decimals > 0 ? markGap * 0.24 : 0; }
};

/// As large as fits the room, in its middle. `spacing` is a share of a drum's width, `pixel` the size of a
/// device pixel: drums stand on whole ones.
DrumLayout drumLayout(int count, int decimals, double spacing, const QRectF& room, double pixel);

} // namespace vistor
