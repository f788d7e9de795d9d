// The instruments of all pages: one array for each kind, numbered from 0. In: what the person places and
// removes. Out: every element in the order of its making.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <memory>
#include <vector>

class QWidget;

namespace vistor {

class Instrument;
class Page;

struct InstrumentElement {
    Kind kind;
    int number; ///< in its kind's array; 0 is the template, which is never shown and never saved
    std::shared_ptr<Instrument> instrument;
};

class InstrumentArrays {
public:
    /// Makes element 0 of each kind, hidden, on a page.
    void makeTemplates(QWidget* page);
    /// A new element with the next free number, hidden, on a page.
    Instrument* add(Kind kind, QWidget* page);
    /// Takes the instruments of a page away. One that is still subscribed lives on unseen until the next
    /// rebuild.
    void removeFrom(const Page* page);
    /// The same with one instrument. One that is not among the elements, and a template, stays.
    void remove(const Instrument* instrument);

    const std::vector<InstrumentElement>& all() const { return m_elements; }
    /// The elements with a number, which stand on pages.
    int placedCount() const;
    /// Takes an instrument over as element `number` of its kind's array, hidden.
    Instrument* adopt(int number, std::unique_ptr<Instrument> made);

private:
    std::vector<InstrumentElement> m_elements;
};

/// The page an instrument stands on; null for one that stands on none.
const Page* pageOf(const Instrument& instrument);

} // namespace vistor
