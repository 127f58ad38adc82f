#pragma once
// TInboxFrm: the main window. It lists one mailbox folder in lvEmailList,
// sorts and filters the rows, and starts every command on them. Everything
// here runs against control models; the screen binds to them from outside.

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/ComboBox.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Panel.h"
#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "foundation/FileDescriptor.h"
#include "foundation/StringList.h"
#include "inbox/MessageReader.h"
#include "inbox/PendingLines.h"

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

    // --- Forwarding the selected message
    void LMDpfSendClick();
    // --- The text search
    bool SearchMessages(AnsiString text, bool caseSensitive, bool wholeWord, unsigned short where);
    // The file paths of a search scope, in search order; false if none was gathered.
    bool GatherSearchPaths(unsigned short where, std::vector<std::string>& paths) const;
    // What SearchMessages adds to the search window's hits, into any list.
    void AppendSearchHits(AnsiString text, bool caseSensitive, bool wholeWord, unsigned short where,
                          TStringList& hits) const;
    // The same hits, one line at a time, to any receiver.
    void EmitSearchHits(AnsiString text, bool caseSensitive, bool wholeWord, unsigned short where,
                        const std::function<void(std::string_view)>& emit) const;
    void LMDpfSearchClick();
    // --- Rules for the selected message
    void LMDpfRulesClick();
    void pmsAddtoMasterPriorityListClick() { AddRuleForSelected(false, true); }
    void pmsAddtoMailBoxPriorityListClick() { AddRuleForSelected(false, false); }
    void pmsAddtoMasterRejectionListClick() { AddRuleForSelected(true, true); }
    void pmsAddtoMailBoxRejectionListClick() { AddRuleForSelected(true, false); }

    // --- Sorting and filtering
    void lvEmailListColumnClick(int column);
    int lvEmailListCompare(const TListItem& item1, const TListItem& item2) const;
    // The order lvEmailListCompare gives, as the order of one text per row.
    TTextOrder lvEmailListTextOrder() const;
    void LMDcbFilterTypeChange();
    void LMDcbFilterTextChange() {}
    void FillFilterTexts();
    // The order the rows are in, for the screen to show: the column, or -1
    // before the first sort, and whether it runs from small to large.
    int SortedColumn() const;
    bool SortedAscending() const;

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

    // How many threads read files ahead of the scan; 0: one per core.
    int ScanWorkers = 0;
    // Called at each file of a scan with the files done and the files listed.
    std::function<void(int done, int total)> OnScanProgress;

    TMenuItem* pmsRejected = nullptr;
    TMenuItem* pmsDeleteAllBut = nullptr;
    TMenuItem* pmsDeleteSelBut = nullptr;

private:
    void SetUpControls();
    void SetUpRulesMenu();
    void AddRuleForSelected(bool reject, bool master);
    void SetUpList();
    void SetUpMenus();
    void ScanAndSortByArrival();
    void SetRunMailWidths();
    // Reads one file into a row, or into nothing when it has no lines or
    // fails the filter.
    void ScanMessage(int index, const TScannedMessage& message, int filterType);
    // names as the listing gave them, each behind namePrefix bytes of path.
    void ReadListedFiles(unsigned generation, std::vector<std::string>& names, int namePrefix,
                         int filterType);
    void ReadFilesOfNewerScan(int index, int filterType);
    // Reads a file here, into scanned.
    const TScannedMessage& ReadFile(const AnsiString& path);
    void ShowScannedRows(std::chrono::steady_clock::time_point& shown);
    void CollectFilterTexts(std::string_view from, std::string_view subject, std::string_view date);
    void FlushFilterTexts();
    void OpenListedFolder(const AnsiString& mask);
    // Removes a file of the last scan from the folder the scan listed, and
    // only while its entry still is the file that was read.
    bool DeleteListedFile(const AnsiString& name);

    // The objects the window owns, reached by the rest of the program
    // through their global pointers.
    std::unique_ptr<TGlobals> ownedGlobals;
    std::unique_ptr<TUtils> ownedUtils;
    std::unique_ptr<TPButtons> ownedPButtons;

    // What a scan adds to the filter lists, added a batch at a time.
    TPendingLines pendingFromTexts{FromFilterTexts};
    TPendingLines pendingSubjectTexts{SubjectFilterTexts};
    TPendingLines pendingDateTexts{DateFilterTexts};
    // Reads a file on the window's thread when no worker can; kept for its buffer.
    TMessageReader reader;
    TScannedMessage scanned;
    // The folder of the last scan, held open, and what each listed name was.
    struct TFileId {
        dev_t device;
        ino_t inode;
    };
    TFileDescriptor listedFolder;
    // By the index of the name in MessageFiles; a zero inode: no row was read.
    std::vector<TFileId> listedFiles;
    // Indexes of MessageFiles in name order, made at the first deletion.
    std::vector<std::uint32_t> listedByName;
    unsigned scanGeneration = 0;
};
