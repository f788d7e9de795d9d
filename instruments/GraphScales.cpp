#include "instruments/GraphScales.h"

#include "instruments/displays/StripAxes.h"

#include <cmath>

namespace vistor {
namespace {

/// X takes its range from that of Y, not from its own: that is what existing layouts were drawn for.
void widenX(GraphAxes& axes, double shape, double dataShape) {
    const double k = dataShape / shape / 2;
    const double height = axes.highestY - axes.lowestY;
    const double low = axes.lowestY - height * k;
    const double high = height * k + axes.highestY;
    if (!std::isfinite(high - low)) return;
    axes.length = high - low;
    axes.origin = low;
}

void widenY(GraphAxes& axes, const GraphData& data, double shape, double dataShape) {
    const double k = shape / dataShape / 2;
    const double height = data.highestY - data.lowestY;
    if (!std::isfinite(height * k)) return;
    axes.lowestY = data.lowestY - height * k;
    axes.highestY = height * k + data.highestY;
}

void fixAspect(GraphAxes& axes, const GraphData& data, const GraphScaling& scaling) {
    const double visible = visibleX(axes.origin, axes.length, false).length();
    if (visible == 0 || !(scaling.displayWidth > 0)) return;
    const double shape = scaling.displayHeight / scaling.displayWidth;
    const double dataShape = (axes.highestY - axes.lowestY) / visible;
    const bool flatter = shape <= dataShape;
    if (flatter && scaling.autoX && shape != 0) return widenX(axes, shape, dataShape);
    if (!flatter && scaling.autoY && dataShape != 0) widenY(axes, data, shape, dataShape);
}

} // namespace

GraphAxes scaledAxes(GraphAxes axes, const GraphData& data, const GraphScaling& scaling) {
    if (scaling.autoY) {
        axes.highestY = data.highestY;
        axes.lowestY = data.lowestY;
    }
    if (scaling.autoX) {
        axes.length = data.highestX - data.lowestX;
        axes.origin = data.lowestX;
    }
    if (scaling.fixAspect) fixAspect(axes, data, scaling);
    return axes;
}

} // namespace vistor
