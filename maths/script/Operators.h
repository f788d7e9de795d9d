// The operators of the language on values: which kind a result has, when integers widen, what Null does.
#pragma once

#include "maths/script/Value.h"

namespace vistor::script {

enum class Operator : std::uint8_t {
    None,
    Power,
    Negate,
    Plus,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Add,
    Subtract,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Is,
    Not,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
};

/// Which operands of a comparison stand in the script as literals: those decide, where a number meets a text,
/// how they are compared. Otherwise any number is less than any text.
enum Literals : std::uint8_t {
    kNoLiteral = 0,
    kLeftNumber = 1,
    kRightNumber = 2,
    kLeftText = 4,
    kRightText = 8,
};

Value applyBinary(Operator op, const Value& left, const Value& right, std::uint8_t literals, Budget& budget);
Value applyUnary(Operator op, const Value& operand);

Value arithmetic(Operator op, const Value& left, const Value& right);
Value logical(Operator op, const Value& left, const Value& right);
/// True, False or Null.
Value compare(Operator op, const Value& left, const Value& right, std::uint8_t literals, Budget& budget);
Value concatenate(const Value& left, const Value& right, Budget& budget);

/// Negative, 0 or positive. Without regard to case when `fold` is set.
int compareTexts(std::u16string_view left, std::u16string_view right, bool fold, Budget& budget);

/// An integer in the narrowest kind from `kind` up that holds it, a Double at last.
Value fitted(Kind kind, std::int64_t number);
/// A Double; "Overflow" when it is not finite.
Value checkedDouble(double number);

} // namespace vistor::script
