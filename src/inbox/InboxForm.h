#pragma once
// TInboxFrm: the main window. It lists one mailbox folder in lvEmailList,
// sorts and filters the rows, and starts every command on them. Everything
// here runs against control models; the screen binds to them from outside.

#include <memory>

#include "controls/ComboBox.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Panel.h"
#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "foundation/StringList.h"
#include "inbox/MessageText.h"

class TGlobals;
class TPButtons;
class TUtils;

class TInboxFrm : public TForm {
public:
    TInboxFrm();
    ~TInboxFrm() override;

    // --- The window's life
    void FormCreate();
    void FormActivate();
    void FormDestroy();

    // --- Reading a saved message
    AnsiString FindHeaderValue(const AnsiString& name, int start, const TStringList& lines,
                               int* lineIndex = nullptr) const;
    bool WalkMultipart(const TStringList& lines, TStringList& names) const;

    // --- The scan
    AnsiString LoadStartMailbox();
    int ScanMessages();
    void SetReady(bool ready);
    void LMDpfRefreshClick();
    void LMDpfCloseClick();
    void LMDpfInboxClick();

    // --- Mailboxes and deletion
    void LMDpfSubMailboxesClick();
    void pmMailBoxesPopup();
    void MailboxMenuClick(TMenuItem& sender);
    void pmsRejectedClick();
    void LMDpfDeleteClick();
    void LMDpfSubDeleteClick();
    void pmsDeleteAllButClick();
    void pmsDeleteSelButClick();
    void DeleteMessages(bool all);

    // --- Opening the selected message
    void RunMail(const AnsiString& client);
    void LMDpfRunMailClick();
    void lvEmailListDblClick() { LMDpfRunMailClick(); }
    void LMDpfSubEmailersClick();
    void LMDpfHelpClick();
    void pmEmailersPopup();
    void EmailerMenuClick(TMenuItem& sender);

    // --- Sorting and filtering
    void lvEmailListColumnClick(int column);
    int lvEmailListCompare(const TListItem& item1, const TListItem& item2) const;
    void LMDcbFilterTypeChange();
    void LMDcbFilterTextChange() {}
    void FillFilterTexts();

    // Controls, named as the window names them.
    TListView lvEmailList{this, "lvEmailList"};
    TPanelButton LMDpfInbox{this, "LMDpfInbox"};
    TPanelButton LMDpfSubMailboxes{this, "LMDpfSubMailboxes"};
    TPanelButton LMDpfRules{this, "LMDpfRules"};
    TPanelButton LMDpfRunMail{this, "LMDpfRunMail"};
    TPanelButton LMDpfSubEmailers{this, "LMDpfSubEmailers"};
    TPanelButton LMDpfSend{this, "LMDpfSend"};
    TPanelButton LMDpfDelete{this, "LMDpfDelete"};
    TPanelButton LMDpfSubDelete{this, "LMDpfSubDelete"};
    TPanelButton LMDpfHelp{this, "LMDpfHelp"};
    TPanelButton LMDpfClose{this, "LMDpfClose"};
    TPanelButton LMDpfRefresh{this, "LMDpfRefresh"};
    TPanelButton LMDpfSearch{this, "LMDpfSearch"};
    TComboBox LMDcbFilterType{this, "LMDcbFilterType"};
    TComboBox LMDcbFilterText{this, "LMDcbFilterText"};
    TPanel LMDpfStatusBar{this, "LMDpfStatusBar"};
    TPanel LMDpfDate{this, "LMDpfDate"};
    TPanel LMDpfHtml{this, "LMDpfHtml"};
    TPopupMenu pmMailBoxes{this, "pmMailBoxes"};
    TPopupMenu pmRules{this, "pmRules"};
    TPopupMenu pmEmailers{this, "pmEmailers"};
    TPopupMenu pmDelete{this, "pmDelete"};

    // Fields
    AnsiString MailboxFolder;
    AnsiString MailboxName;
    AnsiString SenderLine;
    // Where LoadStartMailbox reads the hand-off file; empty: beside the
    // program, named after it. A scripted session gives its own.
    AnsiString HandOffPath;
    TStringList MessageFiles;
    TStringList Mailboxes;
    TStringList FromFilterTexts;
    TStringList SubjectFilterTexts;
    TStringList DateFilterTexts;

    TMenuItem* pmsRejected = nullptr;
    TMenuItem* pmsDeleteAllBut = nullptr;
    TMenuItem* pmsDeleteSelBut = nullptr;

private:
    void SetUpControls();
    void SetUpList();
    void SetUpMenus();
    void ScanAndSortByArrival();
    void SetRunMailWidths();
    // Reads one file into a row, or into nothing when it has no lines or
    // fails the filter.
    void ScanMessage(const AnsiString& name, int filterType);
    void CollectFilterTexts(std::string_view from, std::string_view subject,
                            const AnsiString& date);

    // The objects the window owns, reached by the rest of the program
    // through their global pointers.
    std::unique_ptr<TGlobals> ownedGlobals;
    std::unique_ptr<TUtils> ownedUtils;
    std::unique_ptr<TPButtons> ownedPButtons;

    // The file being scanned; kept between files for its buffer.
    TMessageText message;
};
