#include "instruments/displays/StripStyle.h"

#include "instruments/Colours.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kDash[] = {6, 3};
constexpr double kDot[] = {1.2, 2.4};
constexpr double kDashDot[] = {6, 2.5, 1.2, 2.5};
constexpr double kDashDotDot[] = {6, 2.5, 1.2, 2.5, 1.2, 2.5};
constexpr std::span<const double> kDashes[] = {{}, kDash, kDot, kDashDot, kDashDotDot};

constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

QColor colourIn(const PropertyStore& p, StripProperty number) {
    return colourOf(p.integer(number));
}

/// 0 for what a choice does not know.
std::size_t chosen(int value, std::size_t count) {
    return value >= 0 && static_cast<std::size_t>(value) < count ? static_cast<std::size_t>(value) : 0;
}

double between(double value, double low, double high, double otherwise) {
    return value >= low && value <= high ? value : otherwise;
}

double brightness(const QColor& colour) {
    return 0.299 * colour.red() + 0.587 * colour.green() + 0.114 * colour.blue();
}

QColor legible(const QColor& wanted, const QColor& ground) {
    constexpr double kLeastContrast = 70;
    if (std::abs(brightness(wanted) - brightness(ground)) >= kLeastContrast) return wanted;
    return mixed(ground, brightness(ground) < 128 ? Qt::white : Qt::black, 0.75);
}

PanelStyle panelStyle(const PropertyStore& p) {
    PanelStyle style;
    style.back = colourIn(p, StripBackColour);
    style.border = static_cast<Border>(chosen(p.integer(StripBorder), 4));
    style.borderWidth = std::clamp(p.integer(StripBorderWidth), 0, 20);
    style.light = colourIn(p, StripBorderLight);
    style.shadow = colourIn(p, StripBorderShadow);
    if (p.flag(StripShowTitle)) style.caption = p.text(StripTitle);
    style.captionAlignment = kAlignments[chosen(p.integer(StripTitleAlignment), std::size(kAlignments))];
    style.captionBelow = p.integer(StripTitlePlace) == 1;
    style.captionColour = legible(colourIn(p, StripTitleColour), style.back);
    return style;
}

QFont numberFont(const PropertyStore& p, const QSizeF& size) {
    QFont font;
    if (p.integer(StripFontCount) == 0) {
        font.setPixelSize(std::clamp(qRound(std::min(size.width(), size.height()) * 0.035 + 2), 9, 14));
        return font;
    }
    font.setFamily(p.text(StripFontName, 0));
    font.setPixelSize(qRound(between(p.number(StripFontSize, 0), 4, 72, 9) * 4 / 3));
    font.setBold(p.flag(StripFontBold, 0));
    font.setItalic(p.flag(StripFontItalic, 0));
    return font;
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
    style.panel = panelStyle(p);
    const QColor& back = style.panel.back;
    style.plot = brightness(back) < 128 ? mixed(back, Qt::black, 0.35) : mixed(back, Qt::white, 0.6);
    style.fore = legible(foreColour(p), back);
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
    style.markerPlace = {p.number(StripMarkerX), p.number(StripMarkerY)};
    return style;
}

TraceStyle traceStyle(const PropertyStore& p, int trace) {
    TraceStyle style;
    style.colour = colourOf(p.integer(StripTraceColour, trace));
    const int line = lineOf(p, trace);
    if (line < 0) return style;
    style.width = between(p.number(StripLineWidth, line), 0.5, 10, style.width);
    style.dashes = kDashes[chosen(p.integer(StripLineStyle, line), std::size(kDashes))];
    style.symbol =
        static_cast<StripSymbol>(chosen(p.integer(StripSymbolView, line), std::size(kSymbolWords)));
    style.symbolSize = between(p.number(StripSymbolSize, line), 2, 40, style.symbolSize);
    return style;
}

QString traceName(const PropertyStore& p, int trace) {
    return p.text(StripLineName, trace);
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
