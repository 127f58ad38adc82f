#include "platform/ScriptedDialogs.h"

#include "controls/PopupMenu.h"

namespace {

int AnswerFor(const AnsiString& answer, int style) {
    const AnsiString upper = answer.UpperCase();
    if (upper == "OK") return idOK;
    if (upper == "YES") return idYes;
    if (upper == "NO") return idNo;
    if (upper == "CANCEL") return idCancel;
    // No usable answer: the box is closed the way its Escape key closes it.
    return style == mbOK ? idOK : style == mbYesNo ? idNo : idCancel;
}

const char* AnswerName(int answer) {
    switch (answer) {
    case idOK:
        return "OK";
    case idYes:
        return "Yes";
    case idNo:
        return "No";
    default:
        return "Cancel";
    }
}

} // namespace

AnsiString TScriptedDialogs::NextAnswer() {
    if (answers.empty()) return "";
    AnsiString answer = answers.front();
    answers.pop_front();
    ++taken;
    return answer;
}

std::vector<AnsiString> TScriptedDialogs::DropOldest(std::size_t n) {
    std::vector<AnsiString> dropped;
    for (; n > 0 && !answers.empty(); --n) {
        dropped.push_back(answers.front());
        answers.pop_front();
    }
    return dropped;
}

void TScriptedDialogs::Report(const char* kind, const AnsiString& title, const AnsiString& text,
                              const AnsiString& answer, const AnsiString& line) {
    transcript.push_back(line);
    if (OnDialog) OnDialog(kind, title, text, answer);
}

int TScriptedDialogs::MessageBox(const AnsiString& text, const AnsiString& caption, int style) {
    const int answer = AnswerFor(NextAnswer(), style);
    Report("message", caption, text, AnswerName(answer),
           "message box \"" + caption + "\": " + text + " -> " + AnswerName(answer));
    return answer;
}

void TScriptedDialogs::ShowMessage(const AnsiString& text) {
    NextAnswer();
    Report("show", "", text, "OK", "message: " + text);
}

TMenuItem* TScriptedDialogs::PopupMenu(TPopupMenu& menu, TPoint) {
    const AnsiString answer = NextAnswer();
    TMenuItem* chosen =
        answer.IsEmpty() || answer.LowerCase() == "none" ? nullptr : menu.Items.Find(answer);
    if (chosen && (!chosen->Enabled || chosen->Caption == "-")) chosen = nullptr;
    AnsiString entries;
    for (int i = 0; i < menu.Items.GetCount(); ++i)
        entries += (i ? ", " : "") + menu.Items.Items(i).Caption;
    const AnsiString answered = chosen ? chosen->Caption : AnsiString("none");
    Report("menu", AnsiString(menu.Name()), entries, answered,
           "menu " + AnsiString(menu.Name()) + " [" + entries + "] -> " + answered);
    return chosen;
}

void TScriptedDialogs::ShowHelpPopup(const AnsiString& text, TPoint) {
    Report("help", "", text, "", "help: " + text);
}

AnsiString TScriptedDialogs::BrowseForFolder(const AnsiString& title, const AnsiString&) {
    AnsiString answer = NextAnswer();
    if (answer.LowerCase() == "cancel") answer = "";
    const AnsiString answered = answer.IsEmpty() ? AnsiString("cancel") : answer;
    Report("folder", title, "", answered, "folder choice \"" + title + "\" -> " + answered);
    return answer;
}

AnsiString TScriptedDialogs::OpenFile(const AnsiString& title, const AnsiString&,
                                      const AnsiString&) {
    AnsiString answer = NextAnswer();
    if (answer.LowerCase() == "cancel") answer = "";
    const AnsiString answered = answer.IsEmpty() ? AnsiString("cancel") : answer;
    Report("file", title, "", answered, "file choice \"" + title + "\" -> " + answered);
    return answer;
}

void TScriptedDialogs::ShowException(const AnsiString& message) {
    Report("message", "Exception", message, "OK", "exception: " + message);
}
