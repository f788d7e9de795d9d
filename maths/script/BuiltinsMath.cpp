// Functions on numbers.
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"
#include "maths/script/Operators.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vistor::script {
namespace {

/// The argument as a number in the kind that arithmetic gives it.
Value numeric(const Value& argument) {
    const Value value = plain(argument);
    if (value.is(Kind::Text)) return Value::number(toDouble(value));
    if (value.kind() >= Kind::Byte && value.kind() <= Kind::Currency) return value;
    return Value::integer(toInteger(value)); // Boolean and Empty; others raise
}

/// A function of a Double that gives a number of the argument's own kind.
Value inOwnKind(const Value& argument, double (*function)(double)) {
    const Value value = numeric(argument);
    if (value.kind() <= Kind::Long) return value;
    const double result = function(toDouble(value));
    if (value.is(Kind::Single)) return Value::single(result);
    if (value.is(Kind::Currency)) return Value::currency(toCurrency(Value::number(result)));
    return Value::number(result);
}

Value absolute(const Call& call) {
    if (call.isNull(0)) return Value::null();
    const Value value = numeric(call[0]);
    return toDouble(value) < 0 ? applyUnary(Operator::Negate, value) : value;
}

Value signOf(const Call& call) {
    const double number = toDouble(call[0]);
    return Value::integer(number > 0 ? 1 : number < 0 ? -1 : 0);
}

Value floorOf(const Call& call) {
    if (call.isNull(0)) return Value::null();
    return inOwnKind(call[0], [](double x) { return std::floor(x); });
}

Value truncated(const Call& call) {
    if (call.isNull(0)) return Value::null();
    return inOwnKind(call[0], [](double x) { return std::trunc(x); });
}

Value squareRoot(const Call& call) {
    const double number = toDouble(call[0]);
    if (number < 0) raise(kInvalidCall);
    return Value::number(std::sqrt(number));
}

Value logarithm(const Call& call) {
    const double number = toDouble(call[0]);
    if (number <= 0) raise(kInvalidCall);
    return Value::number(std::log(number));
}

Value exponential(const Call& call) {
    return checkedDouble(std::exp(toDouble(call[0])));
}

Value sine(const Call& call) {
    return Value::number(std::sin(toDouble(call[0])));
}

Value cosine(const Call& call) {
    return Value::number(std::cos(toDouble(call[0])));
}

Value tangent(const Call& call) {
    return checkedDouble(std::tan(toDouble(call[0])));
}

Value arcTangent(const Call& call) {
    return Value::number(std::atan(toDouble(call[0])));
}

/// Half to even at the last place kept.
Value rounded(const Call& call) {
    if (call.isNull(0)) return Value::null();
    const std::int32_t places = call.whole(1, 0);
    if (places < 0) raise(kInvalidCall);
    const Value value = numeric(call[0]);
    if (value.kind() <= Kind::Long) return value;
    const double scale = std::pow(10.0, std::min(places, 22));
    const double scaled = toDouble(value) * scale;
    if (places > 22 || std::abs(scaled) >= 9007199254740992.0) return value; // no digits beyond
    const double result = std::nearbyint(scaled) / scale;
    if (value.is(Kind::Currency)) return Value::currency(toCurrency(Value::number(result)));
    return value.is(Kind::Single) ? Value::single(result) : Value::number(result);
}

/// In two's complement: 16 bits for what is an Integer, else 32.
Value inRadix(const Call& call, int radix) {
    if (call.isNull(0)) return Value::null();
    const Value value = plain(call[0]);
    const std::int32_t number = toLong(value);
    const bool narrow = value.kind() <= Kind::Integer;
    const auto bits = narrow ? static_cast<std::uint16_t>(number) : static_cast<std::uint32_t>(number);
    char buffer[16];
    char* end = std::to_chars(buffer, buffer + sizeof buffer, bits, radix).ptr;
    std::u16string digits(buffer, end);
    for (char16_t& c : digits) c = upperOf(c);
    return call.text(std::move(digits));
}

Value hexadecimal(const Call& call) {
    return inRadix(call, 16);
}

Value octal(const Call& call) {
    return inRadix(call, 8);
}

Value randomNumber(const Call& call) {
    const float argument = call.has(0) ? toSingle(call[0]) : 1;
    if (argument == 0) return Value::single(call.random.last());
    if (argument < 0) call.random.restart(argument);
    return Value::single(call.random.next());
}

Value randomize(const Call& call) {
    call.random.mix(call.has(0) ? toDouble(call[0]) : call.timer());
    return {};
}

Value secondsOfDay(const Call& call) {
    return Value::single(call.timer());
}

Value colour(const Call& call) {
    std::int32_t result = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::int32_t part = toLong(call[i]);
        if (part < 0) raise(kInvalidCall);
        result |= std::min(part, 255) << (8 * i);
    }
    return Value::longer(result);
}

constexpr Builtin kTable[] = {
    {u"abs", 1, 1, absolute},        {u"atn", 1, 1, arcTangent}, {u"cos", 1, 1, cosine},
    {u"exp", 1, 1, exponential},     {u"fix", 1, 1, truncated},  {u"hex", 1, 1, hexadecimal},
    {u"int", 1, 1, floorOf},         {u"log", 1, 1, logarithm},  {u"oct", 1, 1, octal},
    {u"randomize", 0, 1, randomize}, {u"rgb", 3, 3, colour},     {u"rnd", 0, 1, randomNumber},
    {u"round", 1, 2, rounded},       {u"sgn", 1, 1, signOf},     {u"sin", 1, 1, sine},
    {u"sqr", 1, 1, squareRoot},      {u"tan", 1, 1, tangent},    {u"timer", 0, 0, secondsOfDay},
};

} // namespace

std::span<const Builtin> mathBuiltins() {
    return kTable;
}

} // namespace vistor::script
