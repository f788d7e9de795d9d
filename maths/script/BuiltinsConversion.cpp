// Conversion and inspection of values.
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"
#include "maths/script/Host.h"

#include <cmath>

namespace vistor::script {
namespace {

struct KindRow {
    Kind kind;
    std::u16string_view name; ///< as TypeName tells it
    std::int16_t number;      ///< as VarType tells it
};

constexpr KindRow kKinds[] = {
    {Kind::Empty, u"Empty", 0},        {Kind::Null, u"Null", 1},        {Kind::Integer, u"Integer", 2},
    {Kind::Long, u"Long", 3},          {Kind::Single, u"Single", 4},    {Kind::Double, u"Double", 5},
    {Kind::Currency, u"Currency", 6},  {Kind::Text, u"String", 8},      {Kind::Object, u"Nothing", 9},
    {Kind::Missing, u"Error", 10},     {Kind::Boolean, u"Boolean", 11}, {Kind::Byte, u"Byte", 17},
    {Kind::Array, u"Variant()", 8204},
};

const KindRow& rowOf(const Value& value) {
    for (const KindRow& row : kKinds)
        if (row.kind == value.kind()) return row;
    return kKinds[0];
}

Value typeName(const Call& call) {
    const Value& value = call[0];
    const bool object = value.is(Kind::Object) && value.asObject();
    return call.text(std::u16string(object ? value.asObject()->typeName() : rowOf(value).name));
}

Value varType(const Call& call) {
    const Value& value = call[0];
    if (value.is(Kind::Object) && value.asObject() && value.asObject()->defaultMember() >= 0)
        return Value::integer(rowOf(plain(value)).number);
    return Value::integer(rowOf(value).number);
}

Value isArray(const Call& call) {
    return Value::boolean(call[0].is(Kind::Array));
}

Value isEmpty(const Call& call) {
    return Value::boolean(call[0].is(Kind::Empty));
}

Value isNull(const Call& call) {
    return Value::boolean(call[0].is(Kind::Null));
}

Value isDate(const Call&) {
    return Value::boolean(false); // there are no dates in this language
}

Value isObject(const Call& call) {
    return Value::boolean(call[0].is(Kind::Object));
}

Value isNumeric(const Call& call) {
    const Value& value = call[0];
    if (value.is(Kind::Text)) {
        const std::optional<double> number = parseNumber(value.asText());
        return Value::boolean(number && std::isfinite(*number));
    }
    return Value::boolean(value.is(Kind::Empty) ||
                          (value.kind() >= Kind::Boolean && value.kind() <= Kind::Currency));
}

Value toBooleanValue(const Call& call) {
    return Value::boolean(toBoolean(call[0]));
}

Value toByteValue(const Call& call) {
    return Value::whole(Kind::Byte, roundWithin(toDouble(call[0]), 0, 255));
}

Value toCurrencyValue(const Call& call) {
    return Value::currency(toCurrency(plain(call[0])));
}

Value toDoubleValue(const Call& call) {
    return Value::number(toDouble(call[0]));
}

Value toIntegerValue(const Call& call) {
    return Value::integer(toInteger(call[0]));
}

Value toLongValue(const Call& call) {
    return Value::longer(toLong(call[0]));
}

Value toSingleValue(const Call& call) {
    return Value::single(toSingle(call[0]));
}

Value toTextValue(const Call& call) {
    return call[0].is(Kind::Text) ? call[0] : call.text(toText(call[0]));
}

constexpr Builtin kTable[] = {
    {u"cbool", 1, 1, toBooleanValue}, {u"cbyte", 1, 1, toByteValue},   {u"ccur", 1, 1, toCurrencyValue},
    {u"cdbl", 1, 1, toDoubleValue},   {u"cint", 1, 1, toIntegerValue}, {u"clng", 1, 1, toLongValue},
    {u"csng", 1, 1, toSingleValue},   {u"cstr", 1, 1, toTextValue},    {u"isarray", 1, 1, isArray},
    {u"isdate", 1, 1, isDate},        {u"isempty", 1, 1, isEmpty},     {u"isnull", 1, 1, isNull},
    {u"isnumeric", 1, 1, isNumeric},  {u"isobject", 1, 1, isObject},   {u"typename", 1, 1, typeName},
    {u"vartype", 1, 1, varType},
};

} // namespace

std::span<const Builtin> conversionBuiltins() {
    return kTable;
}

} // namespace vistor::script
