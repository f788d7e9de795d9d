#include "maths/CurveFit.h"

#include "maths/FormulaEvaluator.h"
#include "maths/PassOver.h"
#include "maths/script/Conversions.h"
#include "platform/IniFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistor {
namespace {

constexpr int kHighestDegree = 3;
constexpr int kTerms = kHighestDegree + 1;
constexpr int kFigures = 5;        ///< of the numbers in the text for people
constexpr double kRounding = 1e-8; ///< of the curve's range: what the digits left out may change
constexpr double kNoise = 1e-13;   ///< of the largest value: what 64-bit arithmetic changes
constexpr int kCurveSteps = 120;   ///< of the line in the chart
constexpr double kDrawable = 1e15; ///< beyond it a curve is not worth a chart
constexpr const char16_t* kExponents[kTerms] = {u"", u"", u"\u00B2", u"\u00B3"};

QString plainText(double value) {
    return QString::fromStdU16String(script::formatDouble(value, 15));
}

/// The shortest text that reads back as the value.
QString exactText(double value) {
    QString text;
    for (int digits = 15; digits <= 17; ++digits) {
        text = QString::fromStdU16String(script::formatDouble(value, digits));
        if (text.toDouble() == value) break;
    }
    return text;
}

/// What stands for x in a formula or an equation.
QString baseText(double centre) {
    if (centre == 0) return QStringLiteral("x");
    return (centre < 0 ? QStringLiteral("(x + %1)") : QStringLiteral("(x - %1)"))
        .arg(exactText(std::abs(centre)));
}

/// Mantissa and exponent of a number that is too large or too small to be read otherwise.
QString exponentText(double magnitude, int figures) {
    const double scale = std::pow(10.0, figures - 1);
    auto exponent = static_cast<int>(std::floor(Log10(magnitude)));
    double mantissa = std::nearbyint(magnitude / std::pow(10.0, exponent) * scale) / scale;
    if (mantissa >= 10) {
        mantissa /= 10;
        ++exponent;
    }
    return plainText(mantissa) + u'e' + QString::number(exponent);
}

/// One term behind its sign.
QString termText(double magnitude, std::size_t power, const QString& base) {
    const QString number = FormatSF(magnitude, kFigures);
    if (power == 0) return number;
    return (magnitude == 1 ? QString() : number) + base + QString::fromUtf16(kExponents[power]);
}

/// What a formula has to agree with, and where.
struct Target {
    ScaledPolynomial curve;
    std::vector<double> places; ///< along the points, as 32-bit samples have them
    double tolerance = 0;       ///< what the rounding of all coefficients may change

    Target(ScaledPolynomial fitted, std::span<const FitPoint> points);
};

Target::Target(ScaledPolynomial fitted, std::span<const FitPoint> points) : curve(std::move(fitted)) {
    const auto [first, last] = std::ranges::minmax(points, {}, &FitPoint::x);
    for (int i = 0; i <= kCurveSteps; ++i)
        places.push_back(static_cast<double>(
            static_cast<float>(std::lerp(first.x, last.x, static_cast<double>(i) / kCurveSteps))));
    double least = valueAt(curve, first.x);
    double most = least;
    for (const double x : places) {
        least = std::min(least, valueAt(curve, x));
        most = std::max(most, valueAt(curve, x));
    }
    tolerance = std::max(kRounding * (most - least), kNoise * std::max(std::abs(least), std::abs(most)));
    for (double& coefficient : curve.coefficients) // so that a line has no square and no cube
        if (std::abs(coefficient) < tolerance / 10) coefficient = 0;
}

/// Writes the target's curve in powers of (x - centre).
void write(CurveFit& fit, const Target& target, double centre) {
    fit.centre = centre;
    fit.coefficients = powersAbout(target.curve, centre);
    double reach = 0;
    for (const double x : target.places) reach = std::max(reach, std::abs(x - centre));
    for (std::size_t power = 0; power < kTerms; ++power) {
        const double weight = std::pow(reach > 0 ? reach : 1, static_cast<double>(power)) * kTerms;
        double& coefficient = fit.coefficients[power + 1];
        coefficient = roundedAt(coefficient, decimalExponent(target.tolerance / weight));
    }
    fit.formula = formulaText(fit.coefficients, centre);
}

/// Whether the formula, as the engine reads and evaluates it, is the target's curve.
bool agrees(const CurveFit& fit, const Target& target) {
    FormulaEvaluator evaluator;
    evaluator.Expression(fit.formula);
    return std::ranges::all_of(target.places, [&](double x) {
        double value = 0;
        evaluator.SetVariable(QStringLiteral("x"), x);
        return evaluator.Value(value) && std::abs(value - valueAt(target.curve, x)) <= 10 * target.tolerance;
    });
}

} // namespace

std::vector<FitPoint> pointsOf(std::span<const QStringList> rows) {
    std::vector<FitPoint> points;
    for (const QStringList& row : rows) {
        if (row.size() < 2 || row[0].trimmed().isEmpty() || row[1].trimmed().isEmpty()) continue;
        points.push_back({leadingNumber(row[0]), leadingNumber(row[1])});
    }
    return points;
}

int degreeFor(std::size_t points) {
    return static_cast<int>(std::min<std::size_t>(points, kTerms)) - 1;
}

CurveFit fitCurve(std::span<const FitPoint> points) {
    CurveFit fit;
    if (points.size() > kMostPoints) {
        fit.label = QStringLiteral("Maxmium of 25 data points");
        return fit;
    }
    if (points.empty()) {
        fit.label = QStringLiteral("Not enough data");
        return fit;
    }
    return fitCurve(points, degreeFor(points.size()));
}

CurveFit fitCurve(std::span<const FitPoint> points, int degree) {
    CurveFit fit;
    LeastSquares solver;
    if (degree > kHighestDegree || static_cast<int>(points.size()) < degree + 1 ||
        !solver.Gene_Coeffs(points, degree)) {
        fit.label = QStringLiteral("Not Enough Data");
        return fit;
    }
    fit.terms = degree + 1;
    const Target target(solver.LstSqrN(), points);
    write(fit, target, 0);
    if (!agrees(fit, target)) write(fit, target, target.curve.centre);
    fit.deviation = Standard_deviation(points, fit);
    fit.label = equationText(fit.coefficients, fit.centre) + QStringLiteral("     std dev=") +
                FormatSF(fit.deviation, kFigures);
    return fit;
}

double valueAt(const CurveFit& fit, double x) {
    double sum = 0;
    double power = 1;
    for (std::size_t i = 1; i < fit.coefficients.size(); ++i) {
        putUnlessFailed(sum, sum + fit.coefficients[i] * power);
        power *= x - fit.centre;
    }
    return sum;
}

double Standard_deviation(std::span<const FitPoint> points, const CurveFit& fit) {
    double squares = 0;
    for (const FitPoint& point : points) {
        const double distance = point.y - valueAt(fit, point.x);
        putUnlessFailed(squares, squares + distance * distance);
    }
    const auto count = static_cast<double>(points.size());
    const double freedom = count > fit.terms ? count - fit.terms : count;
    double deviation = 0;
    putUnlessFailed(deviation, std::sqrt(squares / freedom));
    return deviation;
}

double Log10(double x) {
    return std::log(x) / std::log(10.0);
}

QString FormatSF(double value, int figures) {
    const QString text = plainText(value);
    if (value == 0 || text.size() <= figures) return text;
    const QString sign = value < 0 ? QStringLiteral("-") : QString();
    const double magnitude = std::abs(value);
    const double exponent = std::trunc(Log10(magnitude));
    if (exponent < 0 || exponent > figures) return sign + exponentText(magnitude, figures);
    const double scale = std::pow(10.0, figures - 1);
    return sign + plainText(std::nearbyint(magnitude * scale) / scale);
}

QString equationText(const FitCoefficients& coefficients, double centre) {
    const QString base = baseText(centre);
    QString text;
    for (std::size_t power = kTerms; power-- > 0;) {
        const double coefficient = coefficients[power + 1];
        if (coefficient == 0) continue;
        if (text.isEmpty())
            text = coefficient < 0 ? QStringLiteral("-") : QString();
        else
            text += coefficient < 0 ? QStringLiteral(" - ") : QStringLiteral(" + ");
        text += termText(std::abs(coefficient), power, base);
    }
    return QStringLiteral("y = ") + (text.isEmpty() ? QStringLiteral("0") : text);
}

QString formulaText(const FitCoefficients& coefficients, double centre) {
    return QStringLiteral("(%1) * %5^3 + (%2) * %5^2 + (%3) * %5 + (%4)")
        .arg(exactText(coefficients[4]), exactText(coefficients[3]), exactText(coefficients[2]),
             exactText(coefficients[1]), baseText(centre));
}

bool isDrawable(const FitPoint& point) {
    return std::abs(point.x) < kDrawable && std::abs(point.y) < kDrawable;
}

std::vector<FitPoint> curvePoints(std::span<const FitPoint> points, const CurveFit& fit) {
    std::vector<FitPoint> curve;
    if (fit.terms == 0 || points.empty()) return curve;
    const auto [least, most] = std::ranges::minmax(points, {}, &FitPoint::x);
    for (int i = 0; i <= kCurveSteps; ++i) {
        const double x = std::lerp(least.x, most.x, static_cast<double>(i) / kCurveSteps);
        curve.push_back({x, valueAt(fit, x)});
    }
    return curve;
}

} // namespace vistor
