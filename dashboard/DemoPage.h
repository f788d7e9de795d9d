// A page of readouts that shows what the simulated car sends, for a first look at the program. In: nothing.
// Out: bound instruments on page 0; the values of their variables as a line of text.
#pragma once

#include <QString>

namespace vistor {

class frmInterface;

/// Builds the page. The profile does not count as changed by it.
void buildDemoPage(frmInterface& dashboard);

/// "name=value" for every readout of the first page, as the readout holds it, parted by blanks.
QString demoValues(const frmInterface& dashboard);

} // namespace vistor
