#include "instruments/displays/AngularGaugeProperties.h"

#include "instruments/displays/GaugePaint.h"

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kFaces[] = {"None", "Round", "Sector"};
constexpr const char* kNeedleForms[] = {"Tapered", "Bar", "Lance", "Arrow", "Mark"};
constexpr const char* kAlignments[] = {"Centre", "Left", "Right"};

constexpr const char* kFaceGroup = "Face";
constexpr const char* kPlaceGroup = "Place";
constexpr const char* kGroups[] = {kFaceGroup, kPlaceGroup, kPanelBranch};

constexpr int kInk = 0xF0ECE8;

constexpr PropertyInfo kFixed[] = {
    keptProperty(96, String),
    colourProperty(GaugeBackColour, "Back Colour", 0x1E1812, kPanelBranch),
    choiceProperty(GaugeBorder, Integer, "Border", int(Border::None), kBorderWords, kPanelBranch),
    wholeProperty(GaugeBorderWidth, "Border Width", 1, 0, 20, kPanelBranch),
    colourProperty(GaugeBorderLight, "Border Light Colour", 0x5C5044, kPanelBranch),
    colourProperty(GaugeBorderShadow, "Border Shadow Colour", 0x0C0A08, kPanelBranch),
    flagProperty(GaugeOnPage, "Page Colour Behind", true, kPanelBranch),
    choiceProperty(GaugeFace, Integer, "Face", int(GaugeFaceForm::Round), kFaces, kFaceGroup),
    colourProperty(GaugeFaceColour, "Face Colour", 0x3A302A, kFaceGroup),
    colourProperty(GaugeRimColour, "Rim Colour", 0x9C9288, kFaceGroup),
    keptProperty(9, String),
    colourProperty(GaugeFaceEdgeColour, "Face Edge Colour", 0x1A1512, kFaceGroup),
    keptProperty(17, Long),
    realProperty(GaugeRimWidth, "Rim Width", 0.055, kFaceGroup),
    realProperty(GaugeDialRadius, "Dial Radius", 0.95, kPlaceGroup),
    realProperty(GaugeDialX, "Dial X", 0.5, kPlaceGroup),
    realProperty(GaugeDialY, "Dial Y", 0.5, kPlaceGroup),
    keptProperty(16, String),
    flagProperty(GaugeAutomaticPlace, "Automatic Place", true, kPlaceGroup),
    flagProperty(GaugeShading, "Shading", true, kFaceGroup),
    wholeProperty(GaugeScales, nullptr, 1, 0, 0),
    wholeProperty(GaugeFonts, nullptr, 2, 0, 0),
    wholeProperty(GaugeTics, nullptr, 2, 0, 0),
    wholeProperty(GaugeCaptions, nullptr, 1, 0, 0),
    wholeProperty(GaugeAnnulars, nullptr, 1, 0, 0),
    wholeProperty(GaugeHubs, nullptr, 2, 0, 0),
    wholeProperty(GaugeNeedles, nullptr, 1, 0, 0),
};

constexpr PropertyInfo kScaleFields[] = {
    keptProperty(ScaleSelector, Integer),
    realProperty(ScaleX, "Scale X", 0),
    realProperty(ScaleY, "Scale Y", 0),
    keptProperty(21, Long),
    realProperty(ScaleSize, "Scale Size", 1),
    keptProperty(25, Double),
    realProperty(ScaleStartAngle, "Scale Start Angle", -135),
    realProperty(ScaleStopAngle, "Scale Stop Angle", 135),
};

constexpr auto kFontFields =
    joined(std::array{keptProperty(FontSelector, Integer)}, fontProperties(kDialFont, 12));

constexpr PropertyInfo kTicFields[] = {
    keptProperty(TicSelector, Integer),
    sectionProperty(TicScale, "Tic Scale", 0, GaugeScales),
    sectionProperty(TicFont, "Tic Font", 0, GaugeFonts),
    colourProperty(TicLabelColour, "Tic Label Colour", kInk),
    flagProperty(TicLabelsTurned, "Tic Labels Turned", false),
    wholeProperty(TicDecimals, "Tic Label Decimals", -1, -1, 6),
    choiceProperty(TicShape, Integer, "Tic Shape", int(TicForm::Line), kTicFormWords),
    realProperty(TicWidth, "Tic Width", 0.012),
    colourProperty(TicColour, "Tic Colour", 0xB4AAA0),
    flagProperty(TicLabels, "Tic Labels", false),
    keptProperty(36, Boolean),
    realProperty(TicInnerRadius, "Tic Inner Radius", 0.86),
    realProperty(TicOuterRadius, "Tic Outer Radius", 0.92),
    realProperty(TicLabelRadius, "Tic Label Radius", 0.63),
    realProperty(TicLabelDivisor, "Tic Label Divisor", 1),
    realProperty(TicStartValue, "Tic Start Value", 0),
    realProperty(TicStopValue, "Tic Stop Value", 0),
    realProperty(TicStep, "Tic Default Value (step)", 0),
};

constexpr PropertyInfo kCaptionFields[] = {
    keptProperty(CaptionSelector, Integer),
    sectionProperty(CaptionFont, "Caption Font", 1, GaugeFonts),
    choiceProperty(CaptionAlignment, Long, "Caption Alignment", 0, kAlignments),
    colourProperty(CaptionColour, "Caption Colour", 0xC8BCAE),
    realProperty(CaptionX, "Caption X", 0),
    realProperty(CaptionY, "Caption Y", 0.42),
    textProperty(CaptionText, "Caption"),
};

constexpr PropertyInfo kAnnularFields[] = {
    keptProperty(AnnularSelector, Integer),
    sectionProperty(AnnularScale, "Annuler Scale", 0, GaugeScales),
    colourProperty(AnnularColour, "Annuler Colour", 0x3434DC),
    realProperty(AnnularTransparency, "Annuler Transparency", 0),
    realProperty(AnnularStartValue, "Annuler Start Value", 80),
    realProperty(AnnularStopValue, "Annuler Stop Value", 100),
    realProperty(AnnularInnerRadius, "Annuler Inner Radius", 0.935),
    realProperty(AnnularOuterRadius, "Annuler Outer Radius", 0.975),
};

constexpr PropertyInfo kHubFields[] = {
    keptProperty(HubSelector, Integer),
    sectionProperty(HubScale, "Hub Scale", 0, GaugeScales),
    colourProperty(HubColour, "Hub Colour", 0x4A423C),
    realProperty(HubRadius, "Hub Radius", 0.12),
};

constexpr PropertyInfo kNeedleFields[] = {
    keptProperty(NeedleSelector, Integer),
    sectionProperty(NeedleScale, "Needle Scale", 0, GaugeScales),
    colourProperty(NeedleEdgeColour, "Needle Edge Colour", 0x1438C8),
    choiceProperty(NeedleForms, Long, "Needle Shape", 0, kNeedleForms),
    flagProperty(NeedleShadow, "Needle Shadow", true),
    colourProperty(NeedleColour, "Needle Colour", 0x2A5AFF),
    liveProperty(NeedleValue, Double, "Needle Value"),
    liveProperty(NeedleDefault, Double, nullptr),
    realProperty(NeedleLength, "Needle Length", 0.84),
    realProperty(NeedleTail, "Needle Tail", 0.2),
    keptProperty(75, String),
    flagProperty(NeedleHidden, "Needle Hidden", false),
    keptProperty(70, Integer),
    keptProperty(79, Integer),
    realProperty(NeedleWidth, "Needle Width", 0.07),
    realProperty(NeedleTipWidth, "Needle Tip Width", 0.016),
    keptProperty(69, Long),
};

constexpr SectionInfo kSections[] = {
    {.name = "Scale",
     .countProperty = GaugeScales,
     .selectorProperty = ScaleSelector,
     .fields = kScaleFields},
    {.name = "Font", .countProperty = GaugeFonts, .selectorProperty = FontSelector, .fields = kFontFields},
    {.name = "Tic", .countProperty = GaugeTics, .selectorProperty = TicSelector, .fields = kTicFields},
    {.name = "Caption",
     .countProperty = GaugeCaptions,
     .selectorProperty = CaptionSelector,
     .fields = kCaptionFields},
    {.name = "Annuler",
     .countProperty = GaugeAnnulars,
     .selectorProperty = AnnularSelector,
     .fields = kAnnularFields},
    {.name = "Hub", .countProperty = GaugeHubs, .selectorProperty = HubSelector, .fields = kHubFields},
    {.name = "Needle",
     .countProperty = GaugeNeedles,
     .selectorProperty = NeedleSelector,
     .fields = kNeedleFields,
     .countsFromPins = true},
};

constexpr ShownProperty kShown[] = {
    {"Tic Start Value", TicStartValue},
    {"Tic Stop Value", TicStopValue},
    {"Tic Default Value", TicStep},
    {"Tic Labels", TicLabels, "On", "Off"},
    {"Scale Start Angle", ScaleStartAngle},
    {"Scale Stop Angle", ScaleStopAngle},
    {"Annuler Inner Radius", AnnularInnerRadius},
    {"Annuler Outer Radius", AnnularOuterRadius},
    {"Annuler Start Value", AnnularStartValue},
    {"Annuler Stop Value", AnnularStopValue},
};

constexpr KindTable::Parts kParts{.fixed = kFixed,
                                  .groups = kGroups,
                                  .sections = kSections,
                                  .pins = PinForm::ToBound,
                                  .methods = {.redraw = 99, .sheet = 98},
                                  .values = {.selector = NeedleSelector, .value = NeedleValue},
                                  .pinCountProperty = GaugeNeedles,
                                  .shown = kShown};

/// Where a new dial's sections differ from the defaults of their kind.
struct Setting {
    AngularGaugeProperty property;
    int section;
    double value;
};

constexpr Setting kNewDial[] = {
    {FontSize, 0, 14},        {FontBold, 0, -1},         {FontSize, 1, 11},    {TicStopValue, 0, 100},
    {TicLabels, 0, -1},       {TicInnerRadius, 0, 0.79}, {TicWidth, 0, 0.026}, {TicColour, 0, kInk},
    {HubColour, 1, 0x857A70}, {HubRadius, 1, 0.05},
};

} // namespace

constinit const KindTable kAngularGaugeTable{kParts};

void setNewDial(PropertyStore& properties) {
    for (const Setting& s : kNewDial) properties.setNumber(s.property, s.section, s.value);
}

} // namespace vistor
