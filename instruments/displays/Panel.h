// The ground on which every display draws: background, border and caption. In: a style read from properties.
// Out: a painted panel and the rectangle that is left inside.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace vistor {

enum class Border { None, Flat, Raised, Sunken };
inline constexpr const char* kBorderWords[] = {"None", "Flat", "Raised", "Sunken"};

/// The border of a property's value; none for another number.
constexpr Border borderOf(int choice) {
    return choice >= 0 && choice <= int(Border::Sunken) ? Border(choice) : Border::None;
}

struct PanelStyle {
    QColor back;
    bool shaded = false; ///< a little lighter at the top and darker at the bottom
    Border border = Border::None;
    int borderWidth = 1; ///< logical pixels
    QColor light;        ///< of the border's lit edges; a flat border has no other
    QColor shadow;
    QString caption;       ///< empty: none
    int captionHeight = 0; ///< of its text; 0: by the panel's height
    Qt::Alignment captionAlignment = Qt::AlignHCenter;
    bool captionBelow = false;
    QColor captionColour;
};

/// Text height of a caption on a panel of this height, in logical pixels.
int captionPixels(double panelHeight);

/// Where panel and caption leave room.
QRectF panelInside(const PanelStyle& style, const QRectF& panel);

void paintPanel(QPainter& painter, const PanelStyle& style, const QRectF& panel);

} // namespace vistor
