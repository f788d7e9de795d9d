#include "maths/script/Operators.h"

#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"

#include <cmath>
#include <limits>

namespace vistor::script {
namespace {

/// The kind with which an operand enters arithmetic.
Kind numericKind(const Value& value) {
    switch (value.kind()) {
    case Kind::Empty:
    case Kind::Boolean:
        return Kind::Integer;
    case Kind::Text:
        return Kind::Double;
    case Kind::Array:
    case Kind::Missing:
        raise(kTypeMismatch);
    default:
        return value.kind();
    }
}

Kind widerKind(Operator op, Kind left, Kind right) {
    const Kind wide = std::max(left, right);
    const Kind narrow = std::min(left, right);
    if (wide == Kind::Currency && narrow == Kind::Double && op == Operator::Multiply) return Kind::Double;
    if (wide == Kind::Single && narrow == Kind::Long) return Kind::Double;
    return wide;
}

double combine(Operator op, double left, double right) {
    if (op == Operator::Add) return left + right;
    if (op == Operator::Subtract) return left - right;
    return left * right;
}

Value wholeResult(Operator op, Kind kind, std::int64_t left, std::int64_t right) {
    if (op == Operator::Add) return fitted(kind, left + right);
    if (op == Operator::Subtract) return fitted(kind, left - right);
    return fitted(kind, left * right);
}

Value currencyResult(Operator op, const Value& left, const Value& right) {
    const auto a = static_cast<long double>(toCurrency(left));
    const auto b = static_cast<long double>(toCurrency(right));
    long double result = a * b / 10000;
    if (op == Operator::Add) result = a + b;
    if (op == Operator::Subtract) result = a - b;
    result = std::nearbyint(result);
    if (!(std::abs(result) < 9223372036854775807.0L)) raise(kOverflow);
    return Value::currency(static_cast<std::int64_t>(result));
}

Value singleResult(double exact) {
    if (std::isfinite(static_cast<float>(exact))) return Value::single(exact);
    return checkedDouble(exact);
}

Value addLike(Operator op, const Value& left, const Value& right) {
    const Kind kind = widerKind(op, numericKind(left), numericKind(right));
    if (kind <= Kind::Long) return wholeResult(op, kind, toLong(left), toLong(right));
    if (kind == Kind::Currency) return currencyResult(op, left, right);
    const double result = combine(op, toDouble(left), toDouble(right));
    return kind == Kind::Single ? singleResult(result) : checkedDouble(result);
}

Value divide(const Value& left, const Value& right) {
    const Kind a = numericKind(left);
    const Kind b = numericKind(right);
    const double dividend = toDouble(left);
    const double divisor = toDouble(right);
    if (divisor == 0) raise(dividend == 0 ? kOverflow : kDivisionByZero);
    const bool narrow = std::max(a, b) == Kind::Single && std::min(a, b) != Kind::Long;
    return narrow ? singleResult(dividend / divisor) : checkedDouble(dividend / divisor);
}

Value integerDivide(Operator op, const Value& left, const Value& right) {
    const Kind kind = std::min(std::max(numericKind(left), numericKind(right)), Kind::Long);
    const std::int64_t dividend = toLong(left);
    const std::int64_t divisor = toLong(right);
    if (divisor == 0) raise(kDivisionByZero);
    return fitted(kind, op == Operator::Modulo ? dividend % divisor : dividend / divisor);
}

Value power(const Value& left, const Value& right) {
    numericKind(left);
    numericKind(right);
    const double base = toDouble(left);
    const double exponent = toDouble(right);
    if (base < 0 && exponent != std::trunc(exponent)) raise(kInvalidCall);
    if (base == 0 && exponent < 0) raise(kInvalidCall);
    return checkedDouble(std::pow(base, exponent));
}

Value negated(const Value& operand) {
    const Kind kind = numericKind(operand);
    if (kind == Kind::Currency) return Value::currency(-operand.asCurrency());
    if (kind == Kind::Single) return Value::single(-operand.asDouble());
    if (kind == Kind::Double) return Value::number(-toDouble(operand));
    return fitted(std::max(kind, Kind::Integer), -static_cast<std::int64_t>(toLong(operand)));
}

Value addOrJoin(const Value& left, const Value& right, Budget& budget) {
    const bool leftText = left.is(Kind::Text);
    const bool rightText = right.is(Kind::Text);
    if (leftText && rightText) return concatenate(left, right, budget);
    if (leftText && right.is(Kind::Empty)) return left;
    if (rightText && left.is(Kind::Empty)) return right;
    return arithmetic(Operator::Add, left, right);
}

} // namespace

Value fitted(Kind kind, std::int64_t number) {
    if (kind == Kind::Byte && number >= 0 && number <= 255)
        return Value::whole(Kind::Byte, static_cast<std::int32_t>(number));
    if (kind <= Kind::Integer && number == static_cast<std::int16_t>(number))
        return Value::integer(static_cast<std::int32_t>(number));
    if (number == static_cast<std::int32_t>(number)) return Value::longer(static_cast<std::int32_t>(number));
    return Value::number(static_cast<double>(number));
}

Value checkedDouble(double number) {
    if (!std::isfinite(number)) raise(kOverflow);
    return Value::number(number);
}

Value arithmetic(Operator op, const Value& left, const Value& right) {
    if (left.is(Kind::Null) || right.is(Kind::Null)) return Value::null();
    switch (op) {
    case Operator::Power:
        return power(left, right);
    case Operator::Divide:
        return divide(left, right);
    case Operator::IntegerDivide:
    case Operator::Modulo:
        return integerDivide(op, left, right);
    default:
        return addLike(op, left, right);
    }
}

Value concatenate(const Value& left, const Value& right, Budget& budget) {
    if (left.is(Kind::Null) && right.is(Kind::Null)) return Value::null();
    const Value empty;
    const TextView a(left.is(Kind::Null) ? empty : left);
    const TextView b(right.is(Kind::Null) ? empty : right);
    budget.checkText(a->size() + b->size());
    std::u16string joined;
    joined.reserve(a->size() + b->size());
    joined.append(*a).append(*b);
    return Value::text(std::move(joined), budget);
}

Value applyUnary(Operator op, const Value& operand) {
    const Value value = plain(operand);
    if (value.is(Kind::Null)) return value;
    if (op == Operator::Not) return logical(Operator::Xor, value, Value::boolean(true));
    if (op == Operator::Negate) return negated(value);
    return value.is(Kind::Text) ? Value::number(toDouble(value)) : arithmetic(Operator::Add, value, Value());
}

namespace {

/// What both operands have once objects stand for their plain values.
Value applyPlain(Operator op, const Value& left, const Value& right, std::uint8_t literals, Budget& budget) {
    if (op == Operator::Add) return addOrJoin(left, right, budget);
    if (op == Operator::Concatenate) return concatenate(left, right, budget);
    if (op < Operator::Add) return arithmetic(op, left, right);
    if (op == Operator::Subtract) return arithmetic(op, left, right);
    if (op < Operator::Is) return compare(op, left, right, literals, budget);
    return logical(op, left, right);
}

Value sameObject(const Value& left, const Value& right) {
    if (!left.is(Kind::Object) || !right.is(Kind::Object)) raise(kObjectRequired);
    return Value::boolean(left.asObject() == right.asObject());
}

/// The commonest case by far: both Doubles or Singles widened to Double.
bool bothDouble(const Value& left, const Value& right) {
    return left.is(Kind::Double) && right.is(Kind::Double);
}

} // namespace

Value applyBinary(Operator op, const Value& left, const Value& right, std::uint8_t literals, Budget& budget) {
    if (bothDouble(left, right) &&
        (op == Operator::Add || op == Operator::Subtract || op == Operator::Multiply))
        return checkedDouble(combine(op, left.asDouble(), right.asDouble()));
    if (op == Operator::Is) return sameObject(left, right);
    if (!left.is(Kind::Object) && !right.is(Kind::Object))
        return applyPlain(op, left, right, literals, budget);
    return applyPlain(op, plain(left), plain(right), literals, budget);
}

} // namespace vistor::script
