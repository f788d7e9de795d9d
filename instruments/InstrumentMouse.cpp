// The instrument's frame as a person sees and drags it.
#include "instruments/Colours.h"
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

namespace vistor {
namespace {

const QColor kHatchColour(0xA0, 0xA6, 0xB0);
constexpr int kMarkWidth = 2; ///< pixels
constexpr int kDragSlack = 3; ///< pixels that a hand moves in a click

float twips(double pixels) {
    return static_cast<float>(pixels * kTwipsPerPixel);
}

QString shownValue(const PropertyStore& properties, const ShownProperty& shown) {
    const PropertyInfo* info = properties.table().info(shown.number);
    if (info == nullptr) return {};
    const auto flagWord = [&](bool on) { return QLatin1String(on ? shown.on : shown.off); };
    if (info->type == PropertyType::Boolean || info->type == PropertyType::Flag)
        return flagWord(properties.flag(shown.number));
    if (info->editor == Editor::Choice) {
        const int choice = properties.choice(shown.number);
        return shown.asFlag ? flagWord(choice == 1)
                            : QLatin1String(info->choices.words[static_cast<std::size_t>(choice)]);
    }
    if (isText(info->type)) return properties.text(shown.number);
    const double number = properties.number(shown.number);
    return info->live ? textOfNumber(number, true) : numberShown(number); // samples have 32 bits
}

/// Painted once for each density of screen.
const QPixmap& hatchTile(double ratio) {
    static QPixmap tile;
    if (!tile.isNull() && tile.devicePixelRatio() == ratio) return tile;
    const int pixels = qRound(kHatchTilePixels * ratio);
    tile = QPixmap(pixels, pixels);
    tile.fill(Qt::white);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(pixels) / kHatchTilePixels, double(pixels) / kHatchTilePixels);
    painter.fillPath(frameHatchTile(), kHatchColour);
    painter.end();
    tile.setDevicePixelRatio(ratio);
    return tile;
}

} // namespace

void Instrument::UserControl_Resize() {
    const auto layout = frameLayout(widthTwips(), heightTwips(), m_tagOn);
    if (!layout) return;
    m_display->setGeometry(pixelsOf(layout->display));
    if (m_tagOn) lblTag->setGeometry(pixelsOf(layout->tag));
    m_displayTwips = layout->display.size();
    m_handles = handleRects(0, 0, widthTwips(), heightTwips());
    m_laidOut = size();
    m_framePainted = true;
    update();
}

void Instrument::resizeEvent(QResizeEvent*) {
    if (size() == m_laidOut) return;
    const bool painted = m_framePainted;
    UserControl_Resize();
    if (!isVisible()) m_framePainted = painted; // a size from before the last mode, told on showing
}

void Instrument::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setClipRegion(QRegion(rect()).subtracted(m_display->geometry()));
    painter.fillRect(rect(), m_framePainted ? QColor(Qt::white) : colourOf(m_backColour));
    if (m_framePainted) paintFrame(painter);
}

void Instrument::paintFrame(QPainter& painter) const {
    painter.drawTiledPixmap(rect(), hatchTile(devicePixelRatioF()));
    if (hasFocus() || m_dropTarget) paintMark(painter);
    for (const HandleRect& r : m_handles)
        painter.fillRect(pixelsOf(QRectF(r.left, r.top, r.right - r.left, r.bottom - r.top)), Qt::black);
}

/// A band at the outer edge: it has the keyboard, or takes what is dragged over it.
void Instrument::paintMark(QPainter& painter) const {
    const QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    const QRect inside = rect().adjusted(kMarkWidth, kMarkWidth, -kMarkWidth, -kMarkWidth);
    for (const QRect& side : QRegion(rect()).subtracted(inside)) painter.fillRect(side, colour);
}

/// Reckoned from the place in twips, which may lie beside the whole pixel: a drag then stays at the pointer
/// and does not waver between two grid lines.
QPointF Instrument::twipsAt(const QMouseEvent& event) const {
    const QPointF onPage = QPointF(geometry().topLeft()) + event.position();
    return onPage * kTwipsPerPixel - QPointF(leftTwips(), topTwips());
}

void Instrument::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (PlayMode || event->button() != Qt::LeftButton) return;
    const int handle = handleAt(m_handles, twips(event->position().x()), twips(event->position().y()));
    m_sizing = handle >= 0;
    m_dragging = !m_sizing;
    if (m_sizing) m_activeHandle = static_cast<std::uint8_t>(handle);
    const QPointF start = twipsAt(*event);
    m_dragStartX = static_cast<float>(start.x());
    m_dragStartY = static_cast<float>(start.y());
    m_pressedAt = event->globalPosition().toPoint();
    m_moved = false;
}

/// Whether the mouse has gone further than a click does; from there on it counts from the press.
bool Instrument::dragsTo(const QMouseEvent& event) {
    const int distance = (event.globalPosition().toPoint() - m_pressedAt).manhattanLength();
    if (m_moved || distance <= kDragSlack) return m_moved;
    m_moved = true;
    Q_EMIT dragBegun(m_dragStartX, m_dragStartY);
    return true;
}

/// Ends a drag where it is.
void Instrument::letGo() {
    m_dragging = m_sizing = false;
    setCursor(Qt::ArrowCursor);
}

void Instrument::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (PlayMode) return setCursor(Qt::ArrowCursor);
    // The button went up elsewhere, over a window that came up in the middle.
    if (isHeld() && !event->buttons().testFlag(Qt::LeftButton)) letGo();
    if (isHeld() && !dragsTo(*event)) return;
    const QPointF place = twipsAt(*event);
    const auto x = static_cast<float>(place.x());
    const auto y = static_cast<float>(place.y());
    if (m_sizing) return Q_EMIT ControlSizing(m_activeHandle, x, y);
    if (m_dragging) {
        setCursor(Qt::SizeAllCursor);
        return Q_EMIT ControlMoving(m_dragStartX, m_dragStartY, x, y);
    }
    const int handle = handleAt(m_handles, twips(event->position().x()), twips(event->position().y()));
    if (handle >= 0) m_activeHandle = static_cast<std::uint8_t>(handle);
    setCursor(pointerOver(handle));
}

void Instrument::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (PlayMode || event->button() != Qt::LeftButton) return;
    if (isHeld() && !dragsTo(*event)) return letGo();
    const QPointF place = twipsAt(*event);
    const auto x = static_cast<float>(place.x());
    const auto y = static_cast<float>(place.y());
    if (m_sizing) {
        m_sizing = false;
        return Q_EMIT ControlSized(m_activeHandle, x, y);
    }
    if (!m_dragging) return;
    m_dragging = false;
    Q_EMIT ControlMoved(m_dragStartX, m_dragStartY, x, y);
}

void Instrument::displayPressed(Qt::MouseButton button, const QPoint& place) {
    if (!PlayMode && button == Qt::RightButton) Q_EMIT menuWanted(place);
}

void Instrument::displayMoved() {
    if (PlayMode) return;
    setCursor(Qt::ArrowCursor);
    if (!PropertiesWindowShown) return;
    Q_EMIT propertiesShown(QLatin1String(kindInfo(m_kind).title), shownLabels(), shownValues());
}

QStringList Instrument::shownLabels() const {
    QStringList labels;
    for (const ShownProperty& shown : m_display->properties().table().parts().shown)
        labels << QLatin1String(shown.label);
    return labels;
}

QStringList Instrument::shownValues() const {
    QStringList values;
    for (const ShownProperty& shown : m_display->properties().table().parts().shown)
        values << shownValue(m_display->properties(), shown);
    return values;
}

} // namespace vistor
