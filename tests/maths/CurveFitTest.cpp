#include "maths/CurveFit.h"

#include "maths/CellText.h"
#include "maths/ConvertUnits.h"
#include "maths/FormulaEvaluator.h"
#include "variables/GlobalVarsAndTypes.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vistor {
namespace {

struct ReferenceSet {
    std::string name;
    int degree = 0;
    std::vector<FitPoint> points;
    std::vector<double> coefficients;
    double squares = 0;
    std::vector<FitPoint> curve; ///< or these instead of coefficients
};

std::vector<ReferenceSet> referenceSets() {
    std::ifstream file(VISTOR_SOURCE_DIR "/tests/maths/polynomial-fits.txt");
    std::vector<ReferenceSet> sets;
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        std::string word;
        double x = 0, y = 0;
        words >> word;
        if (word == "set") sets.emplace_back().name = line;
        if (word == "degree") words >> sets.back().degree;
        if (word == "point" && words >> x >> y) sets.back().points.push_back({x, y});
        if (word == "at" && words >> x >> y) sets.back().curve.push_back({x, y});
        if (word == "coefficient" && words >> x) sets.back().coefficients.push_back(x);
        if (word == "squares") words >> sets.back().squares;
    }
    return sets;
}

TEST(CurveFit, AgreesWithExactResultsToEightDigits) {
    std::vector<ReferenceSet> sets = referenceSets();
    EXPECT_EQ(std::erase_if(sets, [](const auto& set) { return set.coefficients.empty(); }), 18U);
    ASSERT_EQ(sets.size(), 7U);
    for (const ReferenceSet& set : sets) {
        LeastSquares solver;
        ASSERT_TRUE(solver.Gene_Coeffs(set.points, set.degree)) << set.name;
        const FitCoefficients fitted = powersAbout(solver.LstSqrN(), 0);
        ASSERT_EQ(set.coefficients.size(), static_cast<std::size_t>(set.degree) + 1);
        for (std::size_t i = 0; i < set.coefficients.size(); ++i)
            EXPECT_NEAR(fitted[i + 1], set.coefficients[i], 0.5e-8 * std::abs(set.coefficients[i]))
                << set.name << " " << i;
        for (std::size_t i = set.coefficients.size() + 1; i < fitted.size(); ++i) EXPECT_EQ(fitted[i], 0);

        CurveFit exact;
        exact.terms = set.degree + 1;
        std::copy(set.coefficients.begin(), set.coefficients.end(), exact.coefficients.begin() + 1);
        const auto count = static_cast<double>(set.points.size());
        const double freedom = count > exact.terms ? count - exact.terms : count;
        const double deviation = std::sqrt(set.squares / freedom);
        EXPECT_NEAR(Standard_deviation(set.points, exact), deviation, 1e-7 * deviation + 1e-12) << set.name;
    }
}

// What OK hands over is what samples go through: the engine's reading of the text, on 32-bit samples.
TEST(CurveFit, TheFormulaIsTheCurve) {
    createFormulaEvaluators();
    FormulaEvaluator evaluator;
    for (const ReferenceSet& set : referenceSets()) {
        if (set.curve.empty()) continue;
        const CurveFit fit = fitCurve(set.points);
        EXPECT_EQ(fit.terms, set.degree + 1) << set.name;
        const auto [least, most] = std::ranges::minmax(set.curve, {}, &FitPoint::y);
        const double allowed = 1e-6 * (most.y - least.y) + 1e-14 * std::abs(most.y);
        evaluator.Expression(fit.formula);
        for (const auto& [x, y] : set.curve) {
            double value = 0;
            evaluator.SetVariable(QStringLiteral("x"), x);
            ASSERT_TRUE(evaluator.Value(value)) << fit.formula.toStdString();
            EXPECT_NEAR(value, y, allowed) << set.name << " at " << x << ": " << fit.formula.toStdString();
            EXPECT_NEAR(valueAt(fit, x), y, allowed) << set.name;
            const double half = std::abs(y) * 0x1p-24; // of the last place of 32 bits
            EXPECT_NEAR(EvaluateExpression(fit.formula, static_cast<float>(x), 100), y, allowed + half);
        }
    }
}

TEST(CurveFit, WritesTheDigitsThatCount) {
    struct Case {
        std::vector<FitPoint> points;
        const char* formula;
        const char16_t* equation;
    };
    const Case cases[] = {{{{0, 1}, {0.1, 1.02}}, "(0) * x^3 + (0) * x^2 + (0.2) * x + (1)", u"y = 0.2x + 1"},
                          {{{1000, 3}, {3000, 4}, {5000, 5}, {9000, 7}},
                           "(0) * x^3 + (0) * x^2 + (0.0005) * x + (2.5)",
                           u"y = 5e-4x + 2.5"},
                          {{{0, 0}, {3e6, 1e-3}, {6e6, 2e-3}},
                           "(0) * x^3 + (0) * x^2 + (3.333333333E-10) * x + (0)",
                           u"y = 3.3333e-10x"},
                          {{{1e6, 2}, {1000010, 1}, {1000020, 2}},
                           "(0) * (x - 1000010)^3 + (0.01) * (x - 1000010)^2 + (0) * (x - 1000010) + (1)",
                           u"y = 0.01(x - 1000010)² + 1"},
                          {{{-1e6, -6}, {-1000020, -6}, {-1000010, -5}},
                           "(0) * (x + 1000010)^3 + (-0.01) * (x + 1000010)^2 + (0) * (x + 1000010) + (-5)",
                           u"y = -0.01(x + 1000010)² - 5"}};
    for (const Case& c : cases) {
        const CurveFit fit = fitCurve(c.points);
        EXPECT_EQ(fit.formula, c.formula);
        EXPECT_EQ(fit.label.section(QStringLiteral("     "), 0, 0), QString::fromUtf16(c.equation));
    }
}

TEST(CurveFit, RoundsToAPowerOfTen) {
    const std::tuple<double, int, double> cases[] = {
        {2.45678, -2, 2.46}, {-2.45678, -2, -2.46}, {12345, 2, 12300},    {0.4, 0, 0}, {-0.6, 0, -1},
        {0, -5, 0},          {999.9, 0, 1000},      {1e300, -330, 1e300}, {3, 308, 0}};
    for (const auto& [value, exponent, expected] : cases) EXPECT_EQ(roundedAt(value, exponent), expected);
    EXPECT_EQ(decimalExponent(999), 2);
    EXPECT_EQ(decimalExponent(1000), 3);
    EXPECT_LT(decimalExponent(0), -320);
}

std::vector<FitPoint> onLine(int count) {
    std::vector<FitPoint> points;
    for (int i = 0; i < count; ++i) points.push_back({0.25 * i, 3 - 0.5 * i});
    return points;
}

TEST(CurveFit, TheNumberOfPointsSetsTheDegree) {
    const int terms[] = {0, 1, 2, 3, 4, 4, 4};
    for (int count = 0; count <= 6; ++count) EXPECT_EQ(fitCurve(onLine(count)).terms, terms[count]) << count;
    EXPECT_EQ(fitCurve(onLine(25)).terms, 4);
    EXPECT_EQ(fitCurve(onLine(25)).formula, "(0) * x^3 + (0) * x^2 + (-2) * x + (3)");
}

TEST(CurveFit, SaysWhyThereIsNoEquation) {
    for (const int count : {26, 1000}) {
        const CurveFit fit = fitCurve(onLine(count));
        EXPECT_EQ(fit.label, "Maxmium of 25 data points");
        EXPECT_TRUE(fit.formula.isEmpty());
    }
    EXPECT_EQ(fitCurve({}).label, "Not enough data");
    EXPECT_EQ(fitCurve(onLine(3), 3).label, "Not Enough Data");
    EXPECT_TRUE(fitCurve(onLine(3), 3).formula.isEmpty());
}

TEST(CurveFit, FourPointsGiveAnExactCubic) {
    const std::vector<FitPoint> points = {{-1, 0.5}, {0, 1}, {1, -0.5}, {2, 5}};
    const CurveFit fit = fitCurve(points);
    EXPECT_NEAR(fit.deviation, 0, 1e-7);
    EXPECT_EQ(fit.centre, 0);
    for (const FitPoint& point : points) EXPECT_NEAR(valueAt(fit, point.x), point.y, 1e-7);
}

TEST(CurveFit, TheFormulaIsOneThatTheEngineTakes) {
    createFormulaEvaluators();
    const std::vector<FitPoint> points = {{0, 1e-7}, {1000, 1.1e-4}, {2000, 2.3e-4}, {3000, 1e12}};
    for (const std::size_t count : {1U, 2U, 3U, 4U}) {
        const CurveFit fit = fitCurve({points.data(), count});
        std::vector<std::int32_t> variables;
        std::vector<bool> items;
        EXPECT_TRUE(CheckExpression(fit.formula, variables, items)) << fit.formula.toStdString();
        const double expected = valueAt(fit, 1500);
        EXPECT_NEAR(static_cast<double>(EvaluateExpression(fit.formula, 1500, 100)), expected,
                    1e-6 * std::abs(expected))
            << fit.formula.toStdString();
    }
}

TEST(CurveFit, PointsAtOnePlaceGiveTheirMean) {
    const CurveFit fit = fitCurve(std::vector<FitPoint>{{2, 1}, {2, 2}, {2, 3}, {2, 4}, {2, 5}});
    EXPECT_EQ(fit.formula, "(0) * x^3 + (0) * x^2 + (0) * x + (3)");
}

TEST(CurveFit, BadPointsGiveFiniteNumbers) {
    const std::vector<FitPoint> sets[] = {std::vector<FitPoint>(3, {2, 5}),
                                          std::vector<FitPoint>(25, {0, 0}),
                                          std::vector<FitPoint>(7, {1e200, -1e300}),
                                          {{1, 1}, {1, 2}, {1, 3}, {1, 4}, {1, 5}},
                                          {{1e-300, 1e300}, {2e-300, -1e300}},
                                          {{-1.7e308, 1.7e308}, {1.7e308, -1.7e308}, {1, 1.7e308}, {0, 0}},
                                          {{0, 1e-320}, {1e-320, 0}, {5e-324, 3}}};
    for (const auto& points : sets) {
        const CurveFit fit = fitCurve(points);
        EXPECT_FALSE(fit.formula.isEmpty());
        EXPECT_FALSE(fit.formula.contains(u"nan") || fit.formula.contains(u"inf"))
            << fit.formula.toStdString();
        EXPECT_TRUE(std::isfinite(fit.deviation));
        for (const FitPoint& point : curvePoints(points, fit))
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    }
}

TEST(CurveFit, WritesTheEquationForPeople) {
    struct Case {
        double constant, x, square, cube;
        const char16_t* text;
    };
    const Case cases[] = {{1, 2, 3, 4, u"y = 4x³ + 3x² + 2x + 1"},
                          {-1, -2, -3, -4, u"y = -4x³ - 3x² - 2x - 1"},
                          {0, 1, -1, 0, u"y = -x² + x"},
                          {-1, 0, 0, 1, u"y = x³ - 1"},
                          {2.5, 0, 0, 0, u"y = 2.5"},
                          {0, 0.123456789, 0, 0, u"y = 0.1235x"},
                          {0, 0, 0, 0, u"y = 0"}};
    for (const Case& c : cases)
        EXPECT_EQ(equationText({0, c.constant, c.x, c.square, c.cube}), QString::fromUtf16(c.text));
    const QString label = fitCurve(std::vector<FitPoint>{{0, 1}, {1, 3}}).label;
    EXPECT_EQ(label, "y = 2x + 1     std dev=0");
}

TEST(CurveFit, WritesSignificantFigures) {
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {{0, "0"},
                          {-12.5, "-12.5"},
                          {3.14159265, "3.1416"},
                          {-3.14159265, "-3.1416"},
                          {123.456789, "123.4568"}, // so many places behind the point
                          {12345.678901, "12345.6789"},
                          {0.05, "0.05"},
                          {0.0123456, "1.2346e-2"},
                          {-0.0000099999999, "-1e-5"},
                          {123456789, "1.2346e8"},
                          {1e300, "1E+300"}}; // six characters
    for (const Case& c : cases) {
        const int figures = c.value == 1e300 ? 6 : 5;
        EXPECT_EQ(FormatSF(c.value, figures), c.text) << c.value;
    }
}

TEST(CurveFit, ReadsThePointsOfAGrid) {
    const std::vector<QStringList> rows = {{"1", "2"},       {"", "7"},  {"3", " "},    {},
                                           {"1.5V", "-2e1"}, {"U", "4"}, {" 2 ", ".5"}, {"1,5", "1e999"}};
    const std::vector<FitPoint> points = pointsOf(rows);
    const FitPoint expected[] = {{1, 2}, {1.5, -20}, {0, 4}, {2, 0.5}, {1, 0}};
    ASSERT_EQ(points.size(), std::size(expected));
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(points[i].x, expected[i].x) << i;
        EXPECT_EQ(points[i].y, expected[i].y) << i;
    }
}

TEST(CellText, ReadsWhatSpreadsheetsGive) {
    struct Case {
        const char* text;
        std::vector<QStringList> rows;
    };
    const Case cases[] = {{"", {}},
                          {"1\t2\r\n3\t4\r\n", {{"1", "2"}, {"3", "4"}}},
                          {"1\t2\n3\t4", {{"1", "2"}, {"3", "4"}}},
                          {"1\r2\r", {{"1"}, {"2"}}},
                          {"1\r\n\r\n 2 \t\r\n", {{"1"}, {""}, {"2", ""}}},
                          {"\t5\r\n", {{"", "5"}}}};
    for (const Case& c : cases) EXPECT_EQ(cellsOfText(c.text), c.rows) << c.text;
    EXPECT_EQ(textOfCells(std::vector<QStringList>{{"1", "2"}, {"", "4"}}), "1\t2\r\n\t4\r\n");
    DecimalSeparator = QStringLiteral(",");
    EXPECT_EQ(cellsOfText("1,5\t2.5"), (std::vector<QStringList>{{"1.5", "2.5"}}));
}

TEST(CellText, BoundsWhatItTakes) {
    EXPECT_EQ(cellsOfText(QString(1'000'000, u'\n')).size(), static_cast<std::size_t>(kMostPastedRows));
    const auto wide = cellsOfText(QString(1'000'000, u'\t') + u'x');
    EXPECT_EQ(wide.at(0).size(), kMostPastedColumns);
    EXPECT_EQ(cellsOfText(QString(100'000, u'7')).at(0).at(0).size(), kLongestCell);
}

} // namespace
} // namespace vistor
