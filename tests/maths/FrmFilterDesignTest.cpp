#include "maths/frmFilterDesign.h"

#include "maths/QtThemedChart.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QtCharts/QLineSeries>

#include <algorithm>
#include <gtest/gtest.h>

namespace vistor {
namespace {

class FrmFilterDesignTest : public testing::Test {
protected:
    FrmFilterDesignTest() {
        row.BaseName = QStringLiteral("Damper front left");
        row.FilterDesign = kButterworth;
        row.FilterLowVal = -1;
        row.FilterHighVal = 12.5F;
        row.FilterRipple = 0.5F;
        row.FilterOrder = 4;
    }
    void open() {
        window = std::make_unique<frmFilterDesign>(row);
        window->show();
    }
    template <typename Widget>
    Widget* child(const char* name) {
        return window->findChild<Widget*>(QLatin1String(name));
    }
    QLineEdit* box(int index) {
        return window->findChild<QLineEdit*>(QStringLiteral("InputText%1").arg(index));
    }
    void choose(const char* option) { child<QRadioButton>(option)->click(); }
    void type(int index, const char* text) {
        box(index)->setFocus();
        box(index)->selectAll();
        QTest::keyClicks(box(index), QLatin1String(text));
    }
    QStringList boxes() {
        QStringList texts;
        for (int i = 0; i < 4; ++i) texts += box(i)->text();
        return texts;
    }
    QList<QPointF> curve() {
        return qobject_cast<QLineSeries*>(child<QtThemedChart>("MSChart1")->chart()->series().first())
            ->points();
    }

    VariableDefinition row;
    std::unique_ptr<frmFilterDesign> window;
};

TEST_F(FrmFilterDesignTest, ShowsTheRow) {
    open();
    EXPECT_TRUE(child<QRadioButton>("FilterModelOptions0")->isChecked());
    EXPECT_TRUE(child<QRadioButton>("FilterTypeOptions0")->isChecked());
    EXPECT_EQ(boxes(), QStringList({"12.5", "1", "4", "0.5"}));
    EXPECT_EQ(child<QtThemedChart>("MSChart1")->chart()->axes(Qt::Horizontal).first()->titleText(),
              "Frequency (0Hz to 50Hz)");
    const QList<QPointF> points = curve();
    ASSERT_EQ(points.size(), 101);
    EXPECT_EQ(points[100].x(), 2);
    const auto higher = [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); };
    EXPECT_EQ(std::ranges::max_element(points, higher)->y(), 1);
}

TEST_F(FrmFilterDesignTest, EnterTakesABoxAndRedraws) {
    open();
    const QList<QPointF> before = curve();
    type(2, "3");
    QTest::keyClick(box(2), Qt::Key_Return);
    EXPECT_EQ(box(2)->text(), "4");
    type(2, "11");
    QTest::keyClick(box(2), Qt::Key_Enter);
    EXPECT_EQ(box(2)->text(), "10");
    EXPECT_NE(curve(), before);
    type(3, "5");
    QTest::keyClick(box(3), Qt::Key_Return);
    EXPECT_EQ(box(3)->text(), "3");
    type(0, "4");
    QTest::keyClick(box(0), Qt::Key_Return);
    EXPECT_EQ(boxes(), QStringList({"4", "1", "2", "3"}));
    EXPECT_FALSE(box(2)->isEnabled());
    EXPECT_FALSE(child<QLabel>("hint")->text().isEmpty());
    EXPECT_TRUE(window->isVisible());
    type(0, "nonsense");
    QTest::keyClick(box(0), Qt::Key_Return);
    EXPECT_EQ(box(0)->text(), "1");
}

TEST_F(FrmFilterDesignTest, OptionsShowWhatBelongsToThem) {
    open();
    const QList<QPointF> butterworth = curve();
    choose("FilterModelOptions1");
    EXPECT_NE(curve(), butterworth);
    choose("FilterTypeOptions2"); // its low corner is 1 Hz
    EXPECT_EQ(box(2)->text(), "2");
    EXPECT_FALSE(box(2)->isEnabled());
    choose("FilterTypeOptions0");
    EXPECT_TRUE(box(2)->isEnabled());
    choose("FilterModelOptions2");
    for (int i = 0; i < 4; ++i) EXPECT_FALSE(box(i)->isEnabled()) << i;
    EXPECT_FALSE(child<QRadioButton>("FilterTypeOptions0")->isVisible());
    EXPECT_FALSE(child<QWidget>("MSChart1")->isVisible());
    choose("FilterModelOptions0");
    EXPECT_TRUE(child<QWidget>("MSChart1")->isVisible());
    EXPECT_TRUE(box(0)->isEnabled());
}

TEST_F(FrmFilterDesignTest, OkStoresAndCancelDoesNot) {
    struct Case {
        const char* type;
        float low, high;
    };
    for (const Case& c : {Case{"FilterTypeOptions0", -1, 20}, Case{"FilterTypeOptions1", 8, -1},
                          Case{"FilterTypeOptions2", 8, 20}}) {
        open();
        choose("FilterModelOptions1");
        choose(c.type);
        type(0, "20");
        type(1, "8");
        QTest::keyClick(box(1), Qt::Key_Return);
        type(2, "6"); // taken by OK without an Enter
        QTest::mouseClick(child<QPushButton>("OkayButton"), Qt::LeftButton);
        EXPECT_EQ(window->result(), QDialog::Accepted);
        EXPECT_EQ(row.FilterDesign, kChebyshev);
        EXPECT_EQ(row.FilterLowVal, c.low) << c.type;
        EXPECT_EQ(row.FilterHighVal, c.high) << c.type;
        EXPECT_EQ(row.FilterOrder, 6);
        EXPECT_EQ(row.FilterRipple, 0.5F);
    }
    open();
    choose("FilterModelOptions2");
    type(0, "30");
    QTest::keyClick(box(0), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(row.FilterDesign, kChebyshev);
    EXPECT_EQ(row.FilterHighVal, 20);
}

TEST_F(FrmFilterDesignTest, ABandPassWithoutABandIsRefused) {
    open();
    choose("FilterTypeOptions2");
    EXPECT_EQ(curve().size(), 101);
    type(1, "12.5");
    QTest::keyClick(box(1), Qt::Key_Return);
    EXPECT_TRUE(curve().isEmpty());
    EXPECT_EQ(child<QLabel>("hint")->text(), "The high corner has to lie above the low corner.");
    EXPECT_FALSE(child<QPushButton>("OkayButton")->isEnabled());
    type(1, "12");
    QTest::keyClick(box(1), Qt::Key_Return);
    EXPECT_EQ(curve().size(), 101);
    type(1, "13"); // not looked at before OK
    child<QPushButton>("OkayButton")->click();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(row.FilterLowVal, -1);
    choose("FilterModelOptions2"); // no filter needs no band
    child<QPushButton>("OkayButton")->click();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmFilterDesignTest, SaysThatSamplesDoNotPassTheFilter) {
    open();
    auto* note = child<QLabel>("note");
    EXPECT_EQ(note->text(),
              "The filter is designed, drawn and kept with the variable. Samples do not pass through it.");
    for (const char* model : {"FilterModelOptions0", "FilterModelOptions2"}) {
        choose(model);
        EXPECT_TRUE(note->isVisible());
        EXPECT_LE(note->heightForWidth(note->width()), note->height());
    }
}

TEST_F(FrmFilterDesignTest, BoxesSpeakTheLocale) {
    DecimalSeparator = QStringLiteral(",");
    open();
    EXPECT_EQ(box(0)->text(), "12,5");
    type(0, "15,25");
    QTest::keyClick(box(0), Qt::Key_Return);
    EXPECT_EQ(box(0)->text(), "15,25");
    type(0, "15.5");
    QTest::mouseClick(child<QPushButton>("OkayButton"), Qt::LeftButton);
    EXPECT_EQ(row.FilterHighVal, 15.5F);
}

TEST_F(FrmFilterDesignTest, GoesAwayWithABoxBeingEdited) {
    open();
    window->activateWindow();
    type(0, "33");
    window.reset();
    EXPECT_EQ(row.FilterHighVal, 12.5F);
}

TEST_F(FrmFilterDesignTest, TheChartFollowsThePalette) {
    open();
    auto* chart = child<QtThemedChart>("MSChart1");
    QPalette dark = chart->palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    chart->setPalette(dark);
    EXPECT_EQ(chart->chart()->backgroundBrush().color(), QColor(Qt::black));
    EXPECT_EQ(chart->chart()->axes().first()->labelsBrush().color(), QColor(Qt::white));
}

} // namespace
} // namespace vistor
