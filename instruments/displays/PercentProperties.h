// What a percentage bar is made of: its property numbers and its table. In: nothing. Out: the declaration
// that store, list, sheet and painter go by.
#pragma once

#include "instruments/displays/PropertyStyles.h"

namespace vistor {

/// Numbers of the display's properties that have a meaning here.
enum PercentProperty : std::int16_t {
    PercentBackColour = -501,
    PercentBorderLight = 2,
    PercentBorderShadow = 3,
    PercentBorder = 4,
    PercentBorderWidth = 5,
    PercentShowCaption = 6,
    PercentCaptionPlace = 7,
    PercentCaptionColour = 8,
    PercentCaption = 9,
    PercentCaptionAlignment = 10,
    PercentOnPage = 46, ///< the page's colour instead of the back colour
    PercentShading = 47,

    PercentFontFamily = -512,
    PercentFontSubstitute = 38,
    PercentFontSize = 39, ///< hundredths of a bar's width, or of a ring's radius
    PercentFontBold = 40,
    PercentFontItalic = 41,
    PercentFontStrikeOut = 42,
    PercentFontUnderline = 43,

    PercentStartAngle = 19, ///< degrees clockwise from the top
    PercentDirection = 21,
    PercentMax = 22,
    PercentMin = 23,
    PercentOrientation = 24,
    PercentDisplayMode = 25,
    PercentPercentMode = 26,
    PercentUnit = 27, ///< behind values
    PercentTextColour = 28,
    PercentGap = 29, ///< between bars, share of their pitch
    PercentRingWidth = 30,
    PercentBarWidth = 31, ///< share of the room
    PercentSweep = 32,
    PercentTrackColour = 33,
    PercentLayout = 45,

    PercentPortions = 11,
    PortionSelector = 12,
    PortionColour = 13,
    PortionDefault = 0,
    PortionValue = 15,
    PortionTextColour = 16,
    PortionText = 20,
    PortionName = 44,
};

/// One after another in one bar, or each in a bar of its own.
enum class PortionLayout { Stacked, SideBySide };
enum class PortionTextForm { None, Percent, Value, Name };

inline constexpr FontNumbers kPercentFont{.family = PercentFontFamily,
                                          .substitute = PercentFontSubstitute,
                                          .bold = PercentFontBold,
                                          .italic = PercentFontItalic,
                                          .underline = PercentFontUnderline,
                                          .strikeOut = PercentFontStrikeOut,
                                          .size = PercentFontSize};
inline constexpr PanelNumbers kPercentPanel{.back = PercentBackColour,
                                            .onPage = PercentOnPage,
                                            .shading = PercentShading,
                                            .border = PercentBorder,
                                            .borderWidth = PercentBorderWidth,
                                            .light = PercentBorderLight,
                                            .shadow = PercentBorderShadow,
                                            .showCaption = PercentShowCaption,
                                            .caption = PercentCaption,
                                            .captionAlignment = PercentCaptionAlignment,
                                            .captionPlace = PercentCaptionPlace,
                                            .captionColour = PercentCaptionColour};

/// The section of the portion that stands at a place: portions stand in the order of their pins.
constexpr int portionAt(int place, int count) {
    return sectionShownAt(place, count, true);
}

/// The display's properties in the order of the saved list.
extern const KindTable kPercentTable;

} // namespace vistor
