#include "maths/AdvancedFiltering.h"

#include "maths/PassOver.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace vistor {
namespace {

constexpr double kPi = 3.141592654; // this many digits: stored designs were made with it

using Complex = std::complex<double>;

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

/// The factor by which a low-pass becomes a band-pass between two corners, and 1 less its square, which near
/// the ends of the axis is too small to be told from the factor.
struct BandFactor {
    double alpha = 0;
    double rest = 0;
};

BandFactor bandFactor(double nyquist, double lowHz, double highHz) {
    const double w1 = 0.5 * kPi * lowHz / nyquist;
    const double w2 = 0.5 * kPi * highHz / nyquist;
    BandFactor factor;
    putUnlessFailed(factor.alpha, std::cos(w1 + w2) / std::cos(w2 - w1));
    putUnlessFailed(factor.rest, std::sin(2 * w1) * std::sin(2 * w2) / Square(std::cos(w2 - w1)));
    return factor;
}

/// The two poles of the band-pass into which one of the prototype goes: h + sqrt(h^2 - p) and h - sqrt(h^2 -
/// p) with h = alpha (1 + p) / 2, the difference of squares so written that a narrow band, whose poles lie
/// close to the circle, keeps its digits.
std::array<Complex, 2> bandPassPoles(const Complex& pole, const BandFactor& factor) {
    const Complex below = 1.0 - pole;
    const Complex above = 1.0 + pole;
    const Complex middle = 0.5 * factor.alpha * above;
    const Complex root = 0.5 * std::sqrt(below * below - factor.rest * (above * above));
    return {middle + root, middle - root};
}

/// The poles in their rows.
struct PoleRows {
    std::vector<double>& re;
    std::vector<double>& im;

    void put(std::size_t row, const Complex& pole) const {
        putUnlessFailed(re[row], pole.real());
        putUnlessFailed(im[row], pole.imag());
    }
    /// A pole and its conjugate.
    void putPair(std::size_t row, const Complex& pole) const {
        put(row, {pole.real(), std::abs(pole.imag())});
        put(row + 1, {pole.real(), -std::abs(pole.imag())});
    }
};

/// Each pole of the prototype goes into two. Those of its real pole, in rows 1 and 2, are both real in a wide
/// band and conjugate else; of a conjugate pair one is mapped and its two get their conjugates.
void mapToBandPass(int m, const BandFactor& factor, const PoleRows& poles) {
    const std::vector<double> re = poles.re;
    const std::vector<double> im = poles.im;
    const std::size_t odd = IsOdd(m) ? 1 : 0;
    if (odd == 1) {
        const auto [first, second] = bandPassPoles(re[1], factor);
        poles.putPair(1, first);
        if (first.imag() == 0) poles.put(2, second);
    }
    for (std::size_t i = 1 + odd; i <= static_cast<std::size_t>(m); i += 2) {
        const auto [first, second] = bandPassPoles({re[i], im[i]}, factor);
        poles.putPair(2 * i - 1, first);
        poles.putPair(2 * i + 1, second);
    }
}

/// The squared distance of exp(iw) from a root.
double squaredDistance(double w, const Complex& root) {
    return Square(std::cos(w) - root.real()) + Square(std::sin(w) - root.imag());
}

/// The magnitude of a section at exp(iw), in dB; not finite at a zero and at a pole.
double decibelsOf(const FilterSection& section, double w) {
    const double numerator = squaredDistance(w, section.zeros[0]) * squaredDistance(w, section.zeros[1]);
    const double denominator = squaredDistance(w, section.poles[0]) * squaredDistance(w, section.poles[1]);
    return 10 / std::log(10.0) * std::log(Square(section.gain) * numerator / denominator);
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
    mapToBandPass(m, bandFactor(nyquist, lowHz, highHz), {polesRe, polesIm});
}

void DesignFilter(std::vector<FilterSection>& sections, std::int32_t model, std::int32_t type,
                  std::int32_t order, float ripple, double sampleRate, double nyquist, double lowHz,
                  double highHz) {
    sections.clear();
    std::vector<double> zeros, polesRe, polesIm;
    DesignPolesAndZeros(zeros, polesRe, polesIm, model, type, order, ripple, sampleRate, nyquist, lowHz,
                        highHz);
    if (zeros.empty()) return;
    std::size_t row = 1;
    if (IsOdd(order)) {
        sections.push_back({{zeros[1], 0}, {polesRe[1], 0}, 1});
        row = 2;
    }
    for (; row < static_cast<std::size_t>(order); row += 2)
        sections.push_back(
            {{zeros[row], zeros[row + 1]},
             {Complex(polesRe[row], polesIm[row]), Complex(polesRe[row + 1], polesIm[row + 1])},
             1});
}

std::vector<double> FrequencyResponse(std::vector<FilterSection>& sections) {
    std::vector<double> response(kResponseRows, 0.0);
    if (sections.empty()) return response;
    double peak = -100.0;
    for (std::size_t i = 0; i < response.size(); ++i) {
        double sum = 0;
        for (const FilterSection& section : sections) sum += decibelsOf(section, frequencyOfRow(i));
        putUnlessFailed(response[i], sum);
        peak = Larger(peak, response[i]);
    }
    for (double& row : response) row -= peak;
    sections.front().gain *= std::pow(10.0, -0.05 * peak);
    return response;
}

} // namespace vistor
