// What a readout of segments shows: numbers and texts as a row of cells. In: a number with its form, or a
// text. Out: one sign a cell, points in the cells they follow, so that a point takes no cell of its own.
#pragma once

#include <QStringView>

#include <array>
#include <cstdint>

namespace vistor {

inline constexpr int kMaximumCells = 40;

struct SegmentCell {
    char16_t sign = u' ';
    bool point = false;

    bool operator==(const SegmentCell&) const = default;
};

struct SegmentRow {
    std::array<SegmentCell, kMaximumCells> cells{};
    int count = 0;

    void append(char16_t sign);
};

struct NumberForm {
    int digits = 6; ///< cells, 1 to kMaximumCells
    int decimals = 0;
    bool leadingZeros = false;
    bool fixedDecimals = true; ///< show all decimals, also those that are 0
    bool plusMinus = false;    ///< "+" before what is above 0
};

/// A number in at most `digits` cells. A value of 32-bit precision counts as the shortest decimal that tells
/// it. Where it does not fit decimals go first; a number that fits without any no more, or that is none,
/// fills the cells with dashes.
SegmentRow numberCells(double value, const NumberForm& form);

/// A text's first `digits` cells; a number that needs more loses decimals, or shows dashes, as numberCells
/// does.
SegmentRow textCells(QStringView text, int digits);

enum Segment : std::uint16_t {
    SegA = 1 << 0,  ///< top
    SegB = 1 << 1,  ///< upper right
    SegC = 1 << 2,  ///< lower right
    SegD = 1 << 3,  ///< bottom
    SegE = 1 << 4,  ///< lower left
    SegF = 1 << 5,  ///< upper left
    SegG1 = 1 << 6, ///< middle, left half
    SegG2 = 1 << 7, ///< middle, right half
    SegH = 1 << 8,  ///< upper left to the centre
    SegI = 1 << 9,  ///< centre, upper half
    SegJ = 1 << 10, ///< upper right to the centre
    SegK = 1 << 11, ///< lower left to the centre
    SegL = 1 << 12, ///< centre, lower half
    SegM = 1 << 13, ///< lower right to the centre
    SegPoint = 1 << 14,
};
inline constexpr int kSegmentCount = 14;
inline constexpr std::uint16_t kSevenSegments = SegA | SegB | SegC | SegD | SegE | SegF | SegG1 | SegG2;
inline constexpr std::uint16_t kFourteenSegments = (1 << kSegmentCount) - 1;

/// The lit segments of a sign; letters without regard to case, a question mark for a sign that has no form.
std::uint16_t segmentsOf(char16_t sign);

} // namespace vistor
