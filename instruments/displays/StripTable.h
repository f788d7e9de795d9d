// The properties of a strip, which both graphs share, and the two kinds' tables. The order is that of their
// saved lists.
#pragma once

#include "instruments/displays/PropertyTable.h"

namespace vistor {

/// Numbers of the display's properties that have a meaning here.
enum StripProperty : std::int16_t {
    StripBackColour = -501,
    StripBorderLight = 1,
    StripBorderShadow = 2,
    StripBorder = 3,
    StripBorderWidth = 4,
    StripGrid = 10,
    StripBufferSize = 11,
    StripLineCount = 12,
    // Of a line section.
    StripForeColour = 14,
    StripLineStyle = 18,
    StripSymbolView = 19,
    StripLineName = 20,
    StripSymbolSize = 37,
    StripLineWidth = 72,
    // Of the axes and traces.
    StripLength = 22, ///< of the visible X
    StripOrigin = 24,
    StripTraceCount = 29,
    StripTrace = 30, ///< selector
    StripTraceColour = 31,
    StripMinimumY = 32,
    StripMaximumY = 33,
    StripDecimalsY = 38, ///< of a trace: at least so many, as the steps need more
    StripShowNumbersY = 41,
    StripShowNumbersX = 42,
    StripDecimalsX = 43,
    StripFontCount = 44,
    StripFontSubstitute = 46,
    StripFontSize = 47,
    StripFontBold = 48,
    StripFontItalic = 49,
    StripFontStrikeOut = 50,
    StripFontUnderline = 51,
    StripCaptionCount = 59,
    StripCaptionColour = 62,
    StripCaptionX = 60,
    StripCaptionY = 61,
    StripShowTitle = 66,
    StripTitlePlace = 67,
    StripTitleColour = 68,
    StripTitle = 69,
    StripTitleAlignment = 70,
    StripShowMarker = 85,
    StripMarkerX = 86,
    StripMaximumX = 101,
    StripMinimumX = 102,
    StripMarkerY = 115,
    StripFontName = -512,
    StripCaption = -518,
    // What the graph keeps beside its display.
    GraphAutoScaleX = 1001,
    GraphAutoScaleY = 1002,
    GraphFixAspect = 1003,
};

/// The number of the redraw method.
inline constexpr std::int16_t kStripRedraw = 136;
inline constexpr int kMostStripDecimals = 6; ///< that a person can ask for

enum class StripGridLines { None, Horizontal, Vertical, Both };
enum class StripSymbol { None, Circle, Rectangle, Triangle, Diamond };

/// The words of "Grid", "Line Style" and "Symbol View" by their values.
inline constexpr const char* kGridWords[] = {"NoGrid", "HorizontalGrid", "VerticalGrid", "BothGrid"};
inline constexpr const char* kLineStyleWords[] = {"SolidLine", "DashLine", "DotLine", "DashDotLine",
                                                  "DashDotDotLine"};
inline constexpr const char* kSymbolWords[] = {"No Symbol", "Circle", "Rectangle", "Triangle", "Diamond"};

extern const KindTable kStripTable;   ///< of VXSTRIP, which scrolls
extern const KindTable kXYGraphTable; ///< of VXXYGRAPH

} // namespace vistor
