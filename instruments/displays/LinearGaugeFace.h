// What of a linear gauge stands still. In: properties and a layout. Out: paint below the pointers.
#pragma once

#include "instruments/displays/LinearGaugeLayout.h"

class QPainter;

namespace vistor {

/// Panel, bands, tics with their labels, captions. Covers the layout's panel.
void paintLinearFace(QPainter& painter, const PropertyStore& properties, const LinearLayout& layout);

} // namespace vistor
