#include "dashboard/TabRules.h"
#include "dashboard/WindowSettings.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(WindowSettings, DefaultsStandWhereTheFileSaysNothing) {
    const WindowSettings settings = readWindowSettings(IniFile());
    EXPECT_EQ(settings.gridSize, 80);
    EXPECT_EQ(settings.showGrid, 1);
    EXPECT_EQ(settings.snapToGrid, 1);
    EXPECT_EQ(settings.backColour, -2147483633);
    EXPECT_EQ(settings.labelColour, 0);
    EXPECT_EQ(settings.box(LayoutBox::Palette), (TwipsBox{0, 5550, 3165, 2498}));
    EXPECT_EQ(settings.box(LayoutBox::PaletteBar), (TwipsBox{2500, 1110, 60, 60}));
    EXPECT_EQ(settings.box(LayoutBox::VariableFrame), (TwipsBox{12259, 180, 3041, 6978}));
    EXPECT_EQ(settings.box(LayoutBox::Pages), (TwipsBox{0, 180, 12255, 6978}));
}

TEST(WindowSettings, ReadsNumbersAsOldFilesHoldThem) {
    struct Case {
        const char* file;
        LayoutBox box;
        float TwipsBox::*side;
        float expected;
    };
    const Case cases[] = {
        {"[DESIGN]\nHEIGHT=99999\n", LayoutBox::Pages, &TwipsBox::height, 12474},
        {"[DESIGN]\nHEIGHT=10\n", LayoutBox::Pages, &TwipsBox::height, 434},
        {"[design]\nheight= 5000 twips\n", LayoutBox::Pages, &TwipsBox::height, 5000},
        {"[CONTROL]\nTOP=893\n", LayoutBox::Palette, &TwipsBox::top, 894},
        {"[CONTROL]\nTOP=12895\n", LayoutBox::Palette, &TwipsBox::top, 12894},
        {"[CONTROL]\nHEIGHT=x\n", LayoutBox::Palette, &TwipsBox::height, 276},
        {"[CONTROL]\nHEIGHT=12317\n", LayoutBox::Palette, &TwipsBox::height, 12316},
        {"[CONTROL]\nLEFT=-15\n", LayoutBox::Palette, &TwipsBox::left, -15},
        {"[FUNTION]\nTOP=\n", LayoutBox::VariableFrame, &TwipsBox::top, 0},
        {"[FUNTION]\nWIDTH=1234567890123\n", LayoutBox::VariableFrame, &TwipsBox::width, kAnyTwips},
        {"[FUNTION]\nWIDTH=1e300\n", LayoutBox::VariableFrame, &TwipsBox::width, kAnyTwips},
        {"[FUNCTION]\nWIDTH=77\n", LayoutBox::VariableFrame, &TwipsBox::width, 3041},
        {"[CONTROL_SPL]\nLEFT=999999\n", LayoutBox::PaletteBar, &TwipsBox::left, 32767},
    };
    for (const Case& c : cases)
        EXPECT_EQ(readWindowSettings(IniFile::parse(c.file)).box(c.box).*c.side, c.expected) << c.file;

    const WindowSettings odd = readWindowSettings(IniFile::parse(
        "[VXVISTOR]\nGRIDSIZE=70000\nSHOWGRID=-3\nBACKCOLOUR=99999999999\nLABELCOLOUR=16777215\n"));
    EXPECT_EQ(odd.gridSize, 32767);
    EXPECT_EQ(odd.showGrid, 0);
    EXPECT_EQ(odd.backColour, 2147483647);
    EXPECT_EQ(odd.labelColour, 0xFFFFFF);
}

TEST(WindowSettings, WritesGeometryAndKeepsAllElse) {
    IniFile file = IniFile::parse("[VXVISTOR]\r\nGRIDSIZE=40\r\n[VISIBLE]\r\n1=0\r\n");
    std::array<TwipsBox, kLayoutBoxes> boxes = {TwipsBox{1, 900, 3, 400}, TwipsBox{5, 6, 7, 8},
                                                TwipsBox{-9, 10, 11.6F, 12}, TwipsBox{13, 14, 15, 16000}};
    writeWindowGeometry(file, boxes);
    EXPECT_EQ(file.toBytes(), "[VXVISTOR]\r\nGRIDSIZE=40\r\n[VISIBLE]\r\n1=0\r\n"
                              "[CONTROL]\r\nLEFT=1\r\nTOP=900\r\nWIDTH=3\r\nHEIGHT=400\r\n"
                              "[CONTROL_SPL]\r\nLEFT=5\r\nTOP=6\r\nWIDTH=7\r\nHEIGHT=8\r\n"
                              "[FUNTION]\r\nLEFT=-9\r\nTOP=10\r\nWIDTH=12\r\nHEIGHT=12\r\n"
                              "[DESIGN]\r\nLEFT=13\r\nTOP=14\r\nWIDTH=15\r\nHEIGHT=16000\r\n");
    EXPECT_TRUE(isPaneVisible(file, 0));
    EXPECT_FALSE(isPaneVisible(file, 1));
}

TEST(TabRules, NewCaptionsIgnoreCaseAndRenamesDoNot) {
    const QStringList captions = {QStringLiteral("VX"), QStringLiteral("ABC")};
    struct Case {
        std::optional<QString> answer;
        CaptionVerdict verdict;
        bool rename;
    };
    const Case cases[] = {
        {std::nullopt, CaptionVerdict::Cancelled, false},
        {QString(), CaptionVerdict::Empty, false},
        {QStringLiteral("ABC"), CaptionVerdict::Duplicate, false},
        {QStringLiteral("abc"), CaptionVerdict::Duplicate, true},
        {QStringLiteral("Laps"), CaptionVerdict::Fine, true},
        {QStringLiteral(" "), CaptionVerdict::Fine, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(judgeNewCaption(c.answer, captions), c.verdict);
        EXPECT_EQ(mayRename(c.answer, captions), c.rename);
    }
}

} // namespace
} // namespace vistor
