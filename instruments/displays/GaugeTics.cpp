#include "instruments/displays/GaugeTics.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr int kMostDecimals = 6;
constexpr int kLongestUnit = 20;

ValueRange ticRange(const PropertyStore& p, const TicNumbers& n, const ValueRange& scale, int i) {
    const ValueRange range{p.number(n.start, i), p.number(n.stop, i)};
    return range.start == range.stop ? scale : range;
}

double automaticStep(const PropertyStore& p, const TicNumbers& n, const ValueRange& scale, int i) {
    if (p.flag(n.labels, i)) return 0;
    int labelled = 0;
    const int tics = p.integer(n.count);
    while (labelled < tics &&
           (!p.flag(n.labels, labelled) || p.sectionNamed(n.scale, labelled) != p.sectionNamed(n.scale, i)))
        ++labelled;
    const ValueRange range = ticRange(p, n, scale, labelled < tics ? labelled : i);
    const double step = labelled < tics ? p.number(n.step, labelled) : 0;
    return partOfStep(std::abs(ticRun(range.start, range.stop, step).step));
}

} // namespace

TicRun ticRunOf(const PropertyStore& properties, const TicNumbers& numbers, const ValueRange& scale,
                int section) {
    const ValueRange range = ticRange(properties, numbers, scale, section);
    const double step = properties.number(numbers.step, section);
    return ticRun(range.start, range.stop,
                  step != 0 ? step : automaticStep(properties, numbers, scale, section));
}

TicFormat ticFormat(const PropertyStore& properties, const TicNumbers& numbers, const TicRun& run,
                    int section) {
    const double asked = properties.number(numbers.divisor, section);
    const double divisor = asked != 0 && std::isfinite(asked) ? asked : 1;
    const int wanted = properties.integer(numbers.decimals, section);
    const int decimals = wanted < 0 ? labelDecimals(run, divisor) : std::min(wanted, kMostDecimals);
    const QString unit =
        numbers.unit != 0 ? properties.text(numbers.unit, section).left(kLongestUnit) : QString();
    return {divisor, decimals, unit};
}

QString TicFormat::text(double value) const {
    return labelText(value / divisor, decimals) + unit;
}

std::vector<QString> ticTexts(const PropertyStore& properties, const TicNumbers& numbers, const TicRun& run,
                              int section) {
    const TicFormat format = ticFormat(properties, numbers, run, section);
    std::vector<QString> texts;
    for (int tic = 0; tic < run.count; ++tic) texts.push_back(format.text(run.value(tic)));
    return texts;
}

} // namespace vistor
