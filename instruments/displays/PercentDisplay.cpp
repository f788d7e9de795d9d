#include "instruments/displays/PercentDisplay.h"

#include "instruments/displays/PercentText.h"

#include <QPainter>

#include <cmath>

namespace vistor {
namespace {

constexpr double kMargin = 2;     ///< pixels, for what an edge fades into
constexpr double kPartGap = 1.5;  ///< pixels between parts of one bar
constexpr double kSmallest = 0.2; ///< pixels; what is shorter is not painted

/// Whether two values show the same, which no two that are not numbers would by themselves.
bool same(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

void paintPortion(QPainter& painter, const PercentPlan& plan, std::size_t i, PortionSpan span,
                  bool followed) {
    const PercentBar& bar = plan.barOf(i);
    const double length = bar.length();
    const double gap = followed && length > 0 ? kPartGap / length : 0;
    if (span.to - gap > span.from) span.to -= gap;
    if ((span.to - span.from) * length < kSmallest) return;
    painter.fillPath(bar.part(span.from, span.to), plan.portions[i].fill);
}

} // namespace

PercentDisplay::PercentDisplay(QWidget* parent) : InnerDisplay(kPercentTable, parent) {}

void PercentDisplay::readValues(std::vector<double>& values) const {
    const int count = properties().integer(PercentPortions);
    values.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        values[static_cast<std::size_t>(i)] = properties().number(PortionValue, portionAt(i, count));
}

void PercentDisplay::paintStatic(QPainter& painter) {
    m_plan = layOutPercent(properties(), rect(), palette().color(QPalette::Window));
    paintPanel(painter, m_plan.style, m_plan.panel);
    painter.setClipRect(panelInside(m_plan.style, m_plan.panel));
    for (const PercentBar& bar : m_plan.bars) painter.fillPath(bar.part(0, 1), m_plan.track);
}

void PercentDisplay::paintMoving(QPainter& painter) {
    readValues(m_values);
    m_spans.resize(m_values.size());
    placePortions(m_plan.rule, m_values, m_spans);
    painter.setClipRect(panelInside(m_plan.style, m_plan.panel), Qt::IntersectClip);
    for (std::size_t i = 0; i < m_spans.size(); ++i)
        paintPortion(painter, m_plan, i, m_spans[i], m_plan.rule.stacked && i + 1 < m_spans.size());
    paintPercentTexts(painter, m_plan, m_values, m_spans);
}

QRect PercentDisplay::movedPart() const {
    readValues(m_newValues);
    QRectF part;
    for (std::size_t i = 0; i < m_newValues.size() && i < m_values.size(); ++i) {
        if (same(m_newValues[i], m_values[i])) continue;
        if (m_plan.rule.ratio || m_plan.rule.stacked || m_plan.round()) return rect();
        part = part.united(m_plan.barOf(i).bounds());
    }
    if (part.isEmpty()) return {};
    return part.adjusted(-kMargin, -kMargin, kMargin, kMargin).toAlignedRect();
}

} // namespace vistor
