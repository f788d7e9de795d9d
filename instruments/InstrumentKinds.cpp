#include "instruments/InstrumentKinds.h"

#include "instruments/VXAGAUGE.h"
#include "instruments/VXALPHANUME.h"
#include "instruments/VXLED.h"
#include "instruments/VXLGAUGE.h"
#include "instruments/VXODO.h"
#include "instruments/VXPCTBAR.h"
#include "instruments/VXSTRIP.h"
#include "instruments/VXTEXTTAG.h"
#include "instruments/VXXYGRAPH.h"

namespace vistor {
namespace {

using Maker = std::unique_ptr<Instrument> (*)(QWidget*);

template <class Type>
std::unique_ptr<Instrument> make(QWidget* parent) {
    return std::make_unique<Type>(parent);
}

/// In the order of the kinds.
constexpr std::array<Maker, kInstrumentKinds.size()> kMakers{
    make<VXAGAUGE>, make<VXALPHANUME>, make<VXLED>,     make<VXLGAUGE>,  make<VXODO>,
    make<VXPCTBAR>, make<VXSTRIP>,     make<VXXYGRAPH>, make<VXTEXTTAG>,
};

} // namespace

std::unique_ptr<Instrument> makeInstrument(Kind kind, QWidget* parent) {
    return kMakers.at(static_cast<std::size_t>(kind))(parent);
}

} // namespace vistor
