#include "instruments/displays/PercentProperties.h"

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kDisplayModes[] = {"Linear", "Radial"};
constexpr const char* kPercentModes[] = {"Percentage", "Ratio"};
constexpr const char* kLayouts[] = {"Stacked", "Side by side"};
constexpr const char* kTexts[] = {"None", "Percent", "Value", "Name"};

constexpr const char* kBarGroup = "Bar";
constexpr const char* kRingGroup = "Ring";
constexpr const char* kTextGroup = "Text";
constexpr const char* kGroups[] = {kBarGroup, kRingGroup, kTextGroup, kPanelBranch, kCaptionBranch};

constexpr int kInk = 0xF0ECE8;
/// Told apart at a glance, dark text legible on each.
constexpr double kColours[] = {0x2EB4FF, 0xE8B04C, 0x6CD25A, 0x7878FF, 0xE892C8, 0x60E0F0};

constexpr PropertyInfo portionColour() {
    PropertyInfo info = colourProperty(PortionColour, "Portion Colour", 0);
    info.initials = kColours;
    return info;
}

constexpr auto kFixed = joined(
    std::array{keptProperty(48, String)}, panelProperties(kPercentPanel),
    fontProperties(kPercentFont, 46, kTextGroup),
    std::array{colourProperty(PercentTrackColour, "Track Colour", 0x0E0B09, kBarGroup),
               colourProperty(PercentTextColour, "Text Colour", kInk, kTextGroup),
               realProperty(PercentRingWidth, "Ring Width", 0.26, kRingGroup),
               realProperty(PercentSweep, "Sweep Angle", 360, kRingGroup),
               realProperty(PercentGap, "Gap", 0.2, kBarGroup),
               realProperty(PercentBarWidth, "Bar Width", 1, kBarGroup),
               textProperty(PercentUnit, "Unit", kTextGroup),
               choiceOrElseProperty(PercentDirection, "Direction", 0, kDirectionWords, 0, kBarGroup),
               choiceOrElseProperty(PercentOrientation, "Orientation", 0, kOrientationWords, 1, kBarGroup),
               choiceOrElseProperty(PercentDisplayMode, "Display Mode", 0, kDisplayModes, 1, kBarGroup),
               choiceOrElseProperty(PercentPercentMode, "Percent Mode", 0, kPercentModes, 1, kBarGroup),
               choiceProperty(PercentLayout, Long, "Portions", 0, kLayouts, kBarGroup),
               realProperty(PercentStartAngle, "Start Angle", 0, kRingGroup),
               realProperty(PercentMin, "Min", 0, kBarGroup), realProperty(PercentMax, "Max", 100, kBarGroup),
               flagProperty(PercentOnPage, "Page Colour Behind", false, kPanelBranch),
               flagProperty(PercentShading, "Shading", true, kPanelBranch),
               wholeProperty(PercentPortions, nullptr, 1, 0, 0)});

constexpr PropertyInfo kPortionFields[] = {
    keptProperty(PortionSelector, Integer),
    portionColour(),
    liveProperty(PortionValue, Double, "Portion Value"),
    choiceProperty(PortionText, Long, "Portion Text", int(PortionTextForm::Percent), kTexts),
    colourProperty(PortionTextColour, "Portion Text Colour", 0x120E0A),
    textProperty(PortionName, "Portion Name"),
    keptProperty(17, Double),
    keptProperty(18, Double),
    keptProperty(36, Double),
    keptProperty(37, Double),
    liveProperty(PortionDefault, Double, nullptr),
};

constexpr SectionInfo kSections[] = {{.name = "Portion",
                                      .countProperty = PercentPortions,
                                      .selectorProperty = PortionSelector,
                                      .fields = kPortionFields,
                                      .countsFromPins = true}};

constexpr ShownProperty kShown[] = {
    {"Direction", PercentDirection},
    {"Orientation", PercentOrientation},
    {"Display Mode", PercentDisplayMode},
    {"Percent Mode", PercentPercentMode},
    {"Start Angle", PercentStartAngle},
    {"Min", PercentMin},
    {"Max", PercentMax},
};

constexpr KindTable::Parts kParts{.fixed = kFixed,
                                  .groups = kGroups,
                                  .sections = kSections,
                                  .pins = PinForm::ToBound,
                                  .methods = {.redraw = 50, .sheet = 49},
                                  .values = {.selector = PortionSelector, .value = PortionValue},
                                  .pinCountProperty = PercentPortions,
                                  .shown = kShown};

} // namespace

constinit const KindTable kPercentTable{kParts};

} // namespace vistor
