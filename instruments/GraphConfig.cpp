#include "instruments/GraphConfig.h"

#include "instruments/displays/StripTable.h"

namespace vistor {
namespace {

constexpr int kHorizontal = int(StripGridLines::Horizontal);
constexpr int kVertical = int(StripGridLines::Vertical);

GraphColours coloursOf(const PropertyStore& p) {
    return {p.integer(StripBackColour), p.integer(StripForeColour), p.integer(StripTraceColour)};
}

void setColours(PropertyStore& p, const GraphColours& colours) {
    p.setNumber(StripBackColour, colours.back);
    p.setNumber(StripForeColour, colours.fore);
    p.setNumber(StripTraceColour, colours.trace);
}

} // namespace

StripConfig stripConfigOf(const PropertyStore& properties) {
    return {.timeAlongX = properties.number(StripLength),
            .minimumY = properties.number(StripMinimumY),
            .maximumY = properties.number(StripMaximumY),
            .autoScaleY = properties.flag(GraphAutoScaleY),
            .grid = properties.integer(StripGrid),
            .line = properties.integer(StripLineStyle),
            .symbol = properties.integer(StripSymbolView),
            .showNumbers = properties.flag(StripShowNumbersX),
            .colours = coloursOf(properties)};
}

void setStripConfig(PropertyStore& properties, const StripConfig& config) {
    properties.setNumber(StripLength, config.timeAlongX);
    properties.setNumber(StripMinimumY, config.minimumY);
    properties.setNumber(StripMaximumY, config.maximumY);
    properties.setNumber(GraphAutoScaleY, config.autoScaleY);
    properties.setNumber(StripGrid, config.grid);
    properties.setNumber(StripLineStyle, config.line);
    properties.setNumber(StripSymbolView, config.symbol);
    properties.setNumber(StripShowNumbersX, config.showNumbers);
    properties.setNumber(StripShowNumbersY, config.showNumbers);
    setColours(properties, config.colours);
}

XYGraphConfig xyGraphConfigOf(const PropertyStore& properties) {
    const double low = properties.number(StripOrigin);
    const int grid = properties.integer(StripGrid);
    return {.autoScaleX = properties.flag(GraphAutoScaleX),
            .autoScaleY = properties.flag(GraphAutoScaleY),
            .minimumX = low,
            .maximumX = low + properties.number(StripLength),
            .minimumY = properties.number(StripMinimumY),
            .maximumY = properties.number(StripMaximumY),
            .bufferSize = properties.number(StripBufferSize),
            .symbolSize = properties.number(StripSymbolSize),
            .symbol = properties.integer(StripSymbolView),
            .gridX = (grid & kVertical) != 0,
            .gridY = (grid & kHorizontal) != 0,
            .showMarker = properties.integer(StripShowMarker) == 1,
            .showNumbersX = properties.flag(StripShowNumbersX),
            .showNumbersY = properties.flag(StripShowNumbersY),
            .fixAspect = properties.flag(GraphFixAspect),
            .colours = coloursOf(properties)};
}

void setXYGraphConfig(PropertyStore& properties, const XYGraphConfig& config) {
    const XYGraphConfig before = xyGraphConfigOf(properties);
    properties.setNumber(GraphAutoScaleX, config.autoScaleX);
    properties.setNumber(GraphAutoScaleY, config.autoScaleY);
    if (config.minimumX != before.minimumX || config.maximumX != before.maximumX) {
        properties.setNumber(StripLength, config.maximumX - config.minimumX);
        properties.setNumber(StripOrigin, config.minimumX);
    }
    properties.setNumber(StripMinimumY, config.minimumY);
    properties.setNumber(StripMaximumY, config.maximumY);
    properties.setNumber(StripBufferSize, config.bufferSize);
    properties.setNumber(StripSymbolSize, config.symbolSize);
    properties.setNumber(StripSymbolView, config.symbol);
    properties.setNumber(StripGrid, (config.gridX ? kVertical : 0) + (config.gridY ? kHorizontal : 0));
    if (config.showMarker != before.showMarker)
        properties.setNumber(StripShowMarker, config.showMarker ? 1 : 0);
    properties.setNumber(StripShowNumbersX, config.showNumbersX);
    properties.setNumber(StripShowNumbersY, config.showNumbersY);
    properties.setNumber(GraphFixAspect, config.fixAspect);
    setColours(properties, config.colours);
}

} // namespace vistor
