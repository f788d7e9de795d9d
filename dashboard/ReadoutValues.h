// What the readouts of the page in front show, as words for a log. In: the dashboard. Out: a line of text.
#pragma once

#include <QString>

namespace vistor {

class frmInterface;

/// "name=value" for every bound readout of the page in front, parted by blanks.
QString readoutValues(const frmInterface& dashboard);

} // namespace vistor
