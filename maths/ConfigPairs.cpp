#include "maths/ConfigPairs.h"

#include "platform/CodePage.h"
#include "platform/NumberText.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace vistor {
namespace {

constexpr std::string_view kBlanks = " \t";

struct Item {
    std::string_view text; ///< without the quotes
    bool quoted = false;
    bool comma = false; ///< one follows
};

bool isDigits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// What beginning of a text is a whole number, and could so be followed by a comma as its decimal mark.
bool isWhole(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    return isDigits(text);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return text.substr(text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Where an item ends that began at the head of `line`: at a comma or a comment.
std::size_t endOfItem(std::string_view line) {
    return std::min({line.find_first_of(",#;"), line.find("//"), line.size()});
}

/// Takes the next item off a line. No value at its end, or where a comment begins.
std::optional<Item> takeItem(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.empty() || line.front() == '#' || line.front() == ';' || line.starts_with("//"))
        return std::nullopt;
    Item item;
    item.quoted = line.front() == '"';
    if (item.quoted) {
        line.remove_prefix(1);
        const std::size_t end = std::min(line.find('"'), line.size());
        item.text = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    const std::size_t end = endOfItem(line);
    if (!item.quoted) item.text = trimmed(line.substr(0, end));
    item.comma = end < line.size() && line[end] == ',';
    line.remove_prefix(item.comma ? end + 1 : end);
    return item;
}

/// The items of a line that begins with a value, not with a key, where a key stands alone above it.
std::vector<Item> itemsOf(std::string_view line, bool valueFirst) {
    std::vector<Item> items;
    while (auto item = takeItem(line)) {
        const bool fraction = items.size() >= (valueFirst ? 1 : 2) && !item->quoted && !items.back().quoted &&
                              isDigits(item->text) && isWhole(items.back().text);
        if (fraction) { // "2,5" without quotes is one number
            const char* begin = items.back().text.data();
            items.back().text = {begin,
                                 static_cast<std::size_t>(item->text.data() + item->text.size() - begin)};
            items.back().comma = item->comma;
        } else {
            items.push_back(*item);
        }
    }
    return items;
}

QString wordsOf(std::string_view text) {
    return fromCodePage(text);
}

/// A value without the unit that follows it.
std::string_view withoutUnit(std::string_view value) {
    const std::string_view first = value.substr(0, value.find_first_of(kBlanks));
    return numberEntered(wordsOf(first)) ? first : value;
}

double numberOf(std::string_view value) {
    const QString words = wordsOf(value);
    return numberEntered(words).value_or(ParseNumber(QString(words)));
}

class PairReader {
public:
    explicit PairReader(const QByteArray& bytes) : m_begin(bytes.constData()) {}

    void take(std::string_view line) {
        const std::vector<Item> items = itemsOf(line, m_key.has_value());
        if (items.empty()) return;
        std::size_t next = 0;
        if (m_key && items.size() == 1) add(*m_key, items[next++]); // the value below its key
        m_key.reset();
        for (; next + 1 < items.size(); next += 2) add(items[next], items[next + 1]);
        if (next < items.size() && !items[next].comma) m_key = items[next];
    }

    std::vector<ConfigPair> pairs;

private:
    void add(const Item& key, const Item& value) {
        const std::string_view number = withoutUnit(value.text);
        pairs.push_back({wordsOf(key.text), numberOf(number), number.data() - m_begin,
                         static_cast<qsizetype>(number.size())});
    }

    const char* m_begin;
    std::optional<Item> m_key; ///< of the line before, which had nothing else
};

} // namespace

std::vector<ConfigPair> configPairs(const QByteArray& bytes) {
    PairReader reader(bytes);
    for (std::string_view rest = viewOf(bytes); !rest.empty();) reader.take(takeLine(rest));
    return std::move(reader.pairs);
}

QByteArray withConfigNumber(const QByteArray& bytes, const QString& key, double number) {
    const std::vector<ConfigPair> pairs = configPairs(bytes);
    const QByteArray text = textOfNumber(number).toLatin1();
    const auto known = std::find_if(pairs.begin(), pairs.end(), [&](const auto& p) { return p.key == key; });
    if (known != pairs.end()) return QByteArray(bytes).replace(known->place, known->length, text);
    const QByteArray lineEnd = bytes.contains("\r\n") ? "\r\n" : "\n";
    const bool broken = !bytes.isEmpty() && !bytes.endsWith('\n') && !bytes.endsWith('\r');
    return bytes + (broken ? lineEnd : QByteArray()) + toCodePage(key) + ',' + text + lineEnd;
}

} // namespace vistor
