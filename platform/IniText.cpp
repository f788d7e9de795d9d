#include "platform/IniText.h"

#include "platform/CodePage.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <bit>

namespace vistor {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr qsizetype kHeads = -1;
constexpr qsizetype kKeysAndHeads = -2;
constexpr std::uint32_t kEmpty = ~std::uint32_t{0};
constexpr std::size_t kBatch = 16; ///< slots that are fetched together
constexpr std::size_t kFewNames = 256;
constexpr std::size_t kUsualName = 100; ///< bytes

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

bool isAscii(char c) {
    return static_cast<signed char>(c) >= 0;
}

char16_t lowered(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}

std::uint32_t added(std::uint32_t hash, char16_t unit) {
    return (std::rotl(hash, 5) ^ unit) * 0x9E3779B1U;
}

/// Hands over the code units of a name, folded.
template <typename Take>
void eachUnit(std::string_view name, Take take) {
    std::array<QChar, kUnitsFor(kUsualName)> usual;
    std::vector<QChar> longer(name.size() > kUsualName ? kUnitsFor(name.size()) : 0);
    QChar* const units = longer.empty() ? usual.data() : longer.data();
    const std::size_t size = fromCodePage(name, units);
    for (std::size_t i = 0; i < size; ++i) take(foldedCase(units[i].unicode()));
}

/// Of the folded form of a name; spread over all 32 bits, and not to be foreseen by who makes files.
std::uint32_t hashOf(std::string_view name) {
    static const std::uint32_t seed = QRandomGenerator::global()->generate();
    std::uint32_t hash = seed;
    if (std::all_of(name.begin(), name.end(), isAscii)) {
        for (const char c : name) hash = added(hash, lowered(c));
    } else {
        eachUnit(name, [&hash](char16_t unit) { hash = added(hash, unit); });
    }
    return (hash ^ (hash >> 15)) * 0x85EBCA77U;
}

bool sameName(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (std::all_of(a.begin(), a.end(), isAscii))
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](char x, char y) { return lowered(x) == lowered(y); });
    return foldedName(a) == foldedName(b);
}

bool nameOf(std::string_view line, qsizetype further, std::string_view& name) {
    if (further < 0 && isSectionHead(line)) {
        name = headName(line);
        return true;
    }
    if (further == kHeads) return false;
    return holdsKey(line) && keyName(line, further, name);
}

} // namespace

QByteArray foldedName(const QString& name) {
    qsizetype begin = 0;
    qsizetype end = name.size();
    const auto isBlank = [&name](qsizetype at) { return name[at] == u' ' || name[at] == u'\t'; };
    while (begin < end && isBlank(begin)) ++begin;
    while (end > begin && isBlank(end - 1)) --end;
    return foldedCase(name.mid(begin, end - begin)).toUtf8();
}

QByteArray foldedName(std::string_view written) {
    return foldedName(fromCodePage(trimmed(written)));
}

bool isSectionHead(std::string_view line) {
    const auto first = line.find_first_not_of(kBlanks);
    return first != line.npos && line[first] == '[';
}

bool holdsKey(std::string_view line) {
    const auto first = line.find_first_not_of(kBlanks);
    return first != line.npos && line[first] != ';' && line[first] != '[' && line.find('=') != line.npos;
}

std::string_view headName(std::string_view line) {
    const std::string_view name = line.substr(line.find('[') + 1);
    return trimmed(name.substr(0, name.find(']')));
}

bool keyName(std::string_view line, qsizetype further, std::string_view& name) {
    auto equals = line.find('=');
    for (; further > 0 && equals != line.npos; --further) equals = line.find('=', equals + 1);
    name = trimmed(line.substr(0, equals));
    return equals != line.npos;
}

IniText::IniText(QByteArray bytes)
    : m_bytes(std::move(bytes)),
      m_placeBits(std::bit_width(static_cast<std::uint32_t>(m_bytes.size()))),
      m_heads{kHeads, {}} {}

std::string_view IniText::lineAt(Place place) const {
    std::string_view rest = viewOf(m_bytes).substr(place);
    return takeLine(rest);
}

IniText::Place IniText::after(Place place, std::string_view line) const {
    const auto at = static_cast<Place>(place + line.size());
    const bool twoBytes = at + 1 < end() && m_bytes[at] == '\r' && m_bytes[at + 1] == '\n';
    return std::min(end(), at + (twoBytes ? 2 : 1));
}

IniText::Place IniText::find(const Index& index, std::string_view name) const {
    if (index.slots.empty()) return kNowhere;
    const std::uint32_t hash = hashOf(name);
    const std::uint32_t tag = hash << m_placeBits;
    const std::uint32_t mask = (std::uint32_t{1} << m_placeBits) - 1;
    for (std::size_t at = (std::uint64_t{hash} * index.slots.size()) >> 32; index.slots[at] != kEmpty;
         at = at + 1 == index.slots.size() ? 0 : at + 1) {
        std::string_view other;
        if ((index.slots[at] & ~mask) != tag) continue;
        if (nameOf(lineAt(index.slots[at] & mask), index.further, other) && sameName(other, name))
            return index.slots[at] & mask;
    }
    return kNowhere;
}

/// Of equal names the first one stays.
void IniText::insert(Index& index, Place place) const {
    std::string_view name;
    nameOf(lineAt(place), index.further, name);
    insert(index, hashOf(name), place);
}

void IniText::insert(Index& index, std::uint32_t hash, Place place) const {
    const std::uint32_t tag = hash << m_placeBits;
    const std::uint32_t mask = (std::uint32_t{1} << m_placeBits) - 1;
    std::string_view name;
    nameOf(lineAt(place), index.further, name);
    std::size_t at = (std::uint64_t{hash} * index.slots.size()) >> 32;
    for (; index.slots[at] != kEmpty; at = at + 1 == index.slots.size() ? 0 : at + 1) {
        std::string_view other;
        if ((index.slots[at] & ~mask) != tag) continue;
        if (nameOf(lineAt(index.slots[at] & mask), index.further, other) && sameName(other, name)) return;
    }
    index.slots[at] = tag | place;
}

/// Hands over the lines of a range that have a name, and that name, until that answers false. Where it ended.
template <typename Take>
IniText::Place IniText::eachNamed(Place from, Place to, qsizetype further, Take take) const {
    const char* const begin = m_bytes.constData();
    const char* const last = begin + to;
    const auto isEnd = [](char c) { return c == '\n' || c == '\r'; };
    for (const char* at = begin + from; at < last;) {
        const char* end = at;
        while (end < last && !isEnd(*end)) ++end;
        const std::string_view line(at, static_cast<std::size_t>(end - at));
        std::string_view name;
        if (!line.empty() && nameOf(line, further, name) && !take(static_cast<Place>(at - begin), name))
            return static_cast<Place>(at - begin);
        at = std::min(last, end + 1);
        if (at < last && *end == '\r' && *at == '\n') ++at;
    }
    return to;
}

/// How many names a range has at most, with the first of them. Of equal ones in a row one counts.
IniText::Names IniText::count(Place from, Place to, qsizetype further, bool toNextHead) const {
    Names names{0, to, {}};
    std::string_view before;
    const auto take = [&](Place at, std::string_view name) {
        if (names.most == 0 || !sameName(before, name)) {
            if (++names.most <= kFewNames) names.first.push_back(at);
        }
        before = name;
        return true;
    };
    if (!toNextHead) {
        eachNamed(from, to, further, take);
        return names;
    }
    names.end = eachNamed(from, to, kKeysAndHeads, [&](Place at, std::string_view name) {
        return !isSectionHead(lineAt(at)) && take(at, name);
    });
    return names;
}

IniText::Index IniText::indexOf(Place from, const Names& names, qsizetype further) const {
    Index index{further, {}};
    index.slots.assign(names.most == 0 ? 0 : names.most + names.most / 4 + 2, kEmpty);
    if (names.most == names.first.size()) {
        for (const Place at : names.first) insert(index, at);
        return index;
    }
    // The slots lie anywhere in memory: many are fetched at a time.
    std::array<std::pair<std::uint32_t, Place>, kBatch> batch;
    std::size_t held = 0;
    const auto flush = [&] {
        for (std::size_t i = 0; i < held; ++i) insert(index, batch[i].first, batch[i].second);
        held = 0;
    };
    eachNamed(from, names.end, further, [&](Place at, std::string_view name) {
        const std::uint32_t hash = hashOf(name);
        __builtin_prefetch(&index.slots[(std::uint64_t{hash} * index.slots.size()) >> 32]);
        batch[held++] = {hash, at};
        if (held == kBatch) flush();
        return true;
    });
    flush();
    return index;
}

const IniText::Index& IniText::heads() const {
    if (m_heads.slots.empty()) {
        m_heads = indexOf(0, count(0, end(), kHeads, false), kHeads);
        if (m_heads.slots.empty()) m_heads.slots.assign(1, kEmpty);
    }
    return m_heads;
}

IniText::Place IniText::section(const QByteArray& name) const {
    return find(heads(), viewOf(name));
}

void IniText::eachSection(const std::function<void(Place)>& take) const {
    const std::uint32_t mask = (std::uint32_t{1} << m_placeBits) - 1;
    for (const std::uint32_t slot : heads().slots) {
        if (slot != kEmpty) take(slot & mask);
    }
}

IniText::Section& IniText::known(Place head) const {
    const auto [found, isNew] = m_sections.try_emplace(head);
    Section& section = found->second;
    if (!isNew) return section;
    const Place first = after(head, lineAt(head));
    const Names names = count(first, end(), 0, true);
    section.end = names.end;
    section.keys = indexOf(first, names, 0);
    return section;
}

void IniText::forget() const {
    m_heads.slots = {};
    m_sections.clear();
}

IniText::Place IniText::key(Place head, const QByteArray& name, qsizetype further) const {
    Section& section = known(head);
    if (further == 0) return find(section.keys, viewOf(name));
    if (section.furtherKeys.further != further) {
        const Place first = after(head, lineAt(head));
        section.furtherKeys = indexOf(first, count(first, section.end, further, false), further);
    }
    return find(section.furtherKeys, viewOf(name));
}

IniText::Place IniText::keyBehind(Place behind, const QByteArray& name, qsizetype further) const {
    std::string_view other;
    std::string_view line = lineAt(behind);
    for (Place at = after(behind, line); at < end(); at = after(at, line)) {
        line = lineAt(at);
        if (isSectionHead(line)) break;
        if (nameOf(line, further, other) && sameName(other, viewOf(name))) return at;
    }
    return kNowhere;
}

void IniText::eachKey(Place head, const std::function<bool(Place)>& take) const {
    const std::uint32_t mask = (std::uint32_t{1} << m_placeBits) - 1;
    for (const std::uint32_t slot : known(head).keys.slots) {
        if (slot != kEmpty && !take(slot & mask)) return;
    }
}

qsizetype IniText::keyLines() const {
    if (m_keyLines >= 0) return m_keyLines;
    m_keyLines = 0;
    eachNamed(0, end(), 0, [this](Place, std::string_view) { return ++m_keyLines > 0; });
    return m_keyLines;
}

} // namespace vistor
