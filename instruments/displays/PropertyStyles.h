// Panels, fonts and alignments as properties tell them: every kind has its own numbers for the same things.
// In: a store and the kind's numbers. Out: what painting works with.
#pragma once

#include "instruments/displays/Panel.h"
#include "instruments/displays/PropertyMakers.h"
#include "instruments/displays/PropertyStore.h"

#include <QFont>

#include <optional>

namespace vistor {

inline constexpr const char* kAlignmentWords[] = {"Left", "Right", "Centre"};
inline constexpr const char* kCaptionPlaceWords[] = {"Above", "Below"};

/// Property numbers of a panel; 0 for what a kind does not have.
struct PanelNumbers {
    std::int16_t back = 0;
    std::int16_t onPage = 0; ///< flag: the page's colour instead of the back colour
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
    std::int16_t size = 0; ///< in hundredths of what the kind measures its parts by
};

inline constexpr int kLongestText = 199; ///< of what a property has painted

inline constexpr const char* kPanelBranch = "Panel";
inline constexpr const char* kCaptionBranch = "Caption";

/// A table's lines for a panel with a caption, in the order of all kinds' lists.
constexpr std::array<PropertyInfo, 10> panelProperties(const PanelNumbers& n,
                                                       PropertyType placeType = PropertyType::Long) {
    using enum PropertyType;
    return {
        colourProperty(n.back, "Back Colour", 0x1E1812, kPanelBranch),
        choiceProperty(n.border, Integer, "Border", int(Border::Sunken), kBorderWords, kPanelBranch),
        wholeProperty(n.borderWidth, "Border Width", 1, 0, 20, kPanelBranch),
        colourProperty(n.light, "Border Light Colour", 0x5C5044, kPanelBranch),
        colourProperty(n.shadow, "Border Shadow Colour", 0x0C0A08, kPanelBranch),
        flagProperty(n.showCaption, "Show Caption", false, kCaptionBranch),
        choiceProperty(n.captionAlignment, Integer, "Caption Alignment", 0, kAlignmentWords, kCaptionBranch),
        colourProperty(n.captionColour, "Caption Colour", 0xC8BCAE, kCaptionBranch),
        choiceProperty(n.captionPlace, placeType, "Caption Place", 0, kCaptionPlaceWords, kCaptionBranch),
        textProperty(n.caption, "Caption", kCaptionBranch)};
}

/// A table's lines for a font, in the order of all gauges' lists.
constexpr std::array<PropertyInfo, 7> fontProperties(const FontNumbers& n, double size,
                                                     const char* group = nullptr, bool bold = false) {
    PropertyInfo family = textProperty(n.family, "Font", group);
    family.type = PropertyType::FontName;
    PropertyInfo percent = realProperty(n.size, "Font Size %", size, group);
    percent.type = PropertyType::Single;
    return {family,
            textProperty(n.substitute, "Font Substitute", group),
            percent,
            flagProperty(n.bold, "Font Bold", bold, group),
            flagProperty(n.italic, "Font Italic", false, group),
            flagProperty(n.underline, "Font Underline", false, group),
            flagProperty(n.strikeOut, "Font Strike Out", false, group)};
}

/// The alignment of one of kAlignmentWords; left for another number.
Qt::Alignment alignmentOf(int choice);

/// `page` is the colour behind the instrument.
PanelStyle panelStyleOf(const PropertyStore& properties, const PanelNumbers& numbers,
                        const QColor& page = {});

/// The font of section `index` in so many logical pixels, at least 1.
QFont fontOf(const PropertyStore& properties, const FontNumbers& numbers, int pixels, int index = 0);

/// The font of section `index`, or the nearest one of `count`, on a gauge whose parts are measured by `unit`
/// pixels. No value where it would be too small to read.
std::optional<QFont> legibleFont(const PropertyStore& properties, const FontNumbers& numbers, int index,
                                 int count, double unit);

/// A length or size as a property holds it: the usual one for 0 and less, at most `most`.
double usualSize(const PropertyStore& properties, int number, int section, double most = 4);
/// A place or a radius, within three units of the gauge.
double boundedPlace(const PropertyStore& properties, int number, int section);

} // namespace vistor
