#include "instruments/displays/LinearGaugeProperties.h"

#include "instruments/displays/GaugePaint.h"

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kBandStyles[] = {"BandRectangle", "BandEllipse", "BandThermometer", "BandTank",
                                       "UserDefinedBand"};
constexpr const char* kBarForms[] = {"Rectangle", "Ellipse", "Thermometer", "Tank"};
constexpr const char* kPointerStyles[] = {"Bar", "Triangle", "Line", "Diamond"};

constexpr const char* kGroups[] = {kPanelBranch, kCaptionBranch};

constexpr int kInk = 0xF0ECE8;
constexpr int kTrack = 0x0E0B09;
constexpr int kWarning = 0x3434DC;

constexpr auto kFixed = joined(
    std::array{keptProperty(89, String)}, panelProperties(kLinearPanel),
    std::array{flagProperty(LinearOnPage, "Page Colour Behind", false, kPanelBranch),
               flagProperty(LinearShading, "Shading", true, kPanelBranch),
               wholeProperty(LinearScales, nullptr, 1, 0, 0), wholeProperty(LinearFonts, nullptr, 2, 0, 0),
               wholeProperty(LinearBands, nullptr, 2, 0, 0), wholeProperty(LinearCaptions, nullptr, 1, 0, 0),
               wholeProperty(LinearTics, nullptr, 2, 0, 0), wholeProperty(LinearPointers, nullptr, 1, 0, 0)},
    std::array<PropertyInfo, 7>{}); // files leave these places empty

constexpr PropertyInfo kScaleFields[] = {
    keptProperty(LinearScaleSelector, Integer),
    choiceOrElseProperty(LinearDirection, "Direction", 0, kDirectionWords, 0),
    choiceOrElseProperty(LinearOrientation, "Orientation", 1, kOrientationWords, 1),
    realProperty(LinearScaleMax, "Scale Max", 100),
    realProperty(LinearScaleMin, "Scale Min", 0),
    realProperty(LinearScaleStart, "Scale Start Place", 0),
    realProperty(LinearScaleStop, "Scale Stop Place", 0),
};

constexpr auto kFontFields =
    joined(std::array{keptProperty(LinearFontSelector, Integer)}, fontProperties(kLinearFont, 13));

constexpr PropertyInfo kBandFields[] = {
    keptProperty(LinearBandSelector, Integer),
    sectionProperty(LinearBandScale, "Band Scale", 0, LinearScales),
    colourProperty(LinearBandColour, "Band Colour", kWarning),
    realProperty(LinearBandStartValue, "Band Start Value", 80),
    realProperty(LinearBandStopValue, "Band Stop Value", 100),
    choiceOrElseProperty(LinearBandStyle, "Style", 0, kBandStyles, int(BandStyle::UserDefined)),
    realProperty(LinearBandNear, "Band Near Edge", 0.77),
    realProperty(LinearBandFar, "Band Far Edge", 0.81),
    keptProperty(9, String),
};

constexpr PropertyInfo kCaptionFields[] = {
    keptProperty(LinearCaptionSelector, Integer),
    sectionProperty(LinearCaptionFont, "Caption Font", 1, LinearFonts),
    colourProperty(LinearCaptionColour, "Caption Colour", 0xC8BCAE),
    realProperty(LinearCaptionX, "Caption X", 0.5),
    realProperty(LinearCaptionY, "Caption Y", 0.05),
    textProperty(LinearCaptionText, "Caption"),
};

constexpr PropertyInfo kTicFields[] = {
    keptProperty(LinearTicSelector, Integer),
    sectionProperty(LinearTicScale, "Tic Scale", 0, LinearScales),
    sectionProperty(LinearTicFont, "Tic Font", 0, LinearFonts),
    colourProperty(LinearTicLabelColour, "Tic Label Colour", kInk),
    colourProperty(LinearTicColour, "Tic Colour", 0x948A80),
    flagProperty(LinearTicLabelsTurned, "Tic Labels Turned", false),
    wholeProperty(LinearTicDecimals, "Tic Label Decimals", -1, -1, 6),
    choiceProperty(LinearTicShape, Integer, "Tic Shape", int(TicForm::Line), kTicFormWords),
    flagProperty(LinearTicLabels, "Tic Labels", false),
    realProperty(LinearTicNear, "Tic Near Edge", 0.49),
    realProperty(LinearTicFar, "Tic Far Edge", 0.55),
    realProperty(LinearTicLabelPlace, "Tic Label Place", 0.39),
    realProperty(LinearTicLabelDivisor, "Tic Label Divisor", 1),
    realProperty(LinearTicStartValue, "Tic Start Value", 0),
    realProperty(LinearTicStopValue, "Tic Stop Value", 0),
    realProperty(LinearTicStep, "Tic Delta Value", 0),
    textProperty(LinearTicUnit, "Tic Unit"),
};

constexpr PropertyInfo kPointerFields[] = {
    keptProperty(LinearPointerSelector, Integer),
    sectionProperty(LinearPointerScale, "Pointer Scale", 0, LinearScales),
    colourProperty(LinearPointerColour, "Pointer Colour", kInk),
    colourProperty(LinearPointerEdgeColour, "Pointer Edge Colour", 0xA89C92),
    choiceProperty(LinearPointerStyle, Long, "Pointer Style", int(PointerStyle::Triangle), kPointerStyles),
    choiceProperty(LinearBarForm, Long, "Bar Form", 0, kBarForms),
    flagProperty(LinearPointerFromBase, "Bar From Base Value", false),
    keptProperty(46, Double),
    realProperty(LinearPointerWidth, "Pointer Width", 0.14),
    keptProperty(40, Double),
    realProperty(LinearPointerBase, "Bar Base Value", 0),
    liveProperty(LinearPointerValue, Double, "Pointer Value"),
    realProperty(LinearPointerNear, "Pointer Near Edge", 0.80),
    realProperty(LinearPointerFar, "Pointer Far Edge", 0.94),
    textProperty(LinearNumberUnit, "Number Unit"),
    flagProperty(LinearPointerNumber, "Number", false),
    flagProperty(LinearPointerHidden, "Pointer Hidden", false),
    wholeProperty(LinearNumberDecimals, "Number Decimals", 0, 0, 6),
    sectionProperty(LinearNumberFont, "Number Font", 1, LinearFonts),
    colourProperty(LinearNumberColour, "Number Colour", kInk),
    realProperty(LinearNumberX, "Number X", 0.5),
    realProperty(LinearNumberY, "Number Y", 0.95),
};

constexpr SectionInfo kSections[] = {
    {.name = "Scale",
     .countProperty = LinearScales,
     .selectorProperty = LinearScaleSelector,
     .fields = kScaleFields},
    {.name = "Font",
     .countProperty = LinearFonts,
     .selectorProperty = LinearFontSelector,
     .fields = kFontFields},
    {.name = "Band",
     .countProperty = LinearBands,
     .selectorProperty = LinearBandSelector,
     .fields = kBandFields},
    {.name = "Caption",
     .countProperty = LinearCaptions,
     .selectorProperty = LinearCaptionSelector,
     .fields = kCaptionFields},
    {.name = "Tic", .countProperty = LinearTics, .selectorProperty = LinearTicSelector, .fields = kTicFields},
    {.name = "Pointer",
     .countProperty = LinearPointers,
     .selectorProperty = LinearPointerSelector,
     .fields = kPointerFields,
     .countsFromPins = true},
};

constexpr ShownProperty kShown[] = {
    {"Tic Stat Value", LinearTicStartValue},
    {"Tic Stop Value", LinearTicStopValue},
    {"Tic Delta Value", LinearTicStep},
    {"Tic Labels", LinearTicLabels, "On", "Off"},
    {"Style", LinearBandStyle},
    {"Scale Min", LinearScaleMin},
    {"Scale Max", LinearScaleMax},
    {"Direction", LinearDirection},
    {"Orientation", LinearOrientation},
    {"pointer Value", LinearPointerValue},
};

constexpr KindTable::Parts kParts{.fixed = kFixed,
                                  .groups = kGroups,
                                  .sections = kSections,
                                  .pins = PinForm::ToCount,
                                  .methods = {.redraw = 91, .sheet = 90},
                                  .values = {.selector = LinearPointerSelector, .value = LinearPointerValue},
                                  .pinCountProperty = LinearPointers,
                                  .shown = kShown};

/// Where a new gauge's sections differ from the defaults of their kind.
struct Setting {
    LinearGaugeProperty property;
    int section;
    double value;
};

constexpr Setting kNewGauge[] = {
    {LinearBandColour, 0, kTrack},      {LinearBandStartValue, 0, 0},
    {LinearBandStopValue, 0, 0},        {LinearBandNear, 0, 0.59},
    {LinearBandFar, 0, 0.74},           {LinearFontBold, 0, -1},
    {LinearTicLabels, 0, -1},           {LinearTicNear, 0, 0.43},
    {LinearTicColour, 0, kInk},         {LinearPointerStyle, 0, int(PointerStyle::Bar)},
    {LinearPointerColour, 0, 0x2EB4FF}, {LinearPointerEdgeColour, 0, 0x1478E0},
    {LinearPointerNear, 0, 0.59},       {LinearPointerFar, 0, 0.74},
};

} // namespace

constinit const KindTable kLinearGaugeTable{kParts};

void setNewLinearGauge(PropertyStore& properties) {
    for (const Setting& s : kNewGauge) properties.setNumber(s.property, s.section, s.value);
}

} // namespace vistor
