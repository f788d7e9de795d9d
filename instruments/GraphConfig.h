// A graph's settings as its window edits them. In: the display's properties. Out: the same, changed together.
#pragma once

#include "instruments/displays/PropertyStore.h"

namespace vistor {

/// Colours of a graph: of its ground, of its numbers, of its current trace.
struct GraphColours {
    std::int32_t back = 0;
    std::int32_t fore = 0;
    std::int32_t trace = 0;
};

struct StripConfig {
    double timeAlongX = 0;
    double minimumY = 0;
    double maximumY = 0;
    bool autoScaleY = false;
    int grid = 0;
    int line = 0;
    int symbol = 0;
    bool showNumbers = false; ///< on both axes
    GraphColours colours;
};

struct XYGraphConfig {
    bool autoScaleX = false;
    bool autoScaleY = false;
    double minimumX = 0;
    double maximumX = 0;
    double minimumY = 0;
    double maximumY = 0;
    double bufferSize = 0; ///< points of a trace
    double symbolSize = 0; ///< pixels
    int symbol = 0;
    bool gridX = false; ///< lines at values of X, which are vertical
    bool gridY = false;
    bool showMarker = false;
    bool showNumbersX = false;
    bool showNumbersY = false;
    bool fixAspect = false;
    GraphColours colours;
};

StripConfig stripConfigOf(const PropertyStore& properties);
void setStripConfig(PropertyStore& properties, const StripConfig& config);

XYGraphConfig xyGraphConfigOf(const PropertyStore& properties);
/// What the window can only show in part, the ends of X as origin and length and the kind of marker, stays to
/// the last digit while it is not changed.
void setXYGraphConfig(PropertyStore& properties, const XYGraphConfig& config);

} // namespace vistor
