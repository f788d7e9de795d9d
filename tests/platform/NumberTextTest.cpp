#include "platform/NumberText.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(NumberText, ReadsWhatIsANumberFromEndToEnd) {
    const struct {
        const char* text;
        std::optional<double> number;
    } cases[] = {
        {"2,5", 2.5},    {"2.5", 2.5},     {" -.5 ", -0.5}, {"+3", 3},      {"\u22124", -4},
        {"1e3", 1000},   {"1,5E-2", .015}, {"5.", 5},       {"ten", {}},    {"", {}},
        {"2,5 bar", {}}, {"1.234,5", {}},  {"--1", {}},     {"+-1", {}},    {"inf", {}},
        {"nan", {}},     {"1e400", {}},    {"0x10", {}},    {"\u0661", {}}, {"1 2", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(numberEntered(QString::fromUtf8(c.text)), c.number) << c.text;
}

TEST(NumberText, ShowsNoDigitThatNobodyMeant) {
    const struct {
        double number;
        const char* shown;
    } cases[] = {
        {1.1 + 1.8, "2.9"},
        {0.1 + 0.2, "0.3"},
        {-0.0, "0"},
        {1e15, "1E+15"},
        {1234.5, "1234.5"},
        {1e-6, "1E-06"},
        {1.0 / 3, "0.333333333333333"},
    };
    for (const auto& c : cases) EXPECT_EQ(numberShown(c.number), c.shown);
    EXPECT_EQ(textOfNumber(1.1 + 1.8), "2.9000000000000004") << "a file keeps every bit";
}

} // namespace
} // namespace vistor
