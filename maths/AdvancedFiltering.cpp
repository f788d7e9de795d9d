#include "maths/AdvancedFiltering.h"

#include "maths/PassOver.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace vistor {
namespace {

constexpr double kPi = 3.141592654; // this many digits: stored designs were made with it
constexpr double kRealPole = 0.0001;

bool isOrder(std::int32_t order) {
    return order >= 0 && order <= kHighestOrder;
}

/// One pole above the real axis; what fails keeps what the pole before it held.
struct Pole {
    double re = 0;
    double im = 0;
};

/// What the ripple makes of the circle on which the prototype's poles lie.
struct Ellipse {
    double sh = 0;
    double ch = 0;
};

Ellipse ellipseOf(double ripple, int m) {
    double e = 0, g = 0, eps = 0, c = 0, u = 0;
    Ellipse ellipse;
    putUnlessFailed(e, std::exp(-0.05 * ripple * std::log(10.0)));
    putUnlessFailed(g, Square(1 - (1 - e)));
    putUnlessFailed(eps, std::sqrt(1 / g - 1));
    putUnlessFailed(c, 1 / eps);
    putUnlessFailed(u, std::pow(std::sqrt(c * c + 1) + c, 1.0 / m));
    putUnlessFailed(ellipse.sh, (u - 1 / u) * 0.5);
    putUnlessFailed(ellipse.ch, (1 / u + u) * 0.5);
    return ellipse;
}

/// The prototype: a low-pass of order m whose corner is the bandwidth.
struct Prototype {
    std::int32_t model = kNoFilter;
    int m = 0;
    int odd = 0;
    double T = 0;
    double T2 = 0;
    Ellipse ellipse;

    void complexPole(double theta, Pole& pole) const;
    double realPole() const;
};

void Prototype::complexPole(double theta, Pole& pole) const {
    if (model == kButterworth) {
        const double d = 1 - 2 * T * std::cos(theta) + T2;
        putUnlessFailed(pole.re, (1 - T2) / d);
        putUnlessFailed(pole.im, 2 * T * std::sin(theta) / d);
    } else if (model == kChebyshev) {
        const double x = ellipse.sh * T * std::cos(theta);
        const double y = ellipse.ch * T * std::sin(theta);
        const double d = Square(y) + Square(1 - x);
        putUnlessFailed(pole.re, 2 * (1 - x) / d - 1);
        putUnlessFailed(pole.im, 2 * y / d);
    }
}

double Prototype::realPole() const {
    double re = 0;
    if (model == kButterworth) putUnlessFailed(re, (1 - T2) / (2 * T + 1 + T2));
    if (model == kChebyshev) putUnlessFailed(re, 2 / (ellipse.sh * T + 1) - 1);
    return re;
}

double bandwidth(std::int32_t type, double nyquist, double lowHz, double highHz) {
    switch (type) {
    case kLowPass:
        return highHz;
    case kHighPass:
        return nyquist - lowHz;
    case kBandPass:
        return highHz - lowHz;
    default:
        return 0;
    }
}

Prototype prototypeOf(std::int32_t model, int m, float ripple, double nyquist, double width) {
    Prototype prototype{model, m, m % 2, 0, 0, {}};
    putUnlessFailed(prototype.T, std::tan(0.5 * kPi * width / nyquist));
    putUnlessFailed(prototype.T2, Square(prototype.T));
    // Also for the one pole of m = 1, which no pair of poles comes before.
    if (model == kChebyshev) prototype.ellipse = ellipseOf(static_cast<double>(ripple), m);
    return prototype;
}

void placePrototypePoles(const Prototype& prototype, std::vector<double>& polesRe,
                         std::vector<double>& polesIm) {
    const int m = prototype.m;
    const int odd = prototype.odd;
    const int last = (3 * m + odd) / 2 - 1;
    Pole pole;
    for (int k = m + odd; k <= last; ++k) {
        prototype.complexPole(0.5 * (2 * k + 1 - odd) * kPi / m, pole);
        const auto p = static_cast<std::size_t>(2 * (last - k) + 1 + odd);
        polesRe[p] = polesRe[p + 1] = pole.re;
        polesIm[p] = std::abs(pole.im);
        polesIm[p + 1] = -std::abs(pole.im);
    }
    if (odd == 0) return;
    polesRe[1] = prototype.realPole();
    polesIm[1] = 0;
}

/// The two poles of the band-pass into which one of the prototype goes.
struct PolePair {
    Pole first;
    Pole second;
};

PolePair mappedRealPole(double re, double alpha) {
    const double h = 0.5 * alpha * (1 + re);
    const double d = Square(h) - re;
    const double root = std::sqrt(std::abs(d));
    if (d > 0) return {{h + root, 0}, {h - root, 0}};
    return {{h, root}, {h, -root}};
}

PolePair mappedComplexPole(const Pole& pole, double alpha) {
    const double x = 0.5 * alpha * (1 + pole.re);
    const double y = 0.5 * alpha * pole.im;
    const double c1 = Square(x) - Square(y) - pole.re;
    const double c2 = 2 * x * y - pole.im;
    const double r = std::sqrt(Square(c1) + Square(c2));
    const double s = std::sqrt(std::abs(c1 + r) * 0.5);
    double t = 0;
    putUnlessFailed(t, c2 / (2 * s));
    return {{x + s, y + t}, {x - s, y - t}};
}

/// The factor by which a low-pass becomes a band-pass between two corners.
double bandPassAlpha(double nyquist, double lowHz, double highHz) {
    const double w1 = 0.5 * kPi * lowHz / nyquist;
    const double w2 = 0.5 * kPi * highHz / nyquist;
    double alpha = 0;
    putUnlessFailed(alpha, std::cos(w1 + w2) / std::cos(w2 - w1));
    return alpha;
}

/// Maps every other row, from 1 on: of each conjugate pair one. Rounds beyond m find nothing of use, and
/// what they store is overwritten by the last loop. Of a real pole that goes into two real ones, the last
/// loop takes the first twice.
void mapToBandPass(int order, int m, double alpha, std::vector<double>& polesRe,
                   std::vector<double>& polesIm) {
    for (int j = 0; j <= (order - 1) / 2 && order > 0; ++j) {
        const auto i = static_cast<std::size_t>(2 * j + 1);
        const Pole pole{polesRe[i], polesIm[i]};
        const PolePair pair =
            std::abs(pole.im) < kRealPole ? mappedRealPole(pole.re, alpha) : mappedComplexPole(pole, alpha);
        putUnlessFailed(polesRe[i], pair.first.re);
        putUnlessFailed(polesRe[i + 1], pair.second.re);
        putUnlessFailed(polesIm[i], pair.first.im);
        putUnlessFailed(polesIm[i + 1], pair.second.im);
    }
    const auto count = static_cast<std::size_t>(m);
    if (IsOdd(m)) {
        polesRe[2] = polesRe[count + 1];
        polesIm[2] = polesIm[count + 1];
    }
    for (std::size_t i = count; i >= 1; --i) {
        const double re = polesRe[i];
        const double im = std::abs(polesIm[i]);
        polesRe[2 * i - 1] = polesRe[2 * i] = re;
        polesIm[2 * i - 1] = im;
        polesIm[2 * i] = -im;
    }
}

/// Multiplies the polynomial in powers of 1/z by 1 + c1/z + c2/z^2, up to its highest row.
void multiplyIn(std::vector<double>& polynomial, double c1, double c2) {
    std::vector<double> product = polynomial;
    putUnlessFailed(product[1], polynomial[1] + c1 * polynomial[0]);
    for (std::size_t r = 2; r < polynomial.size(); ++r)
        putUnlessFailed(product[r], polynomial[r] + c1 * polynomial[r - 1] + c2 * polynomial[r - 2]);
    polynomial = std::move(product);
}

/// The squared magnitude of the polynomial at exp(iw).
double squaredMagnitude(const std::vector<double>& polynomial, std::int32_t order, double w) {
    double re = 0, im = 0;
    for (std::int32_t k = 0; k <= order; ++k) {
        const double coefficient = polynomial[static_cast<std::size_t>(k)];
        re += std::cos(k * w) * coefficient;
        im += std::sin(k * w) * coefficient;
    }
    return Square(re) + Square(im);
}

/// The frequency of a row; the ends stay off the exact zeros at z = 1 and z = -1.
double frequencyOfRow(std::size_t row) {
    if (row == 0) return kPi * 1e-8;
    if (row == kResponseRows - 1) return kPi * 0.99999999;
    return static_cast<double>(row) * (kPi / 100);
}

} // namespace

bool IsOdd(std::int32_t n) {
    return n % 2 != 0;
}

double Square(double x) {
    return x * x;
}

void DesignPolesAndZeros(std::vector<double>& zeros, std::vector<double>& polesRe,
                         std::vector<double>& polesIm, std::int32_t model, std::int32_t type,
                         std::int32_t order, float ripple, double /*sampleRate*/, double nyquist,
                         double lowHz, double highHz) {
    const std::size_t rows = isOrder(order) ? static_cast<std::size_t>(order) + 2 : 0;
    for (std::vector<double>* array : {&zeros, &polesRe, &polesIm}) array->assign(rows, 0.0);
    if (rows == 0) return;
    const int m = type == kBandPass ? order / 2 : order;
    placePrototypePoles(prototypeOf(model, m, ripple, nyquist, bandwidth(type, nyquist, lowHz, highHz)),
                        polesRe, polesIm);
    const auto first = zeros.begin() + 1;
    if (type == kLowPass) std::fill(first, first + m, -1.0);
    if (type == kHighPass) {
        std::fill(first, first + m, 1.0);
        std::transform(polesRe.begin() + 1, polesRe.begin() + 1 + m, polesRe.begin() + 1, std::negate<>());
    }
    if (type != kBandPass) return;
    std::fill(first, first + m, 1.0);
    std::fill(first + m, first + 2 * m, -1.0);
    mapToBandPass(order, m, bandPassAlpha(nyquist, lowHz, highHz), polesRe, polesIm);
}

void DesignFilter(std::vector<double>& a, std::vector<double>& b, std::int32_t model, std::int32_t type,
                  std::int32_t order, float ripple, double sampleRate, double nyquist, double lowHz,
                  double highHz) {
    std::vector<double> zeros, polesRe, polesIm;
    DesignPolesAndZeros(zeros, polesRe, polesIm, model, type, order, ripple, sampleRate, nyquist, lowHz,
                        highHz);
    const std::size_t rows = isOrder(order) ? static_cast<std::size_t>(order) + 1 : 0;
    for (std::vector<double>* polynomial : {&a, &b}) {
        polynomial->assign(rows, 0.0);
        if (rows > 0) polynomial->front() = 1;
    }
    if (rows == 0) return;
    std::size_t s = 0;
    if (IsOdd(order)) {
        a[1] = -zeros[1];
        b[1] = -polesRe[1];
        s = 1;
    }
    for (std::size_t j = 1; j <= static_cast<std::size_t>(order / 2); ++j) {
        const std::size_t i = 2 * j - 1 + s;
        multiplyIn(a, -(zeros[i] + zeros[i + 1]), zeros[i] * zeros[i + 1]);
        multiplyIn(b, -2 * polesRe[i], Square(polesIm[i]) + Square(polesRe[i]));
    }
}

std::vector<double> FrequencyResponse(std::vector<double>& a, const std::vector<double>& b,
                                      std::int32_t order) {
    std::vector<double> response(kResponseRows, 0.0);
    const std::size_t needed = static_cast<std::size_t>(std::max(order, -1)) + 1; // 0 for a negative order
    if (needed == 0 || a.size() < needed || b.size() < needed) return response;
    double peak = -100.0;
    for (std::size_t i = 0; i < response.size(); ++i) {
        const double w = frequencyOfRow(i);
        const double denominator = squaredMagnitude(b, order, w);
        if (denominator != 0)
            putUnlessFailed(response[i],
                            10 / std::log(10.0) * std::log(squaredMagnitude(a, order, w) / denominator));
        peak = Larger(peak, response[i]);
    }
    for (double& row : response) row -= peak;
    for (double& row : a) row *= std::pow(10.0, -0.05 * peak);
    return response;
}

} // namespace vistor
