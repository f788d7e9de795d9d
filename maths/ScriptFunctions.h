// What script formulas see of the program: the sample, other variables' values, car constants and functions
// that the language lacks. In: LastValue and the car constants. Out: to scripts, under the name "Math".
#pragma once

#include "maths/script/Host.h"

#include <cstdint>

namespace vistor {

/// The fields and functions are members for scripts by the same names.
class ScriptFunctions final : public script::HostObject {
public:
    std::int32_t InputValue = 0; ///< the sample, rounded, set before each run
    float CdA = 0;
    float Roll = 0;
    float Mass = 0;
    float Car1 = 0;
    float Car2 = 0;
    float Car3 = 0;
    float Car4 = 0;
    float Car5 = 0;
    float Car6 = 0;
    float Car7 = 0;
    float Car8 = 0;
    float Car9 = 0;
    float Car10 = 0;

    /// The last value of variable `n`; 0 for a number that is none.
    float Script_Var(std::int32_t n) const;
    /// Car1 to Car10; 0 for any other number.
    float Script_Car(std::int32_t n) const;
    float Script_CdA() const { return CdA; }
    float Script_Roll() const { return Roll; }
    float Script_Mass() const { return Mass; }
    float Script_sign(float x) const;
    /// Rounds: the largest integer not above x + 0.5.
    float Script_ceil(float x) const;
    float Script_floor(float x) const;
    float Script_min(float a, float b) const;
    float Script_max(float a, float b) const;
    /// Radians; 0 outside the domain. Both go over the arc tangent with pi to ten digits.
    double Script_asin(double x) const;
    double Script_acos(double x) const;
    double Script_atan(double x) const;
    /// Not finite where a power of e overflows, which a script gets as the error "Overflow".
    double Script_sinh(double x) const;
    double Script_cosh(double x) const;
    double Script_tanh(double x) const;

    std::u16string_view typeName() const override { return u"ScriptFunctions"; }
    int findMember(std::u16string_view name) const override;
    const script::Signature* signatureOf(int member) const override;
    int callMember(int member, std::span<const script::Value> arguments, script::Value& result) override;
    int setMember(int member, const script::Value& value) override;
};

/// Makes ScriptObject and hands it the car constants. Once, when those are there.
void createScriptObject();

} // namespace vistor
