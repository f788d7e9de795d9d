// The parts of a strip's picture around and upon its traces. In: style, layout and ranges. Out: pixels.
#pragma once

#include "instruments/displays/StripStyle.h"

#include <QImage>
#include <QStringList>

class QPainter;

namespace vistor {

/// One axis with its tics and their texts.
struct StripAxis {
    AxisRange range; ///< paintable
    Tics tics;
    QStringList texts;
};

StripAxis axisOf(const AxisRange& range, int mostTics, int leastDecimals);

struct LegendEntry {
    QString name;
    TraceStyle style;
};

/// From the ranges to pixels of the image of the frame, `ratio` of them to a logical pixel.
AxisMap frameMapX(const StripLayout& layout, const AxisRange& range, double ratio);
AxisMap frameMapY(const StripLayout& layout, const AxisRange& range, double ratio);

/// Ground and grid lines, into the image of the frame.
void paintGrid(QImage& image, const StripStyle& style, const StripLayout& layout, const StripAxis& x,
               const StripAxis& y);
/// Numbers beside the frame, and its border.
void paintNumbers(QPainter& painter, const StripStyle& style, const StripLayout& layout, const StripAxis& x,
                  const StripAxis& y);
void paintLegend(QPainter& painter, const StripStyle& style, const StripLayout& layout,
                 const std::vector<LegendEntry>& entries);
/// A ring on a place, in units of the axes, with lines to the edges; nothing where it is out of sight.
void paintMarker(QPainter& painter, const StripStyle& style, const QPointF& place, const StripLayout& layout,
                 const AxisRange& x, const AxisRange& y);

/// The texts of the caption sections, at their places in the frame.
void paintCaptions(QPainter& painter, const StripStyle& style, const StripLayout& layout,
                   const PropertyStore& properties);

/// A symbol for places in an image; its centre is its middle.
QImage symbolImage(const TraceStyle& style, double ratio);

} // namespace vistor
