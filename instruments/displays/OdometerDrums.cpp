#include "instruments/displays/OdometerDrums.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kDrumRatio = 0.60;         ///< width over height
constexpr double kWindowShare = 0.075;      ///< of a drum's height, around the drums
constexpr double kMarkShare = 0.34;         ///< of a drum's width
constexpr double kSmallestTurn = 1.0 / 256; ///< of the last drum: nobody sees a finer one
constexpr double kRounding = 1.2e-7; ///< samples have 32 bits: 12345.6 is not the 12345.5996 that comes

double powerOfTen(int exponent) {
    double power = 1;
    for (int i = 0; i < exponent; ++i) power *= 10;
    return power;
}

/// How far the last drum has turned from 0 in all, in its digits.
double turned(double value, const DrumForm& form, int decimals) {
    const double digits = std::abs(value) * powerOfTen(decimals);
    const double nearest = std::nearbyint(digits);
    if (!form.smooth || std::abs(digits - nearest) <= digits * kRounding) return nearest;
    return std::nearbyint(digits / kSmallestTurn) * kSmallestTurn;
}

DrumRow filled(const DrumForm& form, Drum drum) {
    DrumRow row;
    row.count = std::clamp(form.digits, 1, kMostDrums);
    row.decimals = std::clamp(form.decimals, 0, row.count - 1);
    std::fill_n(row.drums.begin(), row.count, drum);
    return row;
}

/// Sets the digits from the right and answers how many of them are not leading zeros.
int setDigits(DrumRow& row, double digits, int drums) {
    int used = row.decimals + 1;
    double carry = std::max(std::fmod(digits, 10) - 9, 0.0);
    for (int i = 0; i < drums; ++i) {
        const double whole = std::floor(digits / powerOfTen(i));
        const double position = i == 0 ? std::fmod(digits, 10) : std::fmod(whole, 10) + carry;
        if (i > 0) carry = std::max(position - 9, 0.0);
        if (position > 0) used = std::max(used, i + 1);
        row.drums[static_cast<std::size_t>(row.count - 1 - i)] = {Drum::Face::Digit, position};
    }
    return std::min(used, drums);
}

/// The last number that the drums have, which 16 of them tell finer than a double does.
int setNines(DrumRow& row, int drums) {
    std::fill_n(row.drums.begin() + (row.count - drums), drums, Drum{Drum::Face::Digit, 9});
    return drums;
}

} // namespace

DrumRow drumRow(double value, const DrumForm& form) {
    DrumRow row = filled(form, {});
    const double digits = turned(value, form, row.decimals);
    if (std::isnan(digits) || (std::isinf(digits) && form.rollOver))
        return filled(form, {Drum::Face::Minus, 0});
    const bool negative = value < 0 && digits > 0;
    const int drums = row.count - (negative ? 1 : 0);
    const double all = powerOfTen(drums);
    if (negative && form.rollOver && digits >= all) return filled(form, {Drum::Face::Minus, 0});
    const bool atEnd = !form.rollOver && digits >= all - 1;
    int used = atEnd ? setNines(row, drums) : setDigits(row, std::fmod(digits, all), drums);
    if (form.leadingZeros) used = drums;
    for (int i = 0; i < row.count - used; ++i) row.drums[static_cast<std::size_t>(i)] = {};
    if (negative) row.drums[static_cast<std::size_t>(row.count - used - 1)] = {Drum::Face::Minus, 0};
    return row;
}

QRectF DrumLayout::at(int index) const {
    const double mark = index >= count - decimals ? markGap : 0;
    return {first + QPointF(index * pitch + mark, 0), drum};
}

QPointF DrumLayout::markPlace() const {
    const double left = at(count - decimals - 1).right();
    const double right = at(count - decimals).left();
    return {(left + right) / 2, first.y() + drum.height() * 0.80};
}

DrumLayout drumLayout(int count, int decimals, double spacing, const QRectF& room, double pixel) {
    const auto whole = [pixel](double length) { return std::max(std::floor(length / pixel), 1.0) * pixel; };
    const auto placed = [pixel](double place) { return std::round(place / pixel) * pixel; };
    DrumLayout layout;
    layout.count = count;
    layout.decimals = decimals;
    const double mark = decimals > 0 ? kMarkShare : 0;
    const double widths = count + (count - 1) * spacing + mark; // of all drums, in widths of one
    const double fitting = std::min(room.height() / (1 + 2 * kWindowShare),
                                    room.width() / (widths * kDrumRatio + 2 * kWindowShare));
    layout.drum = QSizeF(whole(fitting * kDrumRatio), whole(fitting));
    layout.pitch = layout.drum.width() + placed(layout.drum.width() * spacing);
    layout.markGap = placed(layout.drum.width() * mark);
    const double width = (count - 1) * layout.pitch + layout.drum.width() + layout.markGap;
    layout.first =
        QPointF(placed(room.center().x() - width / 2), placed(room.center().y() - layout.drum.height() / 2));
    const double around = std::max(kWindowShare * layout.drum.height(), pixel);
    layout.window =
        QRectF(layout.first, QSizeF(width, layout.drum.height())).adjusted(-around, -around, around, around);
    return layout;
}

} // namespace vistor
