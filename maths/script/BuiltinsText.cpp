// Functions that take texts apart and make them.
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"

#include <algorithm>

namespace vistor::script {
namespace {

/// What the bytes 80 to 9F of the code page stand for; 0 where it leaves them open.
constexpr char16_t kCodePage[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                  0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char16_t characterOf(std::int32_t byte) {
    const bool special = byte >= 0x80 && byte <= 0x9F && kCodePage[byte - 0x80] != 0;
    return special ? kCodePage[byte - 0x80] : static_cast<char16_t>(byte);
}

std::int32_t byteOf(char16_t c) {
    if (c >= 0x80) {
        const auto* found = std::find(std::begin(kCodePage), std::end(kCodePage), c);
        if (found != std::end(kCodePage)) return static_cast<std::int32_t>(found - kCodePage) + 0x80;
    }
    return c <= 0xFF ? c : u'?';
}

char16_t firstCharacter(const Call& call) {
    const TextView text(call[0]);
    if (text->empty()) raise(kInvalidCall);
    return text->front();
}

Value asc(const Call& call) {
    return Value::integer(byteOf(firstCharacter(call)));
}

Value ascW(const Call& call) {
    return Value::integer(static_cast<std::int16_t>(firstCharacter(call)));
}

Value chr(const Call& call) {
    const std::int32_t code = toLong(call[0]);
    if (code < 0 || code > 255) raise(kInvalidCall);
    return call.text(std::u16string(1, characterOf(code)));
}

Value chrW(const Call& call) {
    const std::int32_t code = toLong(call[0]);
    if (code < -32768 || code > 65535) raise(kInvalidCall);
    return call.text(std::u16string(1, static_cast<char16_t>(code)));
}

Value length(const Call& call) {
    if (call.isNull(0)) return Value::null();
    return Value::longer(static_cast<std::int32_t>(TextView(call[0])->size()));
}

/// A part of the first argument, which is a text or becomes one.
Value part(const Call& call, std::size_t from, std::size_t count) {
    const TextView text(call[0]);
    return call.copyOf(text->substr(std::min(from, text->size()), count));
}

std::size_t countAt(const Call& call, std::size_t argument) {
    const std::int32_t count = toLong(call[argument]);
    if (count < 0) raise(kInvalidCall);
    return static_cast<std::size_t>(count);
}

Value left(const Call& call) {
    const std::size_t count = countAt(call, 1);
    return call.isNull(0) ? Value::null() : part(call, 0, count);
}

Value right(const Call& call) {
    const std::size_t count = countAt(call, 1);
    if (call.isNull(0)) return Value::null();
    const std::size_t size = TextView(call[0])->size();
    return part(call, size - std::min(size, count), count);
}

Value mid(const Call& call) {
    const std::size_t start = countAt(call, 1);
    if (start == 0) raise(kInvalidCall);
    const std::size_t count = call.has(2) ? countAt(call, 2) : std::u16string_view::npos;
    return call.isNull(0) ? Value::null() : part(call, start - 1, count);
}

Value trimmed(const Call& call, bool atStart, bool atEnd) {
    if (call.isNull(0)) return Value::null();
    const TextView text(call[0]);
    std::u16string_view view = *text;
    call.budget.work(view.size() >> 4);
    if (atStart) view.remove_prefix(std::min(view.find_first_not_of(u' '), view.size()));
    if (atEnd) view = view.substr(0, view.find_last_not_of(u' ') + 1);
    return call.copyOf(view);
}

Value trim(const Call& call) {
    return trimmed(call, true, true);
}

Value leftTrim(const Call& call) {
    return trimmed(call, true, false);
}

Value rightTrim(const Call& call) {
    return trimmed(call, false, true);
}

Value mapped(const Call& call, char16_t (*function)(char16_t)) {
    if (call.isNull(0)) return Value::null();
    const TextView text(call[0]);
    call.budget.work(text->size() >> 4);
    call.budget.checkText(text->size());
    std::u16string result(*text);
    for (char16_t& c : result) c = function(c);
    return call.text(std::move(result));
}

Value lowerCase(const Call& call) {
    return mapped(call, lowerOf);
}

Value upperCase(const Call& call) {
    return mapped(call, upperOf);
}

Value reversed(const Call& call) {
    const TextView text(call[0]);
    call.budget.checkText(text->size());
    return call.text(std::u16string(text->rbegin(), text->rend()));
}

Value repeated(const Call& call, std::size_t count, char16_t character) {
    call.budget.checkText(count);
    return call.text(std::u16string(count, character));
}

Value space(const Call& call) {
    return repeated(call, countAt(call, 0), u' ');
}

Value string(const Call& call) {
    if (call.isNull(0) || call.isNull(1)) return Value::null();
    const std::size_t count = countAt(call, 0);
    if (!call[1].is(Kind::Text)) return repeated(call, count, characterOf(toLong(call[1]) & 0xFF));
    if (call[1].asText().empty()) raise(kInvalidCall);
    return repeated(call, count, call[1].asText().front());
}

constexpr Builtin kTable[] = {
    {u"asc", 1, 1, asc},         {u"ascw", 1, 1, ascW},           {u"chr", 1, 1, chr},
    {u"chrw", 1, 1, chrW},       {u"lcase", 1, 1, lowerCase},     {u"left", 2, 2, left},
    {u"len", 1, 1, length},      {u"ltrim", 1, 1, leftTrim},      {u"mid", 2, 3, mid},
    {u"right", 2, 2, right},     {u"rtrim", 1, 1, rightTrim},     {u"space", 1, 1, space},
    {u"string", 2, 2, string},   {u"strreverse", 1, 1, reversed}, {u"trim", 1, 1, trim},
    {u"ucase", 1, 1, upperCase},
};

} // namespace

std::span<const Builtin> textBuiltins() {
    return kTable;
}

} // namespace vistor::script
