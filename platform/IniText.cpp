#include "platform/IniText.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <array>
#include <bit>

namespace vistor {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr qsizetype kHeads = -1;
constexpr std::uint32_t kEmpty = ~std::uint32_t{0};
constexpr std::size_t kBatch = 16; ///< slots that are fetched together

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

bool isAscii(char c) {
    return static_cast<signed char>(c) >= 0;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::uint32_t hashOfBytes(std::string_view bytes) {
    std::uint64_t hash = bytes.size();
    for (const char c : bytes)
        hash = (hash ^ static_cast<unsigned char>(lowered(c))) * 0x9E3779B97F4A7C15U + (hash >> 29);
    return static_cast<std::uint32_t>(hash >> 32);
}

/// Of the folded form of a name.
std::uint32_t hashOf(std::string_view name) {
    if (std::all_of(name.begin(), name.end(), isAscii)) return hashOfBytes(name);
    return hashOfBytes(viewOf(foldedName(name)));
}

bool sameName(std::string_view a, std::string_view b) {
    if (std::all_of(a.begin(), a.end(), isAscii))
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](char x, char y) { return lowered(x) == lowered(y); });
    return foldedName(a) == foldedName(b);
}

bool nameOf(std::string_view line, qsizetype further, std::string_view& name) {
    if (further != kHeads) return holdsKey(line) && keyName(line, further, name);
    if (!isSectionHead(line)) return false;
    name = headName(line);
    return true;
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

IniText::Index IniText::indexOf(Place from, Place to, qsizetype further) const {
    Index index{further, {}};
    std::string_view name;
    std::size_t names = 0;
    const auto walk = [&](auto take) {
        for (Place at = from; at < to;) {
            const std::string_view line = lineAt(at);
            if (nameOf(line, further, name)) take(at);
            at = after(at, line);
        }
    };
    walk([&](Place) { ++names; });
    index.slots.assign(names == 0 ? 0 : names + names / 3 + 2, kEmpty);
    // The slots lie anywhere in memory: many are fetched at a time.
    std::array<std::pair<std::uint32_t, Place>, kBatch> batch;
    std::size_t held = 0;
    const auto flush = [&] {
        for (std::size_t i = 0; i < held; ++i) insert(index, batch[i].first, batch[i].second);
        held = 0;
    };
    walk([&](Place at) {
        const std::uint32_t hash = hashOf(name);
        __builtin_prefetch(&index.slots[(std::uint64_t{hash} * index.slots.size()) >> 32]);
        batch[held++] = {hash, at};
        if (held == kBatch) flush();
    });
    flush();
    return index;
}

const IniText::Index& IniText::heads() const {
    if (m_heads.slots.empty()) {
        m_heads = indexOf(0, end(), kHeads);
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
    for (section.end = first; section.end < end();) {
        const std::string_view line = lineAt(section.end);
        if (isSectionHead(line)) break;
        section.end = after(section.end, line);
    }
    section.keys = indexOf(first, section.end, 0);
    return section;
}

IniText::Place IniText::key(Place head, const QByteArray& name, qsizetype further) const {
    Section& section = known(head);
    if (further == 0) return find(section.keys, viewOf(name));
    if (section.furtherKeys.further != further)
        section.furtherKeys = indexOf(after(head, lineAt(head)), section.end, further);
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
    for (Place at = 0; at < end();) {
        const std::string_view line = lineAt(at);
        if (holdsKey(line)) ++m_keyLines;
        at = after(at, line);
    }
    return m_keyLines;
}

} // namespace vistor
