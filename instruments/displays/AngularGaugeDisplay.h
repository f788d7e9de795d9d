// A dial with needles. In: properties by number, see kAngularGaugeTable. Out: a picture.
#pragma once

#include "instruments/displays/AngularGaugeNeedle.h"
#include "instruments/displays/InnerDisplay.h"

namespace vistor {

class AngularGaugeDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit AngularGaugeDisplay(QWidget* parent = nullptr);

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;
    QRect movedPart() const override;

private:
    void paintHubPicture(const DialLayout& layout);

    std::vector<NeedlePicture> m_needles;
    QPixmap m_hubs; ///< what covers the needles
    QPointF m_hubPlace;
};

} // namespace vistor
