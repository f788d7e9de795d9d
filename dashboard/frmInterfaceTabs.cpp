// The commands on tabs and their pages.
#include "dashboard/Recovery.h"
#include "dashboard/TabRules.h"
#include "dashboard/frmInterface.h"
#include "instruments/Colours.h"
#include "instruments/Instrument.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QShortcut>

#include <algorithm>

namespace vistor {

void frmInterface::mnuNewTab_Click() {
    const auto answer = InputBox(QStringLiteral("Enter caption for the new tab"));
    switch (judgeNewCaption(answer, mainTab->captions())) {
    case CaptionVerdict::Cancelled:
        return;
    case CaptionVerdict::Empty:
        MsgBox(QStringLiteral("Enter Valid Name"), Icon::Stop);
        return;
    case CaptionVerdict::Duplicate:
        MsgBox(QStringLiteral("Duplicate Name Found"), Icon::Stop);
        return;
    case CaptionVerdict::Fine:
        break;
    }
    appendTab(*answer);
    if (ShowGrid == 1) DrawGrid();
    ProfileChanged = true;
}

void frmInterface::appendTab(const QString& caption) {
    // The page first: the click that comes with the new tab shows it.
    Page* page = addPage();
    page->setBackColour(colourOf(CurBackColour));
    mainTab->Tabs(mainTab->Tabs() + 1);
    mainTab->TabCaption(mainTab->Tabs() - 1, caption);
    mainTab->Tab(mainTab->Tabs() - 1);
}

void frmInterface::makeTabKeys() {
    const auto key = [this](const QString& keys, auto chosen) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        connect(shortcut, &QShortcut::activated, this, [this, chosen] { mainTab->Tab(chosen()); });
    };
    const auto beside = [this](int step) {
        return [this, step] { return (mainTab->Tab() + mainTab->Tabs() + step) % mainTab->Tabs(); };
    };
    key(QStringLiteral("Ctrl+Tab"), beside(1));
    key(QStringLiteral("Ctrl+Shift+Tab"), beside(-1));
    for (int tab = 0; tab < 9; ++tab) key(QStringLiteral("Ctrl+%1").arg(tab + 1), [tab] { return tab; });
}

void frmInterface::mnuNewPane_Click() {
    mnuNewTab_Click();
}

void frmInterface::mnuRename_Click() {
    const auto answer = InputBox(QStringLiteral("Enter New Name"));
    if (mayRename(answer, mainTab->captions())) mainTab->TabCaption(mainTab->Tab(), *answer);
    ProfileChanged = true;
}

void frmInterface::clearPage(std::size_t number) {
    if (number < pic.size()) instruments.removeFrom(pic[number]);
}

bool frmInterface::isPageEmpty(std::size_t number) const {
    const auto& all = instruments.all();
    return number >= pic.size() ||
           std::none_of(all.begin(), all.end(), [&](const InstrumentElement& element) {
               return element.number != 0 && pageOf(*element.instrument) == pic[number];
           });
}

void frmInterface::mnuClearCurrentTab_Click() {
    if (!isPageEmpty(static_cast<std::size_t>(CurrentTab))) keepBeforeClearing(RecoveryReason::ClearTab);
    clearCurrentTab();
}

void frmInterface::clearCurrentTab() {
    clearPage(static_cast<std::size_t>(CurrentTab));
    // An empty profile of one tab has nothing worth saving.
    if (mainTab->Tabs() == 1) ProfileChanged = false;
}

void frmInterface::mnuClearPane_Click() {
    if (MsgBox(QStringLiteral("Do you want to clear current tab ?"), Icon::Notice, Buttons::YesNo) ==
        Answer::Yes)
        mnuClearCurrentTab_Click();
}

void frmInterface::mnuClearAllTabs_Click() {
    keepBeforeClearing(RecoveryReason::ClearAll);
    ++m_clearings;
    for (std::size_t number = 0; number < pic.size(); ++number) clearPage(number);
}

void frmInterface::mnuCloseLastTab_Click() {
    if (!isPageEmpty(pic.size() - 1)) keepBeforeClearing(RecoveryReason::CloseTab);
    closeLastTab();
}

void frmInterface::closeLastTab() {
    const int last = mainTab->Tabs() - 1;
    mainTab->Tab(last);
    clearCurrentTab();
    if (last == 0) return;
    // The page leaves the list before its tab goes: events of that change must not find it.
    Page* closed = pic.back();
    pic.pop_back();
    mainTab->Tabs(last);
    closed->hide();
    closed->deleteLater();
}

void frmInterface::mnuClosePane_Click() {
    if (MsgBox(QStringLiteral("Do you want to close last tab ?"), Icon::Notice, Buttons::YesNo) ==
        Answer::Yes)
        mnuCloseLastTab_Click();
}

void frmInterface::mnuCloseAllTabs_Click() {
    keepBeforeClearing(RecoveryReason::CloseAll);
    closeAllTabs();
}

void frmInterface::closeAllTabs() {
    ++m_clearings;
    const int count = mainTab->Tabs();
    for (int i = 0; i < count; ++i) closeLastTab();
    mainTab->TabCaption(0, QStringLiteral("VX"));
    ProfileChanged = false;
}

} // namespace vistor
