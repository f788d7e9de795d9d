#include "instruments/displays/StripPainter.h"

#include "instruments/Colours.h"
#include "instruments/displays/PropertyStyles.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kChip = 16;     ///< length of a legend's piece of line
constexpr double kChipGap = 6;   ///< to its name
constexpr double kEntryGap = 18; ///< to the next entry

QPolygonF symbolShape(StripSymbol symbol, double size) {
    const double r = size / 2;
    switch (symbol) {
    case StripSymbol::Rectangle:
        return QPolygonF(QRectF(-r * 0.88, -r * 0.88, r * 1.76, r * 1.76));
    case StripSymbol::Triangle:
        return QPolygonF({QPointF(0, -r * 1.1), QPointF(r, r * 0.8), QPointF(-r, r * 0.8)});
    case StripSymbol::Diamond:
        return QPolygonF(
            {QPointF(0, -r * 1.15), QPointF(r * 1.15, 0), QPointF(0, r * 1.15), QPointF(-r * 1.15, 0)});
    default:
        return {};
    }
}

void drawSymbol(QPainter& painter, const TraceStyle& style, const QPointF& centre, double size) {
    painter.setPen(QPen(mixed(style.colour, Qt::black, 0.45), size * 0.12));
    painter.setBrush(style.colour);
    if (style.symbol == StripSymbol::Circle)
        painter.drawEllipse(centre, size / 2, size / 2);
    else
        painter.drawPolygon(symbolShape(style.symbol, size).translated(centre));
}

/// How long a name may be so that all find room: the short ones leave theirs to the long ones.
double longestWithRoom(std::vector<double> lengths, double room) {
    std::sort(lengths.begin(), lengths.end());
    for (std::size_t i = 0; i < lengths.size(); room -= lengths[i++]) {
        const double share = room / double(lengths.size() - i);
        if (lengths[i] > share) return share;
    }
    return lengths.empty() ? 0 : lengths.back() + 1;
}

QPen chipPen(const TraceStyle& style) {
    QPen pen(style.colour, std::max(style.width, 2.0), Qt::SolidLine, Qt::RoundCap);
    if (style.dashes.empty()) return pen;
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern(QList<double>(style.dashes.begin(), style.dashes.end()));
    return pen;
}

} // namespace

StripAxis axisOf(const AxisRange& range, int mostTics, int leastDecimals) {
    StripAxis axis;
    axis.range = paintable(range);
    axis.tics = ticsOf(axis.range, mostTics);
    for (int i = 0; i < axis.tics.count; ++i) axis.texts << ticText(axis.tics, i, leastDecimals);
    return axis;
}

AxisMap frameMapX(const StripLayout& layout, const AxisRange& range, double ratio) {
    const double left = layout.frame.left();
    return {range, (layout.data.left() - left) * ratio, (layout.data.right() - left) * ratio};
}

AxisMap frameMapY(const StripLayout& layout, const AxisRange& range, double ratio) {
    const double top = layout.frame.top();
    return {range, (layout.data.bottom() - top) * ratio, (layout.data.top() - top) * ratio};
}

void paintGrid(QImage& image, const StripStyle& style, const StripLayout& layout, const StripAxis& x,
               const StripAxis& y) {
    image.fill(style.plot);
    QPainter painter(&image);
    const double ratio = image.width() / layout.frame.width();
    const int thick = std::max(1, static_cast<int>(ratio));
    const AxisMap mapX = frameMapX(layout, x.range, ratio);
    const AxisMap mapY = frameMapY(layout, y.range, ratio);
    const auto start = [thick](double at) { return qRound(at - thick / 2.0); };
    for (int i = 0; style.gridX && i < x.tics.count; ++i)
        painter.fillRect(start(mapX(x.tics.at(i))), 0, thick, image.height(), style.grid);
    for (int i = 0; style.gridY && i < y.tics.count; ++i)
        painter.fillRect(0, start(mapY(y.tics.at(i))), image.width(), thick, style.grid);
}

void paintNumbers(QPainter& painter, const StripStyle& style, const StripLayout& layout, const StripAxis& x,
                  const StripAxis& y) {
    const QRectF& frame = layout.frame;
    painter.setFont(style.font);
    painter.setPen(style.fore);
    const QFontMetricsF metrics(style.font);
    const double middle = (metrics.ascent() - metrics.descent()) / 2;
    const AxisMap mapX = frameMapX(layout, x.range, 1);
    const AxisMap mapY = frameMapY(layout, y.range, 1);
    for (int i = 0; layout.numbersX && i < x.tics.count; ++i) {
        const double width = metrics.horizontalAdvance(x.texts[i]);
        const double left = frame.left() + mapX(x.tics.at(i)) - width / 2;
        if (left + width / 2 > frame.right() + 1 || left + width / 2 < frame.left() - 1) continue;
        if (left < layout.room.left() || left + width > layout.room.right()) continue; // it would be cut
        painter.drawText(QPointF(left, frame.bottom() + 3 + metrics.ascent()), x.texts[i]);
    }
    for (int i = 0; layout.numbersY && i < y.tics.count; ++i) {
        const double width = metrics.horizontalAdvance(y.texts[i]);
        const double wanted = frame.top() + mapY(y.tics.at(i)) + middle;
        const double base = std::max(std::min(wanted, layout.room.bottom()), layout.room.top() + 2 * middle);
        painter.drawText(QPointF(frame.left() - 5 - width, base), y.texts[i]);
    }
    // Filled: a stroked rectangle takes twenty times as long.
    const QRectF outer = frame.adjusted(-1, -1, 1, 1);
    for (const double top : {outer.top(), frame.bottom()})
        painter.fillRect(QRectF(outer.left(), top, outer.width(), 1), style.frame);
    for (const double left : {outer.left(), frame.right()})
        painter.fillRect(QRectF(left, outer.top(), 1, outer.height()), style.frame);
}

void paintLegend(QPainter& painter, const StripStyle& style, const StripLayout& layout,
                 const std::vector<LegendEntry>& entries) {
    const QRectF& place = layout.legend;
    const QFontMetricsF metrics(style.font);
    std::vector<double> lengths;
    for (const LegendEntry& entry : entries) lengths.push_back(metrics.horizontalAdvance(entry.name));
    const double taken = double(entries.size()) * (kChip + kChipGap + kEntryGap) - kEntryGap;
    const double squeeze = std::min(place.width() / taken, 1.0); // no entry is lost
    const double most = std::max(longestWithRoom(lengths, place.width() - taken), 0.0);
    const double line = place.center().y();
    double left = place.left();
    painter.setFont(style.font);
    for (const LegendEntry& entry : entries) {
        QString name = metrics.elidedText(entry.name, Qt::ElideRight, most);
        if (metrics.horizontalAdvance(name) > most + 1) name.clear(); // not even the dots
        const double end = left + kChip * squeeze;
        const double text = end + kChipGap * squeeze;
        painter.setPen(chipPen(entry.style));
        painter.drawLine(QPointF(left, line), QPointF(end, line));
        if (entry.style.symbol != StripSymbol::None)
            drawSymbol(painter, entry.style, QPointF((left + end) / 2, line), 7);
        painter.setPen(style.fore);
        painter.drawText(QPointF(text, line + (metrics.ascent() - metrics.descent()) / 2), name);
        left = text + metrics.horizontalAdvance(name) + kEntryGap * squeeze;
    }
}

void paintMarker(QPainter& painter, const StripStyle& style, const QPointF& place, const StripLayout& layout,
                 const AxisRange& x, const AxisRange& y) {
    const QPointF at(layout.frame.left() + frameMapX(layout, x, 1)(place.x()),
                     layout.frame.top() + frameMapY(layout, y, 1)(place.y()));
    if (!layout.frame.adjusted(-1, -1, 1, 1).contains(at)) return;
    constexpr double kRadius = 4;
    const QColor hair = mixed(style.plot, style.fore, 0.45);
    const QPoint pixel = at.toPoint();
    painter.fillRect(QRectF(pixel.x(), layout.frame.top(), 1, layout.frame.height()), hair);
    painter.fillRect(QRectF(layout.frame.left(), pixel.y(), layout.frame.width(), 1), hair);
    painter.setPen(QPen(style.plot, 1.5));
    painter.setBrush(style.fore);
    painter.drawEllipse(at, kRadius, kRadius);
}

void paintCaptions(QPainter& painter, const StripStyle& style, const StripLayout& layout,
                   const PropertyStore& p) {
    painter.setFont(style.font);
    const QFontMetricsF metrics(style.font);
    for (int i = 0; i < p.integer(StripCaptionCount); ++i) {
        const double x = std::clamp(p.number(StripCaptionX, i), 0.0, 100.0) / 100;
        const double y = std::clamp(p.number(StripCaptionY, i), 0.0, 100.0) / 100;
        const QString text = p.text(StripCaption, i).left(kLongestText);
        const double slack = std::max(layout.frame.width() - metrics.horizontalAdvance(text), 0.0);
        const double fall = std::max(layout.frame.height() - metrics.height(), 0.0);
        painter.setPen(legibleOn(colourOf(p.integer(StripCaptionColour, i)), style.plot));
        painter.drawText(layout.frame.topLeft() + QPointF(slack * x, fall * y + metrics.ascent()), text);
    }
}

QImage symbolImage(const TraceStyle& style, double ratio) {
    const double size = style.symbolSize * ratio;
    const int side = static_cast<int>(std::ceil(size * 1.3)) | 1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawSymbol(painter, style, QPointF(side / 2.0, side / 2.0), size);
    return image;
}

} // namespace vistor
