// The rows of tics on a dial and their labels. In: properties and a layout. Out: paint.
#pragma once

#include "instruments/displays/AngularGaugeLayout.h"

class QPainter;

namespace vistor {

/// One section of tics. Tics that would run together are left out, labels are thinned out.
void paintTics(QPainter& painter, const PropertyStore& properties, const DialLayout& layout, int section);

} // namespace vistor
