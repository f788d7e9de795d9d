#include "dashboard/Pictures.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

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
};

const Outline* outlineOf(std::string_view name) {
    const auto* found = std::find_if(std::begin(kOutlines), std::end(kOutlines),
                                     [=](const Outline& outline) { return outline.name == name; });
    return found == std::end(kOutlines) ? nullptr : found;
}

QByteArray documentOf(const Outline& outline, bool disabled) {
    const QPalette palette = QApplication::palette();
    const auto group = disabled ? QPalette::Disabled : QPalette::Active;
    const QString lines = palette.color(group, QPalette::ButtonText).name();
    const QString accents = disabled ? lines : palette.color(QPalette::Highlight).name();
    const QString grounds = palette.color(group, QPalette::Base).name();
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

/// Draws the outline anew for each size, density and state that is asked for.
class OutlineEngine final : public QIconEngine {
public:
    explicit OutlineEngine(const Outline& outline) : m_outline(outline) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QSvgRenderer renderer(documentOf(m_outline, mode == QIcon::Disabled));
        const int side = qMin(rect.width(), rect.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        renderer.render(painter, square);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
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
