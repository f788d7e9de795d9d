// The percentage bar: variables as portions of a whole. In: values, pin i for portion i. Out: what the
// display shows.
#pragma once

#include "instruments/Instrument.h"

namespace vistor {

class VXPCTBAR final : public Instrument {
    Q_OBJECT

public:
    explicit VXPCTBAR(QWidget* parent);
};

} // namespace vistor
