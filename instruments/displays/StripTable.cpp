#include "instruments/displays/StripTable.h"

#include "instruments/displays/Panel.h"

#include <algorithm>

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kBorders[] = {"None", "Flat", "Raised", "Sunken"};
constexpr const char* kAlignments[] = {"Left", "Right", "Centre"};
constexpr const char* kPlaces[] = {"Above", "Below"};
constexpr const char* kOffOn[] = {"Off", "On"};

constexpr const char* kPlotGroup = "Plot";
constexpr const char* kAxesGroup = "Axes";
constexpr const char* kMarkerGroup = "Marker";
constexpr const char* kPanelGroup = "Panel";
constexpr const char* kTitleGroup = "Title";
constexpr const char* kGroups[] = {kPlotGroup, kAxesGroup, kMarkerGroup, kPanelGroup, kTitleGroup};

constexpr PropertyInfo plain(int number, PropertyType type) {
    return {.number = static_cast<std::int16_t>(number), .type = type};
}

constexpr PropertyInfo valued(int number, PropertyType type, const char* label, double initial,
                              const char* group = nullptr, double low = 0, double high = 0) {
    PropertyInfo info = plain(number, type);
    info.label = label;
    info.initial = initial;
    info.group = group;
    info.low = low;
    info.high = high;
    return info;
}

constexpr PropertyInfo live(PropertyInfo info) {
    info.live = true;
    return info;
}

constexpr PropertyInfo colour(int number, const char* label, int initial, const char* group = nullptr) {
    PropertyInfo info = valued(number, Long, label, initial, group);
    info.editor = Editor::Colour;
    return info;
}

constexpr PropertyInfo choice(int number, PropertyType type, const char* label, int initial,
                              std::span<const char* const> words, const char* group = nullptr) {
    PropertyInfo info = valued(number, type, label, initial, group);
    info.editor = Editor::Choice;
    info.choices = {words};
    return info;
}

constexpr PropertyInfo kShared[] = {
    plain(116, String),
    colour(StripBackColour, "Back Colour", 0x1E1812, kPanelGroup),
    choice(StripBorder, Integer, "Border", int(Border::Sunken), kBorders, kPanelGroup),
    valued(StripBorderWidth, Integer, "Border Width", 1, kPanelGroup, 0, 20),
    colour(StripBorderLight, "Border Light Colour", 0x5C5044, kPanelGroup),
    colour(StripBorderShadow, "Border Shadow Colour", 0x0C0A08, kPanelGroup),
    valued(StripShowTitle, Boolean, "Show Title", 0, kTitleGroup),
    choice(StripTitleAlignment, Integer, "Title Alignment", 0, kAlignments, kTitleGroup),
    colour(StripTitleColour, "Title Colour", 0xC8BCAE, kTitleGroup),
    choice(StripTitlePlace, Long, "Title Place", 0, kPlaces, kTitleGroup),
    valued(StripTitle, String, "Title", 0, kTitleGroup),
    valued(StripBufferSize, Long, "Buffer Size", 10'000, kPlotGroup, 2, 4'000'000),
    plain(71, Long),
    plain(105, Long),
    choice(StripShowMarker, Long, "Show Marker", 0, kOffOn, kMarkerGroup),
    plain(21, Long),
    choice(StripGrid, Long, "Grid", int(StripGridLines::Both), kGridWords, kAxesGroup),
    plain(25, Long),
    plain(6, Double),
    plain(5, Double),
    plain(7, Double),
    plain(8, Double),
    plain(96, Boolean),
    plain(97, Boolean),
    plain(74, Long),
    plain(73, Integer),
    plain(82, Boolean),
    plain(83, Boolean),
    plain(114, Integer),
    plain(103, Long),
    live(valued(StripMarkerX, Double, "Marker X", 0, kMarkerGroup)),
    live(valued(StripMarkerY, Double, "Marker Y", 0, kMarkerGroup)),
    plain(39, Long),
    plain(40, Integer),
    plain(75, Long),
    plain(76, Long),
    plain(77, Integer),
    plain(78, Double),
    plain(79, String),
    plain(118, Long),
    plain(88, Long),
    valued(StripShowNumbersX, Boolean, "Show Numbers On X And Y", -1, kAxesGroup),
    plain(43, Integer),
    plain(106, Long),
    plain(107, Long),
    plain(80, Integer),
    plain(28, Long),
    plain(26, Integer),
    plain(27, Integer),
    live(valued(StripMaximumX, Double, "Maximum X", 30, kAxesGroup)),
    live(valued(StripMinimumX, Double, "Minimum X", 0, kAxesGroup)),
    live(valued(StripLength, Double, "Time Along X Axis", 30, kAxesGroup)),
    live(valued(StripOrigin, Double, "X Origin", 30, kAxesGroup)),
    plain(89, String),
    plain(90, String),
    plain(91, String),
    plain(92, String),
    plain(95, String),
    plain(93, String),
    plain(94, String),
    plain(StripFontCount, Integer),
    plain(StripCaptionCount, Integer),
    valued(StripTraceCount, Integer, "Traces", 1, kPlotGroup),
    plain(119, Integer),
    valued(StripLineCount, Integer, "Lines", 1, kPlotGroup),
};

constexpr PropertyInfo kFonts[] = {
    plain(45, Integer),
    {.number = StripFontName, .type = FontName, .label = "Font", .initialText = "Sans"},
    plain(46, String),
    valued(StripFontSize, Single, "Font Size", 9, nullptr, 4, 72),
    valued(StripFontBold, Boolean, "Bold", 0),
    valued(StripFontItalic, Boolean, "Italic", 0),
    plain(51, Boolean),
    plain(50, Boolean),
};

constexpr PropertyInfo kCaptions[] = {
    plain(58, Integer),
    plain(57, Integer),
    colour(StripCaptionColour, "Caption Colour", 0xC8BCAE),
    plain(104, Long),
    plain(56, Long),
    valued(StripCaptionX, Double, "Place From Left %", 2, nullptr, 0, 100),
    valued(StripCaptionY, Double, "Place From Top %", 2, nullptr, 0, 100),
    valued(StripCaption, String, "Caption", 0),
};

/// Amber, cyan, green, magenta, yellow, blue, red and violet, apart also to eyes that tell colours badly.
constexpr double kTraceColours[] = {0x2EB4FF, 0xEBC84B, 0x6BD66B, 0xC06CF0,
                                    0x5BE6F2, 0xFF9A62, 0x5A5AF5, 0xE0A0B4};

constexpr PropertyInfo traceColour() {
    PropertyInfo info = colour(StripTraceColour, "Trace Colour", int(kTraceColours[0]));
    info.initials = kTraceColours;
    return info;
}

constexpr PropertyInfo kTraces[] = {
    plain(StripTrace, Integer),
    plain(112, Boolean),
    plain(108, Long),
    plain(113, Long),
    traceColour(),
    plain(54, Boolean),
    plain(55, Long),
    plain(53, Double),
    valued(StripShowNumbersY, Boolean, "Show Numbers On Y Axis", -1),
    plain(34, Long),
    plain(38, Integer),
    plain(109, Long),
    plain(110, Long),
    plain(81, Integer),
    plain(64, Double),
    plain(65, Double),
    live(valued(StripMaximumY, Double, "Maximum Y", 100)),
    live(valued(StripMinimumY, Double, "Minimum Y", 0)),
    plain(35, Integer),
    plain(36, Integer),
    plain(98, Double),
    plain(99, Double),
    plain(117, Double),
    plain(0, Double),
};

constexpr PropertyInfo kFourths[] = {
    plain(120, Integer),
    plain(121, Long),
    plain(122, Double),
    plain(123, Double),
};

constexpr PropertyInfo kLines[] = {
    plain(13, Integer),
    valued(StripSymbolSize, Integer, "Symbol Size", 7, nullptr, 2, 40),
    plain(87, Long),
    plain(111, Boolean),
    plain(84, Boolean),
    plain(17, Double),
    plain(16, Double),
    plain(23, Integer),
    colour(StripForeColour, "Fore Colour", 0xC8BCAE),
    choice(StripLineStyle, Long, "Line Style", 0, kLineStyleWords),
    choice(StripSymbolView, Long, "Symbol View", 0, kSymbolWords),
    valued(StripLineName, String, "Name", 0),
    plain(15, String),
    valued(StripLineWidth, Double, "Line Width", 1.5, nullptr, 0.5, 10),
};

constexpr SectionInfo kSections[] = {
    {.name = "Font", .countProperty = StripFontCount, .selectorProperty = 45, .fields = kFonts},
    {.name = "Caption", .countProperty = StripCaptionCount, .selectorProperty = 58, .fields = kCaptions},
    {.name = "Trace", .countProperty = StripTraceCount, .selectorProperty = StripTrace, .fields = kTraces},
    {.name = "Section 4", .countProperty = 119, .selectorProperty = 120, .fields = kFourths},
    {.name = "Line", .countProperty = StripLineCount, .selectorProperty = 13, .fields = kLines},
};

constexpr PropertyInfo flag(int number, const char* label, bool initial) {
    return valued(number, Flag, label, initial ? -1 : 0, kAxesGroup);
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
        if (info.number == StripShowNumbersX) info.label = "Show Numbers On X Axis";
        if (info.number == StripLength) info.label = "X Axis Length";
        if (info.number == StripOrigin) info.initial = 0;
        if (info.number == StripLength || info.number == StripMaximumX) info.initial = 100;
        if (info.number == StripShowMarker) info.initial = 1;
    }
    return all;
}

constexpr auto kStripProperties = stripProperties();
constexpr auto kXYProperties = xyProperties();

constexpr KindTable::Parts partsOf(std::span<const PropertyInfo> fixed) {
    return {.fixed = fixed,
            .groups = kGroups,
            .sections = kSections,
            .pins = PinForm::Graph,
            .methods = {.redraw = StripRedraw},
            .pinCountProperty = StripTraceCount,
            .staysEnabled = true};
}

} // namespace

constinit const KindTable kStripTable{partsOf(kStripProperties)};
constinit const KindTable kXYGraphTable{partsOf(kXYProperties)};

} // namespace vistor
