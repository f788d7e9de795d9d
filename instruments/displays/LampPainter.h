// The picture of one lamp. In: shape, size, colour, text. Out: a pixmap, or paint.
#pragma once

#include "instruments/displays/LedTable.h"

#include <QColor>
#include <QPixmap>
#include <QRectF>

class QPainter;

namespace vistor {

struct LampLook {
    LampShape shape = LampShape::Round;
    bool lit = false;
    bool shaded = true;
    QColor colour;
    QColor ground;    ///< on which it stands: its bezel is made of that
    QColor lettering; ///< of the text on it
    QString text;
    double textWidth = 0; ///< that it is fitted by, see lampTextWidth; 0: its own
};

/// How wide a text is, in heights of its font.
double lampTextWidth(const QString& text);

/// How far a lit lamp's shine reaches around it, in logical pixels.
double lampShine(const QSizeF& lamp, bool shaded);

void paintLamp(QPainter& painter, const LampLook& look, const QRectF& place);

/// The same as a picture with the shine around it.
QPixmap lampPicture(const LampLook& look, const QSizeF& lamp, double ratio);

} // namespace vistor
