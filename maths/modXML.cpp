#include "maths/modXML.h"

#include "maths/FileSupportFunctions.h"
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "maths/script/Conversions.h"
#include "platform/CodePage.h"
#include "platform/IniFile.h"
#include "platform/Prompts.h"
#include "platform/WholeFile.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace vistor {
namespace {

constexpr std::size_t kNumberSlot = 1;

QChar separator() {
    return DecimalSeparator.isEmpty() ? QChar(u'.') : DecimalSeparator.front();
}

/// The number in a text of the locale, whose other mark parts thousands.
std::optional<double> localeNumber(QString text) {
    const QChar mark = separator();
    if (mark != u'.') {
        for (QChar& character : text) {
            if (character == mark)
                character = u'.';
            else if (character == u'.')
                character = u',';
        }
    }
    const auto number = script::parseNumber(text.toStdU16String());
    if (!number || !std::isfinite(*number)) return {};
    return number;
}

/// Rounds half to even; nothing outside the range of the type.
template <typename Integer>
std::optional<Integer> rounded(std::optional<double> number) {
    if (!number) return {};
    const double whole = std::nearbyint(*number);
    if (whole < static_cast<double>(std::numeric_limits<Integer>::min()) ||
        whole > static_cast<double>(std::numeric_limits<Integer>::max()))
        return {};
    return static_cast<Integer>(whole);
}

std::optional<float> narrowed(std::optional<double> number) {
    if (!number || std::abs(*number) > static_cast<double>(std::numeric_limits<float>::max())) return {};
    return static_cast<float>(*number);
}

template <typename Field>
void store(Field& field, const std::optional<Field>& value) {
    if (value) field = *value;
}

/// Texts that need no conversion to bytes are most of a file.
void append(QByteArray& line, const QString& text) {
    if (!text.isEmpty()) line += toCodePage(text);
}

/// An element of a block: how its field is written behind what stands in `line`, and how it is read.
struct Element {
    const char* tag;
    std::size_t slot;
    void (*write)(QByteArray& line, const VariableDefinition& row);
    void (*read)(VariableDefinition& row, const QString& text);
};

template <auto Field>
constexpr Element textElement(const char* tag, std::size_t slot) {
    return {tag, slot, [](QByteArray& line, const VariableDefinition& row) { append(line, row.*Field); },
            [](VariableDefinition& row, const QString& text) { row.*Field = text; }};
}

template <auto Field>
constexpr Element flagElement(const char* tag, std::size_t slot) {
    return {tag, slot,
            [](QByteArray& line, const VariableDefinition& row) { line += row.*Field ? "-1" : "0"; },
            [](VariableDefinition& row, const QString& text) {
                row.*Field = leadingNumber(text) != 0 ? kTrue16 : kFalse16;
            }};
}

enum class Parse { Locale, Prefix };

template <Parse parse>
std::optional<double> parsed(const QString& text) {
    return parse == Parse::Locale ? localeNumber(text) : leadingNumber(text);
}

template <auto Field, Parse parse>
constexpr Element wholeElement(const char* tag, std::size_t slot) {
    return {tag, slot,
            [](QByteArray& line, const VariableDefinition& row) { line += QByteArray::number(row.*Field); },
            [](VariableDefinition& row, const QString& text) {
                store(row.*Field,
                      rounded<std::remove_reference_t<decltype(row.*Field)>>(parsed<parse>(text)));
            }};
}

template <auto Field, Parse parse>
constexpr Element floatElement(const char* tag, std::size_t slot) {
    return {tag, slot,
            [](QByteArray& line, const VariableDefinition& row) { append(line, numberText(row.*Field)); },
            [](VariableDefinition& row, const QString& text) {
                store(row.*Field, narrowed(parsed<parse>(text)));
            }};
}

// A list that was never allocated is written as the one before it in the file: what `line` begins with then.
constexpr std::size_t kListElement = 15;

void writeList(QByteArray& line, const VariableDefinition& row) {
    append(line, row.AllowTransformations.value_or(QStringList()).join(u'#'));
}

void readList(VariableDefinition& row, const QString& text) {
    row.AllowTransformations = text.isEmpty() ? QStringList() : text.split(u'#');
    row.allowLowerBound = 0;
}

void writeFormula(QByteArray& line, const VariableDefinition& row) {
    QString text = row.CustomTransformation;
    append(line, text.replace(u'\r', u'#').replace(u'\n', u'$'));
}

void readFormula(VariableDefinition& row, const QString& text) {
    row.CustomTransformation = QString(text).replace(u'#', u'\r').replace(u'$', u'\n');
}

using Row = VariableDefinition;

/// In the order in which they are written.
constexpr Element kElements[] = {
    wholeElement<&Row::IndexNumber, Parse::Locale>("IndexNumber", kNumberSlot),
    textElement<&Row::PhysicalName>("PhysicalName", 2),
    textElement<&Row::BaseName>("BaseName", 3),
    flagElement<&Row::Enabled>("Enabled", 4),
    flagElement<&Row::AlwaysOn>("AlwaysOn", 5),
    flagElement<&Row::Available>("Available", 6),
    wholeElement<&Row::VariableType, Parse::Locale>("VariableType", 7),
    floatElement<&Row::DefaultMin, Parse::Locale>("DefaultMin", 9),
    floatElement<&Row::DefaultMax, Parse::Locale>("DefaultMax", 10),
    wholeElement<&Row::FilterDesign, Parse::Prefix>("FilterDesign", 15),
    floatElement<&Row::FilterLowVal, Parse::Prefix>("FilterLowVal", 17),
    floatElement<&Row::FilterHighVal, Parse::Prefix>("FilterHighVal", 18),
    floatElement<&Row::FilterRipple, Parse::Prefix>("FilterRipple", 19),
    wholeElement<&Row::FilterOrder, Parse::Prefix>("FilterOrder", 20),
    textElement<&Row::ApplyTransformation>("ApplyTransformation", 14),
    {"AllowTransformations", 13, writeList, readList},
    flagElement<&Row::UseCustomTrans>("UseCustomTrans", 21),
    {"CustomTransformation", 22, writeFormula, readFormula},
    textElement<&Row::CustomUnits>("CustomUnits", 23),
    textElement<&Row::Description>("Description", 8),
    floatElement<&Row::SmoothingTime, Parse::Locale>("SmoothingTime", 11),
    floatElement<&Row::MaximumROC, Parse::Locale>("MaximumROC", 12),
    wholeElement<&Row::Calculus, Parse::Prefix>("calculus", 16),
    wholeElement<&Row::Misc, Parse::Prefix>("Misc", 24),
};
static_assert(kElements[kListElement].write == writeList);

/// The reader knows one more, which no file of this program has.
constexpr const char* kUnusedTag = "ConstantName"; // slot 0

/// In the order of their slots; the last one stands so in every file.
constexpr const char* kUnitTags[] = {"UnitName", "Description", "Conversion", "Uniit"};
constexpr QString UnitConversion::*kUnitFields[] = {&UnitConversion::UnitName, &UnitConversion::Description,
                                                    &UnitConversion::Conversion, &UnitConversion::Uniit};

std::optional<std::size_t> variableSlot(const QString& tag) {
    if (tag.compare(QLatin1String(kUnusedTag), Qt::CaseInsensitive) == 0) return 0;
    for (const Element& element : kElements) {
        if (tag.compare(QLatin1String(element.tag), Qt::CaseInsensitive) == 0) return element.slot;
    }
    return {};
}

std::optional<std::size_t> unitSlot(const QString& tag) {
    for (std::size_t slot = 0; slot < std::size(kUnitTags); ++slot) {
        if (tag.compare(QLatin1String(kUnitTags[slot]), Qt::CaseInsensitive) == 0) return slot;
    }
    return {};
}

/// One walk serves both kinds of file: `slotOf` finds the slot of an element's name, `beginContainer` is
/// called where a container begins.
template <typename Slots, typename SlotOf, typename BeginContainer>
void walk(const XmlNodeList& nodes, Slots& slots, SlotOf slotOf, BeginContainer beginContainer) {
    for (const XmlNode node : nodes) {
        if (node.type() == XmlNodeType::Text) {
            if (const auto slot = slotOf(node.parent())) slots[*slot] = node.value();
        }
        const XmlNodeList children = node.childNodes();
        if (children.length() == 0) continue;
        if (children.length() >= 2) {
            beginContainer();
            for (QString& text : slots) text.clear();
        }
        walk(children, slots, slotOf, beginContainer);
    }
}

/// Finds slots by name, each name of a document once.
template <typename Find>
class SlotIndex {
public:
    SlotIndex(Find find) : m_find(find) {}
    std::optional<std::size_t> operator()(const XmlNode& element) {
        if (element.nameNumber() < 0) return {};
        const auto name = static_cast<std::size_t>(element.nameNumber());
        if (name >= m_known.size()) m_known.resize(name + 1);
        if (!m_known[name]) m_known[name] = m_find(element.nodeName());
        return *m_known[name];
    }

private:
    Find m_find;
    std::vector<std::optional<std::optional<std::size_t>>> m_known;
};

void keepUnit(UnitConversion& row) {
    for (std::size_t slot = 0; slot < std::size(kUnitFields); ++slot)
        row.*kUnitFields[slot] = UnitSlots[slot];
}

QString failureText(const XmlParseError& error) {
    const QString lineEnd = QStringLiteral("\r\n");
    return QStringLiteral("Your XVR Document failed to load") + QStringLiteral("due the following error.") +
           lineEnd + QStringLiteral("Error #: ") + QString::number(error.errorCode) + QStringLiteral(": ") +
           error.reason + QStringLiteral("Line #: ") + QString::number(error.line) + lineEnd +
           QStringLiteral("Line Position: ") + QString::number(error.linepos) + lineEnd +
           QStringLiteral("Position In File: ") + QString::number(error.filepos) + lineEnd +
           QStringLiteral("Source Text: ") + error.srcText + lineEnd + QStringLiteral("Document URL: ") +
           error.url;
}

} // namespace

void WalkVariableNodes(const XmlNodeList& nodes) {
    SlotIndex index(variableSlot);
    walk(nodes, VariableSlots, std::ref(index), [] {
        if (!VariableSlots[kNumberSlot].isEmpty()) CommitVariableSlots();
    });
}

void WalkUnitNodes(const XmlNodeList& nodes) {
    SlotIndex index(unitSlot);
    if (UnitConversions.empty()) UnitConversions.emplace_back();
    walk(nodes, UnitSlots, std::ref(index), [] {
        keepUnit(UnitConversions.back());
        if (UnitConversions.size() < kMostConversions) UnitConversions.emplace_back();
    });
}

void CommitVariableSlots() {
    const auto number = rounded<std::int32_t>(localeNumber(VariableSlots[kNumberSlot]));
    if (!number || *number < 0 || std::cmp_greater_equal(*number, VariableTable.size())) return;
    VariableDefinition& row = VariableTable[static_cast<std::size_t>(*number)];
    for (const Element& element : kElements) element.read(row, VariableSlots[element.slot]);
}

void LoadXvrDocument(const QString& path, bool units) {
    XmlDocument document;
    if (!document.load(path)) {
        MsgBox(failureText(document.parseError()), Icon::Notice);
        return;
    }
    if (units)
        storeUnits(document);
    else
        storeVariables(document);
}

void storeUnits(const XmlDocument& document) {
    UnitConversions.assign(1, {});
    WalkUnitNodes(document.childNodes());
    keepUnit(UnitConversions.back());
    tableChanged();
}

void storeVariables(const XmlDocument& document) {
    VariableTable.assign(kVariableCount, {});
    WalkVariableNodes(document.childNodes());
    const bool lastRow = VariableSlots[kNumberSlot] == QString::number(kNoVariable);
    if (lastRow && VariableTable[kNoVariable].IndexNumber == 0) CommitVariableSlots();
    tableChanged();
}

QByteArray xvrBytes(std::span<const VariableDefinition> variables) {
    QByteArray bytes("<VariableList>\r\n");
    QByteArray list;
    for (std::size_t number = 1; number < variables.size(); ++number) {
        const VariableDefinition& row = variables[number];
        if (row.IndexNumber == 0) continue;
        if (row.AllowTransformations) {
            list.clear();
            writeList(list, row);
        }
        bytes += "   <Data>\r\n";
        for (const Element& element : kElements) {
            bytes.append("     <").append(element.tag).append('>');
            if (&element == &kElements[kListElement])
                bytes += list;
            else
                element.write(bytes, row);
            bytes.append("</").append(element.tag).append(">\r\n");
        }
        bytes += "   </Data>\r\n\r\n";
    }
    return bytes + "</VariableList>\r\n";
}

QByteArray xvrUnitBytes(std::span<const UnitConversion> units) {
    QByteArray bytes("<UnitList>\r\n");
    for (const UnitConversion& unit : units) {
        bytes += "   <Data>\r\n";
        for (std::size_t i = 0; i < std::size(kUnitTags); ++i) {
            bytes.append("     <").append(kUnitTags[i]).append('>');
            append(bytes, unit.*kUnitFields[i]);
            bytes.append("</").append(kUnitTags[i]).append(">\r\n");
        }
        bytes += "   </Data>\r\n\r\n";
    }
    return bytes + "</UnitList>\r\n";
}

void SaveXvrDocument(const QString& path) {
    const QByteArray bytes = xvrBytes(VariableTable);
    QString cleaned = path;
    FileExists(cleaned); // drops blanks and quotes around it
    writeOrTell(cleaned, bytes, QStringLiteral("The variable definitions"));
}

} // namespace vistor
