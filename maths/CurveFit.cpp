#include "maths/CurveFit.h"

#include "maths/PassOver.h"
#include "maths/script/Conversions.h"
#include "platform/IniFile.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr int kHighestDegree = 3;
constexpr int kTerms = kHighestDegree + 1;
constexpr int kFigures = 5;        ///< of the numbers in the text for people
constexpr double kPlaces = 1e8;    ///< coefficients are rounded to so many parts
constexpr double kExact = 0x1p53;  ///< from here on a number has no places to round
constexpr int kCurveSteps = 120;   ///< of the line in the chart
constexpr double kDrawable = 1e15; ///< beyond it a curve is not worth a chart
constexpr const char16_t* kPowers[kTerms] = {u"", u"x", u"x\u00B2", u"x\u00B3"};

QString plainText(double value) {
    return QString::fromStdU16String(script::formatDouble(value, 15));
}

double rounded(double value) {
    const double scaled = value * kPlaces;
    return std::abs(scaled) < kExact ? std::nearbyint(scaled) / kPlaces : value;
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
QString termText(double magnitude, std::size_t power) {
    const QString number = FormatSF(magnitude, kFigures);
    if (magnitude == 1 && power > 0) return QString::fromUtf16(kPowers[power]);
    return number + QString::fromUtf16(kPowers[power]);
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
    fit.coefficients = solver.LstSqrN();
    for (double& coefficient : fit.coefficients) coefficient = rounded(coefficient);
    fit.formula = formulaText(fit.coefficients);
    fit.deviation = Standard_deviation(points, fit);
    fit.label =
        equationText(fit.coefficients) + QStringLiteral("     std dev=") + FormatSF(fit.deviation, kFigures);
    return fit;
}

double valueAt(const CurveFit& fit, double x) {
    double sum = 0;
    double power = 1;
    for (std::size_t i = 1; i < fit.coefficients.size(); ++i) {
        putUnlessFailed(sum, sum + fit.coefficients[i] * power);
        power *= x;
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

QString equationText(const FitCoefficients& coefficients) {
    QString text;
    for (std::size_t power = kTerms; power-- > 0;) {
        const double coefficient = coefficients[power + 1];
        if (coefficient == 0) continue;
        if (text.isEmpty())
            text = coefficient < 0 ? QStringLiteral("-") : QString();
        else
            text += coefficient < 0 ? QStringLiteral(" - ") : QStringLiteral(" + ");
        text += termText(std::abs(coefficient), power);
    }
    return QStringLiteral("y = ") + (text.isEmpty() ? QStringLiteral("0") : text);
}

QString formulaText(const FitCoefficients& coefficients) {
    return QStringLiteral("(%1) * x^3 + (%2) * x^2 + (%3) * x + (%4)")
        .arg(plainText(coefficients[4]), plainText(coefficients[3]), plainText(coefficients[2]),
             plainText(coefficients[1]));
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
