#pragma once
// TfrmMailSearch: the "Find Text" window. The user types a text, picks the
// options and a scope and presses Begin; the main window's search (reached
// through OnSearch) fills SearchHits, and each hit becomes a result row. A
// row leads to its message by the path in its File column only.

#include <cstdint>
#include <functional>

#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/PageControl.h"
#include "controls/Panel.h"
#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "controls/RadioGroup.h"
#include "foundation/StringList.h"
#include "search/HitRows.h"

class TfrmMailSearch : public TForm {
public:
    using TOnSearch = std::function<bool(AnsiString text, bool caseSensitive, bool wholeWord,
                                         unsigned short where)>;

    TfrmMailSearch();
    ~TfrmMailSearch() override;

    void OpenSearch();
    void FormCreate();
    void FormDestroy();
    void FormShow();
    void FormResize();
    void FormClose();
    void LMDpfBeginClick();
    void LMDpfClearClick();
    void LMDpfCloseClick();
    void LMDpfHelpClick();
    void LMDpfRunMailClick();
    void lvSrchResultDblClick() { LMDpfRunMailClick(); }
    void LMDpfSubEmailersClick();
    void pmEmailersPopup();
    void EmailerMenuClick(TMenuItem& sender);
    void RunMail(const AnsiString& client);
    void LMDpfDeleteClick();

    // Controls, named as the window names them.
    TPageControl PageControl1{this, "PageControl1"};
    TTabSheet tsSearch{this, "tsSearch"};
    TPanel LMDpfOptions{this, "LMDpfOptions"};
    TPanel LMDSimpleLabel1{this, "LMDSimpleLabel1"};
    TComboBox LMDcbSearchStr{this, "LMDcbSearchStr"};
    TPanel LMDgbOptions{this, "LMDgbOptions"};
    TCheckBox LMDcbxCaseSense{this, "LMDcbxCaseSense"};
    TCheckBox LMDcbxWholeWord{this, "LMDcbxWholeWord"};
    TRadioGroup LMDrgWhere{this, "LMDrgWhere"};
    TListView lvSrchResult{this, "lvSrchResult"};
    TPanel LMDpfButtonBar{this, "LMDpfButtonBar"};
    TPanelButton LMDpfBegin{this, "LMDpfBegin"};
    TPanelButton LMDpfClear{this, "LMDpfClear"};
    TPanelButton LMDpfRunMail{this, "LMDpfRunMail"};
    TPanelButton LMDpfSubEmailers{this, "LMDpfSubEmailers"};
    TPanelButton LMDpfDelete{this, "LMDpfDelete"};
    TPanel LMDpfFiller{this, "LMDpfFiller"};
    TPanelButton LMDpfHelp{this, "LMDpfHelp"};
    TPanelButton LMDpfClose{this, "LMDpfClose"};
    TPopupMenu pmEmailers{this, "pmEmailers"};

    // Fields
    TStringList SearchHits;
    TOnSearch OnSearch;
    // Where the two option boxes stand on their panel; FormResize moves them.
    int gbOptionsLeft = 8;
    int rgWhereLeft = 0;

    static constexpr int firstWidth = 541, firstHeight = 398;
    static constexpr int minWidth = 446, minHeight = 275;

private:
    void SetUpControls();
    void FillRows();
    // Adds the rows of the hits [first, last), which all name one file.
    void AddFileRows(int first, int last, const AnsiString& path);

    THitRows hitRows;
    // Counts the searches and clears; a fill of rows that sees it change
    // while the message loop runs stops, so the list holds one search's rows.
    std::uint64_t generation = 0;
};

extern TfrmMailSearch* frmMailSearch;

// Points frmMailSearch at a window for as long as this object lives.
class TMailSearchGlobal {
public:
    explicit TMailSearchGlobal(TfrmMailSearch& window) { frmMailSearch = &window; }
    ~TMailSearchGlobal() { frmMailSearch = nullptr; }
    TMailSearchGlobal(const TMailSearchGlobal&) = delete;
    TMailSearchGlobal& operator=(const TMailSearchGlobal&) = delete;
};
