#include "instruments/AlphanumericText.h"

#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

TEST(AlphanumericText, RoundsHalvesToTheEvenSide) {
    const struct {
        float value;
        int decimals;
        float rounded;
    } cases[] = {{2.5F, 0, 2},         {3.5F, 0, 4},       {-2.5F, 0, -2},
                 {0.125F, 2, 0.12F},   {0.375F, 2, 0.38F}, {12.345F, 1, 12.3F},
                 {12.345F, -3, 12.0F}, {1e30F, 3, 1e30F},  {7.25F, 30000, 7.25F}};
    for (const auto& c : cases) EXPECT_EQ(roundedValue(c.value, c.decimals), c.rounded) << c.value;
    EXPECT_TRUE(std::isnan(roundedValue(std::numeric_limits<float>::quiet_NaN(), 2)));
}

TEST(AlphanumericText, PlainNumbersHaveNoExponent) {
    const struct {
        float value;
        const char* text;
    } cases[] = {{0, "0"},
                 {12.5F, "12.5"},
                 {0.1F, "0.1"},
                 {-0.001F, "-0.001"},
                 {1234.5678F, "1234.568"},
                 {100, "100"},
                 {9999999, "9999999"},
                 {16777216, "16777220"},
                 {1e-6F, "0.000001"},
                 {0.99999999F, "1"},
                 {3.4e10F, "34000000000"},
                 {2.5e-9F, "0.0000000025"}};
    for (const auto& c : cases) EXPECT_EQ(plainText(c.value, ".").toStdString(), c.text);
    EXPECT_EQ(plainText(-12.5F, ","), "-12,5");
}

TEST(AlphanumericText, MakesTheTextOfTheMode) {
    constexpr bool kFixed = true;
    constexpr bool kPlus = true;
    const struct {
        float value;
        int decimals;
        bool fixed;
        bool plus;
        const char* mark;
        const char* text; ///< null: the text stays
    } cases[] = {
        {12.5F, 3, kFixed, false, ".", "12.500"},
        {12.5F, 3, false, false, ".", "12.5"},
        {12.5F, 3, kFixed, false, ",", "12.500"},
        {12.5F, 3, false, false, ",", "12.5"},
        {12.3456F, 2, kFixed, false, ".", "12.35"},
        {6.999F, 2, kFixed, false, ".", "7.00"},
        {6.999F, 2, kFixed, false, ",", "7.00"},
        {6.999F, 2, false, false, ",", "7"},
        {2.5F, 0, kFixed, false, ".", "2."},
        {7, 2, kFixed, false, ".", nullptr},
        {-7, 2, kFixed, kPlus, ",", nullptr},
        {1.5F, 1, kFixed, kPlus, ".", "+1.5"},
        {-1.5F, 1, kFixed, kPlus, ".", "-1.5"},
        {0.001F, 1, kFixed, kPlus, ".", "0.0"},
        {0.4F, 0, false, kPlus, ".", "0"},
        // Another mark than the comma is not found by the split, which looks for a comma to the letter.
        {12.5F, 1, kFixed, false, ";", "12;5.0"},
        {12.5F, 1, false, false, ";", "12.5"},
        {12.5F, 1, kFixed, false, "", "12.5"},
        {12.5F, -4, kFixed, false, ".", "12."},
        {std::numeric_limits<float>::infinity(), 2, kFixed, false, ".", nullptr},
    };
    for (const auto& c : cases) {
        const auto text =
            alphanumericText(c.value, {c.decimals, c.fixed, c.plus, QString::fromLatin1(c.mark)});
        ASSERT_EQ(text.has_value(), c.text != nullptr) << c.value;
        EXPECT_EQ(text.value_or(QString()).toStdString(), c.text ? c.text : "")
            << c.value << " with " << c.mark;
    }
}

} // namespace
} // namespace vistor
