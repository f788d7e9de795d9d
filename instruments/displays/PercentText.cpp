#include "instruments/displays/PercentText.h"

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
    paintClipped(painter, line.rect(line.from, end), place, text, plan.portions[i].textColour);
    paintClipped(painter, line.rect(end, line.to), place, text, plan.textColour);
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
    painter.setPen(plan.portions[i].textColour);
    paintTextAt(painter, partMiddle(bar, (span.from + span.to) / 2), text, 0.5);
}

struct Line {
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
        painter.setPen(lines[i].colour);
        const double y = (static_cast<double>(i) - (count - 1) / 2) * pitch;
        paintTextAt(painter, innermost.holeMiddle() + QPointF(0, y), lines[i].text, 0.5);
    }
}

void paintHoleTexts(QPainter& painter, const PercentPlan& plan, std::span<const double> values,
                    std::span<const PortionSpan> spans) {
    std::vector<Line> lines;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const QString text = portionText(plan, i, values[i], spans[i]);
        if (text.isEmpty()) continue;
        lines.push_back({text, values.size() == 1 ? plan.textColour : plan.portions[i].colour});
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
