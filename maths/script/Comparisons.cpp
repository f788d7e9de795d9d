// Comparison and logical operators.
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"
#include "maths/script/Operators.h"

#include <algorithm>

namespace vistor::script {
namespace {

int sign(double left, double right) {
    return left < right ? -1 : left > right ? 1 : 0;
}

int compareTextAndNumber(const Value& text, const Value& number, bool numberIsLiteral, bool textIsLiteral,
                         Budget& budget) {
    if (number.is(Kind::Empty)) return text.asText().empty() ? 0 : 1;
    if (numberIsLiteral) return sign(toDouble(text), toDouble(number));
    if (textIsLiteral) return compareTexts(text.asText(), toText(number), false, budget);
    return 1;
}

int order(const Value& left, const Value& right, std::uint8_t literals, Budget& budget) {
    const bool leftText = left.is(Kind::Text);
    const bool rightText = right.is(Kind::Text);
    if (leftText && rightText) return compareTexts(left.asText(), right.asText(), false, budget);
    if (leftText)
        return compareTextAndNumber(left, right, literals & kRightNumber, literals & kLeftText, budget);
    if (rightText)
        return -compareTextAndNumber(right, left, literals & kLeftNumber, literals & kRightText, budget);
    if (left.is(Kind::Currency) && right.is(Kind::Currency))
        return left.asCurrency() < right.asCurrency() ? -1 : left.asCurrency() > right.asCurrency();
    return sign(toDouble(left), toDouble(right));
}

bool holds(Operator op, int ordered) {
    switch (op) {
    case Operator::Equal:
        return ordered == 0;
    case Operator::NotEqual:
        return ordered != 0;
    case Operator::Less:
        return ordered < 0;
    case Operator::Greater:
        return ordered > 0;
    case Operator::LessOrEqual:
        return ordered <= 0;
    default:
        return ordered >= 0;
    }
}

/// The kind in which bits are combined; a text is a Boolean when it says so, else a number.
Value bitsOf(const Value& value) {
    switch (value.kind()) {
    case Kind::Boolean:
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
        return value;
    case Kind::Empty:
        return Value::integer(0);
    case Kind::Text:
        if (!parseNumber(value.asText())) return Value::boolean(toBoolean(value));
        [[fallthrough]];
    default:
        return Value::longer(toLong(value));
    }
}

std::int32_t combineBits(Operator op, std::int32_t a, std::int32_t b) {
    switch (op) {
    case Operator::And:
        return a & b;
    case Operator::Or:
        return a | b;
    case Operator::Xor:
        return a ^ b;
    case Operator::Eqv:
        return ~(a ^ b);
    default:
        return ~a | b;
    }
}

Value inKind(Kind kind, std::int32_t bits) {
    return Value::whole(kind, kind == Kind::Byte ? bits & 0xFF : bits);
}

/// Where one side is Null the result is Null, unless the other side alone decides.
Value logicalWithNull(Operator op, const Value& left, const Value& right) {
    if (left.is(Kind::Null) && right.is(Kind::Null)) return left;
    const bool leftNull = left.is(Kind::Null);
    const Value known = bitsOf(leftNull ? right : left);
    const bool falsy = known.asLong() == 0;
    if (op == Operator::And && falsy) return known;
    if (op == Operator::Or && !falsy) return known;
    if (op == Operator::Imp && leftNull && !falsy) return known;
    if (op == Operator::Imp && !leftNull && falsy) return inKind(known.kind(), -1);
    return Value::null();
}

} // namespace

int compareTexts(std::u16string_view left, std::u16string_view right, bool fold, Budget& budget) {
    budget.work(std::min(left.size(), right.size()) >> (fold ? 4 : 8));
    if (!fold) return left.compare(right);
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = lowerOf(left[i]) - lowerOf(right[i]);
        if (difference != 0) return difference;
    }
    return left.size() < right.size() ? -1 : left.size() > right.size();
}

Value compare(Operator op, const Value& left, const Value& right, std::uint8_t literals, Budget& budget) {
    if (left.is(Kind::Null) || right.is(Kind::Null)) return Value::null();
    return Value::boolean(holds(op, order(left, right, literals, budget)));
}

Value logical(Operator op, const Value& left, const Value& right) {
    if (left.is(Kind::Null) || right.is(Kind::Null)) return logicalWithNull(op, left, right);
    const Value a = bitsOf(left);
    const Value b = bitsOf(right);
    const Kind kind = a.kind() == b.kind() || std::max(a.kind(), b.kind()) == Kind::Long
                          ? std::max(a.kind(), b.kind())
                          : Kind::Integer;
    return inKind(kind, combineBits(op, a.asLong(), b.asLong()));
}

} // namespace vistor::script
