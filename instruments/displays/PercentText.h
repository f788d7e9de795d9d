// The texts of a percentage bar. In: a layout, values and their spans. Out: paint.
#pragma once

#include "instruments/displays/PercentLayout.h"

class QPainter;

namespace vistor {

/// On straight bars inside them, in two colours where a portion's end runs through; on rings inside the ring,
/// or on its parts where several stand in one. What has no room is left out.
void paintPercentTexts(QPainter& painter, const PercentPlan& plan, std::span<const double> values,
                       std::span<const PortionSpan> spans);

} // namespace vistor
