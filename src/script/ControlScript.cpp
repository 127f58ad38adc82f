#include "script/ControlScript.h"

#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/Edit.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Memo.h"
#include "controls/PageControl.h"
#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "controls/RadioGroup.h"
#include "controls/SpeedButton.h"
#include "controls/SpinEdit.h"
#include "script/FieldEscape.h"

namespace {

using TResult = std::optional<std::string>;

bool ParseIndex(const std::string& text, int& value) {
    if (text.empty() || text.size() > 9 ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    value = std::stoi(text);
    return true;
}

TResult NotTaken(const std::vector<std::string>& words) {
    return "'" + words[1] + "' does not take '" + words[0] + "' with these arguments";
}

TResult OnListView(TListView& list, const std::vector<std::string>& words) {
    const std::string& command = words[0];
    int index = 0;
    if (command == "select" && words.size() >= 3) {
        list.BeginUpdate();
        list.ClearSelection();
        for (std::size_t i = 2; i < words.size(); ++i) {
            if (words[i] == "none" && words.size() == 3) break;
            if (!ParseIndex(words[i], index) || index >= list.Count()) {
                list.EndUpdate();
                return "no row " + words[i] + " in '" + words[1] + "'";
            }
            list.SetSelected(index, true);
        }
        list.EndUpdate();
        return std::nullopt;
    }
    if (command == "dblclick" && words.size() <= 3) {
        if (words.size() == 3) {
            if (!ParseIndex(words[2], index) || index >= list.Count())
                return "no row " + words[2] + " in '" + words[1] + "'";
            list.ClearSelection();
            list.SetSelected(index, true);
        }
        list.DblClick();
        return std::nullopt;
    }
    if (command == "column" && words.size() == 3) {
        if (!ParseIndex(words[2], index) || index >= static_cast<int>(list.Columns.size()))
            return "no column " + words[2] + " in '" + words[1] + "'";
        list.ColumnClick(index);
        return std::nullopt;
    }
    return NotTaken(words);
}

TResult OnComboBox(TComboBox& combo, const std::vector<std::string>& words) {
    if (words[0] == "type" && words.size() == 3) {
        if (combo.Style == TComboStyle::csDropDownList) return "'" + words[1] + "' takes no typing";
        combo.UserType(AnsiString(words[2]));
        return std::nullopt;
    }
    int index = 0;
    if (words[0] == "pick" && words.size() == 3) {
        if (!ParseIndex(words[2], index) || index >= combo.Items().Count())
            return "no item " + words[2] + " in '" + words[1] + "'";
        combo.UserPick(index);
        return std::nullopt;
    }
    return NotTaken(words);
}

// A choice by index among count: radio groups and page controls.
template <typename Control>
TResult OnPickIndex(Control& control, int count, const std::vector<std::string>& words) {
    int index = 0;
    if (words[0] != "pick" || words.size() != 3) return NotTaken(words);
    if (!ParseIndex(words[2], index) || index >= count)
        return "no item " + words[2] + " in '" + words[1] + "'";
    control.UserPick(index);
    return std::nullopt;
}

// A typed text: edits, memos and spin edits.
template <typename Control>
TResult OnTyping(Control& control, const std::vector<std::string>& words) {
    if (words[0] != "type" || words.size() != 3) return NotTaken(words);
    control.UserType(AnsiString(words[2]));
    return std::nullopt;
}

// A plain click: panel buttons, speed buttons, check boxes.
template <typename Control>
TResult OnClick(Control& control, const std::vector<std::string>& words, void (Control::*click)()) {
    if (words[0] != "click" || words.size() != 2) return NotTaken(words);
    (control.*click)();
    return std::nullopt;
}

TResult OnKnownControl(TControl& control, const std::vector<std::string>& words) {
    if (auto* list = dynamic_cast<TListView*>(&control)) return OnListView(*list, words);
    if (auto* combo = dynamic_cast<TComboBox*>(&control)) return OnComboBox(*combo, words);
    if (auto* button = dynamic_cast<TPanelButton*>(&control))
        return OnClick(*button, words, &TPanelButton::Click);
    if (auto* speed = dynamic_cast<TSpeedButton*>(&control))
        return OnClick(*speed, words, &TSpeedButton::Click);
    if (auto* box = dynamic_cast<TCheckBox*>(&control))
        return OnClick(*box, words, &TCheckBox::UserClick);
    if (auto* group = dynamic_cast<TRadioGroup*>(&control))
        return OnPickIndex(*group, group->Items().Count(), words);
    if (auto* pages = dynamic_cast<TPageControl*>(&control))
        return OnPickIndex(*pages, pages->PageCount(), words);
    if (auto* edit = dynamic_cast<TEdit*>(&control)) return OnTyping(*edit, words);
    if (auto* spin = dynamic_cast<TSpinEdit*>(&control)) return OnTyping(*spin, words);
    if (auto* menu = dynamic_cast<TPopupMenu*>(&control)) {
        if (words[0] != "click" || words.size() != 2) return NotTaken(words);
        menu->Popup({});
        return std::nullopt;
    }
    if (auto* memo = dynamic_cast<TMemo*>(&control)) {
        if (words[0] != "type" || words.size() != 3) return NotTaken(words);
        memo->UserType(words[2]);
        return std::nullopt;
    }
    return NotTaken(words);
}

const char* CursorName(TCursor cursor) {
    switch (cursor) {
    case crHourGlass:
        return "crHourGlass";
    case crNo:
        return "crNo";
    case crHandPoint:
        return "crHandPoint";
    default:
        return "crDefault";
    }
}

const char* BevelName(TBevelCut bevel) {
    return bevel == bvRaised ? "bvRaised" : bevel == bvLowered ? "bvLowered" : "bvNone";
}

std::string Line(const std::string& property, std::string_view value) {
    return property + "=" + Escaped(value);
}

std::string Flag(const char* property, bool value) {
    return std::string(property) + (value ? "=true" : "=false");
}

void ShowListView(const TListView& list, std::vector<std::string>& lines) {
    lines.push_back("Count=" + std::to_string(list.Count()));
    std::string selected;
    for (int i = 0; i < list.Count(); ++i) {
        const TListItem& row = list.Item(i);
        std::string fields = Escaped(row.Caption.view());
        for (const AnsiString& field : row.SubItems)
            fields += "\t" + Escaped(field.view());
        lines.push_back("Items[" + std::to_string(i) + "]=" + fields);
        if (row.Selected) selected += (selected.empty() ? "" : ",") + std::to_string(i);
    }
    lines.push_back("Selected=" + selected);
}

void ShowComboBox(const TComboBox& combo, std::vector<std::string>& lines) {
    lines.push_back("ItemIndex=" + std::to_string(combo.ItemIndex()));
    for (int i = 0; i < combo.Items().Count(); ++i)
        lines.push_back(Line("Items[" + std::to_string(i) + "]", combo.Items()[i].view()));
}

} // namespace

bool IsWindowCommand(const std::string& command) {
    for (const char* known : {"click", "dblclick", "select", "column", "type", "pick", "help"})
        if (command == known) return true;
    return false;
}

TControl* FindControl(const std::string& path) {
    const auto dot = path.find('.');
    if (dot == std::string::npos) return nullptr;
    TForm* form = TForm::FindForm(path.substr(0, dot));
    return form ? form->FindComponent(path.substr(dot + 1)) : nullptr;
}

std::optional<std::string> ControlCommand(TControl& control,
                                          const std::vector<std::string>& words) {
    // A person who acts on a control gives it the input focus first; a popup
    // menu opens on the control that has it.
    if (words[0] != "help" && control.Owner() && !dynamic_cast<TPopupMenu*>(&control))
        control.Owner()->SetActiveControl(&control);
    return OnKnownControl(control, words);
}

namespace {

// What a control holds beyond the common properties, by its kind.
void ShowKindState(TControl& control, std::vector<std::string>& lines) {
    if (auto* list = dynamic_cast<TListView*>(&control)) ShowListView(*list, lines);
    if (auto* combo = dynamic_cast<TComboBox*>(&control)) ShowComboBox(*combo, lines);
    if (auto* button = dynamic_cast<TPanelButton*>(&control)) {
        lines.push_back(std::string("BevelInner=") + BevelName(button->BevelInner()));
        lines.push_back(std::string("BevelOuter=") + BevelName(button->BevelOuter()));
    }
    if (auto* menu = dynamic_cast<TPopupMenu*>(&control))
        for (int i = 0; i < menu->Items.GetCount(); ++i)
            lines.push_back(
                Line("Items[" + std::to_string(i) + "]", menu->Items.Items(i).Caption.view()));
    if (auto* box = dynamic_cast<TCheckBox*>(&control))
        lines.push_back(Flag("Checked", box->Checked()));
    if (auto* group = dynamic_cast<TRadioGroup*>(&control)) {
        lines.push_back("ItemIndex=" + std::to_string(group->ItemIndex()));
        for (int i = 0; i < group->Items().Count(); ++i)
            lines.push_back(Line("Items[" + std::to_string(i) + "]", group->Items()[i].view()));
    }
    if (auto* spin = dynamic_cast<TSpinEdit*>(&control))
        lines.push_back("Value=" + std::to_string(spin->Value()));
    if (auto* memo = dynamic_cast<TMemo*>(&control)) {
        lines.push_back("Count=" + std::to_string(memo->Lines().Count()));
        for (int i = 0; i < memo->Lines().Count(); ++i)
            lines.push_back(Line("Lines[" + std::to_string(i) + "]", memo->Lines()[i].view()));
    }
    if (auto* pages = dynamic_cast<TPageControl*>(&control)) {
        lines.push_back("ActivePage=" + std::to_string(pages->ActivePageIndex()));
        for (int i = 0; i < pages->PageCount(); ++i)
            lines.push_back(
                Line("Pages[" + std::to_string(i) + "]", pages->Page(i).Caption().view()));
    }
}

} // namespace

std::vector<std::string> ShowControl(TControl& control) {
    std::vector<std::string> lines;
    const bool hasText = dynamic_cast<TComboBox*>(&control) || dynamic_cast<TEdit*>(&control) ||
                         dynamic_cast<TSpinEdit*>(&control);
    if (hasText)
        lines.push_back(Line("Text", control.Caption().view()));
    else if (!dynamic_cast<TListView*>(&control) && !dynamic_cast<TPopupMenu*>(&control) &&
             !dynamic_cast<TMemo*>(&control))
        lines.push_back(Line("Caption", control.Caption().view()));
    lines.push_back(Flag("Enabled", control.Enabled()));
    lines.push_back(Flag("Visible", control.Visible()));
    lines.push_back(std::string("Cursor=") + CursorName(control.Cursor()));
    if (!control.Hint().IsEmpty()) lines.push_back(Line("Hint", control.Hint().view()));
    ShowKindState(control, lines);
    return lines;
}
