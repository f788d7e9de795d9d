// Panels, fonts and alignments as properties tell them: every kind has its own numbers for the same things.
// In: a store and the kind's numbers. Out: what painting works with.
#pragma once

#include "instruments/displays/Panel.h"
#include "instruments/displays/PropertyStore.h"

#include <QFont>

namespace vistor {

inline constexpr const char* kAlignmentWords[] = {"Left", "Right", "Centre"};
inline constexpr const char* kCaptionPlaceWords[] = {"Above", "Below"};

/// Property numbers of a panel; 0 for what a kind does not have.
struct PanelNumbers {
    std::int16_t back = 0;
    std::int16_t shading = 0;
    std::int16_t border = 0;
    std::int16_t borderWidth = 0;
    std::int16_t light = 0;
    std::int16_t shadow = 0;
    std::int16_t showCaption = 0;
    std::int16_t caption = 0;
    std::int16_t captionAlignment = 0;
    std::int16_t captionPlace = 0;
    std::int16_t captionColour = 0;
};

/// Property numbers of a font. The substitute serves where the machine lacks the family.
struct FontNumbers {
    std::int16_t family = 0;
    std::int16_t substitute = 0;
    std::int16_t bold = 0;
    std::int16_t italic = 0;
    std::int16_t underline = 0;
    std::int16_t strikeOut = 0;
};

inline constexpr int kLongestText = 199; ///< of what a property has painted

/// The alignment of one of kAlignmentWords; left for another number.
Qt::Alignment alignmentOf(int choice);

PanelStyle panelStyleOf(const PropertyStore& properties, const PanelNumbers& numbers);

/// The font of section `index` in so many logical pixels, at least 1.
QFont fontOf(const PropertyStore& properties, const FontNumbers& numbers, int pixels, int index = 0);

} // namespace vistor
