#include "dashboard/ReadoutValues.h"

#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/NumLedDisplay.h"

namespace vistor {
namespace {

QString valueOf(const Instrument& readout) {
    const PropertyStore& properties = readout.inCTRL().properties();
    return readout.curVarTable().at(1) + u'=' +
           QString::number(properties.number(NumLedValue), 'f', properties.bounded(NumLedDecimals));
}

} // namespace

QString readoutValues(const frmInterface& dashboard) {
    QStringList values;
    for (const InstrumentElement& element : dashboard.instruments.all()) {
        const Page* page = pageOf(*element.instrument);
        if (element.number == 0 || element.kind != Kind::Alphanumeric || !page) continue;
        if (page->number() != dashboard.CurrentTab || element.instrument->curVarTable().at(1).isEmpty())
            continue;
        values += valueOf(*element.instrument);
    }
    return values.join(u' ');
}

} // namespace vistor
