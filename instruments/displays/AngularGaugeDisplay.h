// A dial with needles. In: properties by number, see kAngularGaugeTable. Out: a picture.
#pragma once

#include "instruments/displays/AngularGaugeLayout.h"
#include "instruments/displays/InnerDisplay.h"

namespace vistor {

class AngularGaugeDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit AngularGaugeDisplay(QWidget* parent = nullptr);

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;

private:
    void paintNeedle(QPainter& painter, const NeedlePlace& needle) const;
    void paintHubPicture();

    DialLayout m_layout;
    QPixmap m_hubs; ///< what covers the needles
    QPointF m_hubPlace;
};

} // namespace vistor
