#include "maths/LeastSquares.h"

#include "maths/PassOver.h"

#include <Eigen/QR>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace vistor {
namespace {

constexpr int kMostDigits = 17;
constexpr int kLeastExponent = -330; ///< below that of every number

/// A short number near the middle of the points, so that it reads well in a formula, and the distance of the
/// farthest point from it.
ScaledPolynomial axisOf(std::span<const FitPoint> points) {
    const auto [least, most] = std::ranges::minmax(points, {}, &FitPoint::x);
    ScaledPolynomial axis;
    axis.centre = roundedAt(most.x / 2 + least.x / 2, decimalExponent(most.x / 2 - least.x / 2));
    const double reach = std::max(std::abs(least.x - axis.centre), std::abs(most.x - axis.centre));
    if (reach > 0 && std::isfinite(reach)) axis.scale = reach;
    return axis;
}

double largestOf(std::span<const double> values) {
    double largest = 0;
    for (const double value : values) largest = std::max(largest, std::abs(value));
    return largest;
}

} // namespace

int decimalExponent(double magnitude) {
    if (!(magnitude > 0)) return kLeastExponent; // NaN too
    const double exponent = std::floor(std::log10(magnitude));
    return static_cast<int>(std::min(exponent, 308.0));
}

double roundedAt(double value, int exponent) {
    const int digits = decimalExponent(std::abs(value)) - exponent + 1;
    const double unit = std::pow(10.0, exponent);
    if (digits < 1) return std::abs(value) > unit / 2 ? std::copysign(unit, value) : 0;
    char text[40];
    const auto [end, written] =
        std::to_chars(std::begin(text), std::end(text), value, std::chars_format::scientific,
                      std::min(digits, kMostDigits) - 1);
    double rounded = value;
    std::from_chars(text, end, rounded);
    return rounded;
}

double valueAt(const ScaledPolynomial& polynomial, double x) {
    const double t = (x - polynomial.centre) / polynomial.scale;
    double sum = 0;
    for (std::size_t i = polynomial.coefficients.size(); i-- > 1;) sum = sum * t + polynomial.coefficients[i];
    return sum;
}

FitCoefficients powersAbout(const ScaledPolynomial& polynomial, double centre) {
    constexpr std::size_t kRows = kMostCoefficients;
    std::array<long double, kRows> powers{}; // more digits than what is written
    long double divisor = 1;
    for (std::size_t i = 0; i < kRows; ++i, divisor *= static_cast<long double>(polynomial.scale))
        if (polynomial.coefficients[i + 1] != 0)
            powers[i] = static_cast<long double>(polynomial.coefficients[i + 1]) / divisor;
    const long double shift = static_cast<long double>(centre) - static_cast<long double>(polynomial.centre);
    for (std::size_t first = 0; first < kRows; ++first) // a synthetic division by (x - centre) each
        for (std::size_t i = kRows - 1; i-- > first;) powers[i] += shift * powers[i + 1];
    FitCoefficients coefficients{};
    for (std::size_t i = 0; i < kRows; ++i)
        putUnlessFailed(coefficients[i + 1], static_cast<double>(powers[i]));
    return coefficients;
}

bool LeastSquares::Gene_Coeffs(std::span<const FitPoint> points, int degree) {
    if (points.empty() || points.size() > kMostPoints || degree < 0 || degree >= kMostCoefficients)
        return false;
    m_axis = axisOf(points);
    m_design.clear();
    m_values.clear();
    for (const FitPoint& point : points) m_values.push_back(point.y);
    for (int power = 0; power <= degree; ++power)
        for (const FitPoint& point : points)
            m_design.push_back(std::pow((point.x - m_axis.centre) / m_axis.scale, power));
    return true;
}

ScaledPolynomial LeastSquares::LstSqrN() const {
    const auto rows = static_cast<Eigen::Index>(m_values.size());
    const auto columns = rows > 0 ? static_cast<Eigen::Index>(m_design.size()) / rows : 0;
    ScaledPolynomial polynomial = m_axis;
    const double size = largestOf(m_values); // so that no square of a value overflows
    if (columns == 0 || size == 0) return polynomial;
    const Eigen::Map<const Eigen::MatrixXd> design(m_design.data(), rows, columns);
    const Eigen::Map<const Eigen::VectorXd> values(m_values.data(), rows);
    const Eigen::VectorXd solution = design.colPivHouseholderQr().solve(values / size);
    for (Eigen::Index i = 0; i < columns; ++i)
        putUnlessFailed(polynomial.coefficients[static_cast<std::size_t>(i) + 1], solution[i] * size);
    return polynomial;
}

} // namespace vistor
