// The commands that there must be, as a table: where each stands, in which mode it is enabled, how it is
// prepared and how its effect is seen. In: nothing. Out: the rows, and a session brought up for one of them.
#pragma once

#include "tests/shell/CommandSession.h"

#include <span>

namespace vistor {

using Session = CommandSession;

enum class Enabled { Edit, Play, Both };

constexpr bool isEnabledIn(Enabled when, bool play) {
    return when == Enabled::Both || (when == Enabled::Play) == play;
}

/// `prepare` runs in edit mode and writes the answers down; `done` tells whether the effect is there.
struct CommandRow {
    const char* menu;
    const char* name; ///< null for a separator, in the menu whose separators are laid down
    const char* caption = "";
    Enabled when = Enabled::Edit;
    void (*prepare)(Session&) = nullptr;
    bool (*done)(Session&) = nullptr;
};

struct ButtonRow {
    int number;
    Enabled when;
    void (*prepare)(Session&);
    bool (*done)(Session&); ///< null for those that stand for nothing but themselves
};

/// In the order of their menus.
std::span<const CommandRow> commandRows();
std::span<const ButtonRow> buttonRows();

void namesOne(Session& s);

/// Pop-up menus and the menus inside them.
inline bool isPopUp(const char* menu) {
    return QLatin1String(menu).startsWith(QLatin1String("mnuD"));
}

/// Prepares, brings the mode up, and forgets what happened on the way.
template <class AnyRow>
void bringUp(Session& s, const AnyRow& row, bool play) {
    s.takeAnswers();
    s.prompts.messages.clear();
    if (row.prepare) row.prepare(s);
    if (play) s.page.mnuPlayMode_Click();
    ASSERT_EQ(PlayMode, play);
    s.starts = 0;
    s.stops = 0;
    ASSERT_FALSE(row.done && row.done(s)) << "it could not be seen that the command did it";
}

} // namespace vistor
