// The scrolling time graph: variables over an X axis that ends at the newest point. In: values on the X and Y
// pins of its tracks. Out: what the display shows.
#pragma once

#include "instruments/GraphInstrument.h"

namespace vistor {

class VXSTRIP final : public GraphInstrument {
    Q_OBJECT

public:
    explicit VXSTRIP(QWidget* parent);

    void mnuProperties_Click() override;

protected:
    void followPoint(double x, double y) override;
};

/// What an instrument that a person has just placed binds by itself: a time graph plots its track 1 over the
/// variable "Time", whatever stood there; other kinds bind nothing.
void bindPlaced(Instrument& instrument);

} // namespace vistor
