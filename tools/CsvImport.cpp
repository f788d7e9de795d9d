#include "tools/CsvImport.h"

#include "acquisition/StreamEncoder.h"
#include "platform/CodePage.h"
#include "tools/HeadUnits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace vistor {
namespace {

constexpr qsizetype kLongestLine = 1'000'000; // bytes
/// Above it 32-bit seconds no longer tell 10 milliseconds apart, and a recording is paced by such.
constexpr double kLatestTime = 131'072;
constexpr double kTimeStep = kMostMillisecondsBetweenTimes / 1000.0; // s
constexpr std::uint8_t kTimeMessage = 1;
constexpr std::uint8_t kValuesMessage = 2;
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

struct Column {
    int channel = 0;
    QString head;
    GainAndOffset toRaw;

    double raw(double value) const { return toRaw.gain * value + toRaw.offset; }
};

/// What stands in square brackets behind a name; empty where nothing does, or a dash for nothing.
QString unitOf(const QString& head) {
    const QString unit = head.section(u'[', 1).section(u']', 0, 0).trimmed();
    return unit == QLatin1String("-") ? QString() : unit;
}

/// The fields of a line; no value when a quote is left open.
std::optional<QByteArrayList> splitFields(const QByteArray& line, char separator) {
    QByteArrayList fields(1);
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool doubled = quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"';
        if (doubled)
            fields.last() += line[++i];
        else if (c == '"')
            quoted = !quoted;
        else if (c == separator && !quoted)
            fields.append(QByteArray());
        else
            fields.last() += c;
    }
    if (quoted) return std::nullopt;
    for (QByteArray& field : fields) field = field.trimmed();
    return fields;
}

/// What a head line has most of outside quotes.
char separatorOf(const QByteArray& head) {
    char best = ',';
    qsizetype most = 0;
    for (const char candidate : {',', ';', '\t'}) {
        qsizetype count = 0;
        bool quoted = false;
        for (const char c : head) {
            quoted = quoted != (c == '"');
            count += c == candidate && !quoted ? 1 : 0;
        }
        if (count > most) best = candidate;
        most = std::max(most, count);
    }
    return best;
}

std::optional<double> numberOf(const QByteArray& field) {
    double value = 0;
    const char* begin = field.constData() + (field.startsWith('+') ? 1 : 0);
    const char* end = field.constData() + field.size();
    const auto [stopped, error] = std::from_chars(begin, end, value);
    if (error != std::errc{} || stopped != end) return std::nullopt;
    return value;
}

class Importer {
public:
    Importer(QIODevice& in, const CsvOptions& options, const Definitions& definitions)
        : m_in(in), m_options(options), m_units(definitions), m_names(channelNames(definitions.variables)) {}

    CsvResult run() {
        m_result.run = runFileHead();
        if (readHead())
            while (readLine() && readRow()) {
            }
        if (m_result.error.isEmpty() && m_result.rows == 0) fail(QStringLiteral("there is no row of values"));
        if (!m_result.error.isEmpty()) m_result.run.clear();
        return std::move(m_result);
    }

private:
    bool fail(const QString& what) {
        m_result.error = QStringLiteral("line %1: %2").arg(std::max(m_lineNumber, 1)).arg(what);
        return false;
    }
    bool failIn(const Column& column, const QString& what) {
        const auto index = &column - m_columns.data() + 1;
        return fail(QStringLiteral("column %1, \"%2\": %3").arg(index).arg(column.head, what));
    }

    /// The next line that is not blank, in m_line; false at the end and after an error.
    bool readLine() {
        do {
            if (m_in.atEnd()) return false;
            m_line = m_in.readLine(kLongestLine + 2);
            ++m_lineNumber;
            if (m_line.size() > kLongestLine)
                return fail(QStringLiteral("longer than %1 bytes").arg(kLongestLine));
            if (m_lineNumber == 1 && m_line.startsWith(kByteOrderMark)) m_line.remove(0, 3);
        } while (m_line.trimmed().isEmpty());
        return true;
    }

    bool readFields() {
        auto fields = splitFields(m_line, m_separator);
        if (!fields) return fail(QStringLiteral("a quote is not closed"));
        m_fields = std::move(*fields);
        return true;
    }

    bool readHead() {
        if (!readLine()) return m_result.error.isEmpty() ? fail(QStringLiteral("the file is empty")) : false;
        m_separator = separatorOf(m_line);
        if (!readFields()) return false;
        m_columns.resize(static_cast<std::size_t>(m_fields.size()));
        QHash<int, std::ptrdiff_t> seen;
        for (Column& column : m_columns) {
            const auto index = &column - m_columns.data();
            column.head = QString::fromUtf8(m_fields[index]);
            if (!resolve(column) || !findUnit(column)) return false;
            if (seen.contains(column.channel))
                return failIn(column, QStringLiteral("channel %1 stands in column %2 already")
                                          .arg(column.channel)
                                          .arg(seen[column.channel] + 1));
            seen.insert(column.channel, index);
            if (column.channel == kTimeVariable) m_timeColumn = index;
        }
        if (m_timeColumn >= 0) return true;
        return fail(QStringLiteral("no column of times: name one \"Time\", or tell its head"));
    }

    bool resolve(Column& column) {
        const QString name = foldedCase(column.head.section(QLatin1Char('['), 0, 0).trimmed());
        const QString time = foldedCase(m_options.timeColumn.section(QLatin1Char('['), 0, 0).trimmed());
        bool isNumber = false;
        const int number = name.toInt(&isNumber);
        if (name == (time.isEmpty() ? foldedCase(QStringLiteral("Time")) : time))
            column.channel = kTimeVariable;
        else if (isNumber)
            column.channel = number;
        else
            column.channel = m_names.value(name, 0);
        if (isNumber && (column.channel < 1 || column.channel >= kNoVariable))
            return failIn(column, QStringLiteral("channels go from 1 to 7999"));
        return column.channel > 0 || failIn(column, QStringLiteral("there is no channel of that name"));
    }

    bool findUnit(Column& column) {
        const QString unit = unitOf(column.head);
        if (unit.isEmpty()) return true;
        const HeadUnit found = m_units.find(column.channel, unit);
        if (!found.toRaw) return failIn(column, found.problem);
        column.toRaw = *found.toRaw;
        return true;
    }

    bool readRow() {
        if (!readFields()) return false;
        if (m_fields.size() != std::ssize(m_columns))
            return fail(
                QStringLiteral("%1 fields, but the head has %2").arg(m_fields.size()).arg(m_columns.size()));
        double time = 0;
        m_values.clear();
        for (const Column& column : m_columns) {
            const auto index = &column - m_columns.data();
            const QByteArray& field = m_fields[index];
            if (field.isEmpty() && index != m_timeColumn) continue;
            std::optional<double> value = numberOf(field);
            if (value) value = column.raw(*value);
            if (!value || std::isinf(static_cast<float>(*value)) ||
                (std::isnan(*value) && index == m_timeColumn))
                return failIn(column, QStringLiteral("\"%1\" is no number").arg(QString::fromUtf8(field)));
            if (index == m_timeColumn)
                time = *value;
            else if (!std::isnan(*value))
                m_values.push_back({static_cast<std::uint16_t>(column.channel), *value});
        }
        return checkTime(time) && writeRow();
    }

    bool checkTime(double time) {
        const Column& column = m_columns[static_cast<std::size_t>(m_timeColumn)];
        if (m_result.rows == 0 && m_options.fromZero) m_offset = time;
        time -= m_offset;
        if (m_result.rows > 0 && time < m_time)
            return failIn(column, QStringLiteral("the time goes back, from %1 to %2")
                                      .arg(m_time + m_offset)
                                      .arg(time + m_offset));
        if (time < 0 || time > kLatestTime)
            return failIn(column, QStringLiteral("times go from 0 to %1 seconds; let them start from zero")
                                      .arg(static_cast<int>(kLatestTime)));
        return writeTimes(time);
    }

    /// The row's time, after as many before it as the pace of a recording needs.
    bool writeTimes(double time) {
        const double gap = m_result.rows > 0 ? time - m_time : 0;
        const double steps = std::max(std::ceil(gap / kTimeStep - 1e-6), 1.0);
        for (double step = 1; step <= steps; ++step) {
            const ChannelValue now[] = {{kTimeVariable, time - gap * (1 - step / steps)}};
            appendMessage(m_result.run, kTimeMessage, now);
            if (!hasRoom()) return false;
        }
        m_time = time;
        return true;
    }

    bool hasRoom() {
        if (m_result.run.size() < m_options.largestRun) return true;
        constexpr double kGigabyte = 1e9;
        return fail(QStringLiteral("the run file grows above %1 GB")
                        .arg(static_cast<double>(m_options.largestRun) / kGigabyte, 0, 'g', 2));
    }

    bool writeRow() {
        const std::span<const ChannelValue> values = m_values;
        for (std::size_t from = 0; from < values.size(); from += kMostMessageValues)
            appendMessage(
                m_result.run, kValuesMessage,
                values.subspan(from, std::min<std::size_t>(kMostMessageValues, values.size() - from)));
        ++m_result.rows;
        return hasRoom();
    }

    QIODevice& m_in;
    const CsvOptions& m_options;
    const HeadUnits m_units;
    const ChannelNames m_names;
    CsvResult m_result;
    int m_lineNumber = 0;
    QByteArray m_line;
    char m_separator = ',';
    QByteArrayList m_fields;
    std::vector<Column> m_columns;
    std::ptrdiff_t m_timeColumn = -1;
    std::vector<ChannelValue> m_values;
    double m_time = 0, m_offset = 0;
};

} // namespace

ChannelNames channelNames(std::span<const VariableDefinition> table) {
    ChannelNames names;
    for (std::size_t row = 1; row < std::min<std::size_t>(table.size(), kNoVariable); ++row) {
        const QString name = foldedCase(table[row].PhysicalName.trimmed());
        if (!name.isEmpty() && !names.contains(name)) names.insert(name, static_cast<int>(row));
    }
    return names;
}

CsvResult importCsv(QIODevice& in, const CsvOptions& options, const Definitions& definitions) {
    return Importer(in, options, definitions).run();
}

} // namespace vistor
