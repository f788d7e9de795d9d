#include "instruments/displays/LampPainter.h"

#include "instruments/Colours.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kBezelShare = 0.085; ///< of the smaller side
constexpr double kShineShare = 0.34;
constexpr int kSmallestText = 7; ///< pixels
constexpr double kTextShare = 0.46;
constexpr int kLongestOnLamp = 40;

double sideOf(const QSizeF& size) {
    return std::min(size.width(), size.height());
}

QPainterPath outline(LampShape shape, const QRectF& place) {
    QPainterPath path;
    const double side = sideOf(place.size());
    if (shape == LampShape::Round) {
        QRectF circle(0, 0, side, side);
        circle.moveCenter(place.center());
        path.addEllipse(circle);
        return path;
    }
    const double corner = side * (shape == LampShape::Rounded ? 0.5 : 0.14);
    path.addRoundedRect(place, corner, corner);
    return path;
}

QBrush downwards(const QRectF& place, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(place.topLeft(), place.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

void paintShine(QPainter& painter, const LampLook& look, const QRectF& place) {
    constexpr int kSteps = 9;
    const double reach = lampShine(place.size(), look.shaded);
    QColor colour = look.colour;
    for (int i = kSteps; i >= 1; --i) {
        const double grown = reach * i / kSteps;
        colour.setAlphaF(0.016F + 0.012F * float(kSteps - i));
        const QRectF area = place.adjusted(-grown, -grown, grown, grown);
        painter.fillPath(
            outline(look.shape == LampShape::Round ? LampShape::Round : LampShape::Rounded, area), colour);
    }
}

/// A ring let into the ground: dark where the light comes from, bright below.
void paintBezel(QPainter& painter, const LampLook& look, const QRectF& place) {
    const QRectF bounds = outline(look.shape, place).boundingRect();
    painter.fillPath(outline(look.shape, place), downwards(bounds, mixed(look.ground, Qt::black, 0.62),
                                                           mixed(look.ground, Qt::white, 0.42)));
    const double thin = sideOf(place.size()) * kBezelShare * 0.42;
    painter.fillPath(outline(look.shape, place.adjusted(thin, thin, -thin, -thin)),
                     mixed(look.ground, Qt::black, 0.72));
}

QRadialGradient glass(const LampLook& look, const QRectF& lens) {
    const double reach = std::max(lens.width(), lens.height()) * 0.62;
    QRadialGradient gradient(lens.center() + QPointF(0, lens.height() * 0.08), reach);
    const QColor& c = look.colour;
    if (look.lit) {
        gradient.setColorAt(0, mixed(c, Qt::white, 0.62));
        gradient.setColorAt(0.3, mixed(c, Qt::white, 0.24));
        gradient.setColorAt(0.68, c);
        gradient.setColorAt(1, mixed(c, Qt::black, 0.36));
    } else {
        gradient.setColorAt(0, mixed(c, Qt::white, 0.13));
        gradient.setColorAt(0.6, c);
        gradient.setColorAt(1, mixed(c, Qt::black, 0.5));
    }
    return gradient;
}

/// The sky in the upper half of the glass.
void paintReflection(QPainter& painter, const LampLook& look, const QPainterPath& lens) {
    const QRectF bounds = lens.boundingRect();
    QRectF area(0, 0, bounds.width() * (look.shape == LampShape::Round ? 0.68 : 0.9), bounds.height() * 0.42);
    area.moveCenter({bounds.center().x(), bounds.top() + bounds.height() * 0.29});
    const float strength = look.lit ? 0.46F : 0.17F;
    const QColor white(Qt::white);
    QColor top = white;
    QColor bottom = white;
    top.setAlphaF(strength);
    bottom.setAlphaF(0);
    QPainterPath path;
    if (look.shape == LampShape::Round)
        path.addEllipse(area);
    else
        path.addRoundedRect(area, area.height() * 0.35, area.height() * 0.35);
    painter.fillPath(path.intersected(lens), downwards(area, top, bottom));
}

QFont textFont(int pixels) {
    QFont font;
    font.setBold(true);
    font.setPixelSize(pixels);
    return font;
}

void paintText(QPainter& painter, const LampLook& look, const QRectF& lens) {
    if (look.text.isEmpty()) return;
    const double room = lens.width() * (look.shape == LampShape::Rectangle ? 0.88 : 0.78);
    const double wide = look.textWidth > 0 ? look.textWidth : lampTextWidth(look.text);
    const double fitting = wide > 0 ? std::floor(room / wide) : room;
    const int pixels = int(std::min(std::round(lens.height() * kTextShare), fitting));
    if (pixels < kSmallestText) return;
    painter.setFont(textFont(pixels));
    painter.setPen(look.lettering);
    painter.drawText(lens, int(Qt::AlignCenter) | Qt::TextSingleLine, look.text.left(kLongestOnLamp));
}

} // namespace

double lampTextWidth(const QString& text) {
    constexpr int kMeasured = 100; ///< pixels
    return QFontMetricsF(textFont(kMeasured)).horizontalAdvance(text.left(kLongestOnLamp)) / kMeasured;
}

double lampShine(const QSizeF& lamp, bool shaded) {
    return shaded ? sideOf(lamp) * kShineShare : 0;
}

void paintLamp(QPainter& painter, const LampLook& look, const QRectF& place) {
    const double side = sideOf(place.size());
    if (side <= 0) return;
    constexpr double kPlainSide = 4; // smaller ones have no room for glass
    if (!look.shaded || side < kPlainSide) {
        painter.fillPath(outline(look.shape, place), look.colour);
        return paintText(painter, look, place);
    }
    if (look.lit) paintShine(painter, look, place);
    paintBezel(painter, look, place);
    const double bezel = side * kBezelShare;
    const QRectF inside = place.adjusted(bezel, bezel, -bezel, -bezel);
    const QPainterPath lens = outline(look.shape, inside);
    painter.fillPath(lens, glass(look, lens.boundingRect()));
    paintReflection(painter, look, lens);
    paintText(painter, look, inside);
}

QPixmap lampPicture(const LampLook& look, const QSizeF& lamp, double ratio) {
    const double shine = look.lit ? lampShine(lamp, look.shaded) : 0;
    const QSizeF size = lamp + QSizeF(2 * shine + 1, 2 * shine + 1);
    QPixmap picture((size * ratio).toSize().expandedTo(QSize(1, 1)));
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    paintLamp(painter, look, QRectF(QPointF(shine, shine), lamp));
    return picture;
}

} // namespace vistor
