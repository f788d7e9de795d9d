// Portions of a whole, as bars or rings. In: properties by number, see kPercentTable. Out: a picture.
#pragma once

#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/PercentLayout.h"

namespace vistor {

class PercentDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit PercentDisplay(QWidget* parent = nullptr);

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;
    QRect movedPart() const override;

private:
    PercentPlan m_plan;
    std::vector<double> m_values;            ///< as painted last
    mutable std::vector<double> m_newValues; ///< room for a look at them without allocating
    mutable std::vector<PortionSpan> m_spans;

    void readValues(std::vector<double>& values) const;
};

} // namespace vistor
