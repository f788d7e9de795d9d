#include "instruments/displays/SegmentCells.h"

#include "instruments/displays/SegmentGeometry.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>

namespace vistor {
namespace {

std::string written(const SegmentRow& row) {
    std::string text;
    for (int i = 0; i < row.count; ++i) {
        text += static_cast<char>(row.cells[static_cast<std::size_t>(i)].sign);
        if (row.cells[static_cast<std::size_t>(i)].point) text += '.';
    }
    return text;
}

TEST(SegmentCells, NumbersFillTheCells) {
    const double infinite = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        NumberForm form;
        const char* text;
    } cases[] = {
        {1234.56, {.digits = 6, .decimals = 1}, "1234.6"},
        {1234.56F, {.digits = 10, .decimals = 5}, "1234.56000"},
        {12.5, {.digits = 6, .decimals = 3, .fixedDecimals = false}, "12.5"},
        {12, {.digits = 6, .decimals = 3, .fixedDecimals = false}, "12"},
        {-12.5, {.digits = 6, .decimals = 1, .leadingZeros = true}, "-0012.5"},
        {5, {.digits = 4, .decimals = 0, .leadingZeros = true, .plusMinus = true}, "+005"},
        {0, {.digits = 4, .decimals = 1, .plusMinus = true}, "0.0"},
        {-0.04, {.digits = 4, .decimals = 1}, "0.0"},
        {12.345, {.digits = 3, .decimals = 3}, "12.3"},
        {999.96, {.digits = 4, .decimals = 1}, "1000"},
        {-1000, {.digits = 4}, "----"},
        {1e300, {.digits = 3, .decimals = 2}, "---"},
        {infinite, {.digits = 2}, "--"},
        {-infinite + infinite, {.digits = 2}, "--"},
        {7, {.digits = -3, .decimals = -9}, "7"},
        {7, {.digits = 5000, .decimals = 500}, "7.00000000000000000000"},
    };
    for (const auto& c : cases) EXPECT_EQ(written(numberCells(c.value, c.form)), c.text) << c.value;
}

TEST(SegmentCells, PointsTakeNoCellOfTheirOwn) {
    const struct {
        QStringView text;
        int digits;
        const char* cells;
    } cases[] = {{u"12.500", 5, "12.500"},
                 {u"12.500", 3, "12.5"},
                 {u"1.2.3", 3, "1.2.3"},
                 {u".5", 4, " .5"},
                 {u"5..", 4, "5. ."},
                 {u"", 4, ""},
                 {u"9.", 1, "9."},
                 {u"1,5", 4, "1.5"},
                 {u"READY", 3, "REA"},
                 {u"-123456.7", 6, "------"},
                 {u"-12345.67", 6, "-12346"},
                 {u"-1234,56", 6, "-1234.6"},
                 {u"+99.96", 4, "+100"},
                 {u"1234567", 6, "------"},
                 {u"nan", 2, "--"},
                 {u"12-34567", 5, "12-34"}};
    for (const auto& c : cases) EXPECT_EQ(written(textCells(c.text, c.digits)), c.cells);
}

TEST(SegmentCells, LettersAndDigitsDifferWhereTheyCan) {
    std::set<std::uint16_t> forms;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
        forms.insert(segmentsOf(letter));
        EXPECT_EQ(segmentsOf(letter), segmentsOf(static_cast<char16_t>(letter - u'A' + u'a')));
    }
    EXPECT_EQ(forms.size(), 26U);
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        EXPECT_EQ(segmentsOf(digit) & ~kSevenSegments, 0) << "a digit needs no diagonal";
    EXPECT_EQ(segmentsOf(u' '), 0);
    EXPECT_NE(segmentsOf(u'\u4E2D'), 0) << "an unknown sign is seen";
}

TEST(SegmentGeometry, RowStaysInsideItsRoom) {
    for (const QRectF room :
         {QRectF(0, 0, 200, 60), QRectF(3, 4, 800, 600), QRectF(0, 0, 30, 300), QRectF(0, 0, 1, 1)}) {
        for (const int digits : {1, 6, kMaximumCells}) {
            const RowLayout row = rowLayout({.digits = digits}, room);
            EXPECT_TRUE(room.adjusted(-0.01, -0.01, 0.01, 0.01).contains(row.bounds)) << digits;
            const QRectF last = segmentPath(row.shape, kFourteenSegments | SegPoint)
                                    .boundingRect()
                                    .translated(row.left + (digits - 1) * row.pitch, row.top);
            EXPECT_LE(last.right(), room.right() + 0.01) << digits;
            EXPECT_LE(last.bottom(), room.bottom() + 0.01) << digits;
        }
    }
}

} // namespace
} // namespace vistor
