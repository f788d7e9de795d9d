// Rows of tics as a gauge's properties tell them: kinds have their own numbers for the same things. In: a
// store, the kind's numbers, the range of a scale. Out: runs of tics and their texts.
#pragma once

#include "instruments/displays/PropertyStore.h"
#include "instruments/displays/ScaleTics.h"

namespace vistor {

/// Property numbers of a section of tics.
struct TicNumbers {
    std::int16_t count = 0;
    std::int16_t scale = 0;
    std::int16_t labels = 0;
    std::int16_t start = 0; ///< equal to the stop: all of the scale
    std::int16_t stop = 0;
    std::int16_t step = 0; ///< 0: a round one
    std::int16_t divisor = 0;
    std::int16_t decimals = 0; ///< below 0: as many as it takes
    std::int16_t unit = 0;     ///< text behind each number; 0: the kind has none
};

/// The tics of a section on a scale. A row without a step of its own takes a round one where it is labelled,
/// else a part of the step of the labelled row on the same scale.
TicRun ticRunOf(const PropertyStore& properties, const TicNumbers& numbers, const ValueRange& scale,
                int section);

/// How the numbers beside a row of tics are written.
struct TicFormat {
    double divisor = 1;
    int decimals = 0;
    QString unit;

    QString text(double value) const;
};
TicFormat ticFormat(const PropertyStore& properties, const TicNumbers& numbers, const TicRun& run,
                    int section);

/// The numbers beside the tics, one for each.
std::vector<QString> ticTexts(const PropertyStore& properties, const TicNumbers& numbers, const TicRun& run,
                              int section);

} // namespace vistor
