#include "instruments/displays/ScaleTics.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vistor {
namespace {

constexpr int kAutomaticParts = 10;
constexpr int kMostDecimals = 6;

bool isWholeTimes(double value, double unit) {
    const double times = value * unit;
    return std::abs(times - std::round(times)) <= 1e-6 * std::max(1.0, std::abs(times));
}

bool haveRoom(std::span<const QRectF> boxes, std::size_t stride) {
    for (std::size_t i = 0; i + stride < boxes.size(); i += stride)
        if (boxes[i].intersects(boxes[i + stride])) return false;
    return true;
}

} // namespace

double shareOf(const ValueRange& range, double value) {
    const double size = range.stop / 2 - range.start / 2; // halves, so that no range overflows
    const double share = (value / 2 - range.start / 2) / size;
    if (size == 0 || std::isnan(share)) return 0;
    return std::clamp(share, 0.0, 1.0);
}

double roundStep(double range, int most) {
    const double least = std::abs(range) / std::max(most, 1);
    if (!(least > 0) || !std::isfinite(least)) return 1;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double mantissa : {1.0, 2.0, 5.0})
        if (mantissa * power >= least * (1 - 1e-9)) return mantissa * power;
    return 10 * power;
}

double partOfStep(double step) {
    struct Division {
        double mantissa;
        double parts;
    };
    constexpr Division kDivisions[] = {{1.5, 3}, {2, 4}, {3, 3}, {4, 4}, {6, 3}, {8, 4}};
    const double mantissa = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
    for (const Division& d : kDivisions)
        if (std::abs(mantissa - d.mantissa) < 1e-6) return step / d.parts;
    return step / 5;
}

TicRun ticRun(double start, double stop, double step) {
    const double range = std::abs(stop - start);
    if (!(range > 0) || !std::isfinite(range)) return {start, 1, std::isfinite(start) ? 1 : 0};
    double size = std::abs(step);
    if (!(size > 0) || !std::isfinite(size) || !(range / size < kMostTics))
        size = roundStep(range, kAutomaticParts);
    const int count = std::min(static_cast<int>(range / size + 1e-6) + 1, kMostTics);
    return {start, stop < start ? -size : size, count};
}

int labelDecimals(const TicRun& run, double divisor) {
    double unit = 1;
    for (int decimals = 0; decimals < kMostDecimals; ++decimals, unit *= 10)
        if (isWholeTimes(run.start / divisor, unit) && isWholeTimes(run.step / divisor, unit))
            return decimals;
    return kMostDecimals;
}

QString labelText(double value, int decimals) {
    constexpr double kPlainBelow = 1e9;
    if (std::abs(value) >= kPlainBelow) return QString::number(value, 'g', 4);
    const double smallest = 0.5 * std::pow(10, -decimals);
    return QString::number(std::abs(value) < smallest ? 0.0 : value, 'f', decimals);
}

std::vector<int> labelsWithRoom(std::span<const QRectF> boxes) {
    constexpr std::array<std::size_t, 9> kStrides{1, 2, 5, 10, 20, 50, 100, 200, 500};
    const auto* const stride =
        std::find_if(kStrides.begin(), kStrides.end(), [boxes](std::size_t s) { return haveRoom(boxes, s); });
    const std::size_t every = stride == kStrides.end() ? boxes.size() : *stride;
    std::vector<int> shown;
    for (std::size_t i = 0; i < boxes.size(); i += every) shown.push_back(static_cast<int>(i));
    const auto last = [&] { return static_cast<std::size_t>(shown.back()); };
    while (shown.size() > 1 && boxes[last()].intersects(boxes[0])) shown.pop_back();
    return shown;
}

} // namespace vistor
