#include "shell/SplashPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <cmath>

namespace vistor {
namespace {

constexpr QSize kSize(610, 300);
constexpr QRgb kOutside = 0xFF00FF00; ///< no part of the picture has this colour
constexpr QRgb kGround = 0xFF18202A;
constexpr QRgb kDim = 0xFFA9B7C6;
constexpr QRgb kAccent = 0xFFF2A33A;

constexpr double kDial = 150; ///< radius of the dial's outline; it stands at the left, in the middle

constexpr QRgb kRgbMask = 0x00FFFFFF;

/// A dial that runs out into a panel. The outline has hard edges: half transparent pixels would show as a
/// rim.
QPainterPath outline() {
    QPainterPath path;
    path.addEllipse(QPointF(kDial, kDial), kDial, kDial);
    path.addRoundedRect(QRectF(kDial, 46, kSize.width() - kDial, kSize.height() - 92), 18, 18);
    path.setFillRule(Qt::WindingFill);
    return path;
}

/// Angles as on a clock, in degrees from the top.
QPointF onDial(double angle, double radius) {
    const double radians = qDegreesToRadians(angle - 90);
    return {kDial + radius * std::cos(radians), kDial + radius * std::sin(radians)};
}

void arc(QPainter& painter, double radius, double from, double to, const QPen& pen) {
    painter.setPen(pen);
    const QRectF square(kDial - radius, kDial - radius, 2 * radius, 2 * radius);
    painter.drawArc(square, qRound((90 - from) * 16), qRound((from - to) * 16));
}

void paintDial(QPainter& painter) {
    QLinearGradient rim(0, 0, 0, 2 * kDial);
    rim.setColorAt(0, QColor(0x8C9AA8));
    rim.setColorAt(1, QColor(0x2C3640));
    arc(painter, kDial - 5, 0, 360, QPen(rim, 6));
    QRadialGradient face(QPointF(kDial, kDial - 30), kDial);
    face.setColorAt(0, QColor(0x2B3744));
    face.setColorAt(1, QColor(0x121920));
    painter.setPen(Qt::NoPen);
    painter.setBrush(face);
    painter.drawEllipse(QPointF(kDial, kDial), kDial - 8, kDial - 8);
    painter.setBrush(Qt::NoBrush);
    arc(painter, kDial - 24, -130, 80, QPen(QColor(0x4FA3E0), 5, Qt::SolidLine, Qt::FlatCap));
    arc(painter, kDial - 24, 84, 130, QPen(QColor(0xE2543C), 5, Qt::SolidLine, Qt::FlatCap));
    for (int step = 0; step <= 20; ++step) {
        const double angle = -130 + step * 13.0;
        const bool large = step % 5 == 0;
        painter.setPen(QPen(large ? Qt::white : QColor(kDim), large ? 3 : 1.5));
        painter.drawLine(onDial(angle, kDial - 32), onDial(angle, kDial - (large ? 50 : 42)));
    }
}

void paintNeedle(QPainter& painter) {
    QPainterPath needle(onDial(52, kDial - 38));
    needle.lineTo(onDial(52 + 90, 6));
    needle.lineTo(onDial(52 + 180, 26));
    needle.lineTo(onDial(52 - 90, 6));
    needle.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kAccent));
    painter.drawPath(needle);
    painter.setBrush(QColor(0x0D1217));
    painter.drawEllipse(QPointF(kDial, kDial), 13, 13);
    painter.setBrush(QColor(0x5B6875));
    painter.drawEllipse(QPointF(kDial, kDial), 6, 6);
}

void line(QPainter& painter, double y, double height, const QColor& colour, const QString& text,
          bool bold = false) {
    QFont font(QStringLiteral("Sans Serif"));
    font.setPixelSize(qRound(height));
    font.setBold(bold);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(QRectF(2 * kDial + 14, y, kSize.width() - 2 * kDial - 30, height * 1.4),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
}

void paintWords(QPainter& painter) {
    line(painter, 64, 48, Qt::white, QStringLiteral("Vistor"), true);
    line(painter, 130, 14, QColor(kAccent), QStringLiteral("Version " VISTOR_VERSION));
    line(painter, 153, 13, QColor(kDim), QStringLiteral("Telemetry dashboard for motorsport"));
    line(painter, 194, 11, QColor(kDim),
         QStringLiteral("Uses Qt %1 (GNU LGPL 3), Qt Charts (GPL 3),").arg(QLatin1String(qVersion())));
    line(painter, 210, 11, QColor(kDim),
         QStringLiteral("muParser (BSD 2-Clause), Expat (MIT), Eigen (MPL 2)"));
}

} // namespace

QImage splashPicture(double ratio) {
    QImage picture(kSize * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(kOutside);
    QPainter painter(&picture);
    painter.fillPath(outline(), QColor(kGround));
    painter.setRenderHint(QPainter::Antialiasing);
    paintDial(painter);
    paintNeedle(painter);
    paintWords(painter);
    return picture;
}

std::vector<QRect> opaqueRuns(const QImage& picture, QRgb transparent) {
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB32);
    std::vector<QRect> runs;
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        const auto isOutside = [&](int x) { return ((row[x] ^ transparent) & kRgbMask) == 0; };
        for (int x = 0; x < pixels.width();) {
            while (x < pixels.width() && isOutside(x)) ++x;
            const int start = x;
            while (x < pixels.width() && !isOutside(x)) ++x;
            if (x > start) runs.emplace_back(start, y, x - start, 1);
        }
    }
    return runs;
}

QRegion fRegionFromBitmap(const QImage& picture, std::int32_t& transparent) {
    QRegion region;
    if (picture.isNull()) return region;
    if (transparent < 1) {
        const QRgb corner = picture.pixel(0, 0);
        transparent = qRed(corner) | qGreen(corner) << 8 | qBlue(corner) << 16;
    }
    const QRgb outside = qRgb(transparent & 0xFF, (transparent >> 8) & 0xFF, (transparent >> 16) & 0xFF);
    const std::vector<QRect> runs = opaqueRuns(picture, outside);
    region.setRects(runs.data(), static_cast<int>(runs.size()));
    return region;
}

} // namespace vistor
