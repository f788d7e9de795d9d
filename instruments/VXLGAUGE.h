// The linear gauge: variables as pointers along a scale. In: values, pin i for pointer i. Out: what the
// display shows.
#pragma once

#include "instruments/Instrument.h"

namespace vistor {

class VXLGAUGE final : public Instrument {
    Q_OBJECT

public:
    explicit VXLGAUGE(QWidget* parent);
};

} // namespace vistor
