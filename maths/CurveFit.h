// The rules behind the curve fit window. In: the texts of its grid. Out: the formula of the polynomial that
// fits best, its text for people, and points for the chart.
#pragma once

#include "maths/LeastSquares.h"

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

namespace vistor {

/// What came of a table of points.
struct CurveFit {
    QString label;                  ///< the equation and its deviation, or why there is none
    QString formula;                ///< in x, as the formula editor takes it; empty: none
    int terms = 0;                  ///< coefficients that were fitted, 0: none
    double centre = 0;              ///< what is taken from x before it is raised to a power
    FitCoefficients coefficients{}; ///< as the formula has them, row 1 the constant term
    double deviation = 0;
};

/// The points in rows of two texts, x and y. A row is a point when both hold something; numbers have "."
/// before the fraction, and what does not begin with a number counts as 0.
std::vector<FitPoint> pointsOf(std::span<const QStringList> rows);

/// The degree for that many points: one less than points, at most 3.
int degreeFor(std::size_t points);

/// Fits the degree that the number of points calls for. The formula, evaluated as for a sample, agrees with
/// the fitted curve to 1e-7 of its range over the points: each coefficient has as many digits as that needs,
/// and where plain powers of x lose too many, as on points from 1000000 to 1000020, it has powers of (x -
/// centre).
CurveFit fitCurve(std::span<const FitPoint> points);
/// Fits a given degree.
CurveFit fitCurve(std::span<const FitPoint> points, int degree);

/// The value of the polynomial.
double valueAt(const CurveFit& fit, double x);

/// The standard deviation of the points from the polynomial. Coefficients that were fitted take away a degree
/// of freedom each; without one left, the mean square over all points.
double Standard_deviation(std::span<const FitPoint> points, const CurveFit& fit);

/// A number with so many significant figures.
QString FormatSF(double value, int figures);
double Log10(double x);

/// "y = " and the terms in powers of (x - centre), highest first.
QString equationText(const FitCoefficients& coefficients, double centre = 0);
/// The formula of a cubic in powers of (x - centre); powers that were not fitted hold 0.
QString formulaText(const FitCoefficients& coefficients, double centre = 0);

/// Whether a chart can show a point: neither coordinate is beyond what its axes can tell apart.
bool isDrawable(const FitPoint& point);

/// Points along the curve from the smallest x to the largest.
std::vector<FitPoint> curvePoints(std::span<const FitPoint> points, const CurveFit& fit);

} // namespace vistor
