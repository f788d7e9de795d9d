// A value of the script language: one tagged word of 16 bytes. Texts and arrays are counted references; an
// array is copied when one of several owners writes to it.
#pragma once

#include "maths/script/Budget.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vistor::script {

class HostObject;
class Value;

/// The order of the numeric kinds is the order in which arithmetic widens them.
enum class Kind : std::uint8_t {
    Empty,
    Null,
    Boolean, ///< -1 or 0
    Byte,
    Integer, ///< 16 bits
    Long,    ///< 32 bits
    Single,
    Double,
    Currency, ///< four decimals, kept in ten-thousandths
    Text,
    Object, ///< null is Nothing
    Array,
    Missing,   ///< an argument left out
    Reference, ///< in a variable only: the variable of the caller that stands behind it
};

struct Text {
    std::uint32_t references = 1;
    Budget* budget = nullptr; ///< null for literals, which belong to the parsed text
    std::u16string characters;
};

struct ArrayBody {
    std::uint32_t references = 1;
    std::uint32_t locks = 0; ///< references held for elements that were passed by reference
    bool fixed = false;
    Budget* budget = nullptr;
    std::vector<std::int32_t> sizes; ///< elements in each dimension; empty before the first ReDim
    std::vector<Value> items;        ///< the first index runs fastest
    ArrayBody* nextDead = nullptr;

    bool shared() const { return references - locks > 1; }
};

class Value {
public:
    Value() noexcept : m_kind(Kind::Empty), m_currency(0) {}
    Value(const Value& other) noexcept : m_kind(other.m_kind) {
        m_currency = other.m_currency;
        if (counted()) addReference();
    }
    Value(Value&& other) noexcept : m_kind(other.m_kind) {
        m_currency = other.m_currency;
        other.m_kind = Kind::Empty;
    }
    Value& operator=(Value other) noexcept {
        std::swap(m_kind, other.m_kind);
        std::swap(m_currency, other.m_currency);
        return *this;
    }
    ~Value() {
        if (counted()) release();
    }

    static Value null() { return Value(Kind::Null); }
    static Value missing() { return Value(Kind::Missing); }
    static Value boolean(bool truth) { return whole(Kind::Boolean, truth ? -1 : 0); }
    /// A Boolean, Byte, Integer or Long that is known to fit.
    static Value whole(Kind kind, std::int32_t number) {
        Value value(kind);
        value.m_long = number;
        return value;
    }
    static Value integer(std::int32_t number) { return whole(Kind::Integer, number); }
    static Value longer(std::int32_t number) { return whole(Kind::Long, number); }
    static Value single(double number) { return real(Kind::Single, static_cast<float>(number)); }
    static Value number(double number) { return real(Kind::Double, number); }
    static Value currency(std::int64_t tenThousandths) {
        Value value(Kind::Currency);
        value.m_currency = tenThousandths;
        return value;
    }
    static Value object(HostObject* object) {
        Value value(Kind::Object);
        value.m_object = object;
        return value;
    }
    static Value reference(Value* variable) {
        Value value(Kind::Reference);
        value.m_reference = variable;
        return value;
    }
    /// A text charged to the run's budget.
    static Value text(std::u16string characters, Budget& budget);
    /// A text that belongs to no run.
    static Value literal(std::u16string characters);
    /// A new array with empty elements. No sizes: an array that has no elements yet.
    static Value array(std::vector<std::int32_t> sizes, Budget& budget, bool fixed = false);

    Kind kind() const { return m_kind; }
    bool is(Kind kind) const { return m_kind == kind; }
    /// Of a Boolean, Byte, Integer or Long.
    std::int32_t asLong() const { return m_long; }
    /// Of a Single or Double.
    double asDouble() const { return m_double; }
    std::int64_t asCurrency() const { return m_currency; }
    std::u16string_view asText() const { return m_text->characters; }
    HostObject* asObject() const { return m_object; }
    Value* asReference() const { return m_reference; }
    ArrayBody& asArray() const { return *m_array; }

    /// Of an array: makes this its only owner, copying it when there are others.
    ArrayBody& ownArray();

private:
    explicit Value(Kind kind) noexcept : m_kind(kind), m_currency(0) {}
    static Value real(Kind kind, double number) {
        Value value(kind);
        value.m_double = number;
        return value;
    }

    bool counted() const { return m_kind == Kind::Text || m_kind == Kind::Array; }
    void addReference() noexcept;
    void release() noexcept;
    static void destroy(ArrayBody* body) noexcept;

    Kind m_kind;
    union {
        std::int32_t m_long;
        double m_double;
        std::int64_t m_currency;
        Text* m_text;
        ArrayBody* m_array;
        HostObject* m_object;
        Value* m_reference;
    };
};

} // namespace vistor::script
