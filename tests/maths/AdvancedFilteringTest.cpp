#include "maths/AdvancedFiltering.h"

#include "maths/FilterSettings.h"
#include "variables/GlobalVarsAndTypes.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace vistor {
namespace {

constexpr double kPi = 3.141592654;

struct Poles {
    std::vector<double> zeros, re, im;
};

Poles design(int model, int type, int order, double low, double high, float ripple = 1) {
    Poles p;
    DesignPolesAndZeros(p.zeros, p.re, p.im, model, type, order, ripple, 100, 50, low, high);
    return p;
}

std::vector<double> response(int model, int type, int order, double low, double high, float ripple = 1) {
    std::vector<FilterSection> sections;
    DesignFilter(sections, model, type, order, ripple, 100, 50, low, high);
    return FrequencyResponse(sections);
}

TEST(AdvancedFiltering, AgreesWithIndependentReckonings) {
    std::ifstream file(VISTOR_SOURCE_DIR "/tests/maths/filter-responses.txt");
    std::string line;
    std::size_t designs = 0;
    std::size_t compared = 0;
    double worst = 0;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream cells(line);
        int model = 0, type = 0, order = 0;
        float ripple = 0;
        double low = 0, high = 0;
        cells >> model >> type >> order >> ripple >> low >> high;
        const std::vector<double> rows = response(model, type, order, low, high, ripple);
        std::string cell;
        for (std::size_t row = designs++ % 10; cells >> cell; row += 10) {
            if (cell == "-") continue;
            ++compared;
            const double difference = std::abs(rows.at(row) - std::stod(cell));
            worst = std::max(worst, difference);
            EXPECT_LT(difference, 1e-6) << line << " row " << row;
        }
    }
    EXPECT_EQ(designs, 1430U);
    EXPECT_GT(compared, 11000U);
    RecordProperty("worst_dB", std::to_string(worst * 1e9) + "e-9");
}

TEST(AdvancedFiltering, FirstOrderLowPassHasOneRealPole) {
    const Poles p = design(kButterworth, kLowPass, 1, -1, 10);
    const double t = std::tan(0.5 * kPi * 10 / 50);
    EXPECT_NEAR(p.re[1], (1 - t) / (1 + t), 1e-14);
    EXPECT_EQ(p.im[1], 0);
    EXPECT_EQ(p.zeros[1], -1);
    EXPECT_EQ(p.re.size(), 3U);
}

TEST(AdvancedFiltering, HighPassPolesAreThoseOfALowPassReflected) {
    for (const int model : {kButterworth, kChebyshev}) {
        for (const int order : {2, 5, 8}) {
            const Poles high = design(model, kHighPass, order, 12, -1);
            const Poles low = design(model, kLowPass, order, -1, 50 - 12);
            for (std::size_t i = 1; i <= static_cast<std::size_t>(order); ++i) {
                EXPECT_EQ(high.re[i], -low.re[i]);
                EXPECT_EQ(high.im[i], low.im[i]);
                EXPECT_EQ(high.zeros[i], 1);
                EXPECT_LT(std::hypot(low.re[i], low.im[i]), 1);
            }
        }
    }
}

TEST(AdvancedFiltering, BandPassHasConjugatePairs) {
    for (const int order : {2, 4, 6, 10}) {
        const Poles p = design(kButterworth, kBandPass, order, 15, 25);
        for (std::size_t i = 1; i < static_cast<std::size_t>(order); i += 2) {
            EXPECT_GT(p.im[i], 0) << order;
            EXPECT_EQ(p.re[i], p.re[i + 1]);
            EXPECT_EQ(p.im[i], -p.im[i + 1]);
        }
    }
}

TEST(AdvancedFiltering, AWideBandPassHasBothRealPoles) {
    const Poles p = design(kButterworth, kBandPass, 2, 5, 45);
    const double t = std::tan(0.5 * kPi * 40 / 50);
    const double pole = (1 - t) / (1 + t);
    const double w1 = 0.5 * kPi * 5 / 50, w2 = 0.5 * kPi * 45 / 50;
    const double h = 0.5 * std::cos(w1 + w2) / std::cos(w2 - w1) * (1 + pole);
    EXPECT_NEAR(p.re[1], h + std::sqrt(h * h - pole), 1e-12);
    EXPECT_NEAR(p.re[2], h - std::sqrt(h * h - pole), 1e-12);
    EXPECT_EQ(p.im[1], 0);
    EXPECT_EQ(p.im[2], 0);
}

TEST(AdvancedFiltering, TwoRootsMakeASection) {
    std::vector<FilterSection> sections;
    for (const int order : {1, 2, 5, 10}) {
        DesignFilter(sections, kChebyshev, kLowPass, order, 1, 100, 50, -1, 10);
        const Poles p = design(kChebyshev, kLowPass, order, -1, 10);
        ASSERT_EQ(sections.size(), static_cast<std::size_t>(order + 1) / 2);
        std::size_t row = 1;
        for (const FilterSection& section : sections) {
            const bool single = row == 1 && order % 2 == 1;
            for (std::size_t i = 0; i < 2; ++i) {
                const bool none = single && i == 1;
                EXPECT_EQ(section.zeros[i], none ? 0 : -1);
                EXPECT_EQ(section.poles[i], none ? 0.0 : std::complex(p.re[row], p.im[row]));
                if (!none) ++row;
            }
        }
    }
    DesignFilter(sections, kNoFilter, kLowPass, 2, 1, 100, 50, -1, 10); // only zeros
    EXPECT_EQ(sections.front().zeros[1], -1);
    EXPECT_EQ(sections.front().poles[1], 0.0);
}

TEST(AdvancedFiltering, TheHighestGainIsOne) {
    std::vector<FilterSection> sections;
    DesignFilter(sections, kButterworth, kLowPass, 4, 1, 100, 50, -1, 10);
    const std::vector<double> rows = FrequencyResponse(sections);
    EXPECT_EQ(rows.size(), 101U);
    EXPECT_EQ(rows[0], 0);
    EXPECT_NEAR(rows[20], -3.0103, 1e-4); // the corner
    double gain = 1;                      // at z = 1
    for (const FilterSection& section : sections) {
        gain *= section.gain;
        for (std::size_t i = 0; i < 2; ++i) gain *= (1 - section.zeros[i]) / std::abs(1.0 - section.poles[i]);
    }
    EXPECT_NEAR(gain, 1, 1e-9);
    EXPECT_NEAR(FrequencyResponse(sections)[20], rows[20], 1e-12); // the gain is one of the whole
}

TEST(AdvancedFiltering, BadInputGivesFiniteNumbersWithTheirHighestAtZero) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        int model, type, order;
        double low, high;
        float ripple;
    };
    const Case cases[] = {{kButterworth, kLowPass, 4, -1, 50, 1},    {kChebyshev, kLowPass, 3, -1, 50, 1},
                          {kButterworth, kBandPass, 4, 20, 20, 1},   {kChebyshev, kBandPass, 2, 30, 10, 1},
                          {kChebyshev, kLowPass, 4, -1, 10, 0},      {kChebyshev, kHighPass, 5, 50, -1, -3},
                          {kChebyshev, kBandPass, 2, 1, 50, 3},      {kButterworth, kBandPass, 5, 10, 20, 1},
                          {kButterworth, kBandPass, 1, 10, 20, 1},   {kButterworth, kBandPass, 0, 10, 20, 1},
                          {kButterworth, 9, 4, 10, 20, 1},           {kNoFilter, kBandPass, 6, 10, 20, 1},
                          {kChebyshev, kLowPass, 4, nan, nan, 1e30F}};
    for (const Case& c : cases) {
        const std::vector<double> rows = response(c.model, c.type, c.order, c.low, c.high, c.ripple);
        double highest = -1e300;
        for (const double row : rows) {
            EXPECT_TRUE(std::isfinite(row));
            highest = std::max(highest, row);
        }
        EXPECT_EQ(highest, 0) << c.model << c.type << c.order;
    }
    for (const int order : {-1, -7, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(response(kButterworth, kLowPass, order, -1, 10).size(), 101U);
        EXPECT_TRUE(design(kButterworth, kBandPass, order, 5, 10).re.empty());
    }
}

TEST(AdvancedFiltering, KnowsOddNumbers) {
    for (const int odd : {1, -1, 7, -9}) EXPECT_TRUE(IsOdd(odd));
    for (const int even : {0, 2, -4}) EXPECT_FALSE(IsOdd(even));
}

TEST(FilterSettings, NumbersAreBroughtIntoTheirRanges) {
    struct Case {
        FilterSettings given, clamped;
        bool orderTwoOnly;
    };
    const double infinity = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {{4, kLowPass, 10, -1, 3, 5}, {4, kLowPass, 10, 1, 4, 3}, false},
        {{4, kLowPass, 10, 2, 11, 0}, {4, kLowPass, 10, 2, 10, 0.01}, false},
        {{4, kLowPass, 4, 20, 8, 1}, {4, kLowPass, 4, 20, 2, 1}, true},
        {{4, kLowPass, 5, 2, 5, 1}, {4, kLowPass, 5, 2, 4, 1}, false},
        {{5, kHighPass, 2, 8, 7, 1}, {5, kHighPass, 2, 8, 8, 1}, false},
        {{5, kHighPass, 8, 4.9, 7, 1}, {5, kHighPass, 8, 4.9, 2, 1}, true},
        {{5, kBandPass, 80, 0.5, 6, 1}, {5, kBandPass, 50, 1, 2, 1}, true},
        {{5, kBandPass, 9, 6, 1, 1}, {5, kBandPass, 9, 6, 2, 1}, false},
        {{5, kBandPass, infinity, 6, 1e300, -infinity}, {5, kBandPass, 1, 6, 2, 0.01}, true},
    };
    for (const Case& c : cases) {
        FilterSettings settings = c.given;
        clampFilterSettings(settings);
        EXPECT_EQ(settings, c.clamped) << c.given.highHz << " " << c.given.lowHz << " " << c.given.order;
        EXPECT_EQ(takesOrderTwoOnly(settings), c.orderTwoOnly);
    }
}

TEST(FilterSettings, ABandPassNeedsABand) {
    EXPECT_TRUE(hasBand({kButterworth, kBandPass, 10.001, 10, 2, 1}));
    EXPECT_FALSE(hasBand({kButterworth, kBandPass, 10, 10, 2, 1}));
    EXPECT_FALSE(hasBand({kButterworth, kBandPass, 1, 10, 2, 1}));
    EXPECT_TRUE(hasBand({kButterworth, kLowPass, 1, 10, 2, 1}));
}

TEST(FilterSettings, GoIntoARowAndComeBack) {
    struct Case {
        std::int32_t type;
        float low, high;
    };
    for (const Case& c : {Case{kLowPass, -1, 12.5F}, Case{kHighPass, 8, -1}, Case{kBandPass, 8, 12.5F}}) {
        VariableDefinition row;
        const FilterSettings settings{kChebyshev, c.type, 12.5, 8, 6, 0.5};
        storeFilterSettings(settings, row);
        EXPECT_EQ(row.FilterDesign, 5);
        EXPECT_EQ(row.FilterLowVal, c.low);
        EXPECT_EQ(row.FilterHighVal, c.high);
        EXPECT_EQ(row.FilterOrder, 6);
        EXPECT_EQ(row.FilterRipple, 0.5F);
        EXPECT_EQ(filterSettingsOf(row).type, c.type);
    }
    VariableDefinition unknown;
    unknown.FilterDesign = 7;
    EXPECT_EQ(filterSettingsOf(unknown), (FilterSettings{kNoFilter, kLowPass, 0, 0, 0, 0}));
}

TEST(FilterSettings, TheTableHoldsPowersOfTen) {
    const FilterSettings settings{kButterworth, kLowPass, 10, 1, 2, 1};
    const ResponseTable table = responseTable(settings);
    EXPECT_EQ(table[0].place, 0);
    EXPECT_EQ(table[0].height, 1);
    EXPECT_EQ(table[100].place, 2);
    EXPECT_EQ(table[20].place, 0.4);
    EXPECT_NEAR(table[20].height, std::pow(10, -3.0103), 1e-6);
}

} // namespace
} // namespace vistor
