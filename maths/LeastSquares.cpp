#include "maths/LeastSquares.h"

#include "maths/PassOver.h"

#include <cmath>
#include <utility>

namespace vistor {
namespace {

using Row = std::array<double, kMostPoints + 1>;

void divideRow(Row& row, double divisor) {
    for (double& cell : row) putUnlessFailed(cell, cell / divisor);
}

void subtractRow(Row& row, const Row& other, double factor) {
    for (std::size_t i = 0; i < row.size(); ++i) putUnlessFailed(row[i], row[i] - factor * other[i]);
}

/// The row whose element stands for the pivot of column k: the one on the diagonal, which for normal
/// equations is as good as any and keeps columns of very different size apart; the largest below it when it
/// is 0.
std::size_t pivotRow(const FitMatrix& matrix, std::size_t k) {
    std::size_t best = k;
    if (matrix.cell[k][k] != 0) return best;
    for (std::size_t i = k + 1; i <= matrix.rows; ++i)
        if (std::abs(matrix.cell[i][k]) > std::abs(matrix.cell[best][k])) best = i;
    return best;
}

FitMatrix identity(std::size_t size) {
    FitMatrix matrix;
    matrix.rows = matrix.columns = size;
    for (std::size_t i = 1; i <= size; ++i) matrix.cell[i][i] = 1;
    return matrix;
}

} // namespace

bool LeastSquares::Gene_Coeffs(std::span<const FitPoint> points, int degree) {
    if (points.size() > kMostPoints || degree < 0 || degree >= kMostCoefficients) return false;
    m_design = {};
    m_values = {};
    m_design.rows = m_values.rows = points.size();
    m_design.columns = static_cast<std::size_t>(degree) + 1;
    m_values.columns = 1;
    for (std::size_t i = 1; i <= points.size(); ++i) {
        double power = 1;
        for (std::size_t column = 1; column <= m_design.columns; ++column) {
            putUnlessFailed(m_design.cell[i][column], power);
            power *= points[i - 1].x;
        }
        m_values.cell[i][1] = points[i - 1].y;
    }
    return true;
}

FitCoefficients LeastSquares::LstSqrN() {
    A = m_design;
    A_IN_C();
    C_IN_B();
    Transpose();
    Matmult();
    C_IN_A(); // the square matrix of the normal equations
    Matinv();
    A_IN_C();
    B_IN_A();
    C_IN_B(); // design matrix and inverse, which is symmetric: their product turned over is what is wanted
    Matmult();
    C_IN_A();
    Transpose();
    B = m_values;
    Matmult();
    FitCoefficients coefficients{};
    for (std::size_t i = 1; i <= m_design.columns; ++i) coefficients[i] = C.cell[i][1];
    return coefficients;
}

void LeastSquares::Transpose() {
    for (std::size_t i = 1; i < A.cell.size(); ++i)
        for (std::size_t j = 1; j < i; ++j) std::swap(A.cell[i][j], A.cell[j][i]);
    std::swap(A.rows, A.columns);
}

void LeastSquares::A_IN_C() {
    C = A;
}

void LeastSquares::B_IN_A() {
    A = B;
}

void LeastSquares::C_IN_B() {
    B = C;
}

void LeastSquares::C_IN_A() {
    A = C;
}

void LeastSquares::Matmult() {
    C = {};
    C.rows = A.rows;
    C.columns = B.columns;
    for (std::size_t i = 1; i <= A.rows; ++i)
        for (std::size_t j = 1; j <= B.columns; ++j)
            for (std::size_t k = 1; k <= A.columns; ++k)
                putUnlessFailed(C.cell[i][j], C.cell[i][j] + A.cell[i][k] * B.cell[k][j]);
}

void LeastSquares::Matinv() {
    FitMatrix inverse = identity(A.rows);
    for (std::size_t k = 1; k <= A.rows; ++k) {
        const std::size_t pivot = pivotRow(A, k);
        std::swap(A.cell[k], A.cell[pivot]);
        std::swap(inverse.cell[k], inverse.cell[pivot]);
        const double divisor = A.cell[k][k];
        divideRow(A.cell[k], divisor);
        divideRow(inverse.cell[k], divisor);
        for (std::size_t i = 1; i <= A.rows; ++i) {
            if (i == k) continue;
            const double factor = A.cell[i][k];
            subtractRow(A.cell[i], A.cell[k], factor);
            subtractRow(inverse.cell[i], inverse.cell[k], factor);
        }
    }
    A = inverse;
}

} // namespace vistor
