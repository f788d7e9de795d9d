#include "maths/DefinitionForms.h"

#include "maths/DefinitionTables.h"
#include "maths/VariableFiles.h"
#include "maths/modXML.h"
#include "platform/CodePage.h"
#include "platform/WholeFile.h"

#include <QFileInfo>

#include <algorithm>

namespace vistor {
namespace {

bool isEmpty(const UnitConversion& unit) {
    return unit.UnitName.isEmpty() && unit.Description.isEmpty() && unit.Conversion.isEmpty() &&
           unit.Uniit.isEmpty();
}

QString unitsBeside(const QString& path) {
    return QFileInfo(path).path() + u'/' + QLatin1String(kTextForm.unitsFile);
}

/// The reader of the text form stores empty rows for the root and for the first record.
void dropEmptyHead(std::vector<UnitConversion>& units) {
    const std::size_t empty = std::min<std::size_t>(2, units.size());
    const auto end = units.begin() + static_cast<std::ptrdiff_t>(empty);
    units.erase(units.begin(), std::find_if_not(units.begin(), end, isEmpty));
}

QString inWords(const XmlParseError& error) {
    return QStringLiteral("line %1: %2").arg(error.line).arg(error.reason.trimmed());
}

std::optional<Definitions> walked(const XmlDocument& variables, const XmlDocument& units) {
    VariableSlots.fill({});
    UnitSlots.fill({});
    storeVariables(variables);
    storeUnits(units);
    Definitions definitions{UnitConversions, VariableTable};
    dropEmptyHead(definitions.units);
    return definitions;
}

/// Parses; false with the reason where the bytes are no document.
bool parse(XmlDocument& document, const QByteArray& bytes, QString& fault) {
    if (document.parse({bytes.constData(), static_cast<std::size_t>(bytes.size())})) return true;
    fault = inWords(document.parseError());
    return false;
}

std::optional<Definitions> readText(const QString& path, QString& fault) {
    XmlDocument variables;
    XmlDocument units;
    for (const auto& [document, from] : {std::pair(&variables, path), std::pair(&units, unitsBeside(path))}) {
        if (document->load(from)) continue;
        fault = from + QStringLiteral(": ") + inWords(document->parseError());
        return std::nullopt;
    }
    return walked(variables, units);
}

/// In the text form there is no list that was never allocated, and a lower bound is not told.
Definitions asTextCanTell(Definitions definitions) {
    for (VariableDefinition& row : definitions.variables) {
        if (row.IndexNumber == 0) continue; // not written at all
        row.allowLowerBound = 0;
        if (!row.AllowTransformations) row.AllowTransformations.emplace();
    }
    return definitions;
}

QString difference(const QByteArray& before, const QByteArray& after, const char* table) {
    if (before == after) return {};
    const QList<QByteArray> lines = before.split('\n');
    const QList<QByteArray> others = after.split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i] != others.value(i))
            return QStringLiteral("%1, line %2 is not kept whole").arg(QLatin1String(table)).arg(i + 1);
    }
    return QStringLiteral("%1 has more lines than before").arg(QLatin1String(table));
}

QString lossOf(const Definitions& before, const Definitions& after) {
    const DefinitionTables was = printTables(before);
    const DefinitionTables is = printTables(asTextCanTell(after));
    const QString units = difference(was.units, is.units, kUnitsTable);
    return units.isEmpty() ? difference(was.variables, is.variables, kVariablesTable) : units;
}

bool write(const QString& path, const QByteArray& bytes, QString& fault) {
    const QString problem = writeWholeFile(path, bytes);
    if (!problem.isEmpty()) fault = path + QStringLiteral(": ") + problem;
    return problem.isEmpty();
}

bool writeText(const QString& path, const Definitions& definitions, QString& fault, QString& loss) {
    const Definitions told = asTextCanTell(definitions);
    const QByteArray variableBytes = xvrBytes(told.variables);
    const QByteArray unitBytes = xvrUnitBytes(told.units);
    XmlDocument variables;
    XmlDocument units;
    if (!parse(variables, variableBytes, fault) || !parse(units, unitBytes, fault)) return false;
    loss = lossOf(told, walked(variables, units).value());
    return write(unitsBeside(path), unitBytes, fault) && write(path, variableBytes, fault);
}

} // namespace

bool isTextForm(const QString& path) {
    return path.endsWith(u'.' + QLatin1String(kTextForm.extension), Qt::CaseInsensitive);
}

std::optional<Definitions> readForm(const QString& path, QString& fault) {
    if (isTextForm(path)) return readText(path, fault);
    const FileBytes file = readDefinitionFile(path);
    if (!file.problem.isEmpty()) {
        fault = file.problem;
        return std::nullopt;
    }
    auto definitions = readDefinitions(viewOf(file.bytes));
    if (!definitions) fault = QStringLiteral("is no definition file, or a damaged one");
    return definitions;
}

bool writeForm(const QString& path, const Definitions& definitions, QString& fault, QString& loss) {
    loss.clear();
    if (isTextForm(path)) return writeText(path, definitions, fault, loss);
    return write(path, definitionBytes(definitions.units, definitions.variables), fault);
}

} // namespace vistor
