// The angular gauge: variables as needles on a dial. In: values, pin i for needle i. Out: what the display
// shows.
#pragma once

#include "instruments/Instrument.h"

namespace vistor {

class VXAGAUGE final : public Instrument {
    Q_OBJECT

public:
    explicit VXAGAUGE(QWidget* parent);
};

} // namespace vistor
