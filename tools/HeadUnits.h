// Units in the heads of a table of text. In: a unit as a person wrote it and a channel's definition. Out: the
// line that turns a value in that unit into the raw value that the channel expects, or why there is none.
#pragma once

#include "maths/ConvertUnits.h"
#include "maths/LoadAndSaveVariableDefinitions.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace vistor {

/// How a value of a column becomes a raw value; `problem` tells why it cannot.
struct HeadUnit {
    std::optional<GainAndOffset> toRaw;
    QString problem;
};

/// Finds units for all heads of a table. A unit may be the key or the label of a conversion, or a usual
/// spelling of one ("F", "degC", "kph"). What the row shows is turned back by the formula in use; another
/// unit is first brought into that one by any list of conversions that offers both. Units of times end as
/// seconds.
class HeadUnits {
public:
    /// `definitions` must outlive the object; they may be empty.
    explicit HeadUnits(const Definitions& definitions);

    HeadUnit find(int channel, const QString& unit) const;

private:
    /// A conversion as it is compared.
    struct Unit {
        QString key; ///< as it stands
        QString spelledKey;
        QString spelledLabel;
        std::optional<GainAndOffset> line;
        QString label;
        bool plain = false; ///< into a unit and nothing else
    };
    using Offer = std::vector<const Unit*>;

    static Unit unitOf(const UnitConversion& conversion);
    static const Unit* plainUnit(const Offer& offer, const QString& spelled);
    static std::optional<GainAndOffset> between(const Offer& offer, const QString& from, const QString& to);
    Unit shownBy(int channel) const;
    Offer offerOf(const VariableDefinition& row) const;
    std::optional<GainAndOffset> toRaw(const Unit& shown, const Offer& own, const QString& unit) const;
    QString problem(const Unit& shown, const Offer& own, const QString& unit) const;

    const Definitions& m_definitions;
    std::vector<Unit> m_units;
    QHash<QString, std::size_t> m_byKey;
    std::vector<Offer> m_offers; ///< all lists that differ
};

} // namespace vistor
