#include "tools/HeadUnits.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistor {
namespace {

struct Spelling {
    const char* written; ///< in lower case
    const char* meant;
};

constexpr Spelling kSpellings[] = {
    {"kph", "km/h"},  {"kmh", "km/h"},     {"kmph", "km/h"}, {"sec", "s"},       {"secs", "s"},
    {"second", "s"},  {"seconds", "s"},    {"msec", "ms"},   {"minutes", "min"}, {"hours", "h"},
    {"celsius", "C"}, {"fahrenheit", "F"}, {"kelvin", "K"},  {"volt", "V"},      {"volts", "V"},
    {"percent", "%"}, {"degree", "°"},     {"degrees", "°"}, {"deg", "°"},
};

/// A unit in the form in which two are compared.
QString spelled(QString unit) {
    constexpr std::pair<char16_t, const char*> kCharacters[] = {{u' ', ""},  {u'^', ""},  {u'µ', "u"},
                                                                {u'μ', "u"}, {u'²', "2"}, {u'³', "3"}};
    for (const auto& [character, plain] : kCharacters)
        unit.replace(QString(QChar(character)), QLatin1String(plain));
    unit.replace(u'º', u'°');
    const QString lower = unit.toLower();
    for (const Spelling& spelling : kSpellings)
        if (lower == QLatin1String(spelling.written)) return QString::fromUtf8(spelling.meant);
    if (lower.startsWith(QLatin1String("deg"))) unit.replace(0, 3, QChar(u'°'));
    if (unit.size() == 2 && unit.front() == u'°' && unit.back().isLetter()) unit.remove(0, 1);
    return unit;
}

/// Whether capitals were typed at will: "PSI" and "Bar" are psi and bar, but "mPa" is not MPa.
bool caseIsFree(const QString& unit) {
    return unit == unit.toUpper() || unit.mid(1) == unit.mid(1).toLower();
}

bool isSame(const QString& unit, const QString& name) {
    if (name.isEmpty()) return false;
    return unit == name || (caseIsFree(unit) && unit.compare(name, Qt::CaseInsensitive) == 0);
}

std::optional<GainAndOffset> inverse(const std::optional<GainAndOffset>& line) {
    if (!line || line->gain == 0) return std::nullopt;
    const GainAndOffset back{1 / line->gain, -line->offset / line->gain};
    if (!std::isfinite(back.gain) || !std::isfinite(back.offset)) return std::nullopt;
    return back;
}

std::optional<GainAndOffset> chained(const std::optional<GainAndOffset>& first,
                                     const std::optional<GainAndOffset>& second) {
    if (!first || !second) return std::nullopt;
    return GainAndOffset{second->gain * first->gain, second->gain * first->offset + second->offset};
}

} // namespace

HeadUnits::HeadUnits(const Definitions& definitions) : m_definitions(definitions) {
    for (const UnitConversion& conversion : definitions.units) {
        if (!m_byKey.contains(conversion.UnitName)) m_byKey.insert(conversion.UnitName, m_units.size());
        m_units.push_back(unitOf(conversion));
    }
    QSet<QStringList> seen;
    for (const VariableDefinition& row : definitions.variables) {
        if (!row.AllowTransformations || seen.contains(*row.AllowTransformations)) continue;
        seen.insert(*row.AllowTransformations);
        m_offers.push_back(offerOf(row));
    }
}

/// A sensor's conversion has its range in its key: "0.5-4.5 V, 0-100 bar".
HeadUnits::Unit HeadUnits::unitOf(const UnitConversion& conversion) {
    const QString& key = conversion.UnitName;
    const bool hasDigit = std::any_of(key.begin(), key.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return {key,
            spelled(key),
            spelled(conversion.Uniit),
            gainAndOffsetOf(conversion.Conversion),
            conversion.Uniit,
            !key.isEmpty() && (!hasDigit || key == conversion.Uniit)};
}

/// The conversion by which a row shows its raw values; without a key where that is its own formula. Without
/// one times are seconds.
HeadUnits::Unit HeadUnits::shownBy(int channel) const {
    const auto number = static_cast<std::size_t>(channel);
    Unit shown;
    if (number < m_definitions.variables.size()) {
        const VariableDefinition& row = m_definitions.variables[number];
        const auto found = m_byKey.constFind(row.ApplyTransformation);
        if (row.UseCustomTrans && row.CustomTransformation != QLatin1String("0"))
            shown = unitOf({{}, {}, row.CustomTransformation, row.CustomUnits});
        else if (found != m_byKey.constEnd())
            shown = m_units[*found];
    }
    if (channel == kTimeVariable && shown.label.isEmpty()) shown = unitOf({{}, {}, {}, QStringLiteral("s")});
    return shown;
}

HeadUnits::Offer HeadUnits::offerOf(const VariableDefinition& row) const {
    Offer offer;
    for (const QString& key : row.AllowTransformations.value_or(QStringList())) {
        const auto found = m_byKey.constFind(key);
        if (found != m_byKey.constEnd()) offer.push_back(&m_units[*found]);
    }
    return offer;
}

/// What a list of conversions calls that unit, by key before label. Null where it offers none, or several
/// that differ.
const HeadUnits::Unit* HeadUnits::plainUnit(const Offer& offer, const QString& spelled) {
    for (QString Unit::*const name : {&Unit::spelledKey, &Unit::spelledLabel}) {
        const Unit* found = nullptr;
        for (const Unit* one : offer) {
            if (!one->plain || !isSame(spelled, one->*name)) continue;
            if (found && found != one) return nullptr;
            found = one;
        }
        if (found) return found;
    }
    return nullptr;
}

std::optional<GainAndOffset> HeadUnits::between(const Offer& offer, const QString& from, const QString& to) {
    const Unit* first = plainUnit(offer, from);
    const Unit* second = plainUnit(offer, to);
    if (!first || !second) return std::nullopt;
    return chained(inverse(first->line), second->line);
}

std::optional<GainAndOffset> HeadUnits::toRaw(const Unit& shown, const Offer& own,
                                              const QString& unit) const {
    const QString wanted = spelled(unit);
    if (isSame(wanted, shown.spelledKey) || isSame(wanted, shown.spelledLabel)) return inverse(shown.line);
    for (const Unit* one : own)
        if (!one->plain && one->key == unit) return inverse(one->line);
    // What only converts units starts from the raw value; a sensor's own raw value is a unit of the list,
    // too.
    const Unit* direct = plainUnit(own, wanted);
    const bool isRaw = direct && !own.empty() && direct == own.front();
    if (direct && (shown.plain || (isRaw && !between(own, wanted, shown.spelledLabel))))
        return inverse(direct->line);
    const auto back = inverse(shown.line);
    if (const auto line = between(own, wanted, shown.spelledLabel)) return chained(line, back);
    for (const Offer& offer : m_offers)
        if (const auto line = between(offer, wanted, shown.spelledLabel)) return chained(line, back);
    return std::nullopt;
}

QString HeadUnits::problem(const Unit& shown, const Offer& own, const QString& unit) const {
    if (m_units.empty())
        return QStringLiteral("what the channel expects for \"%1\" is not known without --definitions; leave "
                              "the unit out for raw values")
            .arg(unit);
    QStringList ways;
    if (inverse(shown.line)) ways << shown.label;
    for (const Unit* one : own)
        if (one->plain && inverse(one->line)) ways << one->key;
    ways.removeAll(QString());
    ways.removeDuplicates();
    const QString others = ways.isEmpty() ? QString() : QStringLiteral("use %1, or ").arg(ways.join(u", "));
    return QStringLiteral(
               "\"%1\" cannot be turned into what the channel expects: %2leave the unit out for raw "
               "values")
        .arg(unit, others);
}

HeadUnit HeadUnits::find(int channel, const QString& unit) const {
    const auto row = static_cast<std::size_t>(channel);
    const Unit shown = shownBy(channel);
    const Offer own = row < m_definitions.variables.size() ? offerOf(m_definitions.variables[row]) : Offer();
    const auto line = toRaw(shown, own, unit);
    return line ? HeadUnit{line, {}} : HeadUnit{{}, problem(shown, own, unit)};
}

} // namespace vistor
