#include "instruments/displays/LinearGaugePointer.h"

#include "instruments/Colours.h"
#include "instruments/displays/FittedText.h"
#include "instruments/displays/GaugePaint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kMargin = 2; ///< pixels, for what an edge fades into
constexpr double kShortest = 0.01;

} // namespace

LinearPointer::LinearPointer(const PointerPlace& place) : m_pointer(place), m_painted(place.base) {
    m_light = place.edge == place.colour ? QBrush(place.colour)
                                         : rodLight(span(place.on.stop), place.colour, place.edge);
}

double LinearPointer::place(const PropertyStore& properties) const {
    return m_pointer.on.along(properties.number(LinearPointerValue, m_pointer.section));
}

BarSpan LinearPointer::span(double to) const {
    return {.vertical = m_pointer.on.vertical,
            .from = m_pointer.base,
            .to = to,
            .near = m_pointer.near,
            .far = m_pointer.far};
}

QRectF LinearPointer::moved(double place) const {
    if (place == m_painted) return {};
    BarSpan between = span(place);
    if (between.near > between.far) std::swap(between.near, between.far);
    const bool bar = m_pointer.style == PointerStyle::Bar;
    const double depth = m_pointer.form == BandStyle::Tank ? tankDepth(between.width()) : 0;
    const double reach = (bar ? depth : m_pointer.halfWidth) + kMargin;
    const auto [low, high] = std::minmax(place, m_painted);
    between.near -= kMargin;
    between.far += kMargin;
    return between.rect(low - reach, high + reach);
}

void LinearPointer::paint(QPainter& painter, double place) {
    painter.setPen(Qt::NoPen);
    if (m_pointer.style == PointerStyle::Bar)
        paintBar(painter, span(place));
    else
        paintMark(painter, place);
    m_painted = place;
}

void LinearPointer::paintBar(QPainter& painter, const BarSpan& bar) const {
    painter.setBrush(m_light);
    switch (m_pointer.form) {
    case BandStyle::Thermometer:
        // By the scale: a column of no length has no direction of its own.
        painter.drawPath(thermometer(bar, m_pointer.on.stop - m_pointer.on.start, false));
        break;
    case BandStyle::Tank:
        paintTank(painter, bar);
        break;
    case BandStyle::Ellipse: {
        BarSpan whole = bar;
        whole.from = m_pointer.on.start;
        whole.to = m_pointer.on.stop;
        painter.drawPolygon(ellipsePart(whole, bar.from, bar.to));
        break;
    }
    default:
        painter.drawRect(bar.rect(bar.from, bar.to));
    }
}

/// What fills a tank, its surface lighter.
void LinearPointer::paintTank(QPainter& painter, const BarSpan& bar) const {
    if (std::abs(bar.to - bar.from) < kShortest) return;
    painter.drawPath(tank(bar));
    if (m_pointer.edge == m_pointer.colour) return;
    painter.setBrush(mixed(m_pointer.colour, Qt::white, 0.35));
    painter.drawEllipse(tankEnd(bar));
}

void LinearPointer::paintTriangle(QPainter& painter, const BarSpan& at) const {
    const QPolygonF mark = triangleMark(at, m_pointer.halfWidth);
    painter.drawPolygon(mark);
    if (m_pointer.edge == m_pointer.colour) return;
    painter.setBrush(m_pointer.edge);
    painter.drawPolygon(QPolygonF({mark[0], (mark[1] + mark[2]) / 2, mark[2]}));
}

void LinearPointer::paintMark(QPainter& painter, double place) const {
    painter.setBrush(m_pointer.colour);
    BarSpan at = span(place);
    at.from = place;
    const double half = m_pointer.halfWidth;
    if (m_pointer.style == PointerStyle::Triangle)
        paintTriangle(painter, at);
    else if (m_pointer.style == PointerStyle::Diamond)
        painter.drawPolygon(diamondMark(at, half));
    else
        painter.drawRect(at.rect(place - half, place + half));
}

LinearNumber::LinearNumber(const NumberPlace& place) : m_number(place) {
    const QFontMetricsF metrics(place.font);
    const QString longest = labelText(-888888888.888888, place.decimals) + place.unit;
    const double width = std::min(metrics.horizontalAdvance(longest), place.room.width());
    m_bounds =
        QRectF(middleFor(width) - width / 2, place.at.y() - metrics.height(), width, 2 * metrics.height());
}

/// Its own place, or as near to that as the edges of the room let a number of this width stand.
double LinearNumber::middleFor(double width) const {
    const QRectF& room = m_number.room;
    return std::max(std::min(m_number.at.x(), room.right() - width / 2), room.left() + width / 2);
}

double LinearNumber::rounded(const PropertyStore& properties) const {
    const double unit = std::pow(10, m_number.decimals);
    const double value = properties.number(LinearPointerValue, m_number.section);
    return std::isfinite(value) ? std::round(value * unit) : HUGE_VAL; // shown apart from every number
}

bool LinearNumber::changed(const PropertyStore& properties) const {
    return rounded(properties) != m_painted;
}

void LinearNumber::paint(QPainter& painter, const PropertyStore& properties) {
    const double value = properties.number(LinearPointerValue, m_number.section);
    const QString digits = std::isfinite(value) ? labelText(value, m_number.decimals) : QStringLiteral("–");
    const FittedText shown = fittedNumber(m_number.font, digits + m_number.unit, m_number.room.width());
    painter.setFont(shown.font);
    painter.setPen(m_number.colour);
    const double middle = middleFor(QFontMetricsF(shown.font).horizontalAdvance(shown.text));
    paintTextAt(painter, {middle, m_number.at.y()}, shown.text, 0.5);
    m_painted = rounded(properties);
}

} // namespace vistor
