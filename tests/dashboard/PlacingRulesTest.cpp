#include "dashboard/PlacingRules.h"

#include "dashboard/OptionsDraft.h"
#include "instruments/Colours.h"

#include <gtest/gtest.h>

namespace vistor {

static void PrintTo(const PlacedBox& box, std::ostream* out) {
    *out << box.left << ',' << box.top << ' ' << box.width << 'x' << box.height;
}

namespace {

constexpr SnapGrid kFree{};
constexpr SnapGrid kGrid80{true, 80, 0, 0};
constexpr TwipsPoint kPage{19200, 12000};
constexpr PlacedBox kBox{1000, 2000, 3000, 1500};

TEST(PlacingRules, PointsSnapToTheLineBeforeThem) {
    const struct {
        SnapGrid grid;
        float value;
        float snapped;
    } cases[] = {
        {{true, 80, 0, 0}, 159, 80},    {{true, 80, 0, 0}, 160, 160},  {{true, 80, 0, 0}, -1, -80},
        {{true, 1, 0, 0}, 7.5F, 7},     {{true, 0, 0, 0}, 159, 159},   {{true, -80, 0, 0}, 159, 160},
        {{true, 80, 30, 30}, 159, 110}, {{true, 80, 30, 30}, 29, -50},
    };
    for (const auto& c : cases)
        EXPECT_EQ(snappedPoint(c.grid, {c.value, c.value}), (TwipsPoint{c.snapped, c.snapped})) << c.value;
}

TEST(PlacingRules, ADragStaysInReachAndSnapsLast) {
    const PlacedBox wide{0, 0, 20000, 1500};
    const struct {
        PlacedBox box;
        TwipsPoint mouse;
        SnapGrid grid;
        TwipsPoint place;
    } cases[] = {
        {kBox, {100, 50}, kFree, {1000, 2000}},
        {kBox, {130, 20}, kFree, {1030, 1970}},
        {kBox, {130, 20}, kGrid80, {960, 1920}},
        {kBox, {-5000, -5000}, kGrid80, {0, 0}},
        {kBox, {90000, 90000}, kFree, {18900, 11700}},
        {kBox, {90000, 90000}, kGrid80, {18880, 11680}},
        {wide, {100, 50}, kFree, {0, 0}},
        {wide, {-100, 50}, kFree, {0, 0}},
    };
    for (const auto& c : cases) {
        const PlacedBox expected{c.place.x, c.place.y, c.box.width, c.box.height};
        EXPECT_EQ(movedBox(c.box, {100, 50}, c.mouse, kPage, c.grid), expected) << c.mouse.x;
    }
    EXPECT_EQ(movedBox(kBox, {}, {500, 500}, {200, 200}, kFree), (PlacedBox{0, 0, 3000, 1500}))
        << "tiny page";
}

/// With the handle grasped at its very corner, so that the corner goes to the mouse.
PlacedBox sizedTo(std::uint8_t handle, TwipsPoint mouse, const SnapGrid& grid) {
    return sizedBox(kBox, handle, handleCorner(kBox, handle), mouse, kPage, grid);
}

TEST(PlacingRules, EachHandleMovesItsCorner) {
    const TwipsPoint mouse{600, 300};
    const PlacedBox sized[] = {
        {1600, 2300, 2400, 1200}, {1000, 2300, 3000, 1200}, {1000, 2300, 600, 1200}, {1600, 2000, 2400, 1500},
        {1000, 2000, 600, 1500},  {1600, 2000, 2400, 300},  {1000, 2000, 3000, 300}, {1000, 2000, 600, 300},
    };
    // With the grid the other coordinate of the moving corner snaps too.
    const PlacedBox snapped[] = {
        {1600, 2240, 2400, 1260}, {960, 2240, 3040, 1260}, {1000, 2240, 600, 1260}, {1600, 2000, 2400, 1500},
        {1000, 2000, 600, 1500},  {1600, 2000, 2400, 240}, {1000, 2000, 3000, 240}, {1000, 2000, 600, 240},
    };
    for (std::uint8_t handle = 0; handle < 8; ++handle) {
        EXPECT_EQ(sizedTo(handle, mouse, kFree), sized[handle]) << int(handle);
        EXPECT_EQ(sizedTo(handle, mouse, kGrid80), snapped[handle]) << int(handle);
    }
    EXPECT_EQ(sizedTo(8, mouse, kFree), kBox);
}

TEST(PlacingRules, AHandleKeepsItsDistanceToTheMouse) {
    constexpr PlacedBox onGrid{800, 1600, 3200, 1600};
    for (std::uint8_t handle = 0; handle < 8; ++handle) {
        const TwipsPoint corner = handleCorner(onGrid, handle);
        for (const float inside : {0.0F, 15.0F, 79.0F}) {
            const TwipsPoint start{corner.x > 0 ? corner.x - inside : inside,
                                   corner.y > 0 ? corner.y - inside : inside};
            EXPECT_EQ(sizedBox(onGrid, handle, start, start, kPage, kFree), onGrid) << int(handle);
            EXPECT_EQ(sizedBox(onGrid, handle, start, start, kPage, kGrid80), onGrid) << int(handle);
        }
    }
    EXPECT_EQ(sizedBox(onGrid, 7, {3150, 1550}, {3250, 1630}, kPage, kFree),
              (PlacedBox{800, 1600, 3300, 1680}));
}

TEST(PlacingRules, ASizedBoxStaysInReach) {
    const struct {
        PlacedBox box;
        std::uint8_t handle;
        TwipsPoint by;
        PlacedBox sized;
    } cases[] = {
        {kBox, 0, {-9000, -9000}, {0, 0, 4000, 3500}},
        {{0, 0, 3000, 1500}, 7, {-9000, -9000}, {0, 0, 180, 180}},
        {{18800, 11600, 3000, 1500}, 0, {9000, 9000}, {18900, 11700, 6000, 7500}}, // turned over
        {{-600, 100, 3000, 1500}, 4, {300, 0}, {-600, 100, 3300, 1500}},
        {{-600, 100, 3000, 1500}, 3, {-100, 0}, {0, 100, 2400, 1500}},
    };
    for (const auto& c : cases) {
        const TwipsPoint start = handleCorner(c.box, c.handle);
        const TwipsPoint mouse{start.x + c.by.x, start.y + c.by.y};
        EXPECT_EQ(sizedBox(c.box, c.handle, start, mouse, kPage, kFree), c.sized) << int(c.handle);
    }
}

TEST(PlacingRules, ABoxTurnsOverAndKeepsItsLeastSize) {
    EXPECT_EQ(sizedTo(7, {-400, -300}, kFree), (PlacedBox{600, 1700, 400, 300}));
    EXPECT_EQ(sizedTo(0, {3400, 1900}, kFree), (PlacedBox{4000, 3500, 400, 400}));
    EXPECT_EQ(sizedTo(7, {10, 179}, kFree), (PlacedBox{1000, 2000, 180, 180}));
    EXPECT_EQ(sizedTo(3, {2990, 0}, kFree), (PlacedBox{3990, 2000, 180, 1500}));
}

TEST(PlacingRules, ArrowKeysGoFromLineToLine) {
    const SnapGrid grid80Free{false, 80, 0, 0};
    const struct {
        float left;
        int columns;
        bool fine;
        SnapGrid grid;
        float then;
    } cases[] = {
        {160, 1, false, kGrid80, 240},
        {160, -1, false, kGrid80, 80},
        {100, 1, false, kGrid80, 160},
        {100, -1, false, kGrid80, 80},
        {75, 1, false, kGrid80, 160},
        {165, -1, false, kGrid80, 80},
        {0, -1, false, kGrid80, 0},
        {160, 1, true, kGrid80, 175},
        {160, -1, true, kGrid80, 145},
        {100, 1, false, grid80Free, 180},
        {100, -1, false, grid80Free, 20},
        {100, 1, false, {true, 1, 0, 0}, 115},
        {100, 1, false, {true, 0, 0, 0}, 115},
        {100, 1, false, {false, 4, 0, 0}, 116},
        {18900, 1, false, kGrid80, 18900},
    };
    for (const auto& c : cases) {
        const PlacedBox moved = steppedBox({c.left, 80, 3000, 1500}, c.columns, 0, c.fine, kPage, c.grid);
        EXPECT_EQ(moved, (PlacedBox{c.then, 80, 3000, 1500})) << c.left << " by " << c.columns;
    }
    EXPECT_EQ(steppedBox(kBox, 0, 1, false, kPage, kGrid80).top, 2080);
}

TEST(PlacingRules, GridSizesAreChecked) {
    const struct {
        const char* text;
        int pitch; ///< 0: refused
    } cases[] = {{"1000", 1000}, {"1001", 0}, {"0", 0},     {"-5", 0},  {"abc", 0},
                 {"", 0},        {"80", 80},  {" 12 ", 12}, {"1e9", 0}, {"80.5", 80},
                 {"1000.4", 0},  {"0.4", 0},  {"0.6", 1},   {"8,5", 8}, {"12 px", 0}};
    for (const auto& c : cases) EXPECT_EQ(gridPitchOf(QLatin1String(c.text)).value_or(0), c.pitch) << c.text;
}

TEST(PlacingRules, OptionsHaveDefaultsOfTheirOwn) {
    const OptionsDraft fresh = readOptionsDraft(IniFile());
    EXPECT_EQ(fresh.gridSize, "80");
    EXPECT_TRUE(fresh.showGrid && fresh.snapToGrid);
    EXPECT_EQ(fresh.backColour, kButtonFaceColour);
    EXPECT_EQ(fresh.labelColour, kButtonFaceColour);
    IniFile file;
    writeOptionsDraft(file, {QStringLiteral("120.5"), false, true, 255, -2147483633});
    EXPECT_EQ(file.toBytes().simplified(), "[VXVISTOR] GRIDSIZE=120.5 SHOWGRID=0 SNAPGRID=1 BACKCOLOUR=255 "
                                           "LABELCOLOUR=-2147483633");
    const OptionsDraft back = readOptionsDraft(file);
    EXPECT_EQ(back.gridSize, "120.5");
    EXPECT_FALSE(back.showGrid);
    EXPECT_EQ(back.backColour, 255);
}

} // namespace
} // namespace vistor
