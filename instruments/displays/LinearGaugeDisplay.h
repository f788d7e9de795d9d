// A straight scale with pointers. In: properties by number, see kLinearGaugeTable. Out: a picture.
#pragma once

#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/LinearGaugePointer.h"

namespace vistor {

class LinearGaugeDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit LinearGaugeDisplay(QWidget* parent = nullptr);

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;
    QRect movedPart() const override;

private:
    QRectF m_room; ///< that pointers keep to
    std::vector<LinearPointer> m_pointers;
    std::vector<LinearNumber> m_numbers;
};

} // namespace vistor
