// Colours as files and instruments hold them. In: numbers 0x00BBGGRR, or a system colour with the top bit
// set. Out: the toolkit's colours, and back.
#pragma once

#include <QColor>

#include <cstdint>

namespace vistor {

/// The system colour of button faces, 0x8000000F.
inline constexpr auto kButtonFaceColour = static_cast<std::int32_t>(0x8000000FU);

/// The colour of a number. A system colour follows the application's palette; an unknown one is its window
/// colour.
QColor colourOf(std::int32_t number);

/// The number of an opaque colour, 0x00BBGGRR.
std::int32_t numberOf(const QColor& colour);

/// Between two colours: 0 gives the first, 1 the second.
QColor mixed(const QColor& a, const QColor& b, double share);

/// How bright a colour looks, 0 to 255.
double brightness(const QColor& colour);
/// A colour for text on a ground: the wanted one, or where that is too near to the ground's brightness to be
/// read, a light or dark one.
QColor legibleOn(const QColor& wanted, const QColor& ground);

} // namespace vistor
