// The help window, and the delivered pages: nothing they link to may be missing.
#include "maths/ConvertUnits.h"
#include "shell/frmHelp.h"
#include "tests/shell/FreshAccount.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>

namespace vistor {
namespace {

const QString kDelivered = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/help/");

TEST(HelpAnchor, IsTheOneThatRepositoriesUse) {
    EXPECT_EQ(helpAnchor(" What is a pin? "), "what-is-a-pin");
    EXPECT_EQ(helpAnchor("LED, odometer & tag"), "led-odometer--tag");
}

TEST(HelpPages, ThoseDeliveredLinkToEachOtherAndToPicturesThatAreThere) {
    const HelpPages pages = readHelpPages(kDelivered);
    QStringList names = {QLatin1String(kFirstHelpPage)};
    QSet<QString> places;
    for (const HelpTopic& topic : pages.contents) {
        if (topic.isPage) names += topic.page;
        places += topic.page + u'#' + topic.anchor;
    }
    const QStringList files = QDir(kDelivered).entryList({"*.md"}, QDir::Files);
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()), QSet<QString>(files.begin(), files.end()));
    EXPECT_GT(pages.index.size(), 100U);
    const QRegularExpression link(QStringLiteral("\\]\\(([^)]+)\\)"));
    for (const QString& name : names) {
        const QString text = helpPageText(kDelivered, name).value_or(QString());
        EXPECT_FALSE(text.contains("<!--")) << name.toStdString();
        for (auto it = link.globalMatch(text); it.hasNext();) {
            const QString target = it.next().captured(1);
            const QString page = target.startsWith(u'#') ? name + target : target;
            const bool found = page.contains(u'#') ? places.contains(page) : QFile::exists(kDelivered + page);
            EXPECT_TRUE(found) << name.toStdString() << " links to " << target.toStdString();
        }
    }
}

/// The car and the values that the pages say their examples have.
void setExampleCar() {
    ResetGlobals();
    VariableTable.resize(kVariableCount);
    CarConstants[0] = 0.72F;
    CarConstants[2] = 1180;
    CarConstants[6] = 2.5F;
    createFormulaEvaluators();
    LastValue[2] = 6000;
    LastValue[4] = 180;
    LastValue[10] = 50;
}

constexpr int kExampleVariable = 7000;

TEST(HelpPages, FormulasInTheExamplesGiveWhatThePageSays) {
    setExampleCar();
    const QString text = helpPageText(kDelivered, "formulas.md").value_or(QString());
    const QRegularExpression row(QStringLiteral("\\| `([^`]+)` \\| ([-0-9.]+) \\| ([-0-9.]+) \\|"));
    int count = 0;
    for (auto it = row.globalMatch(text); it.hasNext(); ++count) {
        const QRegularExpressionMatch match = it.next();
        float value = match.captured(2).toFloat();
        EXPECT_TRUE(ConvertValue(match.captured(1), kExampleVariable, value, false));
        EXPECT_NEAR(value, match.captured(3).toFloat(), 0.01) << match.captured(1).toStdString();
        EXPECT_TRUE(ConvertValue(match.captured(1), kExampleVariable, value, true));
    }
    EXPECT_GT(count, 8);
}

TEST(HelpPages, ScriptsInTheExamplesGiveWhatThePageSays) {
    setExampleCar();
    const ScriptedPrompts prompts;
    const QString text = helpPageText(kDelivered, "scripts.md").value_or(QString());
    const QRegularExpression example(QStringLiteral("```vb\n(.*?)```\n\n(Gives [^\n]+)"),
                                     QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpression result(QStringLiteral("Gives ([-0-9.]+) for ([-0-9.]+)\\."));
    int count = 0;
    for (auto it = example.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        for (auto results = result.globalMatch(match.captured(2)); results.hasNext(); ++count) {
            const QRegularExpressionMatch pair = results.next();
            float value = pair.captured(2).toFloat();
            EXPECT_TRUE(ConvertValue(match.captured(1), kExampleVariable, value, false));
            EXPECT_NEAR(value, pair.captured(1).toFloat(), 0.001) << match.captured(1).toStdString();
        }
    }
    EXPECT_GT(count, 8);
    for (const MessageRequest& message : prompts.messages) ADD_FAILURE() << message.text.toStdString();
}

class HelpWindowTest : public FreshAccount {
protected:
    HelpWindowTest() {
        write(pages + "README.md", "# First\n\n- [One](one.md)\n- [Two](two.md)\n- [Gone](gone.md)\n"
                                   "- [Out](../out.md)\n");
        write(pages + "one.md",
              "# One\n\n<!-- index: alpha -->\n\n[to b](two.md#part-b)\n\n```\n## no heading\n```\n");
        write(pages + "two.md", "# Two\n\n## Part A\n" + QByteArray("\nline\n").repeated(200) +
                                    "\n## Part B\n\n<!-- index: Beta, alphabet -->\n\nend\n");
        write(root.filePath("out.md"), "# Out\n");
    }
    QString title() { return help.page->document()->firstBlock().text(); }

    QString pages = root.filePath("help/");
    frmHelp help;
};

TEST_F(HelpWindowTest, ContentsAndIndexLeadToTheirPlaces) {
    ASSERT_TRUE(help.open(pages, HelpCommand::Contents));
    EXPECT_EQ(title(), "First");
    EXPECT_EQ(help.tabs->currentIndex(), 0);
    ASSERT_EQ(help.contents->topLevelItemCount(), 2);
    EXPECT_EQ(help.contents->topLevelItem(0)->childCount(), 0);
    QTreeWidgetItem* two = help.contents->topLevelItem(1);
    ASSERT_EQ(two->childCount(), 2);
    Q_EMIT help.contents->itemClicked(two->child(1), 0);
    EXPECT_EQ(title(), "Two");
    EXPECT_GT(help.page->verticalScrollBar()->value(), 1000);
    EXPECT_EQ(help.contents->currentItem(), two->child(1));

    ASSERT_TRUE(help.open(pages, HelpCommand::Index));
    EXPECT_EQ(help.tabs->currentIndex(), 1);
    EXPECT_EQ(title(), "Two") << "the page that was open stays";
    EXPECT_EQ(help.contents->currentItem(), help.contents->topLevelItem(1)->child(1));
    ASSERT_EQ(help.index->count(), 3);
    EXPECT_EQ(help.index->item(2)->text(), "Beta");
    QTest::keyClicks(help.indexFilter, "ALPHABET");
    EXPECT_TRUE(help.index->item(0)->isHidden());
    EXPECT_FALSE(help.index->item(1)->isHidden());
    Q_EMIT help.index->itemClicked(help.index->item(0));
    EXPECT_EQ(title(), "One");
}

TEST_F(HelpWindowTest, LinksAndTheWayBack) {
    ASSERT_TRUE(help.open(pages, HelpCommand::Contents));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    help.showTopic("one.md", {});
    Q_EMIT help.page->anchorClicked(QUrl("two.md#part-b"));
    EXPECT_EQ(title(), "Two");
    for (const char* bad : {"gone.md", "../out.md", "https://example.com/one.md", "/etc/passwd"})
        Q_EMIT help.page->anchorClicked(QUrl(QLatin1String(bad)));
    EXPECT_EQ(title(), "Two");
    QTest::keyClick(&help, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "One");
    QTest::keyClick(&help, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "First");
    QTest::keyClick(&help, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(title(), "One");
}

TEST_F(HelpWindowTest, AMissingPageSetIsTold) {
    EXPECT_FALSE(help.open(root.filePath("nowhere"), HelpCommand::Index));
    EXPECT_FALSE(help.isVisible());
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_TRUE(prompts.messages[0].text.contains(root.filePath("nowhere")));
    EXPECT_EQ(prompts.messages[0].icon, Icon::None);
}

} // namespace
} // namespace vistor
