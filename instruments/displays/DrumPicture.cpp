#include "instruments/displays/DrumPicture.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr int kDigits = 10;
constexpr int kBlankFace = 10;
constexpr int kMinusFace = 11;
constexpr int kFaces = 13;
constexpr double kBend = 0.93; ///< how much of the half drum is seen
constexpr double kSeen = 0.74; ///< digits from the middle of the window to its edge
constexpr double kLargestFace =
    150'000;                       ///< pixels; larger drums are painted coarser, since all faces are kept
constexpr double kFaceShare = 0.9; ///< height of a digit's face over that of the window

/// One channel between two of 8 bits, 256 being all of the second.
int between(int a, int b, int share) {
    return a + (b - a) * share / 256;
}

QRgb lit(QRgb a, QRgb b, int blend, int share, int shine) {
    const auto channel = [&](int from, int to) {
        return std::min(between(from, to, blend) * share / 256 + shine, 255);
    };
    return qRgb(channel(qRed(a), qRed(b)), channel(qGreen(a), qGreen(b)), channel(qBlue(a), qBlue(b)));
}

} // namespace

DrumPicture::DrumPicture(const DrumLook& look, const QSizeF& size, double ratio)
    : m_ratio(std::min(ratio, std::sqrt(kLargestFace / std::max(size.width() * size.height(), 1.0)))) {
    m_pixels = (size * m_ratio).toSize().expandedTo(QSize(1, 1));
    m_cell = std::max(qRound(m_pixels.height() * kFaceShare), 1);
    m_lights.resize(static_cast<std::size_t>(m_pixels.height()));
    for (int y = 0; y < m_pixels.height(); ++y) {
        const double t = (y + 0.5) / m_pixels.height() * 2 - 1;
        RowLight& light = m_lights[static_cast<std::size_t>(y)];
        if (!look.shaded) {
            light.offset = t * 0.5 / kFaceShare;
            continue;
        }
        light.offset = kSeen * std::asin(kBend * t) / std::asin(kBend);
        const double facing = std::sqrt(1 - kBend * kBend * t * t);
        light.share = qRound(256 * std::clamp(0.16 + 0.9 * facing, 0.0, 1.0));
        light.shine = qRound(22 * std::exp(-std::pow((t + 0.34) / 0.26, 2)));
    }
    paintFaces(look, m_ratio);
}

void DrumPicture::paintFaces(const DrumLook& look, double ratio) {
    m_faces = QImage(m_pixels.width(), m_cell * kFaces, QImage::Format_RGB32);
    m_faces.fill(look.ground);
    QPainter painter(&m_faces);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = look.font;
    font.setPixelSize(std::max(qRound(font.pixelSize() * ratio), 1));
    const double widest = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'));
    const double room = m_pixels.width() * 0.9;
    if (widest > room) font.setPixelSize(std::max(int(font.pixelSize() * room / widest), 1));
    painter.setFont(font);
    painter.setPen(look.digits);
    const QFontMetricsF metrics(font);
    const double capital = metrics.tightBoundingRect(QStringLiteral("0")).height();
    const auto paintFace = [&](int face, QChar sign) {
        const double left = (m_pixels.width() - metrics.horizontalAdvance(sign)) / 2;
        painter.drawText(QPointF(left, m_cell * (face + 0.5) + capital / 2), QString(sign));
    };
    for (int digit = 0; digit < kDigits; ++digit) paintFace(digit, QChar(u'0' + digit));
    const double bar = m_pixels.width() * 0.46;
    const double thick = std::max(m_pixels.height() * 0.085, 1.0);
    painter.fillRect(
        QRectF((m_pixels.width() - bar) / 2, m_cell * (kMinusFace + 0.5) - thick / 2, bar, thick),
        look.digits);
    if (look.shaded) paintSides(painter);
}

/// A drum is a little darker where it turns into its gap.
void DrumPicture::paintSides(QPainter& painter) const {
    QLinearGradient sides(0, 0, m_pixels.width(), 0);
    sides.setColorAt(0, QColor(0, 0, 0, 90));
    sides.setColorAt(0.09, QColor(0, 0, 0, 0));
    sides.setColorAt(0.91, QColor(0, 0, 0, 0));
    sides.setColorAt(1, QColor(0, 0, 0, 90));
    painter.fillRect(m_faces.rect(), sides);
}

void DrumPicture::fillRow(QRgb* to, double place, const RowLight& light) const {
    const double row = std::max(place * m_cell - 0.5, 0.0);
    const int above = std::min(int(row), m_faces.height() - 1);
    const int below = std::min(above + 1, m_faces.height() - 1);
    const int blend = int((row - above) * 256);
    const auto* a = reinterpret_cast<const QRgb*>(m_faces.constScanLine(above));
    const auto* b = reinterpret_cast<const QRgb*>(m_faces.constScanLine(below));
    for (int x = 0; x < m_pixels.width(); ++x) to[x] = lit(a[x], b[x], blend, light.share, light.shine);
}

QImage DrumPicture::turnedTo(const Drum& drum) const {
    QImage picture(m_pixels, QImage::Format_RGB32);
    picture.setDevicePixelRatio(m_ratio);
    for (int y = 0; y < m_pixels.height(); ++y) {
        const RowLight& light = m_lights[static_cast<std::size_t>(y)];
        double place = kBlankFace + 0.5;
        if (drum.face == Drum::Face::Minus) place = kMinusFace + 0.5 + light.offset;
        if (drum.face == Drum::Face::Digit)
            place = std::fmod(drum.position + 0.5 + light.offset + kDigits, kDigits);
        fillRow(reinterpret_cast<QRgb*>(picture.scanLine(y)), place, light);
    }
    return picture;
}

QPixmap DrumPicture::of(const Drum& drum) {
    const bool resting = drum.position == std::floor(drum.position);
    if (!resting) return QPixmap::fromImage(turnedTo(drum));
    QPixmap& kept = m_resting[int(drum.face) * kDigits + int(drum.position) % kDigits];
    if (kept.isNull()) kept = QPixmap::fromImage(turnedTo(drum));
    return kept;
}

} // namespace vistor
