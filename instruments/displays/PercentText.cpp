#include "instruments/displays/PercentText.h"

#include "instruments/Colours.h"
#include "instruments/displays/FittedText.h"
#include "instruments/displays/GaugePaint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kLineShare = 1.6;   ///< from one line to the next, of their capitals
constexpr double kTextRadius = 0.64; ///< share of the way from inner to outer edge
constexpr double kPartShare = 0.92;  ///< of a part's length, what its text may take
constexpr double kHoleShare = 1.9;   ///< of a hole's radius, what lines of text may take

/// Sets the painter's font so that a text fits, and answers what of it does: all of a number or dashes, as
/// much as there is room for of a name.
QString fitInto(QPainter& painter, const PercentPlan& plan, std::size_t portion, const QString& text,
                double room) {
    const bool name = plan.portions[portion].text == PortionTextForm::Name;
    const FittedText fitted =
        name ? fittedWord(*plan.font, text, room) : fittedNumber(*plan.font, text, room);
    painter.setFont(fitted.font);
    return fitted.text;
}

void paintClipped(QPainter& painter, const QRectF& clip, const QPointF& place, const QString& text,
                  const QColor& colour) {
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    painter.setPen(colour);
    paintTextAt(painter, place, text, 0.5);
    painter.restore();
}

/// In the middle of a bar, in one colour on its portion and in another beside it.
void paintOnBar(QPainter& painter, const PercentPlan& plan, std::size_t i, const QString& text,
                const PortionSpan& span) {
    const PercentBar& bar = plan.barOf(i);
    const BarSpan& line = bar.line;
    const double run = line.to - line.from;
    const double end = std::round(line.from + span.to * run); // clips are cut on whole pixels
    const QPointF place = bar.middle(0.5);
    const QString shown = fitInto(painter, plan, i, text, line.vertical ? line.width() : bar.length());
    paintClipped(painter, line.rect(line.from, end), place, shown, plan.portions[i].onPortion());
    paintClipped(painter, line.rect(end, line.to), place, shown, legibleOn(plan.textColour, plan.track));
}

/// Where a part's text stands: on a disc further out than half way, where there is more room.
QPointF partMiddle(const PercentBar& bar, double share) {
    if (!bar.round) return bar.middle(share);
    PercentBar line = bar;
    line.inner = line.outer = bar.inner + kTextRadius * (bar.outer - bar.inner);
    return line.middle(share);
}

/// In the middle of its own part of a bar, if that has room for it.
void paintOnPart(QPainter& painter, const PercentPlan& plan, std::size_t i, const QString& text,
                 const PortionSpan& span) {
    const PercentBar& bar = plan.barOf(i);
    const QFontMetricsF metrics(painter.font());
    const double length = (span.to - span.from) * bar.length();
    const bool upright = !bar.round && bar.line.vertical;
    const double needed = upright ? 1.4 * metrics.capHeight() : metrics.horizontalAdvance(text);
    if (needed > kPartShare * length) return;
    const QString shown = upright ? fitInto(painter, plan, i, text, bar.line.width()) : text;
    painter.setPen(plan.portions[i].onPortion());
    paintTextAt(painter, partMiddle(bar, (span.from + span.to) / 2), shown, 0.5);
}

struct Line {
    std::size_t portion;
    QString text;
    QColor colour;
};

/// Under one another in the middle of the rings.
void paintInHole(QPainter& painter, const PercentPlan& plan, const std::vector<Line>& lines) {
    const PercentBar& innermost = plan.bars.back();
    const double count = static_cast<double>(lines.size());
    const double pitch = kLineShare * QFontMetricsF(painter.font()).capHeight();
    if (pitch * count > kHoleShare * innermost.holeRadius()) return;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double y = (static_cast<double>(i) - (count - 1) / 2) * pitch;
        const double away = std::abs(y) + pitch / 2;
        const double radius = innermost.holeRadius();
        const double chord = 2 * std::sqrt(std::max(radius * radius - away * away, 0.0));
        const QString shown = fitInto(painter, plan, lines[i].portion, lines[i].text, chord);
        painter.setPen(legibleOn(lines[i].colour, plan.style.back));
        paintTextAt(painter, innermost.holeMiddle() + QPointF(0, y), shown, 0.5);
    }
}

void paintHoleTexts(QPainter& painter, const PercentPlan& plan, std::span<const double> values,
                    std::span<const PortionSpan> spans) {
    std::vector<Line> lines;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const QString text = portionText(plan, i, values[i], spans[i]);
        if (text.isEmpty()) continue;
        lines.push_back({i, text, values.size() == 1 ? plan.textColour : plan.portions[i].colour});
    }
    paintInHole(painter, plan, lines);
}

} // namespace

void paintPercentTexts(QPainter& painter, const PercentPlan& plan, std::span<const double> values,
                       std::span<const PortionSpan> spans) {
    if (!plan.font) return;
    painter.setFont(*plan.font);
    if (plan.textInHole()) return paintHoleTexts(painter, plan, values, spans);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const QString text = portionText(plan, i, values[i], spans[i]);
        if (text.isEmpty()) continue;
        if (plan.barEach() && !plan.round())
            paintOnBar(painter, plan, i, text, spans[i]);
        else
            paintOnPart(painter, plan, i, text, spans[i]);
    }
}

} // namespace vistor
