#include "instruments/displays/LinearGaugeGeometry.h"

#include <cmath>

namespace vistor {

double LinearScale::along(double value) const {
    return start + shareOf(range, value) * (stop - start);
}

double LinearScale::across(double share) const {
    return std::round(middle + (share - 0.5) * unit);
}

QPointF LinearScale::point(double along, double across) const {
    return barPoint(vertical, along, across);
}

QRectF LinearScale::rect(double fromAlong, double toAlong, double fromAcross, double toAcross) const {
    return QRectF(point(fromAlong, fromAcross), point(toAlong, toAcross)).normalized();
}

} // namespace vistor
