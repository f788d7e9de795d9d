// The XY graph: one variable over another, such as the track from GPS positions. In: values on the X and Y
// pins of its tracks. Out: what the display shows.
#pragma once

#include "instruments/GraphInstrument.h"
#include "instruments/displays/StripTraces.h"

namespace vistor {

class VXXYGRAPH final : public GraphInstrument {
    Q_OBJECT

public:
    explicit VXXYGRAPH(QWidget* parent);

    void mnuProperties_Click() override;

protected:
    void followPoint(double x, double y) override;
    QString trackName(const PinTable& table, int track) const override;

private:
    Extremes m_x; ///< of every point so far, whatever is cleared
};

} // namespace vistor
