// An instrument's place in twips, the keys that it takes while it has the keyboard, and the variables that
// are dropped on it.
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableDrag.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>
#include <array>

namespace vistor {
namespace {

struct ArrowKey {
    int key;
    int columns;
    int rows;
};

constexpr std::array<ArrowKey, 4> kArrowKeys{
    {{Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}}};

/// A number as it was given where it still tells the widget's place, else that place.
double kept(bool holds, double given, int pixels) {
    return holds ? given : double(pixels) * kTwipsPerPixel;
}

} // namespace

double Instrument::leftTwips() const {
    return kept(geometry().x() == m_placeAt.x(), m_place.x(), geometry().x());
}

double Instrument::topTwips() const {
    return kept(geometry().y() == m_placeAt.y(), m_place.y(), geometry().y());
}

double Instrument::widthTwips() const {
    return kept(width() == m_placeAt.width(), m_place.width(), width());
}

double Instrument::heightTwips() const {
    return kept(height() == m_placeAt.height(), m_place.height(), height());
}

void Instrument::moveTwips(double left, double top) {
    m_place = QRectF(left, top, widthTwips(), heightTwips());
    m_placeAt = QRect(QPoint(toPixels(left), toPixels(top)), size());
    move(m_placeAt.topLeft());
}

void Instrument::setSizeTwips(double width, double height) {
    m_place = QRectF(leftTwips(), topTwips(), width, height);
    m_placeAt = QRect(geometry().topLeft(), QSize(toPixels(width), toPixels(height)));
    resize(m_placeAt.size());
    UserControl_Resize();
}

void Instrument::placeTwips(const QRectF& place) {
    const QPoint first(toPixels(place.left()), toPixels(place.top()));
    const QPoint behind(toPixels(place.right()), toPixels(place.bottom()));
    m_place = place;
    m_placeAt = QRect(first, QSize(behind.x() - first.x(), behind.y() - first.y()));
    setGeometry(m_placeAt);
}

void Instrument::keyPressEvent(QKeyEvent* event) {
    if (PlayMode || !takeKey(*event)) QWidget::keyPressEvent(event);
}

bool Instrument::takeKey(const QKeyEvent& event) {
    if (isHeld()) {
        if (event.key() == Qt::Key_Escape) giveUpDrag();
        return true; // the others wait for the end of the drag
    }
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto* arrow = std::find_if(kArrowKeys.begin(), kArrowKeys.end(),
                                     [&](const ArrowKey& each) { return each.key == event.key(); });
    if (arrow != kArrowKeys.end() && (modifiers == Qt::NoModifier || modifiers == Qt::AltModifier))
        Q_EMIT stepWanted(arrow->columns, arrow->rows, modifiers == Qt::AltModifier);
    else if (event.matches(QKeySequence::Cut))
        mnuCut_Click();
    else if (event.matches(QKeySequence::Copy))
        mnuCopy_Click();
    else if (event.key() == Qt::Key_Delete && modifiers == Qt::NoModifier)
        mnuDelete_Click();
    else
        return false;
    return true;
}

void Instrument::giveUpDrag() {
    letGo();
    if (m_moved) Q_EMIT dragCancelled();
}

void Instrument::focusInEvent(QFocusEvent*) {
    update();
    Q_EMIT focused();
}

/// Another window, another page or a menu has come in front: the end of a drag would not be heard.
void Instrument::focusOutEvent(QFocusEvent*) {
    if (isHeld()) letGo();
    update();
}

void Instrument::showDropTarget(bool shown) {
    m_dropTarget = shown;
    update();
}

void Instrument::dragEnterEvent(QDragEnterEvent* event) {
    const bool hasPins = m_display->properties().table().parts().pins != PinForm::None;
    const bool takes = !PlayMode && hasPins && event->mimeData()->hasFormat(QLatin1String(kVariableDragType));
    event->setAccepted(takes);
    showDropTarget(takes);
}

void Instrument::dragLeaveEvent(QDragLeaveEvent*) {
    showDropTarget(false);
}

void Instrument::dropEvent(QDropEvent* event) {
    showDropTarget(false);
    event->acceptProposedAction();
    Q_EMIT variableDropped(event->source());
}

} // namespace vistor
