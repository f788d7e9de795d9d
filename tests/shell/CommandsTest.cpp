// Every command there is, in both modes: each entry of every menu and each button of the toolbar is worked as
// a person works it and must have its effect, and where its mode forbids it, none.
#include "shell/Commands.h"

#include "tests/shell/CommandRows.h"

namespace vistor {
namespace {

QKeySequence shortcutOf(const char* name) {
    const auto entries = menuEntries();
    const auto found = std::find_if(entries.begin(), entries.end(), [name](const MenuEntry& entry) {
        return QLatin1String(entry.name) == QLatin1String(name);
    });
    return found == entries.end() ? QKeySequence() : QKeySequence(QLatin1String(found->keys));
}

class CommandsTest : public CommandAccount, public testing::WithParamInterface<bool> {};

TEST_P(CommandsTest, EveryEntryHasItsEffectWhereItsModeAllowsIt) {
    const bool play = GetParam();
    for (const CommandRow& row : commandRows()) {
        if (!row.done) continue;                 // a separator, or the head of a menu whose entries have rows
        if (play && isPopUp(row.menu)) continue; // they do not open, which a test of its own makes sure of
        SCOPED_TRACE(row.name);
        startAfresh();
        Session s(prompts, root.path());
        bringUp(s, row, play);
        if (HasFatalFailure()) return;
        const bool enabled = isEnabledIn(row.when, play);
        QAction* entry = s.command(row.name);
        ASSERT_TRUE(entry);
        QMenu* menu = s.open(QLatin1String(row.menu));
        EXPECT_EQ(menu && menu->actions().contains(entry) && entry->isVisible() && entry->isEnabled(),
                  enabled);
        if (menu) s.choose(menu, entry);
        EXPECT_EQ(row.done(s), enabled);
        EXPECT_TRUE(!enabled || s.hasAskedAll());
    }
}

TEST_P(CommandsTest, EveryShortcutDoesWhatItsEntryDoes) {
    const bool play = GetParam();
    int shortcuts = 0;
    for (const CommandRow& row : commandRows()) {
        const QKeySequence keys = row.done ? shortcutOf(row.name) : QKeySequence();
        if (keys.isEmpty()) continue;
        ++shortcuts;
        SCOPED_TRACE(row.name);
        startAfresh();
        Session s(prompts, root.path());
        bringUp(s, row, play);
        if (HasFatalFailure()) return;
        s.type(keys);
        EXPECT_EQ(row.done(s), isEnabledIn(row.when, play));
    }
    EXPECT_GE(shortcuts, 14);
}

TEST_P(CommandsTest, EveryButtonHasItsEffectWhereItsModeAllowsIt) {
    const bool play = GetParam();
    for (const ButtonRow& row : buttonRows()) {
        SCOPED_TRACE(row.number);
        startAfresh();
        Session s(prompts, root.path());
        bringUp(s, row, play);
        if (HasFatalFailure()) return;
        const bool enabled = isEnabledIn(row.when, play);
        EXPECT_EQ(s.window.button(row.number)->isEnabled(), enabled);
        EXPECT_TRUE(s.press(row.number));
        if (row.done) {
            EXPECT_EQ(row.done(s), enabled);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Mode, CommandsTest, testing::Bool(),
                         [](const auto& mode) { return mode.param ? "Play" : "Edit"; });

class CommandListTest : public CommandAccount {};

/// Cancelled, or answered no where there is no more.
TEST_F(CommandListTest, ADeclinedQuestionEndsItsCommand) {
    int questions = 0;
    for (const CommandRow& row : commandRows()) {
        if (!row.done || !row.prepare) continue;
        SCOPED_TRACE(row.name);
        startAfresh();
        Session s(prompts, root.path());
        bringUp(s, row, false);
        if (HasFatalFailure()) return;
        if (s.hasAskedAll()) continue; // it asks nothing
        ++questions;
        s.takeAnswers();
        QMenu* menu = s.open(QLatin1String(row.menu));
        ASSERT_TRUE(menu);
        s.choose(menu, s.command(row.name));
        EXPECT_FALSE(row.done(s));
        EXPECT_TRUE(s.window.isVisible());
    }
    EXPECT_EQ(questions, 18);
}

/// Names and captions as the menu shows them, "" for a separator.
QStringList shownIn(const QMenu* menu, bool separators) {
    QStringList all;
    for (const QAction* action : menu->actions()) {
        if (!action->isSeparator())
            all += action->objectName() + u'=' + action->text();
        else if (separators)
            all += QString();
    }
    return all;
}

QStringList rowsOf(const QString& menu) {
    QStringList all;
    for (const CommandRow& row : commandRows()) {
        if (QLatin1String(row.menu) != menu) continue;
        all += row.name ? QLatin1String(row.name) + u'=' + QLatin1String(row.caption) : QString();
    }
    return all;
}

/// A menu with an entry that has no row, or in another order, fails here; so does a menu without rows.
TEST_F(CommandListTest, MenusShowTheRowsInOrder) {
    Session s(prompts, root.path());
    QStringList heads;
    for (const QAction* head : s.window.menuBar()->actions())
        heads += head->objectName() + u'=' + head->text();
    EXPECT_EQ(heads, QStringList({"mnuFile=&File", "mnuView=&View", "mnuAddControl=&Add Control",
                                  "mnuWindow=Window", "mnuHelp=Help"}));
    int menus = 0;
    for (const QMenu* any : s.window.findChildren<QMenu*>()) {
        const QString name = any->menuAction()->objectName();
        if (name.isEmpty()) continue; // the toolkit's own, of its windows and tool bars
        ++menus;
        QMenu* menu = s.open(name);
        ASSERT_EQ(menu, any) << qPrintable(name);
        EXPECT_EQ(shownIn(menu, name == QLatin1String("mnuDropDown3")), rowsOf(name));
        EXPECT_FALSE(menu->actions().front()->isSeparator() || menu->actions().back()->isSeparator());
        s.closePopups();
    }
    EXPECT_EQ(menus, 11);
    for (const MenuEntry& entry : menuEntries()) {
        if (entry.picture) {
            EXPECT_FALSE(s.command(entry.name)->icon().isNull()) << entry.name;
        }
    }
    for (const CommandRow& row : commandRows())
        EXPECT_TRUE(row.done || !row.name || s.command(row.name)->menu()) << row.name << " is never tried";
}

TEST_F(CommandListTest, TheToolbarShowsTheRowsAndSeparators) {
    Session s(prompts, root.path());
    QList<int> numbers;
    int next = 0;
    for (const QAction* action : s.window.findChild<QToolBar*>("Toolbar")->actions()) {
        ++next;
        if (action->isSeparator()) continue;
        numbers += next;
        EXPECT_EQ(s.window.button(next), action);
        EXPECT_FALSE(action->icon().isNull() || action->toolTip().isEmpty()) << next;
    }
    QList<int> rows;
    for (const ButtonRow& row : buttonRows()) rows += row.number;
    EXPECT_EQ(numbers, rows);
    EXPECT_EQ(next, 18);
}

} // namespace
} // namespace vistor
