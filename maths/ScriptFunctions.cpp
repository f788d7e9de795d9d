#include "maths/ScriptFunctions.h"

#include "maths/script/Fault.h"
#include "variables/GlobalVarsAndTypes.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vistor {
namespace {

using script::Kind;
using script::Value;

constexpr double kPi = 3.141592654; // to ten digits, which the arc functions' results show

constexpr float ScriptFunctions::*kCarFields[] = {
    &ScriptFunctions::Car1, &ScriptFunctions::Car2, &ScriptFunctions::Car3, &ScriptFunctions::Car4,
    &ScriptFunctions::Car5, &ScriptFunctions::Car6, &ScriptFunctions::Car7, &ScriptFunctions::Car8,
    &ScriptFunctions::Car9, &ScriptFunctions::Car10};

using Arguments = std::span<const Value>;

Value single(float number) {
    return Value::single(static_cast<double>(number));
}

// Calls one member function with the arguments in its own types.
template <float (ScriptFunctions::*function)() const>
Value callSingle0(const ScriptFunctions& object, Arguments) {
    return single((object.*function)());
}

template <float (ScriptFunctions::*function)(std::int32_t) const>
Value callLong(const ScriptFunctions& object, Arguments arguments) {
    return single((object.*function)(arguments[0].asLong()));
}

template <float (ScriptFunctions::*function)(float) const>
Value callSingle(const ScriptFunctions& object, Arguments arguments) {
    return single((object.*function)(static_cast<float>(arguments[0].asDouble())));
}

template <float (ScriptFunctions::*function)(float, float) const>
Value callSingle2(const ScriptFunctions& object, Arguments arguments) {
    return single((object.*function)(static_cast<float>(arguments[0].asDouble()),
                                     static_cast<float>(arguments[1].asDouble())));
}

template <double (ScriptFunctions::*function)(double) const>
Value callDouble(const ScriptFunctions& object, Arguments arguments) {
    return Value::number((object.*function)(arguments[0].asDouble()));
}

template <float ScriptFunctions::*field>
Value readSingle(const ScriptFunctions& object, Arguments) {
    return single(object.*field);
}

Value readInput(const ScriptFunctions& object, Arguments) {
    return Value::longer(object.InputValue);
}

struct Member {
    std::u16string_view name; ///< in lower case
    script::Signature signature;
    Value (*call)(const ScriptFunctions& object, Arguments arguments);
    float ScriptFunctions::*field; ///< of a 32-bit float
};

constexpr Kind kLong[] = {Kind::Long};
constexpr Kind kSingle[] = {Kind::Single};
constexpr Kind kSingles[] = {Kind::Single, Kind::Single};
constexpr Kind kDouble[] = {Kind::Double};

template <float ScriptFunctions::*field>
constexpr Member fieldRow(std::u16string_view name) {
    return {name, {true, Kind::Single, {}}, readSingle<field>, field};
}

using F = ScriptFunctions;

constexpr Member kMembers[] = {
    {u"inputvalue", {true, Kind::Long, {}}, readInput, nullptr},
    fieldRow<&F::CdA>(u"cda"),
    fieldRow<&F::Roll>(u"roll"),
    fieldRow<&F::Mass>(u"mass"),
    fieldRow<&F::Car1>(u"car1"),
    fieldRow<&F::Car2>(u"car2"),
    fieldRow<&F::Car3>(u"car3"),
    fieldRow<&F::Car4>(u"car4"),
    fieldRow<&F::Car5>(u"car5"),
    fieldRow<&F::Car6>(u"car6"),
    fieldRow<&F::Car7>(u"car7"),
    fieldRow<&F::Car8>(u"car8"),
    fieldRow<&F::Car9>(u"car9"),
    fieldRow<&F::Car10>(u"car10"),
    {u"script_var", {false, Kind::Empty, kLong}, callLong<&F::Script_Var>, nullptr},
    {u"script_car", {false, Kind::Empty, kLong}, callLong<&F::Script_Car>, nullptr},
    {u"script_cda", {}, callSingle0<&F::Script_CdA>, nullptr},
    {u"script_roll", {}, callSingle0<&F::Script_Roll>, nullptr},
    {u"script_mass", {}, callSingle0<&F::Script_Mass>, nullptr},
    {u"script_sign", {false, Kind::Empty, kSingle}, callSingle<&F::Script_sign>, nullptr},
    {u"script_ceil", {false, Kind::Empty, kSingle}, callSingle<&F::Script_ceil>, nullptr},
    {u"script_floor", {false, Kind::Empty, kSingle}, callSingle<&F::Script_floor>, nullptr},
    {u"script_min", {false, Kind::Empty, kSingles}, callSingle2<&F::Script_min>, nullptr},
    {u"script_max", {false, Kind::Empty, kSingles}, callSingle2<&F::Script_max>, nullptr},
    {u"script_asin", {false, Kind::Empty, kDouble}, callDouble<&F::Script_asin>, nullptr},
    {u"script_acos", {false, Kind::Empty, kDouble}, callDouble<&F::Script_acos>, nullptr},
    {u"script_atan", {false, Kind::Empty, kDouble}, callDouble<&F::Script_atan>, nullptr},
    {u"script_sinh", {false, Kind::Empty, kDouble}, callDouble<&F::Script_sinh>, nullptr},
    {u"script_cosh", {false, Kind::Empty, kDouble}, callDouble<&F::Script_cosh>, nullptr},
    {u"script_tanh", {false, Kind::Empty, kDouble}, callDouble<&F::Script_tanh>, nullptr},
};

const Member& memberAt(int member) {
    return kMembers[static_cast<std::size_t>(member)];
}

} // namespace

float ScriptFunctions::Script_Var(std::int32_t n) const {
    return n >= 0 && n < kVariableCount ? LastValue[static_cast<std::size_t>(n)] : 0;
}

float ScriptFunctions::Script_Car(std::int32_t n) const {
    return n >= 1 && n <= 10 ? this->*kCarFields[n - 1] : 0;
}

float ScriptFunctions::Script_sign(float x) const {
    return x > 0 ? 1.0F : x < 0 ? -1.0F : 0.0F;
}

float ScriptFunctions::Script_ceil(float x) const {
    return static_cast<float>(std::floor(static_cast<double>(x) + 0.5));
}

float ScriptFunctions::Script_floor(float x) const {
    return std::floor(x);
}

float ScriptFunctions::Script_min(float a, float b) const {
    return a < b ? a : b;
}

float ScriptFunctions::Script_max(float a, float b) const {
    return a > b ? a : b;
}

double ScriptFunctions::Script_asin(double x) const {
    if (x > -1 && x < 1) return std::atan(x / std::sqrt(1 - x * x));
    if (x == -1) return -kPi * 0.5;
    if (x == 1) return kPi * 0.5;
    return 0;
}

double ScriptFunctions::Script_acos(double x) const {
    if (x > 0 && x <= 1) return std::atan(std::sqrt(1 - x * x) / x);
    if (x >= -1 && x < 0) return std::atan(std::sqrt(1 - x * x) / x) + kPi;
    return x == 0 ? kPi / 2 : 0;
}

double ScriptFunctions::Script_atan(double x) const {
    return std::atan(x);
}

double ScriptFunctions::Script_sinh(double x) const {
    return (std::exp(x) - std::exp(-x)) / 2;
}

double ScriptFunctions::Script_cosh(double x) const {
    return (std::exp(x) + std::exp(-x)) / 2;
}

double ScriptFunctions::Script_tanh(double x) const {
    return (std::exp(x) - std::exp(-x)) / (std::exp(x) + std::exp(-x));
}

int ScriptFunctions::findMember(std::u16string_view name) const {
    const auto* found = std::find_if(std::begin(kMembers), std::end(kMembers),
                                     [name](const Member& row) { return row.name == name; });
    return found == std::end(kMembers) ? -1 : static_cast<int>(found - std::begin(kMembers));
}

const script::Signature* ScriptFunctions::signatureOf(int member) const {
    return &memberAt(member).signature;
}

int ScriptFunctions::callMember(int member, std::span<const Value> arguments, Value& result) {
    result = memberAt(member).call(*this, arguments);
    const bool overflow = result.is(Kind::Double) && !std::isfinite(result.asDouble());
    return overflow ? script::kOverflow : 0;
}

int ScriptFunctions::setMember(int member, const Value& value) {
    if (float ScriptFunctions::*field = memberAt(member).field)
        this->*field = static_cast<float>(value.asDouble());
    else
        InputValue = value.asLong();
    return 0;
}

void createScriptObject() {
    ScriptObject = std::make_shared<ScriptFunctions>();
    for (std::size_t i = 0; i < std::size(kCarFields); ++i)
        (*ScriptObject).*kCarFields[i] = CarConstants[i + 6];
    ScriptObject->CdA = CarConstants[0];
    ScriptObject->Roll = CarConstants[1];
    ScriptObject->Mass = CarConstants[2];
}

} // namespace vistor
