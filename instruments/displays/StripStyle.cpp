#include "instruments/displays/StripStyle.h"

#include "instruments/Colours.h"
#include "instruments/displays/PropertyStyles.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kDash[] = {6, 3};
constexpr double kDot[] = {1.2, 2.4};
constexpr double kDashDot[] = {6, 2.5, 1.2, 2.5};
constexpr double kDashDotDot[] = {6, 2.5, 1.2, 2.5, 1.2, 2.5};
constexpr std::span<const double> kDashes[] = {{}, kDash, kDot, kDashDot, kDashDotDot};

constexpr PanelNumbers kPanel{.back = StripBackColour,
                              .border = StripBorder,
                              .borderWidth = StripBorderWidth,
                              .light = StripBorderLight,
                              .shadow = StripBorderShadow,
                              .showCaption = StripShowTitle,
                              .caption = StripTitle,
                              .captionAlignment = StripTitleAlignment,
                              .captionPlace = StripTitlePlace,
                              .captionColour = StripTitleColour};
constexpr FontNumbers kFont{.family = StripFontName,
                            .substitute = StripFontSubstitute,
                            .bold = StripFontBold,
                            .italic = StripFontItalic,
                            .underline = StripFontUnderline,
                            .strikeOut = StripFontStrikeOut};

/// 0 for what a choice does not know.
std::size_t chosen(int value, std::size_t count) {
    return value >= 0 && static_cast<std::size_t>(value) < count ? static_cast<std::size_t>(value) : 0;
}

/// A number held to what the sheet lets a person enter, whatever a file says.
double within(const PropertyStore& p, StripProperty number, int index) {
    const PropertyInfo& info = *p.table().info(number);
    const double value = p.number(number, index);
    return std::isnan(value) ? info.initial : std::clamp(value, info.low, info.high);
}

QFont numberFont(const PropertyStore& p, const QSizeF& size) {
    if (p.integer(StripFontCount) == 0) {
        QFont font;
        font.setPixelSize(std::clamp(qRound(std::min(size.width(), size.height()) * 0.035 + 2), 9, 14));
        return font;
    }
    return fontOf(p, kFont, qRound(within(p, StripFontSize, 0) * 4 / 3));
}

/// Of the section that a trace takes its line from; -1 without sections.
int lineOf(const PropertyStore& p, int trace) {
    const int lines = p.integer(StripLineCount);
    return lines > 0 ? trace % lines : -1;
}

QColor foreColour(const PropertyStore& p) {
    const int line = lineOf(p, currentTrace(p));
    const PropertyInfo* info = p.table().info(StripForeColour);
    return colourOf(line >= 0 ? p.integer(StripForeColour, line) : static_cast<int>(info->initial));
}

} // namespace

StripStyle stripStyle(const PropertyStore& p, const QSizeF& size) {
    StripStyle style;
    style.panel = panelStyleOf(p, kPanel);
    const QColor& back = style.panel.back;
    style.plot = brightness(back) < 128 ? mixed(back, Qt::black, 0.35) : mixed(back, Qt::white, 0.6);
    style.fore = legibleOn(foreColour(p), back);
    style.grid = mixed(style.plot, style.fore, 0.15);
    style.frame = mixed(style.plot, style.fore, 0.4);
    style.font = numberFont(p, size);
    style.panel.captionHeight = style.font.pixelSize() + 3;
    const auto grid = static_cast<StripGridLines>(chosen(p.integer(StripGrid), std::size(kGridWords)));
    style.gridX = grid == StripGridLines::Vertical || grid == StripGridLines::Both;
    style.gridY = grid == StripGridLines::Horizontal || grid == StripGridLines::Both;
    style.numbersX = p.flag(StripShowNumbersX);
    style.numbersY = p.flag(StripShowNumbersY);
    style.marker = p.integer(StripShowMarker) == 1;
    return style;
}

TraceStyle traceStyle(const PropertyStore& p, int trace) {
    TraceStyle style;
    style.colour = colourOf(p.integer(StripTraceColour, trace));
    const int line = lineOf(p, trace);
    if (line < 0) return style;
    style.width = within(p, StripLineWidth, line);
    style.dashes = kDashes[chosen(p.integer(StripLineStyle, line), std::size(kDashes))];
    style.symbol =
        static_cast<StripSymbol>(chosen(p.integer(StripSymbolView, line), std::size(kSymbolWords)));
    style.symbolSize = within(p, StripSymbolSize, line);
    return style;
}

QString traceName(const PropertyStore& p, int trace) {
    return p.text(StripLineName, trace).left(kLongestText);
}

int leastDecimals(const PropertyStore& p, StripProperty number, int index) {
    const int asked = p.integer(number, index);
    return asked <= kMostStripDecimals ? std::max(asked, 0) : 0;
}

int currentTrace(const PropertyStore& p) {
    const int traces = p.integer(StripTraceCount);
    return traces > 0 ? p.integer(StripTrace) % traces : 0;
}

AxisRange rangeY(const PropertyStore& p, int trace) {
    const int from = p.flag(GraphAutoScaleY) ? currentTrace(p) : trace;
    return {p.number(StripMinimumY, from), p.number(StripMaximumY, from)};
}

} // namespace vistor
