// What of a dial stands still. In: properties and a layout. Out: paint below the needles, and that of the
// hubs above them.
#pragma once

#include "instruments/displays/AngularGaugeLayout.h"

class QPainter;

namespace vistor {

/// Panel, rim, face, annular bands, tics with their labels, captions. Covers the layout's panel.
void paintFace(QPainter& painter, const PropertyStore& properties, const DialLayout& layout);

/// What paintHubs covers.
QRectF hubBounds(const PropertyStore& properties, const DialLayout& layout);
void paintHubs(QPainter& painter, const PropertyStore& properties, const DialLayout& layout);

} // namespace vistor
