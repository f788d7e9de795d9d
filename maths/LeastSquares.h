// Fits a polynomial to points by least squares, on centred and scaled abscissae. In: points and a degree.
// Out: coefficients.
#pragma once

#include <array>
#include <span>
#include <vector>

namespace vistor {

inline constexpr int kMostPoints = 25;
inline constexpr int kMostCoefficients = 11;

struct FitPoint {
    double x = 0;
    double y = 0;
};

/// Row 1 is the constant term, row 2 goes with x, and so on.
using FitCoefficients = std::array<double, 12>;

/// A polynomial in t = (x - centre) / scale, which lies between -1 and 1 over the points it was fitted to. So
/// its terms are of the size of its values, wherever on the axis the points lie.
struct ScaledPolynomial {
    double centre = 0;
    double scale = 1;
    FitCoefficients coefficients{};
};

double valueAt(const ScaledPolynomial& polynomial, double x);

/// The coefficients of the same polynomial in powers of (x - centre). One that is beyond the range of numbers
/// is 0.
FitCoefficients powersAbout(const ScaledPolynomial& polynomial, double centre);

/// The number nearest to `value` that is a whole multiple of 10 to the power `exponent`, in 17 digits at
/// most.
double roundedAt(double value, int exponent);

/// The exponent of the largest power of ten that is not above `magnitude`; below all of them for 0.
int decimalExponent(double magnitude);

class LeastSquares {
public:
    /// Fills the design matrix: row i holds t[i] to the powers 0 to `degree`. At most kMostPoints points and
    /// a degree below kMostCoefficients; false, and nothing done, beyond that and without points.
    bool Gene_Coeffs(std::span<const FitPoint> points, int degree);

    /// The best polynomial for the points of Gene_Coeffs, by a QR decomposition with pivoting of columns.
    /// Where the points leave coefficients open, some of these are 0.
    ScaledPolynomial LstSqrN() const;

private:
    ScaledPolynomial m_axis;      ///< centre and scale
    std::vector<double> m_design; ///< column behind column
    std::vector<double> m_values;
};

} // namespace vistor
