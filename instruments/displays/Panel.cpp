#include "instruments/displays/Panel.h"

#include "instruments/Colours.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace vistor {
namespace {

constexpr double kCaptionShare = 0.17; ///< of the panel's height
constexpr double kCaptionLine = 1.35;  ///< band over text height
constexpr double kShadingShare = 0.10;

double borderWidthOf(const PanelStyle& style) {
    return style.border == Border::None ? 0 : style.borderWidth;
}

int textHeight(const PanelStyle& style, const QRectF& panel) {
    return style.captionHeight > 0 ? style.captionHeight : captionPixels(panel.height());
}

double captionBand(const PanelStyle& style, const QRectF& panel) {
    if (style.caption.isEmpty()) return 0;
    return std::min(textHeight(style, panel) * kCaptionLine, panel.height() / 2);
}

QRectF insideBorder(const PanelStyle& style, const QRectF& panel) {
    const double b = std::min({borderWidthOf(style), panel.width() / 2, panel.height() / 2});
    return panel.adjusted(b, b, -b, -b);
}

/// The upper and left edges, or the lower and right ones, mitred at the corners.
QPainterPath edges(const QRectF& outer, const QRectF& inner, bool upper) {
    QPainterPath path;
    path.addPolygon(upper ? QPolygonF({outer.bottomLeft(), outer.topLeft(), outer.topRight(),
                                       inner.topRight(), inner.topLeft(), inner.bottomLeft()})
                          : QPolygonF({outer.topRight(), outer.bottomRight(), outer.bottomLeft(),
                                       inner.bottomLeft(), inner.bottomRight(), inner.topRight()}));
    path.closeSubpath();
    return path;
}

void paintBorder(QPainter& painter, const PanelStyle& style, const QRectF& panel) {
    if (borderWidthOf(style) <= 0) return;
    const QRectF inner = insideBorder(style, panel);
    const bool sunken = style.border == Border::Sunken;
    const QColor upper = sunken ? style.shadow : style.light;
    const QColor lower = style.border == Border::Raised ? style.shadow : style.light;
    painter.fillPath(edges(panel, inner, true), upper);
    painter.fillPath(edges(panel, inner, false), lower);
}

void paintCaption(QPainter& painter, const PanelStyle& style, const QRectF& panel) {
    const double band = captionBand(style, panel);
    if (band <= 0) return;
    QRectF place = insideBorder(style, panel);
    if (style.captionBelow) place.setTop(place.bottom() - band);
    place.setHeight(band);
    const double margin = band * 0.35;
    place.adjust(margin, 0, -margin, 0);
    QFont font = painter.font();
    font.setPixelSize(textHeight(style, panel));
    painter.setFont(font);
    painter.setPen(style.captionColour);
    const QString text = QFontMetricsF(font).elidedText(style.caption, Qt::ElideRight, place.width());
    painter.drawText(place, int(style.captionAlignment | Qt::AlignVCenter) | Qt::TextSingleLine, text);
}

} // namespace

int captionPixels(double panelHeight) {
    return std::clamp(qRound(panelHeight * kCaptionShare), 9, 26);
}

QRectF panelInside(const PanelStyle& style, const QRectF& panel) {
    QRectF inside = insideBorder(style, panel);
    const double band = captionBand(style, panel);
    if (style.captionBelow)
        inside.setBottom(inside.bottom() - band);
    else
        inside.setTop(inside.top() + band);
    return inside;
}

void paintPanel(QPainter& painter, const PanelStyle& style, const QRectF& panel) {
    QLinearGradient ground(panel.topLeft(), panel.bottomLeft());
    const double share = style.shaded ? kShadingShare : 0;
    ground.setColorAt(0, mixed(style.back, Qt::white, share));
    ground.setColorAt(1, mixed(style.back, Qt::black, share));
    painter.fillRect(panel, style.shaded ? QBrush(ground) : QBrush(style.back));
    paintCaption(painter, style, panel);
    paintBorder(painter, style, panel);
}

} // namespace vistor
