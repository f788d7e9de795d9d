// How an XY graph scales its axes to what it has plotted. In: the axes as they are, the extremes of the data,
// the display's shape. Out: the axes as they become.
#pragma once

namespace vistor {

struct GraphAxes {
    double origin = 0; ///< lowest visible X
    double length = 0; ///< of the visible X
    double lowestY = 0;
    double highestY = 0;

    bool operator==(const GraphAxes&) const = default;
};

struct GraphData {
    double lowestX = 0; ///< of every point of every trace since the graph was made
    double highestX = 0;
    double lowestY = 0; ///< of what the first trace holds
    double highestY = 0;
};

struct GraphScaling {
    bool autoX = false;
    bool autoY = false;
    bool fixAspect = false;
    double displayWidth = 0; ///< in any unit
    double displayHeight = 0;
};

/// Auto scales first, then the aspect rule. Without a visible length of X the aspect rule does nothing.
GraphAxes scaledAxes(GraphAxes axes, const GraphData& data, const GraphScaling& scaling);

} // namespace vistor
