// The lamps: one variable as lit lamps, by its size or by its bits. In: values on its one pin. Out: what the
// display shows.
#pragma once

#include "instruments/Instrument.h"

namespace vistor {

class VXLED final : public Instrument {
    Q_OBJECT

public:
    explicit VXLED(QWidget* parent);
};

} // namespace vistor
