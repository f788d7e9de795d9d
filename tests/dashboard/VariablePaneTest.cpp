#include "dashboard/Pictures.h"
#include "dashboard/frmInterface.h"
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "platform/Events.h"
#include "tests/shell/FreshAccount.h"
#include "variables/SetupVariables.h"
#include "variables/VariableDrag.h"
#include "variables/VariableTreeView.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace vistor {
namespace {

class VariablePaneTest : public FreshAccount {
protected:
    VariablePaneTest() {
        deliver();
        VariableFilePath = root.filePath("OtherFiles/VistorVars.cfg");
        LoadVariableFile(VariableFilePath);
        window.Form_Load();
        window.resize(1300, 800);
        window.show();
        pumpEvents();
    }
    VariableTreeView& tree() { return *window.VarTree; }
    QLineEdit& filter() { return *window.findChild<QLineEdit*>("VarFilter"); }
    static VariableDefinition& row(int number) { return VariableTable[static_cast<std::size_t>(number)]; }
    /// The same row as the definition file has it.
    VariableDefinition filed(int number) {
        const QByteArray bytes = read(VariableFilePath);
        const auto tables = readDefinitions({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        return tables ? tables->variables.at(static_cast<std::size_t>(number)) : VariableDefinition();
    }
    QTreeWidgetItem* item(const char* keyword, int number) {
        return tree().itemOf(u'#' + QLatin1String(keyword) + u'#' + row(number).BaseName);
    }
    void reveal(QTreeWidgetItem* line) {
        for (QTreeWidgetItem* above = line->parent(); above; above = above->parent())
            above->setExpanded(true);
        tree().scrollToItem(line);
    }
    QPoint place(QTreeWidgetItem* line) {
        reveal(line);
        return tree().visualItemRect(line).center();
    }
    void doubleClick(QTreeWidgetItem* line) {
        const QPoint at = place(line);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(tree().viewport(), Qt::LeftButton, {}, at); // else it counts as held down
    }

    frmInterface window;
};

TEST_F(VariablePaneTest, ShowsTheDeliveredVariablesWithPictures) {
    EXPECT_EQ(tree().topLevelItemCount(), 9);
    EXPECT_EQ(tree().font().family(), "VX Sans Serif");
    EXPECT_EQ(tree().font().pointSize(), 8);
    ASSERT_TRUE(item("AVAILABLETYPE", 2));
    EXPECT_EQ(item("AVAILABLETYPE", 2)->text(0), "Engine speed  (Engine speed [rpm])");
    EXPECT_EQ(item("AVAILABLETYPE", 2)->parent()->text(0), "Standard variables");
    QSet<qint64> pictures;
    for (const char* key : {"N", "I", "G", "U", "S", "E", "D", "T", "M", "Some", "Advanced", "Filter", "Calc",
                            "Roc", "Units", "Name", "Min", "Max", "Smooth"}) {
        const QImage drawn = picture(key).pixmap(16, 16).toImage();
        QImage empty(drawn.size(), drawn.format());
        empty.fill(Qt::transparent);
        EXPECT_NE(drawn, empty) << key;
        EXPECT_NE(picture(key).pixmap(16, 16, QIcon::Selected).toImage(), drawn) << key;
    }
    EXPECT_EQ(filter().geometry().bottom() + 1, tree().geometry().top());
    EXPECT_EQ(tree().geometry().bottomRight(), window.VarPic->rect().bottomRight());
}

TEST_F(VariablePaneTest, AnEditOfEachPromptedLineIsSeenInTableFileAndTree) {
    struct Case {
        const char* keyword;
        const char* answer;
        float VariableDefinition::*field;
        float value;
        const char* text;
    };
    const Case cases[] = {
        {"MAXROC", "250", &VariableDefinition::MaximumROC, 250, "Maximum rate of change: 250"},
        {"MINVAL", "-12.5", &VariableDefinition::DefaultMin, -12.5F, "Minimum: -12.5"},
        {"MAXVAL", "9000", &VariableDefinition::DefaultMax, 9000, "Maximum: 9000"},
        {"SMOOTHING", "0.25", &VariableDefinition::SmoothingTime, 0.25F, "Smoothed over: 0.25 seconds"},
    };
    for (const Case& c : cases) {
        prompts.inputs = {c.answer};
        doubleClick(item(c.keyword, 2));
        EXPECT_EQ(row(2).*c.field, c.value) << c.keyword;
        EXPECT_EQ(filed(2).*c.field, c.value) << c.keyword;
        EXPECT_EQ(item(c.keyword, 2)->text(0), c.text);
        EXPECT_TRUE(tree().visualItemRect(item(c.keyword, 2)).isValid()) << "its branch stays open";
    }
    EXPECT_EQ(prompts.inputRequests.size(), std::size(cases)) << "one question each";
}

TEST_F(VariablePaneTest, AnEditOfEachLineWithAWindowIsSeenInTableFileAndTree) {
    VariableTable[20].Enabled = kTrue16; // the one row with a correction standard, which this system lacks
    VariableTable[20].VariableType = 1;
    window.takeVariableTable();
    const auto answer = [this](const std::function<void(QDialog&)>& act) {
        QTimer::singleShot(0, &window, [act] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            act(*dialog);
        });
    };
    const auto choose = [](int index) {
        return [index](QDialog& dialog) {
            dialog.findChild<QComboBox*>()->setCurrentIndex(index);
            QTest::keyClick(&dialog, Qt::Key_Return);
        };
    };
    answer(choose(1));
    doubleClick(item("POWERCORRECTIONSTDKEY", 20));
    EXPECT_EQ(row(20).Misc, 1);
    EXPECT_EQ(filed(20).Misc, 1);

    answer(choose(2));
    doubleClick(item("CALCULUS", 4));
    EXPECT_EQ(row(4).Calculus, 2);
    EXPECT_EQ(filed(4).Calculus, 2);
    EXPECT_EQ(item("CALCULUS", 4)->text(0), "Calculus : Differentiate by time");

    answer([](QDialog& dialog) {
        for (QRadioButton* option : dialog.findChildren<QRadioButton*>()) {
            if (option->text().remove(u'&') == "Butterworth Filter") option->click();
        }
        dialog.findChild<QPushButton*>("OkayButton")->click();
    });
    doubleClick(item("FILTERING", 4));
    EXPECT_EQ(row(4).FilterDesign, 4);
    EXPECT_EQ(filed(4).FilterOrder, row(4).FilterOrder);
    EXPECT_TRUE(item("FILTERING", 4)->text(0).startsWith("Filtering : Butterworth "));

    answer(choose(1));
    doubleClick(item("TRANSFORMTYPE", 4));
    EXPECT_EQ(row(4).ApplyTransformation, "mph");
    EXPECT_EQ(filed(4).ApplyTransformation, "mph");
    EXPECT_EQ(item("TRANSFORMTYPE", 4)->text(0), "units: [mph]");
    EXPECT_EQ(item("AVAILABLETYPE", 4)->text(0), "Vehicle speed  (Vehicle speed [mph])");

    answer([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Set units for Vehicle speed");
        dialog.findChild<QLineEdit*>("UserUnits")->setText(QString::fromUtf8("\xC2\xB5\xE6\xB2\xB9"));
        dialog.findChild<QPlainTextEdit*>("UserFunctionTxt")->setPlainText("x*2");
        dialog.findChild<QPushButton*>("OkCmd")->click();
    });
    doubleClick(item("AVAILABLETYPE", 4));
    EXPECT_TRUE(row(4).UseCustomTrans);
    EXPECT_EQ(filed(4).CustomTransformation, "x*2");
    EXPECT_EQ(filed(4).CustomUnits, QString::fromUtf8("\xC2\xB5\xE6\xB2\xB9")) << "beyond the code page";

    const QByteArray before = read(VariableFilePath);
    const VariableDefinition kept = row(4);
    for (const char* keyword : {"CALCULUS", "FILTERING", "TRANSFORMTYPE", "AVAILABLETYPE"}) {
        answer([](QDialog& dialog) {
            if (auto* list = dialog.findChild<QComboBox*>()) list->setCurrentIndex(0);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        doubleClick(item(keyword, 4));
        EXPECT_EQ(read(VariableFilePath), before) << keyword;
        EXPECT_EQ(row(4).Calculus, kept.Calculus);
    }
}

TEST_F(VariablePaneTest, ARenameChangesAllKeysAndKeepsThePlace) {
    QTreeWidgetItem* line = item("USERNAME", 4);
    reveal(line);
    tree().setCurrentItem(line);
    reveal(item("FILTERING", 4));
    prompts.inputs = {"Road"};
    QTest::keyClick(&tree(), Qt::Key_Return);
    EXPECT_EQ(row(4).BaseName, "Road");
    EXPECT_EQ(filed(4).BaseName, "Road");
    EXPECT_EQ(filed(4).PhysicalName, "VehicleSpeed");
    EXPECT_FALSE(tree().itemOf("#USERNAME#Vehicle speed"));
    EXPECT_EQ(tree().currentItem(), item("USERNAME", 4));
    EXPECT_EQ(tree().currentItem()->text(0), "Variable Name: Road");
    EXPECT_TRUE(tree().itemOf("RoadAdvanced")->isExpanded());
    EXPECT_EQ(item("AVAILABLETYPE", 4)->text(0), "Road  (Road [km/h])");

    prompts.inputs = {"Road"}; // no change: nothing is saved, and the line tells what was entered
    QFile::remove(VariableFilePath);
    QTest::keyClick(&tree(), Qt::Key_F2);
    EXPECT_EQ(tree().currentItem()->text(0), "User name: Road");
    EXPECT_FALSE(QFile::exists(VariableFilePath));
    window.RegenerateVariableTree();
    EXPECT_EQ(tree().currentItem()->text(0), "Variable Name: Road");
}

TEST_F(VariablePaneTest, AnEditGoesToItsRowWhateverTheName) {
    // Each of these names leads to another row, or to none, by one way or another of looking it up.
    for (const char* name : {"Oil#2", "#MINVAL#Engine speed", "A#[B", "engine speed ", " ", "%1 %2",
                             "\xC3\x96l", "VT_1", "<b>"}) {
        const VariableDefinition before = row(2);
        prompts.inputs = {QString::fromUtf8(name)};
        doubleClick(item("USERNAME", 4));
        ASSERT_EQ(row(4).BaseName, QString::fromUtf8(name));
        prompts.inputs = {"-7"};
        doubleClick(item("MINVAL", 4));
        EXPECT_EQ(filed(4).DefaultMin, -7) << name;
        EXPECT_EQ(item("MINVAL", 4)->text(0), "Minimum: -7") << name;
        QTimer::singleShot(0, &window, [] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            dialog->findChild<QComboBox*>()->setCurrentIndex(2);
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        doubleClick(item("CALCULUS", 4));
        EXPECT_EQ(filed(4).Calculus, 2) << name;
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place(item("MAXVAL", 4)));
        EXPECT_EQ(window.DragVariableName, "VehicleSpeed") << name;
        EXPECT_TRUE(before == row(2)) << name;
        EXPECT_FALSE(row(kNoVariable).Enabled) << name;
        prompts.inputs = {"0"};
        doubleClick(item("MINVAL", 4));
        row(4).Calculus = 0;
        window.takeVariableTable();
    }
}

TEST_F(VariablePaneTest, RegeneratingKeepsWhatWasOpenSelectedAndScrolled) {
    QTreeWidgetItem* far = item("CALCULUS", 301);
    reveal(far);
    tree().setCurrentItem(far);
    reveal(item("MINVAL", 2));
    tree().verticalScrollBar()->setValue(11);
    const QString top = tree().itemAt(0, 0)->text(0);
    window.RegenerateVariableTree();
    EXPECT_EQ(tree().currentItem(), item("CALCULUS", 301));
    EXPECT_EQ(tree().verticalScrollBar()->value(), 11);
    EXPECT_EQ(tree().itemAt(0, 0)->text(0), top);

    VariableTableEdit[1].Enabled = kFalse16; // lines above the place go
    window.RegenerateVariableTree();
    EXPECT_EQ(tree().itemAt(0, 0)->text(0), top);
    EXPECT_TRUE(item("AVAILABLETYPE", 2)->isExpanded());

    item("AVAILABLETYPE", 301)->setExpanded(false); // a folded branch stays so, with its line still current
    QTreeWidgetItem* advanced = tree().itemOf(row(301).BaseName + "Advanced");
    tree().setCurrentItem(advanced->parent());
    window.RegenerateVariableTree();
    EXPECT_FALSE(item("AVAILABLETYPE", 301)->isExpanded());

    for (VariableDefinition& definition : VariableTableEdit) definition.Enabled = kFalse16;
    window.RegenerateVariableTree();
    EXPECT_EQ(tree().topLevelItemCount(), 9);
    window.takeVariableTable();
    EXPECT_TRUE(item("AVAILABLETYPE", 2));
}

TEST_F(VariablePaneTest, TheFilterHidesWhatDoesNotMatchAndChangesNoKey) {
    QTest::keyClicks(&tree(), "", {});
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    filter().setFocus();
    QTest::keyClicks(&filter(), "engine speed");
    EXPECT_FALSE(item("AVAILABLETYPE", 2)->isHidden());
    EXPECT_TRUE(item("AVAILABLETYPE", 4)->isHidden());
    EXPECT_TRUE(item("AVAILABLETYPE", 2)->parent()->isExpanded());
    EXPECT_TRUE(tree().itemOf("VT_3")->isHidden());
    EXPECT_EQ(item("MINVAL", 4)->text(0).left(8), "Minimum:");
    window.RegenerateVariableTree();
    EXPECT_TRUE(item("AVAILABLETYPE", 4)->isHidden());
    QTest::keyClick(&filter(), Qt::Key_Escape);
    EXPECT_TRUE(filter().text().isEmpty());
    EXPECT_FALSE(item("AVAILABLETYPE", 4)->isHidden());
    EXPECT_FALSE(item("AVAILABLETYPE", 2)->parent()->isExpanded()) << "as before the filter";
}

TEST_F(VariablePaneTest, ActingOnALineKeepsItsVariableForDrags) {
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place(item("MAXVAL", 2)));
    EXPECT_EQ(window.DragVariableName, "EngineSpeed");
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place(tree().itemOf("Vehicle speedAdvanced")));
    EXPECT_EQ(window.DragVariableName, "VehicleSpeed");
    QTest::keyClick(&tree(), Qt::Key_Home); // a group has none
    EXPECT_EQ(window.DragVariableName, "VehicleSpeed");

    const auto dragged = [this](QTreeWidgetItem* line) {
        const std::unique_ptr<QMimeData> mime(tree().model()->mimeData({tree().indexFromItem(line)}));
        return mime ? mime->data(QLatin1String(kVariableDragType)) : QByteArray("none");
    };
    EXPECT_EQ(dragged(item("SMOOTHING", 4)), "VehicleSpeed");
    EXPECT_EQ(dragged(tree().itemOf("VT_1")), "none");
    EXPECT_FALSE(tree().itemOf("VT_1")->flags() & Qt::ItemIsDragEnabled);
    EXPECT_TRUE(item("AVAILABLETYPE", 2)->flags() & Qt::ItemIsDragEnabled);
}

TEST_F(VariablePaneTest, GroupsOpenOnADoubleClickAndNothingIsEditedInPlayMode) {
    doubleClick(tree().itemOf("VT_3"));
    EXPECT_TRUE(tree().itemOf("VT_3")->isExpanded());
    doubleClick(tree().itemOf("VT_3"));
    EXPECT_FALSE(tree().itemOf("VT_3")->isExpanded());
    const TreeLine line = *tree().lineOf(item("MINVAL", 2));
    PlayMode = true;
    Q_EMIT tree().lineActivated(line);
    EXPECT_TRUE(prompts.inputRequests.empty());
    PlayMode = false;
    Q_EMIT tree().lineActivated(line);
    EXPECT_EQ(prompts.inputRequests.size(), 1U);
}

} // namespace
} // namespace vistor
