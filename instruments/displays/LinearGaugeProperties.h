// What a linear gauge is made of: its property numbers, its table and what a new one shows. In: nothing. Out:
// the declaration that store, list, sheet and painter go by.
#pragma once

#include "instruments/displays/GaugeTics.h"
#include "instruments/displays/PropertyStyles.h"

namespace vistor {

/// Numbers of the display's properties that have a meaning here. Places across the scales are shares of the
/// gauge's thickness, from its left or top edge at 0 to the other one at 1.
enum LinearGaugeProperty : std::int16_t {
    LinearBackColour = -501,
    LinearBorderLight = 13,
    LinearBorderShadow = 14,
    LinearBorder = 15,
    LinearBorderWidth = 16,
    LinearShowCaption = 26,
    LinearCaptionBand = 27, ///< above or below
    LinearCaptionBandColour = 28,
    LinearCaptionBandText = 29,
    LinearCaptionBandAlignment = 30,
    LinearOnPage = 84, ///< the page's colour instead of the back colour
    LinearShading = 88,

    LinearScales = 60,
    LinearScaleSelector = 55,
    LinearDirection = 54,
    LinearOrientation = 25,
    LinearScaleMax = 56,
    LinearScaleMin = 57,
    LinearScaleStart = 58, ///< shares of the length; equal ones: all that labels leave
    LinearScaleStop = 59,

    LinearFonts = 24,
    LinearFontSelector = 23,
    LinearFontFamily = -512,
    LinearFontSubstitute = 77,
    LinearFontBold = 78,
    LinearFontSize = 79, ///< hundredths of the thickness
    LinearFontItalic = 80,
    LinearFontUnderline = 81,
    LinearFontStrikeOut = 82,

    LinearBands = 7,
    LinearBandSelector = 3,
    LinearBandColour = 2,
    LinearBandStartValue = 4, ///< equal to the stop value: all of the scale
    LinearBandStopValue = 5,
    LinearBandScale = 8,
    LinearBandNear = 10,
    LinearBandFar = 11,
    LinearBandStyle = 12,

    LinearCaptions = 20,
    LinearCaptionSelector = 19,
    LinearCaptionColour = 17,
    LinearCaptionFont = 18,
    LinearCaptionX = 21, ///< shares of the room inside the panel
    LinearCaptionY = 22,
    LinearCaptionText = -518,

    LinearTics = 69,
    LinearTicSelector = 64,
    LinearTicColour = 61,
    LinearTicStep = 62,
    LinearTicFont = 63,
    LinearTicFar = 65,
    LinearTicLabels = 66,
    LinearTicNear = 67,
    LinearTicLabelPlace = 68,
    LinearTicScale = 70,
    LinearTicUnit = 71, ///< behind each number
    LinearTicStartValue = 72,
    LinearTicStopValue = 73,
    LinearTicLabelColour = 74,
    LinearTicLabelDivisor = 75,
    LinearTicDecimals = 85,
    LinearTicShape = 86,
    LinearTicLabelsTurned = 87,

    LinearPointers = 42,
    LinearPointerSelector = 38,
    LinearPointerColour = 31,
    LinearPointerNumber = 32, ///< the value in digits
    LinearPointerHidden = 33,
    LinearNumberColour = 34,
    LinearNumberFont = 35,
    LinearNumberDecimals = 36,
    LinearNumberY = 37,
    LinearPointerWidth = 39, ///< along the scale
    LinearPointerScale = 43,
    LinearNumberUnit = 44,
    LinearPointerFromBase = 45,
    LinearPointerNear = 47,
    LinearPointerFar = 48,
    LinearPointerStyle = 49,
    LinearBarForm = 50,
    LinearPointerValue = 51,
    LinearPointerBase = 52, ///< value that a bar grows from
    LinearNumberX = 53,
    LinearPointerEdgeColour = 83,
};

/// What a band looks like, and a bar inside one.
enum class BandStyle { Rectangle, Ellipse, Thermometer, Tank, UserDefined };

enum class PointerStyle { Bar, Triangle, Line, Diamond };

inline constexpr FontNumbers kLinearFont{.family = LinearFontFamily,
                                         .substitute = LinearFontSubstitute,
                                         .bold = LinearFontBold,
                                         .italic = LinearFontItalic,
                                         .underline = LinearFontUnderline,
                                         .strikeOut = LinearFontStrikeOut,
                                         .size = LinearFontSize};
inline constexpr TicNumbers kLinearTics{.count = LinearTics,
                                        .scale = LinearTicScale,
                                        .labels = LinearTicLabels,
                                        .start = LinearTicStartValue,
                                        .stop = LinearTicStopValue,
                                        .step = LinearTicStep,
                                        .divisor = LinearTicLabelDivisor,
                                        .decimals = LinearTicDecimals,
                                        .unit = LinearTicUnit};
inline constexpr PanelNumbers kLinearPanel{.back = LinearBackColour,
                                           .onPage = LinearOnPage,
                                           .shading = LinearShading,
                                           .border = LinearBorder,
                                           .borderWidth = LinearBorderWidth,
                                           .light = LinearBorderLight,
                                           .shadow = LinearBorderShadow,
                                           .showCaption = LinearShowCaption,
                                           .caption = LinearCaptionBandText,
                                           .captionAlignment = LinearCaptionBandAlignment,
                                           .captionPlace = LinearCaptionBand,
                                           .captionColour = LinearCaptionBandColour};

/// The display's properties in the order of the saved list.
extern const KindTable kLinearGaugeTable;

/// Makes the defaults of a store into what a new gauge shows: an upright bar in its track, two rows of tics
/// and a warning zone.
void setNewLinearGauge(PropertyStore& properties);

} // namespace vistor
