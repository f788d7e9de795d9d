// What an angular gauge is made of: its property numbers, its table and the dial that a new one shows. In:
// nothing. Out: the declaration that store, list, sheet and painter go by.
#pragma once

#include "instruments/displays/PropertyStyles.h"

namespace vistor {

/// Numbers of the display's properties that have a meaning here. Lengths, widths and places are shares of the
/// dial's radius; a length of 0 stands for the usual one.
enum AngularGaugeProperty : std::int16_t {
    GaugeBorderLight = 1,
    GaugeBorderShadow = 2,
    GaugeBorder = 3,
    GaugeBorderWidth = 4,
    GaugeOnPage = 5, ///< the page's colour instead of the back colour
    GaugeRimColour = 6,
    GaugeFaceColour = 7,
    GaugeFace = 8,
    GaugeDialRadius = 11, ///< share of half the smaller side
    GaugeFaceEdgeColour = 12,
    GaugeDialX = 13, ///< share of the width
    GaugeDialY = 15,
    GaugeRimWidth = 18,
    GaugeAutomaticPlace = 93,
    GaugeShading = 94,
    GaugeBackColour = 97,

    GaugeScales = 19,
    ScaleSelector = 20,
    ScaleY = 22,
    ScaleX = 23,
    ScaleSize = 24,
    ScaleStartAngle = 26,
    ScaleStopAngle = 27,

    GaugeFonts = 28,
    FontSelector = 29,
    FontFamily = -512,
    FontSubstitute = 82,
    FontSize = 83, ///< hundredths of the dial's radius
    FontBold = 84,
    FontItalic = 85,
    FontUnderline = 86,
    FontStrikeOut = 87,

    GaugeTics = 43,
    TicSelector = 44,
    TicColour = 30,
    TicWidth = 31,
    TicScale = 32,
    TicOuterRadius = 33,
    TicLabels = 34,
    TicInnerRadius = 35,
    TicLabelRadius = 37,
    TicFont = 38,
    TicStartValue = 39, ///< equal to the stop value: all of the scale
    TicStopValue = 40,
    TicLabelColour = 41,
    TicLabelDivisor = 42,
    TicStep = 88, ///< 0: a round one
    TicLabelsTurned = 90,
    TicDecimals = 91, ///< below 0: as many as it takes
    TicShape = 92,

    GaugeCaptions = 45,
    CaptionSelector = 46,
    CaptionColour = 47,
    CaptionFont = 48,
    CaptionX = 49,
    CaptionY = 50,
    CaptionAlignment = 80,
    CaptionText = -518,

    GaugeAnnulars = 51,
    AnnularSelector = 52,
    AnnularColour = 53,
    AnnularTransparency = 54, ///< 0 opaque to 1
    AnnularInnerRadius = 55,
    AnnularOuterRadius = 56,
    AnnularScale = 57,
    AnnularStartValue = 58,
    AnnularStopValue = 59,

    GaugeHubs = 60,
    HubSelector = 61,
    HubColour = 62,
    HubRadius = 63,
    HubScale = 64,

    GaugeNeedles = 65,
    NeedleSelector = 66,
    NeedleColour = 67,
    NeedleHidden = 68,
    NeedleWidth = 71,
    NeedleTipWidth = 72,
    NeedleLength = 73,
    NeedleScale = 74,
    NeedleForms = 76,
    NeedleValue = 77,
    NeedleTail = 78,
    NeedleEdgeColour = 89,
    NeedleShadow = 95,
    NeedleDefault = 0,
};

inline constexpr FontNumbers kDialFont{.family = FontFamily,
                                       .substitute = FontSubstitute,
                                       .bold = FontBold,
                                       .italic = FontItalic,
                                       .underline = FontUnderline,
                                       .strikeOut = FontStrikeOut,
                                       .size = FontSize};

enum class GaugeFaceForm { None, Round, Sector };

/// The display's properties in the order of the saved list.
extern const KindTable kAngularGaugeTable;

/// Makes the defaults of a store into the dial that a new gauge shows: two rows of tics, a warning zone, a
/// needle and its hub.
void setNewDial(PropertyStore& properties);

} // namespace vistor
