// Run files out of tables of text. In: a CSV file with a head line, a column of times and a column for each
// channel. Out: the bytes of a run file, or one line that says what is wrong and where.
#pragma once

#include "maths/LoadAndSaveVariableDefinitions.h"

#include <QHash>
#include <QIODevice>
#include <QString>

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace vistor {

/// Channel numbers by name, in capitals.
using ChannelNames = QHash<QString, int>;

/// The PhysicalName of each row that has one; of two equal ones the first wins.
ChannelNames channelNames(std::span<const VariableDefinition> table);

struct CsvOptions {
    QString timeColumn;    ///< head of the column of times; empty: the one named "Time" or 1
    bool fromZero = false; ///< take the first row's time off all times
    std::size_t largestRun = std::numeric_limits<std::int32_t>::max(); ///< bytes; a player reads no more
};

struct CsvResult {
    std::vector<std::uint8_t> run; ///< a run file; empty after an error
    int rows = 0;
    QString error; ///< empty when all went well
};

/// Reads a table whose heads are channel numbers (1 to 7999) or names. A unit in square brackets says what
/// the values are in: they are turned into what the channel expects, which `definitions` tell, or the table
/// is refused; values without a unit are raw ones. Fields are separated by ",", ";" or tabs, whichever the
/// head line has most of, and may stand in double quotes. Numbers have a "." as decimal mark. An empty field
/// or "NaN" gives no value. Times are seconds where they have no unit, and do not fall. Between two rows that
/// are further apart than a recording's times may be stand times alone.
CsvResult importCsv(QIODevice& in, const CsvOptions& options, const Definitions& definitions);

} // namespace vistor
