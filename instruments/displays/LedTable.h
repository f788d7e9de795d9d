// What a lamp display is made of: its property numbers and its table. In: nothing. Out: the declaration that
// store, list, sheet and painter go by.
#pragma once

#include "instruments/displays/PropertyStore.h"

namespace vistor {

/// Numbers of the display's properties that have a meaning here. Lamps have numbers that count from 1 on
/// through all rows; states and values go by them.
enum LedProperty : std::int16_t {
    LedBackColour = -501,
    LedBorderLight = 12,
    LedBorderShadow = 13,
    LedBorder = 14,
    LedBorderWidth = 15,
    LedMargin = 18,
    LedValuePerLamp = 19, ///< how much of the value each further lamp takes
    LedShading = 32,
    LedShowCaption = 33,
    LedCaptionPlace = 34,
    LedCaptionColour = 35,
    LedCaption = 36,
    LedCaptionAlignment = 37,
    LedOnPage = 38, ///< the page's colour instead of the back colour

    LedStates = 1,
    LedStateSelector = 30,
    LedStateFrom = 6, ///< number of the first lamp that it colours
    LedLitColour = 4,
    LedUnlitColour = 5,
    LedStateText = 7,

    LedRows = 10,
    LedRowSelector = 23,
    LedFirst = 9, ///< number of the row's first lamp; 0: goes on from the row before
    LedValue = 29,
    LedDefault = 0,
    LedOwnValue = 27, ///< the row shows its own value instead of that of row 1
    LedMode = 26,
    LedDirection = 21,
    LedOrientation = 28,
    LedAutoSize = 17,
    LedWidth = 25,
    LedHeight = 22,
    LedSeparation = 24,
    LedOneColour = 11, ///< all lit lamps take the colour of the last of them
    LedLamps = 20,
    LedShape = 8,
};

enum class LedModeForm { LedValue, Bitwise };
enum class LedSizing { AsTold, Control, Lamps };
enum class LampShape { Round, Rectangle, Rounded };

/// The display's properties in the order of the saved list.
extern const KindTable kLedTable;

} // namespace vistor
