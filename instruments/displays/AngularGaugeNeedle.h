// A needle's picture: painted upright once, turned at each repaint, which costs a fraction of painting its
// outline. In: a needle that is laid out. Out: paint.
#pragma once

#include "instruments/displays/AngularGaugeLayout.h"

#include <QPixmap>

class QPainter;

namespace vistor {

class NeedlePicture {
public:
    /// `ratio` is the screen's; `mostPixels` bounds each of the two pictures.
    NeedlePicture(const NeedlePlace& needle, double ratio, double mostPixels);

    /// Where the needle stands for the values of a store.
    double angle(const PropertyStore& properties) const;
    double paintedAngle() const { return m_paintedAngle; }
    /// What the needle covers at an angle, with its shadow.
    QRectF bounds(double angle) const;
    /// The painter has smooth pictures switched on.
    void paint(QPainter& painter, double angle);

private:
    QTransform turned(const QPointF& offset, double angle) const;
    QPointF shadowOffset() const { return {m_shadowDistance / 2, m_shadowDistance}; }

    int m_section;
    ScalePlace m_on;
    double m_detail; ///< pixels of a picture for one logical pixel
    QPointF m_pivot; ///< in a picture, logical pixels
    double m_shadowDistance;
    double m_paintedAngle = 0;
    QPixmap m_body;
    QPixmap m_shadow; ///< null: none
};

} // namespace vistor
