// Values on a scale, its tics and their numbers, whatever line the scale follows. In: ranges, steps and the
// boxes of labels. Out: shares, runs of tics, texts, and which labels find room.
#pragma once

#include <QRectF>
#include <QString>

#include <span>
#include <vector>

namespace vistor {

/// What a scale runs over, upwards or downwards.
struct ValueRange {
    double start = 0;
    double stop = 100;
};
/// 0 at the start of a range to 1 at its stop: outside it that of the nearer end, 0 for what is not a number.
double shareOf(const ValueRange& range, double value);

/// The tics of a section: values start, start + step, ... `count` of them, at most kMostTics.
struct TicRun {
    double start = 0;
    double step = 1; ///< negative on a run downwards
    int count = 0;

    double value(int tic) const { return start + tic * step; }
};
inline constexpr int kMostTics = 1000;

/// Tics from start to stop. A step that is 0 or would make too many tics gives way to a round one.
TicRun ticRun(double start, double stop, double step);
/// The step of a finer row of tics between those of `step`: a third, a quarter or a fifth, so that it is
/// round.
double partOfStep(double step);
/// The smallest of 1, 2 and 5 times a power of ten that cuts the range into at most `most` parts.
double roundStep(double range, int most);

/// The fewest decimals, up to 6, that tell the tics of a run apart when divided by `divisor`.
int labelDecimals(const TicRun& run, double divisor);
QString labelText(double value, int decimals);
/// Which labels find room, by their boxes in order: every one, every 2nd, 5th, 10th ... A label that meets
/// the first one at the end of a full turn is left out.
std::vector<int> labelsWithRoom(std::span<const QRectF> boxes);

} // namespace vistor
