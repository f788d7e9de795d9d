#include "instruments/displays/LedTable.h"

#include "instruments/displays/LedRows.h"
#include "instruments/displays/PropertyMakers.h"
#include "instruments/displays/PropertyStyles.h"

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kModes[] = {"LEDValue", "Bitwise"};
constexpr const char* kAutoSizes[] = {"NoAutoSize", "SizeControl", "SizeLEDs"};
constexpr const char* kShapes[] = {"Round", "Rectangle", "Rounded"};

constexpr const char* kLampsGroup = "Lamps";
constexpr const char* kPanelGroup = "Panel";
constexpr const char* kCaptionGroup = "Caption";
constexpr const char* kGroups[] = {kLampsGroup, kPanelGroup, kCaptionGroup};

constexpr PropertyInfo kFixed[] = {
    keptProperty(39, String),
    colourProperty(LedBackColour, "Back Colour", 0x1E1812, kPanelGroup),
    choiceProperty(LedBorder, Integer, "Border", int(Border::Sunken), kBorderWords, kPanelGroup),
    wholeProperty(LedBorderWidth, "Border Width", 1, 0, 20, kPanelGroup),
    colourProperty(LedBorderLight, "Border Light Colour", 0x5C5044, kPanelGroup),
    colourProperty(LedBorderShadow, "Border Shadow Colour", 0x0C0A08, kPanelGroup),
    flagProperty(LedShowCaption, "Show Caption", false, kCaptionGroup),
    choiceProperty(LedCaptionAlignment, Integer, "Caption Alignment", 0, kAlignmentWords, kCaptionGroup),
    colourProperty(LedCaptionColour, "Caption Colour", 0xC8BCAE, kCaptionGroup),
    textProperty(LedCaption, "Caption", kCaptionGroup),
    choiceProperty(LedCaptionPlace, Long, "Caption Place", 0, kCaptionPlaceWords, kCaptionGroup),
    wholeProperty(LedMargin, "Margin", 6, 0, 100, kPanelGroup),
    wholeProperty(LedValuePerLamp, "Value per LED", 1, 1, 32767, kLampsGroup),
    flagProperty(LedShading, "Shading", true, kLampsGroup),
    flagProperty(LedOnPage, "Page Colour Behind", false, kPanelGroup),
    wholeProperty(LedStates, nullptr, 3, 0, 0),
    wholeProperty(LedRows, nullptr, 1, 0, 0),
};

/// A row of lamps as a driver reads it: calm, near, now.
constexpr double kFrom[] = {1, 6, 8};
constexpr double kLit[] = {0x55E63C, 0x18B0FF, 0x2E36FF};
constexpr double kUnlit[] = {0x1C3816, 0x123148, 0x14144E};

constexpr PropertyInfo withInitials(PropertyInfo info, std::span<const double> initials) {
    info.initials = initials;
    return info;
}

constexpr PropertyInfo kStateFields[] = {
    keptProperty(LedStateSelector, Integer),
    {.number = LedStateFrom, .type = Long, .label = "State From LED", .initials = kFrom},
    withInitials(colourProperty(LedLitColour, "State Colour", 0), kLit),
    withInitials(colourProperty(LedUnlitColour, "State Unlit Colour", 0), kUnlit),
    textProperty(LedStateText, "State Text"),
};

constexpr PropertyInfo kRowFields[] = {
    keptProperty(LedRowSelector, Integer),
    wholeProperty(LedFirst, "First LED (0: next)", 0, 0, 32767),
    {.number = LedValue, .type = Long, .label = "Value", .live = true},
    {.number = LedDefault, .type = Long, .live = true},
    flagProperty(LedOwnValue, "Own Value", false),
    choiceOrElseProperty(LedMode, "Mode", 0, kModes, 0),
    choiceOrElseProperty(LedDirection, "Direction", 0, kDirectionWords, 0),
    choiceOrElseProperty(LedOrientation, "Orientation", 0, kOrientationWords, 1),
    choiceOrElseProperty(LedAutoSize, "Auto Size", int(LedSizing::Lamps), kAutoSizes, int(LedSizing::Lamps)),
    wholeProperty(LedWidth, "LED Width", 22, 1, 500),
    wholeProperty(LedHeight, "LED Height", 22, 1, 500),
    wholeProperty(LedSeparation, "LED Seperation", 6, 0, 500),
    flagProperty(LedOneColour, "One Colour", false),
    wholeProperty(LedLamps, "LEDs", 8, 1, kMostLamps),
    choiceProperty(LedShape, Long, "LED Shape", int(LampShape::Round), kShapes),
};

constexpr SectionInfo kSections[] = {
    {.name = "State",
     .countProperty = LedStates,
     .selectorProperty = LedStateSelector,
     .fields = kStateFields},
    {.name = "Row", .countProperty = LedRows, .selectorProperty = LedRowSelector, .fields = kRowFields},
};

constexpr ShownProperty kShown[] = {
    {"Mode", LedMode},
    {"Direction", LedDirection},
    {"Orientation", LedOrientation},
    {"Auto Size", LedAutoSize},
    {"LED Width", LedWidth},
    {"LED Height", LedHeight},
    {"LED Seperation", LedSeparation},
};

constexpr KindTable::Parts kParts{.fixed = kFixed,
                                  .groups = kGroups,
                                  .sections = kSections,
                                  .pins = PinForm::ToBound,
                                  .methods = {.redraw = 41, .sheet = 40},
                                  .values = {.value = LedValue},
                                  .shown = kShown};

} // namespace

constinit const KindTable kLedTable{kParts};

} // namespace vistor
