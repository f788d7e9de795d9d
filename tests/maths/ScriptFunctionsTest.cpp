#include "maths/ScriptFunctions.h"

#include "variables/GlobalVarsAndTypes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <type_traits>

namespace vistor {
namespace {

TEST(ScriptFunctions, SingleWidthFunctions) {
    const ScriptFunctions f;
    struct Case {
        float got;
        float expected;
    };
    const Case cases[] = {
        {f.Script_sign(-3), -1},   {f.Script_sign(0), 0},
        {f.Script_sign(0.1F), 1},  {f.Script_ceil(2.1F), 2},
        {f.Script_ceil(2.5F), 3},  {f.Script_ceil(-2.5F), -2},
        {f.Script_ceil(-0.4F), 0}, {f.Script_floor(-0.4F), -1},
        {f.Script_floor(2.9F), 2}, {f.Script_min(1, 2), 1},
        {f.Script_min(2, 1), 1},   {f.Script_max(1, 2), 2},
        {f.Script_max(2, 1), 2},   {f.Script_ceil(8388609), 8388609},
    };
    for (const Case& c : cases) EXPECT_EQ(c.got, c.expected) << &c - cases;
    // Of two equal arguments the second is the result, which only the sign of zero shows.
    EXPECT_TRUE(std::signbit(f.Script_min(0.0F, -0.0F)));
    EXPECT_TRUE(std::signbit(f.Script_max(0.0F, -0.0F)));
    static_assert(std::is_same_v<decltype(f.Script_min(1, 2)), float>);
    static_assert(std::is_same_v<decltype(f.Script_asin(1)), double>);
}

TEST(ScriptFunctions, ArcFunctionsHavePiToTenDigits) {
    const ScriptFunctions f;
    EXPECT_EQ(f.Script_asin(1), 3.141592654 * 0.5);
    EXPECT_EQ(f.Script_asin(-1), -3.141592654 * 0.5);
    EXPECT_EQ(f.Script_asin(1.5), 0);
    EXPECT_EQ(f.Script_acos(1), 0);
    EXPECT_EQ(f.Script_acos(-1), 3.141592654);
    EXPECT_EQ(f.Script_acos(0), 3.141592654 / 2);
    EXPECT_EQ(f.Script_acos(-1.0001), 0);
    for (const double x : {-0.9, -0.5, 0.25, 0.75}) {
        EXPECT_NEAR(f.Script_asin(x), std::asin(x), 1e-9);
        EXPECT_NEAR(f.Script_acos(x), std::acos(x), 1e-9);
        EXPECT_NEAR(f.Script_tanh(x), std::tanh(x), 1e-12);
        EXPECT_NEAR(f.Script_sinh(x), std::sinh(x), 1e-12);
        EXPECT_NEAR(f.Script_cosh(x), std::cosh(x), 1e-12);
    }
}

TEST(ScriptFunctions, ReadsVariablesAndCarConstants) {
    for (std::size_t i = 0; i < CarConstants.size(); ++i) CarConstants[i] = static_cast<float>(i) + 0.5F;
    createScriptObject();
    const ScriptFunctions& f = *ScriptObject;
    EXPECT_EQ(f.Script_CdA(), 0.5F);
    EXPECT_EQ(f.Script_Roll(), 1.5F);
    EXPECT_EQ(f.Script_Mass(), 2.5F);
    EXPECT_EQ(f.Script_Car(0), 0);
    EXPECT_EQ(f.Script_Car(1), 6.5F);
    EXPECT_EQ(f.Script_Car(10), 15.5F);
    EXPECT_EQ(f.Script_Car(11), 0);
    LastValue[8000] = 7;
    EXPECT_EQ(f.Script_Var(8000), 7);
    EXPECT_EQ(f.Script_Var(8001), 0);
    EXPECT_EQ(f.Script_Var(-1), 0);
}

} // namespace
} // namespace vistor
