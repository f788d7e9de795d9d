// Small tables and clocks for tests of the sample path.
#pragma once

#include "platform/Clock.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QString>

namespace vistor {

/// A clock that stands until it is moved; the machine's own comes back at the end.
class HandClock {
public:
    explicit HandClock(double start) : m_now(start) {
        setClock([this] { return m_now; });
    }
    ~HandClock() { setClock({}); }
    void moveTo(double now) { m_now = now; }
    void moveBy(double seconds) { m_now += seconds; }

private:
    double m_now;
};

/// A table of 8001 rows, each with its number and the names "P<number>" and "B<number>", and one conversion
/// without effect.
inline void makeTable() {
    UnitConversions = {{QStringLiteral("NONE"), {}, QStringLiteral("$1$0"), QStringLiteral("-")}};
    VariableTable.assign(kVariableCount, {});
    for (int row = 1; row < kVariableCount; ++row) {
        VariableDefinition& definition = VariableTable[static_cast<std::size_t>(row)];
        definition.IndexNumber = row;
        definition.PhysicalName = QStringLiteral("P%1").arg(row);
        definition.BaseName = QStringLiteral("B%1").arg(row);
        definition.ApplyTransformation = QStringLiteral("NONE");
    }
    SetupVariables();
}

/// Gives a row a formula of its own.
inline void setFormula(int row, const QString& formula) {
    VariableTable[static_cast<std::size_t>(row)].UseCustomTrans = kTrue16;
    VariableTable[static_cast<std::size_t>(row)].CustomTransformation = formula;
}

} // namespace vistor
