#include "maths/script/Conversions.h"

#include "maths/script/Fault.h"
#include "maths/script/Host.h"

#include <cmath>
#include <limits>

namespace vistor::script {
namespace {

constexpr std::int32_t kLongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLongMax = std::numeric_limits<std::int32_t>::max();

bool equalsWord(std::u16string_view text, std::u16string_view lowerWord) {
    return text.size() == lowerWord.size() && lowered(text) == lowerWord;
}

double numberIn(std::u16string_view text) {
    const std::optional<double> number = parseNumber(text);
    if (!number) raise(kTypeMismatch);
    if (std::isinf(*number)) raise(kOverflow);
    return *number;
}

std::u16string currencyText(std::int64_t tenThousandths) {
    const bool negative = tenThousandths < 0;
    const std::uint64_t size = negative ? 0 - static_cast<std::uint64_t>(tenThousandths)
                                        : static_cast<std::uint64_t>(tenThousandths);
    std::string text = std::to_string(size / 10000);
    if (const std::uint64_t fraction = size % 10000; fraction != 0) {
        text += '.' + std::to_string(10000 + fraction).substr(1);
        text.erase(text.find_last_not_of('0') + 1);
    }
    return widen(negative ? "-" + text : text);
}

[[noreturn]] void raiseForKind(Kind kind) {
    raise(kind == Kind::Null ? kInvalidNull : kTypeMismatch);
}

} // namespace

Value plain(const Value& value) {
    if (!value.is(Kind::Object)) return value;
    HostObject* object = value.asObject();
    if (!object) raise(kObjectNotSet);
    const int member = object->defaultMember();
    if (member < 0) raise(kNoSuchMember);
    Value result;
    if (const int error = object->callMember(member, {}, result)) raise(error);
    return result;
}

double toDouble(const Value& value) {
    switch (value.kind()) {
    case Kind::Empty:
        return 0;
    case Kind::Boolean:
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
        return value.asLong();
    case Kind::Single:
    case Kind::Double:
        return value.asDouble();
    case Kind::Currency:
        return static_cast<double>(value.asCurrency()) / 10000;
    case Kind::Text:
        return numberIn(value.asText());
    case Kind::Object:
        return toDouble(plain(value));
    default:
        raiseForKind(value.kind());
    }
}

std::int32_t roundWithin(double number, std::int32_t low, std::int32_t high) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= low && rounded <= high)) raise(kOverflow);
    return static_cast<std::int32_t>(rounded);
}

std::int32_t toLong(const Value& value) {
    switch (value.kind()) {
    case Kind::Boolean:
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
        return value.asLong();
    default:
        return roundWithin(toDouble(value), kLongMin, kLongMax);
    }
}

std::int32_t toInteger(const Value& value) {
    return roundWithin(toDouble(value), -32768, 32767);
}

bool toBoolean(const Value& value) {
    if (value.is(Kind::Object)) return toBoolean(plain(value));
    if (!value.is(Kind::Text)) return toDouble(value) != 0;
    if (equalsWord(value.asText(), u"true")) return true;
    if (equalsWord(value.asText(), u"false")) return false;
    return numberIn(value.asText()) != 0;
}

float toSingle(const Value& value) {
    const auto single = static_cast<float>(toDouble(value));
    if (std::isinf(single)) raise(kOverflow);
    return single;
}

std::optional<float> singleOf(const Value& value) noexcept {
    try {
        return toSingle(value);
    } catch (const Fault&) {
        return std::nullopt;
    }
}

std::int64_t toCurrency(const Value& value) {
    if (value.is(Kind::Currency)) return value.asCurrency();
    constexpr double kLimit = 9223372036854775000.0;
    const double scaled = std::nearbyint(toDouble(value) * 10000);
    if (!(std::abs(scaled) < kLimit)) raise(kOverflow);
    return static_cast<std::int64_t>(scaled);
}

std::u16string toText(const Value& value) {
    switch (value.kind()) {
    case Kind::Empty:
        return {};
    case Kind::Boolean:
        return value.asLong() ? u"True" : u"False";
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
        return widen(std::to_string(value.asLong()));
    case Kind::Single:
        return formatDouble(value.asDouble(), 7);
    case Kind::Double:
        return formatDouble(value.asDouble());
    case Kind::Currency:
        return currencyText(value.asCurrency());
    case Kind::Text:
        return std::u16string(value.asText());
    case Kind::Object:
        return toText(plain(value));
    default:
        raiseForKind(value.kind());
    }
}

TextView::TextView(const Value& value) : m_value(value) {
    if (!value.is(Kind::Text)) m_made = toText(value);
    m_view = value.is(Kind::Text) ? m_value.asText() : m_made;
}

std::u16string widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

namespace {

/// Letters that lie 32 below their small form: Latin, Latin-1, Greek and Cyrillic.
bool isPlainCapital(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
           (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) || (c >= 0x410 && c <= 0x42F);
}

/// Latin Extended-A, where capital and small letter take turns; the rows that start on an odd number.
bool isOddRow(char16_t c) {
    return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
}

bool isPairedRow(char16_t c) {
    return (c >= 0x100 && c <= 0x17E) && c != 0x130 && c != 0x131 && c != 0x138 && c != 0x149 && c != 0x178;
}

} // namespace

char16_t lowerOf(char16_t c) {
    if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
    if (isPlainCapital(c)) return static_cast<char16_t>(c + 32);
    if (isPairedRow(c) && ((c & 1) != 0) == isOddRow(c)) return static_cast<char16_t>(c + 1);
    return c;
}

char16_t upperOf(char16_t c) {
    if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
    if (isPlainCapital(static_cast<char16_t>(c - 32))) return static_cast<char16_t>(c - 32);
    if (isPairedRow(c) && ((c & 1) == 0) == isOddRow(c)) return static_cast<char16_t>(c - 1);
    return c;
}

std::u16string lowered(std::u16string_view text) {
    std::u16string result(text);
    for (char16_t& c : result) c = lowerOf(c);
    return result;
}

} // namespace vistor::script
