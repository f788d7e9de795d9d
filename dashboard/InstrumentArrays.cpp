#include "dashboard/InstrumentArrays.h"

#include "dashboard/Page.h"
#include "instruments/Instrument.h"

#include <algorithm>

namespace vistor {
namespace {

/// The keyboard goes to the page: left to itself the toolkit would hand it to the next instrument.
void takeOff(Instrument& instrument) {
    if (instrument.hasFocus()) instrument.parentWidget()->setFocus();
    instrument.hide();
    instrument.setParent(nullptr);
}

} // namespace

Instrument* InstrumentArrays::adopt(int number, std::unique_ptr<Instrument> made) {
    const Kind kind = made->kind();
    made->setObjectName(QLatin1String(kindInfo(kind).className));
    made->hide();
    // An instrument may ask for its own end from inside one of its signals.
    std::shared_ptr<Instrument> shared(made.release(), [](Instrument* last) { last->deleteLater(); });
    m_elements.push_back({kind, number, std::move(shared)});
    return m_elements.back().instrument.get();
}

void InstrumentArrays::makeTemplates(QWidget* page) {
    for (const KindInfo& info : kInstrumentKinds) adopt(0, makeInstrument(info.kind, page));
}

Instrument* InstrumentArrays::add(Kind kind, QWidget* page) {
    int number = 1;
    for (const InstrumentElement& element : m_elements) {
        if (element.kind == kind) number = std::max(number, element.number + 1);
    }
    return adopt(number, makeInstrument(kind, page));
}

void InstrumentArrays::removeFrom(const Page* page) {
    std::erase_if(m_elements, [page](InstrumentElement& element) {
        if (element.number == 0 || pageOf(*element.instrument) != page) return false;
        takeOff(*element.instrument);
        return true;
    });
}

void InstrumentArrays::remove(const Instrument* instrument) {
    std::erase_if(m_elements, [instrument](InstrumentElement& element) {
        if (element.number == 0 || element.instrument.get() != instrument) return false;
        takeOff(*element.instrument);
        return true;
    });
}

int InstrumentArrays::placedCount() const {
    return static_cast<int>(std::count_if(m_elements.begin(), m_elements.end(),
                                          [](const InstrumentElement& e) { return e.number != 0; }));
}

const Page* pageOf(const Instrument& instrument) {
    return qobject_cast<const Page*>(instrument.parentWidget());
}

} // namespace vistor
