// TInboxFrm: the Rules button and its menu, which turn the selected row's
// sender and subject into a rule through the Filter Editor. The list is not
// changed: a rejection rule acts on mail the suite fetches later.

#include "inbox/InboxForm.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

void TInboxFrm::SetUpRulesMenu() {
    struct TEntry {
        const char* caption;
        void (TInboxFrm::*click)();
    };
    for (const TEntry& entry :
         {TEntry{"Add to Master Priority List", &TInboxFrm::pmsAddtoMasterPriorityListClick},
          TEntry{"Add to Mailbox Priority List", &TInboxFrm::pmsAddtoMailBoxPriorityListClick},
          TEntry{"-", nullptr},
          TEntry{"Add to Master Rejection List", &TInboxFrm::pmsAddtoMasterRejectionListClick},
          TEntry{"Add to Mailbox Rejection List", &TInboxFrm::pmsAddtoMailBoxRejectionListClick}}) {
        auto item = std::make_unique<TMenuItem>(entry.caption);
        if (entry.click)
            item->OnClick = [this, click = entry.click](TMenuItem&) { (this->*click)(); };
        pmRules.Items.Add(std::move(item));
    }
}

// A plain-looking button: the menu press ends with the plain release.
void TInboxFrm::LMDpfRulesClick() {
    if (PButtons->MenuButtonPress(LMDpfRules, &pmRules)) PButtons->ButtonRelease(LMDpfRules);
}

void TInboxFrm::AddRuleForSelected(bool reject, bool master) {
    const TListItem* row = lvEmailList.Selected();
    if (!row || row->SubItems.empty()) return;
    Globals->AddRule(row->Caption, row->SubItems.at(0), reject, master, MailboxFolder);
}
