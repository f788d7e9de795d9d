#include "maths/LoadAndSaveVariableDefinitions.h"

#include "maths/FileSupportFunctions.h"
#include "platform/CodePage.h"
#include "platform/Notices.h"
#include "platform/Prompts.h"
#include "variables/SetupVariables.h"

#include <QFile>
#include <QFileInfo>

#include <bit>
#include <cstring>
#include <unordered_map>
#include <utility>

namespace vistor {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers go to the file as they lie in memory");

constexpr qint64 kLargestFile = 16 << 20;      ///< bytes; the delivered file has less than one megabyte
constexpr std::size_t kSmallestConversion = 8; ///< bytes of a row whose texts are all empty
constexpr std::size_t kSmallestVariable = 73;
constexpr std::size_t kSmallestText = 2;

/// Takes fields from bytes. Once one could not be had, every later one is 0 or empty and ok() is false.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : m_rest(bytes) {}

    bool ok() const { return m_ok; }
    std::string_view rest() const { return m_rest; }

    template <typename T>
    void operator()(T& number) {
        const std::string_view bytes = take(sizeof number);
        if (m_ok) std::memcpy(&number, bytes.data(), sizeof number);
    }
    void operator()(QString& text) { text = shared(textBytes()); }
    void operator()(std::optional<QStringList>& list, std::int32_t& lowerBound);

    /// The count of rows behind an upper bound, when that many rows can still follow.
    std::size_t rowCount(std::size_t most, std::size_t smallestRow) {
        std::int32_t bound = 0;
        (*this)(bound);
        return checked(std::int64_t{bound} + 1, most, smallestRow);
    }

private:
    std::string_view take(std::size_t size) {
        if (size > m_rest.size()) m_ok = false;
        if (!m_ok) return {};
        const std::string_view bytes = m_rest.substr(0, size);
        m_rest.remove_prefix(size);
        return bytes;
    }
    std::string_view textBytes() {
        std::uint16_t length = 0;
        (*this)(length);
        return take(length);
    }
    std::size_t checked(std::int64_t count, std::size_t most, std::size_t smallestItem) {
        m_ok = m_ok && count >= 0 && std::cmp_less_equal(count, most) &&
               std::cmp_less_equal(count, m_rest.size() / smallestItem);
        return m_ok ? static_cast<std::size_t>(count) : 0;
    }
    /// Most texts of a table stand in it many times; equal ones share their memory.
    QString shared(std::string_view bytes) {
        if (bytes.empty()) return {};
        QString& text = m_texts[bytes];
        if (text.isEmpty()) text = fromCodePage(bytes);
        return text;
    }

    std::string_view m_rest;
    bool m_ok = true;
    std::unordered_map<std::string_view, QString> m_texts;
    std::unordered_map<std::string_view, QStringList> m_lists; ///< by their elements as bytes
};

void FieldReader::operator()(std::optional<QStringList>& list, std::int32_t& lowerBound) {
    std::uint16_t dimensions = 0;
    (*this)(dimensions);
    if (dimensions == 0) return;
    m_ok = m_ok && dimensions == 1;
    std::int32_t count = 0;
    (*this)(count);
    (*this)(lowerBound);
    const std::size_t elements = checked(count, m_rest.size(), kSmallestText);
    const std::string_view start = m_rest;
    for (std::size_t i = 0; i < elements; ++i) textBytes();
    if (!m_ok) return;
    const std::string_view bytes = start.substr(0, start.size() - m_rest.size());
    QStringList& texts = m_lists[bytes];
    if (texts.isEmpty() && elements > 0) {
        texts.reserve(count);
        m_rest = start;
        for (std::size_t i = 0; i < elements; ++i) texts.append(shared(textBytes()));
    }
    list = texts;
}

/// Appends fields to bytes.
class FieldWriter {
public:
    QByteArray bytes;

    template <typename T>
    void operator()(const T& number) {
        bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    void operator()(const QString& text) {
        const QByteArray characters = toCodePage(text, kLongestText);
        (*this)(static_cast<std::uint16_t>(characters.size()));
        bytes.append(characters);
    }
    void operator()(const std::optional<QStringList>& list, const std::int32_t& lowerBound) {
        (*this)(static_cast<std::uint16_t>(list ? 1 : 0));
        if (!list) return;
        (*this)(static_cast<std::int32_t>(list->size()));
        (*this)(lowerBound);
        for (const QString& text : *list) (*this)(text);
    }
    void bound(std::size_t rows) { (*this)(static_cast<std::int32_t>(rows) - 1); }
};

/// Hands every field of a row to `field`, in the order of the file. One list serves both ways.
template <typename Field, typename Row>
void visitConversion(Field& field, Row& row) {
    field(row.UnitName);
    field(row.Description);
    field(row.Conversion);
    field(row.Uniit);
}

template <typename Field, typename Row>
void visitVariable(Field& field, Row& row) {
    field(row.ConstantName);
    field(row.PhysicalName);
    field(row.BaseName);
    field(row.IndexNumber);
    field(row.Enabled);
    field(row.AlwaysOn);
    field(row.Available);
    field(row.VariableType);
    field(row.DefaultMin);
    field(row.DefaultMax);
    field(row.FilterDesign);
    field(row.FilterLowVal);
    field(row.FilterHighVal);
    field(row.FilterRipple);
    field(row.FilterOrder);
    field(row.ApplyTransformation);
    field(row.AllowTransformations, row.allowLowerBound);
    field(row.UseCustomTrans);
    field(row.CustomTransformation);
    field(row.CustomUnits);
    field(row.Description);
    field(row.SmoothingTime);
    field(row.MaximumROC);
    field(row.Calculus);
    field(row.Misc);
}

QString orWorkingFile(const QString& path) {
    return path.isEmpty() ? GetUserDataFolder() + QStringLiteral("VistorVars.cfg") : path;
}

} // namespace

std::optional<Definitions> readDefinitions(std::string_view bytes) {
    FieldReader reader(bytes);
    Definitions read;
    read.units.resize(reader.rowCount(kMostConversions, kSmallestConversion));
    for (UnitConversion& row : read.units) visitConversion(reader, row);
    read.variables.resize(reader.rowCount(kVariableCount, kSmallestVariable));
    for (VariableDefinition& row : read.variables) visitVariable(reader, row);
    std::int32_t mark = 0;
    reader(mark);
    if (!reader.ok() || mark != kFileMark) return std::nullopt;
    return read;
}

QByteArray definitionBytes(std::span<const UnitConversion> units,
                           std::span<const VariableDefinition> variables) {
    FieldWriter writer;
    writer.bound(units.size());
    for (const UnitConversion& row : units) visitConversion(writer, row);
    writer.bound(variables.size());
    for (const VariableDefinition& row : variables) visitVariable(writer, row);
    writer(static_cast<std::int32_t>(kFileMark));
    return writer.bytes;
}

FileBytes readDefinitionFile(const QString& path) {
    return readWholeFile(path, kLargestFile);
}

void replaceTables(Definitions&& definitions) {
    UnitConversions = std::move(definitions.units);
    VariableTable = std::move(definitions.variables);
    SetupVariables();
}

void LoadVariableFile(const QString& path) {
    const QString from = orWorkingFile(path);
    if (!QFileInfo::exists(from)) QFile(from).open(QIODevice::WriteOnly | QIODevice::NewOnly);
    const FileBytes file = readDefinitionFile(from);
    auto read = readDefinitions(viewOf(file.bytes));
    if (!read) {
        MsgBox(QStringLiteral("The variable file appears to be corrupted, cannot continue operation"));
        return;
    }
    replaceTables(std::move(*read));
}

void SaveVariableFile(const QString& path) {
    const QByteArray bytes = definitionBytes(UnitConversions, VariableTable);
    if (bytes.size() <= kLargestFile)
        writeOrTell(orWorkingFile(path), bytes, QStringLiteral("The variable definitions"));
    else // it could not be loaded again; the old file is worth more
        notify(QStringLiteral("The variable definitions are not saved: they would take more than 16 MB. Make "
                              "descriptions and formulas shorter."));
}

} // namespace vistor
