#pragma once
// Dialogs answered from a queue instead of by a person: what tests and
// scripted sessions use. Every dialog is written to the transcript; one with
// no queued answer gets Cancel (No, or OK where OK is all it has), a menu
// closes with no choice, a folder or file choice is cancelled.

#include <deque>
#include <functional>
#include <vector>

#include "platform/Dialogs.h"

class TScriptedDialogs : public TDialogs {
public:
    // A button caption ("OK", "Cancel", "Yes", "No"), a menu entry's caption
    // or "none", a path or "cancel".
    void QueueAnswer(const AnsiString& answer) { answers.push_back(answer); }
    bool HasQueuedAnswers() const { return !answers.empty(); }
    // How many queued answers dialogs have taken so far.
    std::size_t AnswersTaken() const { return taken; }
    // Takes the n oldest queued answers away unused, and returns them.
    std::vector<AnsiString> DropOldest(std::size_t n);

    // One line per dialog, in the order they were shown.
    const std::vector<AnsiString>& Transcript() const { return transcript; }
    void ClearTranscript() { transcript.clear(); }
    // Called for each dialog: its kind ("message", "show", "menu", "folder",
    // "file", "help"), title, text, and the answer it got.
    std::function<void(const char* kind, const AnsiString& title, const AnsiString& text,
                       const AnsiString& answer)>
        OnDialog;

    int MessageBox(const AnsiString& text, const AnsiString& caption, int style) override;
    void ShowMessage(const AnsiString& text) override;
    TMenuItem* PopupMenu(TPopupMenu& menu, TPoint screen) override;
    void ShowHelpPopup(const AnsiString& text, TPoint screen) override;
    AnsiString BrowseForFolder(const AnsiString& title, const AnsiString& start) override;
    AnsiString OpenFile(const AnsiString& title, const AnsiString& start,
                        const AnsiString& filter) override;
    void ShowException(const AnsiString& message) override;

private:
    AnsiString NextAnswer();
    void Report(const char* kind, const AnsiString& title, const AnsiString& text,
                const AnsiString& answer, const AnsiString& line);

    std::deque<AnsiString> answers;
    std::size_t taken = 0;
    std::vector<AnsiString> transcript;
};
