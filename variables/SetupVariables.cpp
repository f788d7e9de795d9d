#include "variables/SetupVariables.h"

#include "platform/CodePage.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace vistor {
namespace {

struct NumberRange {
    int first;
    int last;
};

constexpr NumberRange kAvailable[] = {
    {1, 1},       {2, 2},       {4, 4},       {10, 10},     {15, 16},     {30, 31},     {70, 70},
    {72, 72},     {74, 74},     {90, 91},     {100, 100},   {200, 231},   {300, 319},   {400, 416},
    {430, 431},   {450, 451},   {500, 500},   {1000, 1024}, {1500, 1503}, {2000, 2030}, {2500, 2511},
    {3000, 3002}, {3500, 3504}, {4000, 4004}, {5050, 5081}, {6001, 6025}};

constexpr VariableGroup kGroups[] = {
    {1, "Standard variables", "N"},     {2, "External inputs", "I"},      {3, "GPS variables", "G"},
    {4, "User defined variables", "U"}, {5, "Serial variables", "S"},     {6, "External variables", "E"},
    {7, "Debugging variables", "D"},    {8, "Lap timing variables", "T"}, {9, "Misc variables", "M"},
};

/// The form in which names are compared.
QString normalisedName(const QString& name) {
    qsizetype first = 0;
    qsizetype end = name.size();
    while (first < end && name[first] == u' ') ++first;
    while (end > first && name[end - 1] == u' ') --end;
    return foldedCase(name.mid(first, end - first));
}

/// Everything that is looked up by text, built from the tables when they have changed.
struct Index {
    std::uint64_t revision = 0;
    QHash<QString, int> physical;    ///< by normalised name
    QHash<QString, int> base;        ///< by normalised name
    QHash<QString, int> physicalRaw; ///< by the name as it stands in its row: what the tick asks for
    QHash<QString, int> units;
    std::vector<std::int32_t> calculated;

    void rebuild();
};

Index theIndex;

void insertFirst(QHash<QString, int>& hash, const QString& key, int row) {
    if (!hash.contains(key)) hash.insert(key, row);
}

/// What the walk compares with: the question's own cutting and cleaning.
QString asked(const QString& name) {
    const qsizetype bracket = name.indexOf(u'[');
    return normalisedName(bracket < 0 ? name : name.left(bracket)).remove(QChar(u'\0'));
}

void Index::rebuild() {
    *this = {};
    const int rows = static_cast<int>(std::min<std::size_t>(VariableTable.size(), kVariableCount));
    physical.reserve(rows);
    base.reserve(rows);
    physicalRaw.reserve(rows);
    for (int row = 0; row < rows; ++row) {
        const VariableDefinition& definition = VariableTable[static_cast<std::size_t>(row)];
        insertFirst(physical, normalisedName(definition.PhysicalName), row);
        insertFirst(base, normalisedName(definition.BaseName), row);
        if (row > 0 && definition.VariableType == kCalculatedType) calculated.push_back(row);
    }
    for (int row = 0; row < rows; ++row) {
        const QString& name = VariableTable[static_cast<std::size_t>(row)].PhysicalName;
        insertFirst(physicalRaw, name, physical.value(asked(name), kNoVariable));
    }
    for (int row = 0; row < static_cast<int>(UnitConversions.size()); ++row)
        insertFirst(units, UnitConversions[static_cast<std::size_t>(row)].UnitName, row);
    revision = tableRevision;
}

const Index& index() {
    if (theIndex.revision != tableRevision) theIndex.rebuild();
    return theIndex;
}

/// A part of a number in the reader below: digits with at most one leading "-". No value where the text is
/// none.
bool readDigits(const QString& text, double& number) {
    bool ok = false;
    const double read = text.trimmed().toDouble(&ok);
    if (ok) number = read;
    return ok;
}

QString keepOnly(const QString& text, const QString& allowed) {
    QString kept;
    for (const QChar character : text) {
        if (allowed.contains(character)) kept += character;
    }
    return kept;
}

/// The fraction behind the point: its digits as a number brought below 1, then a tenth for every leading
/// zero.
bool readFraction(QString digits, double& fraction) {
    double value = 0;
    if (!readDigits(digits, value)) return false;
    while (std::abs(value) >= 1) value /= 10;
    while (digits.startsWith(u'0')) {
        value /= 10;
        digits.remove(0, 1);
    }
    fraction = value;
    return true;
}

void deriveConstantNames() {
    for (std::size_t row = 1; row < VariableTable.size(); ++row) {
        VariableDefinition& definition = VariableTable[row];
        const QString* unit = nullptr;
        if (definition.UseCustomTrans)
            unit = &definition.CustomUnits;
        else if (!UnitConversions.empty())
            unit = &UnitConversions[static_cast<std::size_t>(FindUnit(definition.ApplyTransformation))].Uniit;
        if (unit) definition.ConstantName = definition.BaseName + QStringLiteral(" [") + *unit + u']';
    }
}

} // namespace

std::span<const VariableGroup> variableGroups() {
    return kGroups;
}

bool isAvailableNumber(int number) {
    return std::any_of(std::begin(kAvailable), std::end(kAvailable),
                       [=](NumberRange range) { return number >= range.first && number <= range.last; });
}

void SetupVariables() {
    tableChanged();
    const std::size_t rows = std::min<std::size_t>(VariableTable.size(), kVariableCount);
    for (std::size_t row = 1; row < rows; ++row) {
        VariableDefinition& definition = VariableTable[row];
        definition.Available = isAvailableNumber(static_cast<int>(row)) ? kTrue16 : kFalse16;
        definition.Enabled = definition.Available;
    }
    deriveConstantNames();
    if (rows > kNoVariable)
        VariableTable[kNoVariable].Available = VariableTable[kNoVariable].Enabled = kFalse16;
}

int FindVariableByPhysicalName(const QString& name) {
    const Index& names = index();
    const auto raw = names.physicalRaw.constFind(name);
    if (raw != names.physicalRaw.constEnd()) return *raw;
    return names.physical.value(asked(name), kNoVariable);
}

int FindVariableByBaseName(const QString& name) {
    return index().base.value(asked(name), kNoVariable);
}

int FindUnit(const QString& key) {
    return index().units.value(key, 0);
}

std::span<const std::int32_t> calculatedRows() {
    return index().calculated;
}

QString ToInvariantText(QString text) {
    if (!DecimalSeparator.isEmpty()) text.replace(DecimalSeparator, QStringLiteral("."));
    return text;
}

QString numberText(float value) {
    if (value == 0) return QStringLiteral("0"); // minus zero too
    QString text = QString::number(static_cast<double>(value), 'g', 7).toUpper();
    return DecimalSeparator.isEmpty() ? text : text.replace(u'.', DecimalSeparator);
}

double ParseNumber(QString& text) {
    text = ToInvariantText(text);
    return ParseInvariantNumber(text);
}

double ParseNumber(QString&& text) {
    return ParseNumber(static_cast<QString&>(text));
}

double ParseInvariantNumber(const QString& text) {
    QString rest = text.trimmed().toUpper().left(40);
    if (rest.isEmpty()) return 0;
    const bool negative = rest.startsWith(u'-');
    if (negative) rest.remove(0, 1);

    double factor = 1;
    const QStringList parts = rest.split(u'E');
    if (parts.size() > 1) {
        const QString exponent = keepOnly(parts[1], QStringLiteral("0123456789-"));
        double power = 0;
        if (!exponent.isEmpty()) {
            if (!readDigits(exponent, power)) return 0;
            factor = std::pow(10.0, power);
        }
    }
    const QString mantissa = keepOnly(parts[0], QStringLiteral("0123456789E.-"));
    if (mantissa.isEmpty()) return 0;

    const QStringList numbers = mantissa.split(u'.');
    double fraction = 0;
    if (numbers.size() > 1 && !numbers[1].trimmed().isEmpty() && !readFraction(numbers[1], fraction))
        return 0;
    double whole = 0;
    if (!numbers[0].isEmpty() && !readDigits(numbers[0], whole)) return 0;
    const double result = (whole + fraction) * factor;
    if (!std::isfinite(result)) return 0;
    return negative ? -result : result;
}

double Clamp(double low, double value, double high) {
    if (value < low) return low;
    return value <= high ? value : high;
}

double Larger(double a, double b) {
    return a <= b ? b : a;
}

} // namespace vistor
