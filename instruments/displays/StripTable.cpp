#include "instruments/displays/StripTable.h"

#include "instruments/displays/PropertyMakers.h"
#include "instruments/displays/PropertyStyles.h"

#include <algorithm>

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kOffOn[] = {"Off", "On"};

constexpr const char* kPlotGroup = "Plot";
constexpr const char* kAxesGroup = "Axes";
constexpr const char* kMarkerGroup = "Marker";
constexpr const char* kPanelGroup = "Panel";
constexpr const char* kTitleGroup = "Title";
constexpr const char* kGroups[] = {kPlotGroup, kAxesGroup, kMarkerGroup, kPanelGroup, kTitleGroup};

/// With bounds for what a person enters.
constexpr PropertyInfo within(PropertyInfo info, double low, double high) {
    info.low = low;
    info.high = high;
    return info;
}

constexpr PropertyInfo live(PropertyInfo info) {
    info.live = true;
    return info;
}

/// An end of the visible X.
constexpr PropertyInfo told(std::int16_t number, const char* label, double initial) {
    PropertyInfo info = live(realProperty(number, label, initial, kAxesGroup));
    info.readOnly = true;
    return info;
}

constexpr PropertyInfo kShared[] = {
    keptProperty(116, String),
    colourProperty(StripBackColour, "Back Colour", 0x1E1812, kPanelGroup),
    choiceProperty(StripBorder, Integer, "Border", int(Border::Sunken), kBorderWords, kPanelGroup),
    wholeProperty(StripBorderWidth, "Border Width", 1, 0, 20, kPanelGroup),
    colourProperty(StripBorderLight, "Border Light Colour", 0x5C5044, kPanelGroup),
    colourProperty(StripBorderShadow, "Border Shadow Colour", 0x0C0A08, kPanelGroup),
    flagProperty(StripShowTitle, "Show Title", false, kTitleGroup),
    choiceProperty(StripTitleAlignment, Integer, "Title Alignment", 0, kAlignmentWords, kTitleGroup),
    colourProperty(StripTitleColour, "Title Colour", 0xC8BCAE, kTitleGroup),
    choiceProperty(StripTitlePlace, Long, "Title Place", 0, kCaptionPlaceWords, kTitleGroup),
    textProperty(StripTitle, "Title", kTitleGroup),
    {.number = StripBufferSize,
     .type = Long,
     .label = "Buffer Size",
     .initial = 10'000,
     .group = kPlotGroup,
     .low = 2,
     .high = 4'000'000},
    keptProperty(71, Long),
    keptProperty(105, Long),
    choiceProperty(StripShowMarker, Long, "Show Marker", 0, kOffOn, kMarkerGroup),
    keptProperty(21, Long),
    choiceProperty(StripGrid, Long, "Grid", int(StripGridLines::Both), kGridWords, kAxesGroup),
    keptProperty(25, Long),
    keptProperty(6, Double),
    keptProperty(5, Double),
    keptProperty(7, Double),
    keptProperty(8, Double),
    keptProperty(96, Boolean),
    keptProperty(97, Boolean),
    keptProperty(74, Long),
    keptProperty(73, Integer),
    keptProperty(82, Boolean),
    keptProperty(83, Boolean),
    keptProperty(114, Integer),
    keptProperty(103, Long),
    live(realProperty(StripMarkerX, "Marker X", 0, kMarkerGroup)),
    live(realProperty(StripMarkerY, "Marker Y", 0, kMarkerGroup)),
    keptProperty(39, Long),
    keptProperty(40, Integer),
    keptProperty(75, Long),
    keptProperty(76, Long),
    keptProperty(77, Integer),
    keptProperty(78, Double),
    keptProperty(79, String),
    keptProperty(118, Long),
    keptProperty(88, Long),
    flagProperty(StripShowNumbersX, "Show Numbers On X Axis", true, kAxesGroup),
    wholeProperty(StripDecimalsX, "Least Decimals On X Axis", 0, 0, kMostStripDecimals, kAxesGroup),
    keptProperty(106, Long),
    keptProperty(107, Long),
    keptProperty(80, Integer),
    keptProperty(28, Long),
    keptProperty(26, Integer),
    keptProperty(27, Integer),
    told(StripMaximumX, "Maximum X", 30),
    told(StripMinimumX, "Minimum X", 0),
    live(realProperty(StripLength, "Time Along X Axis", 30, kAxesGroup)),
    live(realProperty(StripOrigin, "X Origin", 30, kAxesGroup)),
    keptProperty(89, String),
    keptProperty(90, String),
    keptProperty(91, String),
    keptProperty(92, String),
    keptProperty(95, String),
    keptProperty(93, String),
    keptProperty(94, String),
    keptProperty(StripFontCount, Integer),
    keptProperty(StripCaptionCount, Integer),
    wholeProperty(StripTraceCount, nullptr, 1, 0, 0),
    keptProperty(119, Integer),
    wholeProperty(StripLineCount, nullptr, 1, 0, 0),
};

constexpr PropertyInfo kFonts[] = {
    keptProperty(45, Integer),
    {.number = StripFontName, .type = FontName, .label = "Font", .initialText = "Sans"},
    textProperty(StripFontSubstitute, "Font Substitute"),
    {.number = StripFontSize, .type = Single, .label = "Font Size", .initial = 9, .low = 4, .high = 72},
    flagProperty(StripFontBold, "Bold", false),
    flagProperty(StripFontItalic, "Italic", false),
    flagProperty(StripFontUnderline, "Underline", false),
    flagProperty(StripFontStrikeOut, "Strike Out", false),
};

constexpr PropertyInfo kCaptions[] = {
    keptProperty(58, Integer),
    keptProperty(57, Integer),
    colourProperty(StripCaptionColour, "Caption Colour", 0xC8BCAE),
    keptProperty(104, Long),
    keptProperty(56, Long),
    within(realProperty(StripCaptionX, "Place From Left %", 2), 0, 100),
    within(realProperty(StripCaptionY, "Place From Top %", 2), 0, 100),
    textProperty(StripCaption, "Caption"),
};

/// Amber, cyan, green, magenta, yellow, blue, red and violet, apart also to eyes that tell colours badly.
constexpr double kTraceColours[] = {0x2EB4FF, 0xEBC84B, 0x6BD66B, 0xC06CF0,
                                    0x5BE6F2, 0xFF9A62, 0x5A5AF5, 0xE0A0B4};

constexpr PropertyInfo traceColour() {
    PropertyInfo info = colourProperty(StripTraceColour, "Trace Colour", int(kTraceColours[0]));
    info.initials = kTraceColours;
    return info;
}

constexpr PropertyInfo kTraces[] = {
    keptProperty(StripTrace, Integer),
    keptProperty(112, Boolean),
    keptProperty(108, Long),
    keptProperty(113, Long),
    traceColour(),
    keptProperty(54, Boolean),
    keptProperty(55, Long),
    keptProperty(53, Double),
    flagProperty(StripShowNumbersY, "Show Numbers On Y Axis", true),
    keptProperty(34, Long),
    wholeProperty(StripDecimalsY, "Least Decimals On Y Axis", 0, 0, kMostStripDecimals),
    keptProperty(109, Long),
    keptProperty(110, Long),
    keptProperty(81, Integer),
    keptProperty(64, Double),
    keptProperty(65, Double),
    live(realProperty(StripMaximumY, "Maximum Y", 100)),
    live(realProperty(StripMinimumY, "Minimum Y", 0)),
    keptProperty(35, Integer),
    keptProperty(36, Integer),
    keptProperty(98, Double),
    keptProperty(99, Double),
    keptProperty(117, Double),
    keptProperty(0, Double),
};

constexpr PropertyInfo kFourths[] = {
    keptProperty(120, Integer),
    keptProperty(121, Long),
    keptProperty(122, Double),
    keptProperty(123, Double),
};

constexpr PropertyInfo kLines[] = {
    keptProperty(13, Integer),
    wholeProperty(StripSymbolSize, "Symbol Size", 7, 2, 40),
    keptProperty(87, Long),
    keptProperty(111, Boolean),
    keptProperty(84, Boolean),
    keptProperty(17, Double),
    keptProperty(16, Double),
    keptProperty(23, Integer),
    colourProperty(StripForeColour, "Fore Colour", 0xC8BCAE),
    choiceProperty(StripLineStyle, Long, "Line Style", 0, kLineStyleWords),
    choiceProperty(StripSymbolView, Long, "Symbol View", 0, kSymbolWords),
    textProperty(StripLineName, "Name"),
    keptProperty(15, String),
    within(realProperty(StripLineWidth, "Line Width", 1.5), 0.5, 10),
};

constexpr SectionInfo kSections[] = {
    {.name = "Font", .countProperty = StripFontCount, .selectorProperty = 45, .fields = kFonts},
    {.name = "Caption", .countProperty = StripCaptionCount, .selectorProperty = 58, .fields = kCaptions},
    {.name = "Trace", .countProperty = StripTraceCount, .selectorProperty = StripTrace, .fields = kTraces},
    {.name = "Fourth Section", .countProperty = 119, .selectorProperty = 120, .fields = kFourths},
    {.name = "Line", .countProperty = StripLineCount, .selectorProperty = 13, .fields = kLines},
};

constexpr PropertyInfo flag(std::int16_t number, const char* label, bool initial) {
    PropertyInfo info = flagProperty(number, label, initial, kAxesGroup);
    info.type = Flag;
    return info;
}

/// The shared properties and, behind them, a kind's flags.
template <std::size_t Count>
constexpr auto withFlags(const std::array<PropertyInfo, Count>& flags) {
    std::array<PropertyInfo, std::size(kShared) + Count> all{};
    std::copy(flags.begin(), flags.end(), std::copy(std::begin(kShared), std::end(kShared), all.begin()));
    return all;
}

constexpr auto stripProperties() {
    return withFlags(std::array{flag(GraphAutoScaleY, "Auto Scale Y", true)});
}

/// What an XY graph calls the same property, or begins it with.
constexpr auto xyProperties() {
    auto all = withFlags(std::array{flag(GraphAutoScaleX, "Auto Scale X", true),
                                    flag(GraphAutoScaleY, "Auto Scale Y", true),
                                    flag(GraphFixAspect, "Fix Aspect Ratio 1:1", false)});
    for (PropertyInfo& info : all) {
        if (info.number == StripLength) info.label = "X Axis Length";
        if (info.number == StripOrigin) info.initial = 0;
        if (info.number == StripLength || info.number == StripMaximumX) info.initial = 100;
        if (info.number == StripShowMarker) info.initial = 1;
    }
    return all;
}

constexpr auto kStripProperties = stripProperties();
constexpr auto kXYProperties = xyProperties();

constexpr ShownProperty kStripShown[] = {
    {"Time Along X Axis", StripLength},
    {"Auto Scale Y", GraphAutoScaleY},
    {"Minimum Y", StripMinimumY},
    {"Maximum Y", StripMaximumY},
    {"Grid", StripGrid},
    {"Line Style", StripLineStyle},
    {"Symbol View", StripSymbolView},
    {"Show Numbers On X And Y", StripShowNumbersX},
};

constexpr ShownProperty kXYShown[] = {
    {"Grid", StripGrid},
    {"Auto Scale X", GraphAutoScaleX},
    {"Minimum X", StripMinimumX},
    {"Maximum X", StripMaximumX},
    {"Auto Scale Y", GraphAutoScaleY},
    {"Minimum Y", StripMinimumY},
    {"Maximum Y", StripMaximumY},
    {"Symbol View", StripSymbolView},
    {.label = "Show Marker", .number = StripShowMarker, .asFlag = true},
    {"Buffer Size", StripBufferSize},
    {"Fix Aspect Ratio 1:1", GraphFixAspect},
    {"Show Numbers On X Axis", StripShowNumbersX},
    {"Show Numbers On Y Axis", StripShowNumbersY},
};

constexpr KindTable::Parts partsOf(std::span<const PropertyInfo> fixed,
                                   std::span<const ShownProperty> shown) {
    return {.fixed = fixed,
            .groups = kGroups,
            .sections = kSections,
            .pins = PinForm::Graph,
            .methods = {.redraw = kStripRedraw},
            .pinCountProperty = StripTraceCount,
            .staysEnabled = true,
            .shown = shown};
}

} // namespace

constinit const KindTable kStripTable{partsOf(kStripProperties, kStripShown)};
constinit const KindTable kXYGraphTable{partsOf(kXYProperties, kXYShown)};

} // namespace vistor
