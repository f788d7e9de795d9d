#include "dashboard/Pictures.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QtMath>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace vistor {
namespace {

struct Outline {
    std::string_view name;
    const char* body; ///< SVG on a square of 24; lines in %1, accents in %2, grounds in %3
};

constexpr Outline kOutlines[] = {
    {"new", R"(<path d="M6 3h8l4 4v14H6z" fill="%3"/><path d="M14 3v4h4"/>)"},
    {"load", R"(<path d="M3 19V6h6l2 2h8v3" fill="%3"/><path d="M3 19l3-8h16l-3 8z" fill="%3"/>)"},
    {"save", R"(<path d="M4 4h13l3 3v13H4z" fill="%3"/><path d="M8 4v5h7V4M7 20v-7h10v7"/>)"},
    {"play", R"(<path d="M7 4l13 8-13 8z" fill="%2"/>)"},
    {"edit", R"(<path d="M4 20l1-5L16 4l4 4L9 19z" fill="%3"/><path d="M13 7l4 4" stroke="%2"/>)"},
    {"properties",
     R"(<rect x="3" y="4" width="18" height="16" rx="1" fill="%3"/><path d="M3 8h18M7 12h3M7 16h3"/><path d="M13 12h5M13 16h5" stroke="%2"/>)"},
    {"newtab", R"(<path d="M3 19V7h7v3h11v9z" fill="%3"/><path d="M15.5 12v5M13 14.5h5" stroke="%2"/>)"},
    {"tabs", R"(<path d="M3 19V7h6v3h12v9z" fill="%3"/><path d="M9 7h6v3M15 7h6v3"/>)"},
    {"mark",
     R"(<path d="M3 17a9 9 0 0 1 18 0" stroke-width="2"/><path d="M7 9l5 9 5-11" stroke="%2" stroke-width="2.5"/>)"},
    {"cleartab",
     R"(<path d="M3 19V7h7v3h11v9z" fill="%3"/><path d="M13.5 12.5l4 4M17.5 12.5l-4 4" stroke="%2"/>)"},
    {"labelson", R"(<path d="M3 7h11l6 5-6 5H3z" fill="%3"/><path d="M6 12h6" stroke="%2"/>)"},
    {"labelsoff", R"(<path d="M3 7h11l6 5-6 5H3z" fill="%3"/><path d="M4 20L19 4" stroke="%2"/>)"},
    {"help",
     R"(<circle cx="12" cy="12" r="9" fill="%3"/><path d="M9 9.5a3 3 0 1 1 4.2 2.7c-.8.4-1.2.9-1.2 1.8" stroke="%2"/><path d="M12 17v.1" stroke="%2"/>)"},
    {"source",
     R"(<path d="M4 6c0-4 16-4 16 0v12c0 4-16 4-16 0z" fill="%3"/><path d="M4 6c0 4 16 4 16 0M4 12c0 4 16 4 16 0"/>)"},
    {"exit", R"(<path d="M13 4H5v16h8" fill="none"/><path d="M10 12h11M17 8l4 4-4 4" stroke="%2"/>)"},
    {"cut",
     R"(<path d="M7 3l9.5 13M17 3L7.5 16"/><circle cx="6" cy="18" r="2.7" stroke="%2"/><circle cx="18" cy="18" r="2.7" stroke="%2"/>)"},
    {"copy", R"(<path d="M4 3h11v13H4z" fill="%3"/><path d="M9 8h11v13H9z" fill="%3" stroke="%2"/>)"},
    {"paste",
     R"(<path d="M4 5h14v16H4z" fill="%3"/><path d="M8 3h6v4H8z" fill="%3"/><path d="M11 11h9v10h-9z" fill="%3" stroke="%2"/>)"},
    {"delete", R"(<path d="M5 5l14 14M19 5L5 19" stroke="%2" stroke-width="2.5"/>)"},
    {"options",
     R"(<path d="M3 3h18v18H3z" fill="%3"/><path d="M8 8v.1M12 8v.1M16 8v.1M8 12v.1M12 12v.1M16 12v.1M8 16v.1M12 16v.1M16 16v.1" stroke="%2" stroke-width="2"/>)"},
    {"rename", R"(<path d="M3 8h18v8H3z" fill="%3"/><path d="M7 5h4M7 19h4M9 5v14" stroke="%2"/>)"},
    {"aAGAUGE",
     R"(<path d="M4.5 18a9 9 0 1 1 15 0" fill="%3"/><path d="M12 13l5-5" stroke="%2"/><circle cx="12" cy="13" r="1.2" fill="%2" stroke="none"/>)"},
    {"bALPHANUME",
     R"(<rect x="2" y="6" width="20" height="12" rx="1.5" fill="%3"/><path d="M6 9h3v3H6v3h3M15 9h3v6h-3M15 12h3M12 15v.1" stroke="%2"/>)"},
    {"cLED",
     R"(<circle cx="12" cy="12" r="8" fill="%3"/><circle cx="12" cy="12" r="5" fill="%2" stroke="none"/>)"},
    {"dLGAUGE",
     R"(<rect x="8" y="2.5" width="8" height="19" rx="1" fill="%3"/><path d="M12 7v14" stroke="%2" stroke-width="3" stroke-linecap="butt"/><path d="M4 5h2M4 9h2M4 13h2M4 17h2"/>)"},
    {"eODO",
     R"(<rect x="2" y="7" width="20" height="10" rx="1" fill="%3"/><path d="M8.7 7v10M15.3 7v10"/><path d="M5 10l1-.5v5M10.7 9.5h2.5l-2 5M17.3 9.5h2.2v5h-2.2z" stroke="%2"/>)"},
    {"fPCTBAR",
     R"(<rect x="2" y="8" width="20" height="8" rx="1" fill="%3"/><rect x="4" y="10" width="10" height="4" fill="%2" stroke="none"/>)"},
    {"gSTRIP", R"(<path d="M3 3v18h18" fill="none"/><path d="M5 15l3-5 3 3 4-8 3 6 3-2" stroke="%2"/>)"},
    {"iXYGRAPH",
     R"svg(<path d="M3 3v18h18" fill="none"/><ellipse cx="12.5" cy="11.5" rx="6.5" ry="4" transform="rotate(-35 12.5 11.5)" stroke="%2"/>)svg"},
    {"hTEXTTAG",
     R"(<rect x="2.5" y="5" width="19" height="14" rx="1" fill="%3"/><path d="M8 9h8M12 9v7" stroke="%2"/>)"},
    {"back", R"(<path d="M20 12H5M11 6l-6 6 6 6" stroke="%2" stroke-width="2"/>)"},
    {"forward", R"(<path d="M4 12h15M13 6l6 6-6 6" stroke="%2" stroke-width="2"/>)"},
    {"contents",
     R"(<path d="M12 6C9 4 6 4 3 5v14c3-1 6-1 9 1 3-2 6-2 9-1V5c-3-1-6-1-9 1z" fill="%3"/><path d="M12 6v14" stroke="%2"/>)"},
    {"custom",
     R"(<rect x="4" y="4" width="16" height="16" rx="2" fill="%3"/><path d="M12 7l1.5 3.3 3.5.4-2.6 2.4.7 3.5-3.1-1.8-3.1 1.8.7-3.5L7 10.7l3.5-.4z" stroke="%2"/>)"},
    // The lines of the variable tree.
    {"N", R"(<path d="M4 17a8.5 8.5 0 1 1 16 0" fill="%3"/><path d="M12 14l4-5" stroke="%2"/>)"},
    {"I",
     R"(<rect x="12" y="5" width="9" height="14" rx="1" fill="%3"/><path d="M2 12h10M8 8l4 4-4 4" stroke="%2"/>)"},
    {"G",
     R"(<circle cx="12" cy="12" r="8.5" fill="%3"/><ellipse cx="12" cy="12" rx="3.6" ry="8.5"/><path d="M3.5 12h17" stroke="%2"/>)"},
    {"U",
     R"(<circle cx="12" cy="8" r="4" fill="%3"/><path d="M4 21c0-5 3.5-7.5 8-7.5s8 2.5 8 7.5z" fill="%3" stroke="%2"/>)"},
    {"S",
     R"(<path d="M3 8h18l-3 9H6z" fill="%3"/><path d="M8 11v.1M12 11v.1M16 11v.1M10 14v.1M14 14v.1" stroke="%2" stroke-width="2"/>)"},
    {"E",
     R"(<rect x="3" y="8" width="13" height="13" rx="1" fill="%3"/><path d="M11 13L21 3M14 3h7v7" stroke="%2"/>)"},
    {"D",
     R"(<path d="M3 9h3M3 13h3M3 17h3M18 9h3M18 13h3M18 17h3M9 6l-2-3M15 6l2-3"/><rect x="7" y="6" width="10" height="14" rx="5" fill="%3"/><path d="M12 8v10" stroke="%2"/>)"},
    {"T",
     R"(<circle cx="12" cy="13.5" r="7.5" fill="%3"/><path d="M10 2.5h4M12 3v3"/><path d="M12 13.5V9" stroke="%2"/>)"},
    {"M",
     R"(<rect x="4" y="4" width="7" height="7" fill="%3"/><rect x="13" y="13" width="7" height="7" fill="%3"/><rect x="13" y="4" width="7" height="7" fill="%3" stroke="%2"/><rect x="4" y="13" width="7" height="7" fill="%3"/>)"},
    {"Some", R"(<path d="M2.5 13h4l3-8 5 14 3-6h4" stroke="%2" stroke-width="2"/>)"},
    {"Advanced",
     R"(<path d="M4 7h16M4 12h16M4 17h16"/><g fill="%3" stroke="%2"><circle cx="9" cy="7" r="2.2"/><circle cx="16" cy="12" r="2.2"/><circle cx="7" cy="17" r="2.2"/></g>)"},
    {"Filter", R"(<path d="M3 3v18h18" fill="none"/><path d="M5 8h6c4 0 4 10 9 10" stroke="%2"/>)"},
    {"Calc",
     R"(<path d="M15 4c-3-2-4.5 0-4.5 4v8c0 4-1.5 6-4.5 4" stroke="%2" stroke-width="2"/><path d="M16 13l4 5M20 13l-4 5"/>)"},
    {"Roc", R"(<path d="M3 20h18"/><path d="M4 17L18 6M12 6h6v6" stroke="%2"/>)"},
    {"Units",
     R"(<rect x="2" y="8" width="20" height="8" rx="1" fill="%3"/><path d="M6 8v4M10 8v3M14 8v4M18 8v3" stroke="%2"/>)"},
    {"Name", R"(<path d="M3 5h9l9 7-9 7H3z" fill="%3"/><path d="M7 9.5v5M7 12h5" stroke="%2"/>)"},
    {"Min", R"(<path d="M4 20h16"/><path d="M12 4v12M8 12l4 4 4-4" stroke="%2"/>)"},
    {"Max", R"(<path d="M4 4h16"/><path d="M12 20V8M8 12l4-4 4 4" stroke="%2"/>)"},
    {"Smooth",
     R"(<path d="M2 15l3-6 3 7 3-9 3 8 3-7 4 6" stroke-width="1"/><path d="M2 14c5-3 8-1 10-2s6-1 10 0" stroke="%2" stroke-width="2"/>)"},
    {"filter",
     R"(<circle cx="10.5" cy="10.5" r="6.5" fill="%3"/><path d="M15.5 15.5L21 21" stroke="%2" stroke-width="2.5"/>)"},
};

const Outline* outlineOf(std::string_view name) {
    const auto* found = std::find_if(std::begin(kOutlines), std::end(kOutlines),
                                     [=](const Outline& outline) { return outline.name == name; });
    return found == std::end(kOutlines) ? nullptr : found;
}

/// On a selected line the ground is an accent itself.
QByteArray documentOf(const Outline& outline, QIcon::Mode mode) {
    const QPalette palette = QApplication::palette();
    const auto colour = [&](QPalette::ColorRole role) {
        return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active, role).name();
    };
    const bool selected = mode == QIcon::Selected;
    const QString lines = colour(selected ? QPalette::HighlightedText : QPalette::ButtonText);
    const QString accents = selected || mode == QIcon::Disabled ? lines : colour(QPalette::Highlight);
    const QString grounds = colour(selected ? QPalette::Highlight : QPalette::Base);
    const QString frame = QStringLiteral(
        R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24"><g fill="none" stroke="%1" )"
        R"(stroke-width="1.5" stroke-linecap="round" stroke-linejoin="round">)");
    const QString body = frame + QLatin1String(outline.body) + QStringLiteral("</g></svg>");
    return QString(body)
        .replace(QLatin1String("%1"), lines)
        .replace(QLatin1String("%2"), accents)
        .replace(QLatin1String("%3"), grounds)
        .toUtf8();
}

/// The outline in a square of that many pixels. A tree shows the same few over and over; they are drawn once.
QPixmap drawn(const Outline& outline, int side, QIcon::Mode mode) {
    const QString key = QStringLiteral("vistor/%1/%2/%3/%4")
                            .arg(QLatin1String(outline.name.data(), qsizetype(outline.name.size())))
                            .arg(side)
                            .arg(mode)
                            .arg(QApplication::palette().cacheKey());
    QPixmap pixels;
    if (QPixmapCache::find(key, &pixels)) return pixels;
    pixels = QPixmap(side, side);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    QSvgRenderer(documentOf(outline, mode)).render(&painter, QRectF(0, 0, side, side));
    painter.end();
    QPixmapCache::insert(key, pixels);
    return pixels;
}

/// Draws the outline for each size, density and state that is asked for.
class OutlineEngine final : public QIconEngine {
public:
    explicit OutlineEngine(const Outline& outline) : m_outline(outline) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const int side = qMin(rect.width(), rect.height());
        if (side <= 0) return;
        const double ratio = painter->device()->devicePixelRatioF();
        QPixmap pixels = drawn(m_outline, qCeil(side * ratio), mode);
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        painter->drawPixmap(square, pixels);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap whole(size);
        whole.fill(Qt::transparent);
        QPainter painter(&whole);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return whole;
    }
    QIconEngine* clone() const override { return new OutlineEngine(*this); }

private:
    const Outline& m_outline;
};

} // namespace

QIcon picture(const char* name) {
    const Outline* outline = outlineOf(name);
    return outline ? QIcon(new OutlineEngine(*outline)) : QIcon();
}

} // namespace vistor
