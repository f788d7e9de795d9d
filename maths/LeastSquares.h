// Fits a polynomial to points by least squares, on fixed matrices. In: points and a degree. Out:
// coefficients.
#pragma once

#include <array>
#include <span>

namespace vistor {

inline constexpr int kMostPoints = 25;
inline constexpr int kMostCoefficients = 11;

struct FitPoint {
    double x = 0;
    double y = 0;
};

/// Rows and columns from 1; row 0 and column 0 are not used.
struct FitMatrix {
    std::array<std::array<double, kMostPoints + 1>, kMostPoints + 1> cell{};
    std::size_t rows = 0;
    std::size_t columns = 0;

    friend bool operator==(const FitMatrix&, const FitMatrix&) = default;
};

/// Row 1 is the constant term, row 2 goes with x, and so on.
using FitCoefficients = std::array<double, 12>;

/// The solver with its matrices. `A`, `B` and `C` are what the helpers work on.
class LeastSquares {
public:
    /// Fills the design matrix: row i holds x[i] to the powers 0 to `degree`. At most kMostPoints points and
    /// a degree below kMostCoefficients; false, and nothing done, beyond that.
    bool Gene_Coeffs(std::span<const FitPoint> points, int degree);

    /// Solves the normal equations for the points of Gene_Coeffs: rows 1 to degree + 1 of the result. Where
    /// the matrix is singular it holds whatever the divisions that worked gave.
    FitCoefficients LstSqrN();

    void Transpose(); ///< A turns over
    void A_IN_C();    ///< C becomes a copy of A; the other three likewise
    void B_IN_A();
    void C_IN_B();
    void C_IN_A();
    void Matmult(); ///< C becomes A times B
    void Matinv();  ///< A becomes its inverse

    FitMatrix A, B, C;

private:
    FitMatrix m_design;
    FitMatrix m_values; ///< the column of y
};

} // namespace vistor
