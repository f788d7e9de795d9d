#include "instruments/PropertySheet.h"

#include "SampleTable.h"
#include "instruments/PropertyEditors.h"
#include "instruments/PropertyModel.h"
#include "instruments/VXALPHANUME.h"
#include "instruments/displays/NumLedDisplay.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vistor {
namespace {

/// Answers the colour dialog.
class ColourPrompter final : public Prompter {
public:
    std::optional<std::int32_t> answer;
    std::int32_t asked = -1;

    ColourPrompter() { m_before = setPrompter(this); }
    ~ColourPrompter() override { setPrompter(m_before); }
    Answer message(const MessageRequest&) override { return Answer::Cancel; }
    std::optional<QString> input(const InputRequest&) override { return {}; }
    std::optional<QString> openFile(const FileRequest&) override { return {}; }
    std::optional<QString> saveFile(const FileRequest&) override { return {}; }
    std::optional<std::int32_t> colour(std::int32_t initial) override {
        asked = initial;
        return answer;
    }
    std::optional<FontChoice> font(const FontChoice&) override { return {}; }

private:
    Prompter* m_before;
};

/// A sheet on the screen, its lines found by their labels as a person finds them.
class ShownSheet {
public:
    explicit ShownSheet(const PropertyStore& start) : sheet(start), last(start) {
        QObject::connect(&sheet, &PropertySheet::changed, [this](const PropertyStore& draft) {
            last = draft;
            ++changes;
        });
        sheet.show();
        view = sheet.findChild<PropertyView*>();
    }

    QModelIndex line(const QStringList& path) const {
        QModelIndex index;
        for (const QString& label : path) {
            const auto found = view->model()->match(view->model()->index(0, 0, index), Qt::DisplayRole, label,
                                                    1, Qt::MatchExactly);
            if (found.isEmpty()) return {};
            index = found.first();
        }
        return index;
    }
    void click(const QStringList& path, int column, int fromLeft = 30) {
        const QModelIndex index = line(path).siblingAtColumn(column);
        ASSERT_TRUE(index.isValid()) << path.join('/').toStdString();
        view->expand(index.parent());
        view->scrollTo(index);
        const QRect place = view->visualRect(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          {place.left() + fromLeft, place.center().y()});
    }
    void clickValue(const QStringList& path, int fromLeft = 30) {
        click(path, PropertyModel::ValueColumn, fromLeft);
    }
    template <class Editor>
    Editor* editor() const {
        return view->viewport()->findChild<Editor*>();
    }
    void press(QDialogButtonBox::StandardButton button) {
        QTest::mouseClick(sheet.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }
    QPushButton* buttonOf(const QString& words) const {
        for (auto* button : sheet.findChildren<QPushButton*>())
            if (button->text().startsWith(words)) return button;
        return nullptr;
    }
    QStringList rows(const QModelIndex& parent = {}) const {
        QStringList labels;
        for (int row = 0; row < view->model()->rowCount(parent); ++row)
            labels << view->model()->index(row, 0, parent).data().toString();
        return labels;
    }

    PropertySheet sheet;
    PropertyStore last;
    PropertyView* view = nullptr;
    int changes = 0;
};

TEST(PropertySheet, BranchesFollowTheTable) {
    const ShownSheet shown{PropertyStore(kSampleTable)};
    EXPECT_EQ(shown.rows(), (QStringList{"Look", "Scale", "Other", "Fonts (1)", "Needles (2)"}));
    EXPECT_EQ(shown.rows(shown.line({"Look"})), (QStringList{"Back", "Width", "Shown", "Style"}));
    EXPECT_EQ(shown.rows(shown.line({"Other"})), QStringList{"Property 12"});
    EXPECT_EQ(shown.rows(shown.line({"Needles (2)"})), (QStringList{"Needle 1", "Needle 2"}));
    EXPECT_EQ(shown.rows(shown.line({"Needles (2)", "Needle 1"})),
              (QStringList{"Needle Value", "Needle Colour"}));
}

TEST(PropertySheet, EveryTypeHasItsEditorAndShowsAtOnce) {
    ColourPrompter prompter;
    prompter.answer = 0x112233;
    ShownSheet shown{PropertyStore(kSampleTable)};

    shown.clickValue({"Look", "Width"});
    ASSERT_NE(shown.editor<QSpinBox>(), nullptr);
    QTest::keyClick(shown.editor<QSpinBox>(), Qt::Key_Up);
    EXPECT_EQ(shown.last.number(3), 8) << "before the editor closes";
    QTest::keyClick(shown.editor<QSpinBox>(), Qt::Key_Return);

    shown.clickValue({"Look", "Style"});
    ASSERT_NE(shown.editor<QComboBox>(), nullptr);
    EXPECT_EQ(shown.editor<QComboBox>()->count(), 3);
    QTest::keyClick(shown.editor<QComboBox>(), Qt::Key_Down);
    EXPECT_EQ(shown.last.number(14), 1);
    QTest::keyClick(shown.editor<QComboBox>(), Qt::Key_Escape);

    shown.clickValue({"Look", "Shown"}, 10);
    EXPECT_EQ(shown.last.number(5), -1);
    shown.clickValue({"Look", "Back"});
    EXPECT_EQ(prompter.asked, 0);
    EXPECT_EQ(shown.last.number(-501), 0x112233);

    shown.clickValue({"Scale", "Maximum"});
    ASSERT_NE(shown.editor<QLineEdit>(), nullptr);
    shown.editor<QLineEdit>()->selectAll();
    QTest::keyClicks(shown.editor<QLineEdit>(), "12.75");
    EXPECT_EQ(shown.last.number(9), 12.75);
    EXPECT_EQ(shown.editor<QLineEdit>()->text(), "12.75") << "typing is left alone";
    QTest::keyClick(shown.editor<QLineEdit>(), Qt::Key_Return);
    QTest::keyClick(shown.sheet.findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_TRUE(shown.sheet.isVisible()) << "the key that ends an entry ends nothing else";
}

TEST(PropertySheet, FractionsAreNumbersWithinTheirBounds) {
    const struct {
        const char* typed;
        double kept;
    } cases[] = {{"12,5", 12.5}, {"7.25", 7.25}, {"1", 4}, {"900", 72}, {"x8y", 8}, {"-", 8.5}};
    for (const auto& c : cases) {
        ShownSheet shown{PropertyStore(kSampleTable)};
        shown.clickValue({"Scale", "Size"});
        auto* line = shown.editor<QLineEdit>();
        ASSERT_NE(line, nullptr);
        line->selectAll();
        QTest::keyClicks(line, c.typed);
        EXPECT_EQ(shown.last.number(6), c.kept) << c.typed;
        QTest::keyClick(line, Qt::Key_Return);
        QTest::qWait(0);
        EXPECT_EQ(shown.last.number(6), c.kept) << c.typed;
    }
}

TEST(PropertySheet, WhatTheDisplayTellsIsOnlyShown) {
    ShownSheet shown{PropertyStore(kSampleTable)};
    shown.clickValue({"Other", "Property 12"});
    EXPECT_EQ(shown.editor<QLineEdit>(), nullptr);
    EXPECT_EQ(shown.line({"Other", "Property 12"}).siblingAtColumn(PropertyModel::ValueColumn).data(),
              "none");
}

TEST(PropertySheet, ShowsValuesAsEveryWindowDoes) {
    PropertyStore start(kSampleTable);
    start.setNumber(14, 7); // none of the words
    start.setNumber(32, 0, 87.3F);
    EXPECT_EQ(propertyWords(*kSampleTable.info(14), start, 0), "First");
    EXPECT_EQ(propertyWords(*kSampleTable.info(32), start, 0), "87.3");
}

TEST(PropertySheet, CancelGoesBackToTheLastApply) {
    const struct {
        bool apply;
        QDialogButtonBox::StandardButton end;
        double width;
        int applied;
    } cases[] = {{false, QDialogButtonBox::Cancel, 7, 0},
                 {false, QDialogButtonBox::Ok, 9, 1},
                 {true, QDialogButtonBox::Cancel, 8, 1},
                 {true, QDialogButtonBox::Ok, 9, 2}};
    for (const auto& c : cases) {
        ShownSheet shown{PropertyStore(kSampleTable)};
        QSignalSpy applied(&shown.sheet, &PropertySheet::applied);
        shown.clickValue({"Look", "Width"});
        QTest::keyClick(shown.editor<QSpinBox>(), Qt::Key_Up);
        if (c.apply) shown.press(QDialogButtonBox::Apply);
        shown.clickValue({"Look", "Width"});
        shown.editor<QSpinBox>()->setValue(9);
        shown.press(c.end);
        EXPECT_EQ(shown.last.number(3), c.width);
        EXPECT_EQ(applied.count(), c.applied);
        EXPECT_FALSE(shown.sheet.isVisible());
    }
}

TEST(PropertySheet, SectionsAreAddedAndRemovedWithoutMovingTheOthers) {
    PropertyStore start(kSampleTable);
    start.setNumber(33, 1, 1);
    start.setNumber(33, 0, 2); // the last needle stands in section 0
    ShownSheet shown(start);
    shown.click({"Needles (2)"}, PropertyModel::LabelColumn);
    EXPECT_FALSE(shown.buttonOf("Remove")->isEnabled());
    QTest::mouseClick(shown.buttonOf("Add Needle"), Qt::LeftButton);
    EXPECT_EQ(shown.last.sections(2), 3);
    EXPECT_EQ(shown.last.number(33, 1), 1);
    EXPECT_EQ(shown.last.number(33, 2), 2) << "needle 2 is pin 2's still";
    EXPECT_EQ(shown.last.number(33, 0), 255);
    shown.click({"Needles (3)", "Needle 1"}, PropertyModel::LabelColumn);
    QTest::mouseClick(shown.buttonOf("Remove Needle 1"), Qt::LeftButton);
    EXPECT_EQ(shown.last.sections(2), 2);
    EXPECT_EQ(shown.last.number(33, 1), 2);
    EXPECT_EQ(shown.last.number(33, 0), 255);
    shown.press(QDialogButtonBox::Cancel);
    EXPECT_EQ(shown.last.number(33, 1), 1);
    EXPECT_EQ(shown.last.number(33, 0), 2);
}

TEST(PropertySheet, FilterLeavesWhatMatches) {
    ShownSheet shown{PropertyStore(kSampleTable)};
    auto* filter = shown.sheet.findChild<QLineEdit*>();
    QTest::keyClicks(filter, "colour");
    EXPECT_EQ(shown.rows(), QStringList{"Needles (2)"});
    EXPECT_EQ(shown.rows(shown.line({"Needles (2)", "Needle 2"})), QStringList{"Needle Colour"});
    shown.clickValue({"Needles (2)", "Needle 2", "Needle Colour"});
    filter->clear();
    EXPECT_EQ(shown.rows().size(), 5);
}

TEST(PropertySheet, OpensOnTheInstrumentAndPreviewsThere) {
    VXALPHANUME readout(nullptr);
    readout.show();
    QSignalSpy changed(&readout, &Instrument::layoutChanged);
    double previewed = 0;
    QTimer::singleShot(0, [&] {
        auto* sheet = qobject_cast<PropertySheet*>(QApplication::activeModalWidget());
        ASSERT_NE(sheet, nullptr);
        auto* model = sheet->findChild<PropertyModel*>();
        const auto digits = model->match(model->index(0, 0, model->index(1, 0)), Qt::DisplayRole, "Digits");
        ASSERT_FALSE(digits.isEmpty());
        model->setData(digits.first().siblingAtColumn(PropertyModel::ValueColumn), 4.0);
        previewed = readout.inCTRL().properties().number(NumLedDigits);
        sheet->reject();
    });
    readout.mnuProperties_Click();
    EXPECT_EQ(previewed, 4);
    EXPECT_EQ(readout.inCTRL().properties().number(NumLedDigits), 6);
    EXPECT_EQ(changed.count(), 1);
}

} // namespace
} // namespace vistor
