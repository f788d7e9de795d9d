#include "instruments/VXTEXTTAG.h"

#include "instruments/Colours.h"
#include "instruments/displays/TextTagDisplay.h"
#include "instruments/frmVXTextTagProp.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vistor {
namespace {

/// Opens the tag's dialog and lets `act` work in it.
void inDialog(VXTEXTTAG& tag, const std::function<void(QDialog&)>& act) {
    bool opened = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<frmVXTextTagProp*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        opened = true;
        act(*dialog);
        if (dialog->isVisible()) dialog->reject();
    });
    tag.mnuProperties_Click();
    EXPECT_TRUE(opened);
}

template <class Widget>
Widget& part(QDialog& dialog, const char* name) {
    auto* found = dialog.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
}

QStringList listOf(const VXTEXTTAG& tag) {
    QStringList list;
    tag.Serialise(list);
    return list.mid(2);
}

TEST(VXTEXTTAG, DialogIsDrivenByKeys) {
    VXTEXTTAG tag(nullptr);
    tag.show();
    ScriptedPrompts prompts;
    prompts.fonts.push_back(FontChoice{.family = "Serif", .size = 20.5F, .bold = true, .underline = true});
    prompts.colours = {0x0000FF, 0x00FF00};
    QSignalSpy changed(&tag, &Instrument::layoutChanged);
    inDialog(tag, [&](QDialog& dialog) {
        auto& text = part<QLineEdit>(dialog, "txt");
        EXPECT_EQ(text.text(), "Text");
        text.selectAll();
        QTest::keyClicks(&text, "Lap 12");
        QTest::keyClick(&part<QComboBox>(dialog, "cmbAlign"), Qt::Key_Home);
        QTest::keyClick(&part<QPushButton>(dialog, "cmdFont"), Qt::Key_Space);
        QTest::keyClick(&part<QAbstractButton>(dialog, "picForeColour"), Qt::Key_Space);
        QTest::mouseClick(&part<QAbstractButton>(dialog, "picBackColour"), Qt::LeftButton);
        QTest::keyClick(&text, Qt::Key_Return); // Apply is the default button
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(listOf(tag),
              (QStringList{"0", "-1", "0", "Serif", "20.5", "0", "-1", "255", "65280", "Lap 12"}));
    EXPECT_EQ(tag.inCTRL().grab().toImage().pixelColor(1, 1), QColor(Qt::green));
}

TEST(VXTEXTTAG, CancelChangesNothingAndResetGoesBackToThePage) {
    VXTEXTTAG tag(nullptr);
    tag.show();
    tag.AssignProperties("Box", {.family = "Sans", .size = 9}, 1, 0x123456, 0x654321);
    const QStringList before = listOf(tag);
    ScriptedPrompts prompts;
    prompts.colours = {0x0000FF};
    inDialog(tag, [&](QDialog& dialog) {
        auto& words = part<QComboBox>(dialog, "cmbAlign");
        EXPECT_EQ(words.currentText(), "Right");
        EXPECT_EQ(words.itemText(0) + words.itemText(2), "LeftCentre");
        QTest::keyClicks(&part<QLineEdit>(dialog, "txt"), "?");
        QTest::mouseClick(&part<QAbstractButton>(dialog, "picForeColour"), Qt::LeftButton);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(listOf(tag), before);
    inDialog(tag, [&](QDialog& dialog) {
        for (const char* name : {"cmdResetForeColour", "cmdResetBackColour", "cmdApply"})
            QTest::mouseClick(&part<QPushButton>(dialog, name), Qt::LeftButton);
    });
    tag.setColour(0x00C864, 0);
    EXPECT_EQ(tag.inCTRL().properties().integer(TagForeColour), kTagLabelColour);
    EXPECT_EQ(tag.inCTRL().grab().toImage().pixelColor(1, 1), colourOf(0x00C864)) << "the page's colour";
}

TEST(VXTEXTTAG, ApplyKeepsWhatTheDialogCannotShow) {
    VXTEXTTAG tag(nullptr);
    tag.AssignProperties(QString(250, u'x'), {.family = {}, .size = 9}, 7, kTagLabelColour, 0xFFFFFF);
    const QStringList before = listOf(tag);
    inDialog(tag, [](QDialog& dialog) {
        QTest::mouseClick(&part<QPushButton>(dialog, "cmdApply"), Qt::LeftButton);
    });
    EXPECT_EQ(listOf(tag), before);

    tag.AssignProperties("a", {.family = QString(199, u'W'), .size = 9}, 0, 0, 0);
    inDialog(tag, [](QDialog& dialog) { EXPECT_LT(dialog.sizeHint().width(), 600); });
}

TEST(VXTEXTTAG, OnlyTheColoursOfLabelsStandForThePage) {
    constexpr auto kHighlight = static_cast<std::int32_t>(0x8000000DU);
    QPalette page;
    page.setColor(QPalette::Window, Qt::yellow);
    page.setColor(QPalette::WindowText, Qt::blue);
    EXPECT_EQ(tagColour(kTagPageColour, page), QColor(Qt::yellow));
    EXPECT_EQ(tagColour(kTagLabelColour, page), QColor(Qt::blue));
    EXPECT_EQ(tagColour(kHighlight, page), colourOf(kHighlight));
}

TEST(VXTEXTTAG, RightPressAsksForTheMenuInEditMode) {
    VXTEXTTAG tag(nullptr);
    QSignalSpy menu(&tag, &Instrument::menuWanted);
    for (const bool play : {false, true}) {
        PlayMode = play;
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
            QTest::mouseClick(&tag.lbl(), button);
    }
    PlayMode = false;
    EXPECT_EQ(menu.count(), 1);
}

/// The middle of what is written, as a share of the width.
double middleOfInk(VXTEXTTAG& tag) {
    const QImage picture = tag.inCTRL().grab().toImage();
    double sum = 0;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y).value() < 128) sum += x, ++count;
    return count == 0 ? -1 : sum / count / picture.width();
}

TEST(VXTEXTTAG, TextStandsWhereItIsAligned) {
    VXTEXTTAG tag(nullptr);
    tag.setSizeTwips(6000, 900);
    const FontChoice font{.family = {}, .size = 12};
    tag.AssignProperties("HH", font, 0, 0, 0xFFFFFF);
    EXPECT_LT(middleOfInk(tag), 0.2);
    tag.AssignProperties("HH", font, 1, 0, 0xFFFFFF);
    EXPECT_GT(middleOfInk(tag), 0.8);
    tag.AssignProperties("HH", font, 2, 0, 0xFFFFFF);
    EXPECT_NEAR(middleOfInk(tag), 0.5, 0.05);
}

TEST(VXTEXTTAG, HasNeitherPinsNorTag) {
    VXTEXTTAG tag(nullptr);
    tag.FunctionDrop("EngineSpeed");
    tag.refreshValue(1, 5);
    EXPECT_EQ(tag.curVarTable().count(), 0);
    EXPECT_EQ(tag.pinCount(), 0);
    const QRect before = tag.inCTRL().geometry();
    tag.TagOn(true);
    EXPECT_EQ(tag.inCTRL().geometry(), before);
    tag.mode(false);
    EXPECT_TRUE(tag.inCTRL().isEnabled());
    QSignalSpy shown(&tag, &Instrument::propertiesShown);
    tag.show();
    PropertiesWindowShown = true;
    QTest::mouseMove(tag.windowHandle(), QPoint(50, 20));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.at(0).at(2).toStringList(), (QStringList{"Text", "Centre", "", "14"}));
}

} // namespace
} // namespace vistor
