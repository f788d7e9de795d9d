#include "instruments/displays/LedDisplay.h"

#include "instruments/Colours.h"
#include "instruments/displays/PropertyStyles.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

/// Of all lamps' pictures together, so that a file cannot ask for more memory than a screen takes.
constexpr double kMostPicturePixels = 4e6;

constexpr PanelNumbers kPanel{.back = LedBackColour,
                              .border = LedBorder,
                              .borderWidth = LedBorderWidth,
                              .light = LedBorderLight,
                              .shadow = LedBorderShadow,
                              .showCaption = LedShowCaption,
                              .caption = LedCaption,
                              .captionAlignment = LedCaptionAlignment,
                              .captionPlace = LedCaptionPlace,
                              .captionColour = LedCaptionColour};

const QColor kStatelessLit(0xE8, 0xEC, 0xF0);
const QColor kStatelessUnlit(0x38, 0x3C, 0x42);

PanelStyle panelStyle(const PropertyStore& p, const QColor& page) {
    PanelStyle style = panelStyleOf(p, kPanel);
    if (p.flag(LedOnPage)) style.back = page;
    style.shaded = p.flag(LedShading) && !p.flag(LedOnPage);
    return style;
}

std::vector<LedRowStyle> rowStyles(const PropertyStore& p) {
    std::vector<LedRowStyle> styles;
    for (int row = 0; row < p.integer(LedRows); ++row) styles.push_back(ledRowStyle(p, row));
    return styles;
}

double marginIn(const PropertyStore& p, const QRectF& area) {
    return std::min(double(p.bounded(LedMargin)), std::min(area.width(), area.height()) / 4);
}

} // namespace

LedDisplay::LedDisplay(QWidget* parent) : InnerDisplay(kLedTable, parent) {}

/// All of the rectangle, unless the panel takes the size of its lamps.
QRectF LedDisplay::panel() const {
    const PropertyStore& p = properties();
    const std::vector<LedRowStyle> rows = rowStyles(p);
    if (rows.empty() || rows.front().sizing != LedSizing::Control) return rect();
    const PanelStyle style = panelStyle(p, {});
    const QRectF inside = panelInside(style, rect());
    const double margin = p.bounded(LedMargin);
    const QSizeF taken = ledExtent(rows) + QSizeF(2 * margin, 2 * margin) + (QSizeF(size()) - inside.size());
    QRectF area(QPointF(), taken.boundedTo(QSizeF(size())));
    area.moveCenter(QRectF(rect()).center());
    return area.toAlignedRect();
}

std::vector<LedRowPlace> LedDisplay::places() const {
    const PropertyStore& p = properties();
    const QRectF inside = panelInside(panelStyle(p, {}), panel());
    const double margin = marginIn(p, inside);
    return ledPlaces(rowStyles(p), inside.adjusted(margin, margin, -margin, -margin));
}

void LedDisplay::layOut() {
    const PropertyStore& p = properties();
    m_pictures.clear();
    m_picturePixels = 0;
    m_rows.clear();
    m_textWidth = 0;
    for (int state = 0; state < p.integer(LedStates); ++state)
        m_textWidth = std::max(m_textWidth, lampTextWidth(p.text(LedStateText, state)));
    for (const LedRowPlace& place : places()) {
        const int index = static_cast<int>(m_rows.size());
        Row row{.place = place,
                .shape = LampShape(p.choice(LedShape, index)),
                .first = firstLamp(p, index),
                .oneColour = p.flag(LedOneColour, index)};
        for (int i = 0; i < p.bounded(LedLamps, index); ++i)
            row.states.push_back(lampState(p, row.first + i));
        row.painted.assign(row.states.size(), kUnlit);
        m_rows.push_back(std::move(row));
    }
}

LampLook LedDisplay::look(const Row& row, int state, bool lit) const {
    const PropertyStore& p = properties();
    const auto colour = [&](int number, const QColor& otherwise) {
        return state < 0 ? otherwise : colourOf(p.integer(number, state));
    };
    const QColor litColour = colour(LedLitColour, kStatelessLit);
    LampLook look;
    look.shape = row.shape;
    look.lit = lit;
    look.shaded = p.flag(LedShading);
    look.colour = lit ? litColour : colour(LedUnlitColour, kStatelessUnlit);
    look.ground = p.flag(LedOnPage) ? palette().color(QPalette::Window) : colourOf(p.integer(LedBackColour));
    look.lettering = lit ? mixed(litColour, Qt::black, 0.82) : mixed(look.colour, litColour, 0.5);
    if (state >= 0) look.text = p.text(LedStateText, state);
    look.textWidth = m_textWidth;
    return look;
}

const QPixmap& LedDisplay::picture(const Row& row, int state, bool lit) {
    const auto index = static_cast<quint64>(&row - m_rows.data());
    const quint64 key = index << 32 | static_cast<quint64>(state + 1) << 1 | (lit ? 1U : 0U);
    if (const auto found = m_pictures.constFind(key); found != m_pictures.constEnd()) return *found;
    const QPixmap made = lampPicture(look(row, state, lit), row.place.lamp, devicePixelRatioF());
    const double pixels = double(made.width()) * made.height();
    if (m_picturePixels + pixels > kMostPicturePixels) {
        m_pictures.clear();
        m_picturePixels = 0;
    }
    m_picturePixels += pixels;
    return *m_pictures.insert(key, made);
}

void LedDisplay::paintLampAt(QPainter& painter, const Row& row, int lamp, int state, bool lit) {
    const double ratio = devicePixelRatioF();
    const QRectF place = shiningPlace(row, lamp, lit);
    if (!place.intersects(rect())) return;
    if (place.width() * place.height() * ratio * ratio > kMostPicturePixels)
        return paintLamp(painter, look(row, state, lit), row.place.at(lamp));
    const auto whole = [ratio](double x) { return std::round(x * ratio) / ratio; };
    painter.drawPixmap(QPointF(whole(place.left()), whole(place.top())), picture(row, state, lit));
}

QRectF LedDisplay::shiningPlace(const Row& row, int lamp, bool lit) const {
    const double shine = lit ? lampShine(row.place.lamp, properties().flag(LedShading)) : 0;
    return row.place.at(lamp).adjusted(-shine, -shine, shine, shine);
}

void LedDisplay::paintStatic(QPainter& painter) {
    layOut();
    const QColor page = palette().color(QPalette::Window);
    if (panel() != QRectF(rect())) painter.fillRect(rect(), page);
    paintPanel(painter, panelStyle(properties(), page), panel());
    for (const Row& row : m_rows)
        for (std::size_t i = 0; i < row.states.size(); ++i)
            paintLampAt(painter, row, static_cast<int>(i), row.states[i], false);
}

void LedDisplay::readLit(std::size_t index) const {
    const Row& row = m_rows[index];
    const LampValue value = lampValue(properties(), static_cast<int>(index));
    m_lit.assign(row.states.size(), kUnlit);
    int last = kUnlit;
    for (std::size_t i = row.states.size(); i-- > 0;) {
        if (!lampIsLit(value, row.first + static_cast<int>(i))) continue;
        if (last == kUnlit || !row.oneColour) last = row.states[i];
        m_lit[i] = last;
    }
}

void LedDisplay::paintMoving(QPainter& painter) {
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        readLit(index);
        Row& row = m_rows[index];
        for (std::size_t i = 0; i < m_lit.size(); ++i)
            if (m_lit[i] != kUnlit) paintLampAt(painter, row, static_cast<int>(i), m_lit[i], true);
        std::swap(row.painted, m_lit);
    }
}

QRect LedDisplay::movedPart() const {
    QRectF part;
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        readLit(index);
        const Row& row = m_rows[index];
        for (std::size_t i = 0; i < m_lit.size(); ++i)
            if (m_lit[i] != row.painted[i]) part = part.united(shiningPlace(row, static_cast<int>(i), true));
    }
    return part.isNull() ? QRect() : part.toAlignedRect().adjusted(-1, -1, 1, 1);
}

} // namespace vistor
