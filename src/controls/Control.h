#pragma once
// The base of every control model: a name, the common properties, and the
// notices a binding listens to. A model knows nothing of any screen.

#include <functional>
#include <string>
#include <vector>

#include "controls/Cursor.h"
#include "foundation/AnsiString.h"

class TForm;

enum class TChange {
    Properties, // caption, text, enabled, visible, cursor, size, bevels
    Rows,       // the items of a list, combo box or menu
    RowsAdded,  // rows added behind those of the last notice, and nothing else
    RowsSoFar,  // within an update, the rows so far in place of those noticed
    Selection,  // which rows or item are selected
};

class TControl {
public:
    using Listener = std::function<void(TControl&, TChange)>;

    // A control with an owner registers under its name, so the form can find it.
    TControl(TForm* owner, std::string name);
    virtual ~TControl();
    TControl(const TControl&) = delete;
    TControl& operator=(const TControl&) = delete;

    const std::string& Name() const { return name; }
    TForm* Owner() const { return owner; }

    const AnsiString& Caption() const { return caption; }
    void SetCaption(const AnsiString& value);
    bool Enabled() const { return enabled; }
    void SetEnabled(bool value);
    bool Visible() const { return visible; }
    void SetVisible(bool value);
    TCursor Cursor() const { return cursor; }
    void SetCursor(TCursor value);
    int Width() const { return width; }
    void SetWidth(int value);
    int Height() const { return height; }
    void SetHeight(int value);
    int HelpContext() const { return helpContext; }
    void SetHelpContext(int value) { helpContext = value; }
    const AnsiString& HelpKeyword() const { return helpKeyword; }
    void SetHelpKeyword(const AnsiString& value) { helpKeyword = value; }
    const AnsiString& Hint() const { return hint; }
    void SetHint(const AnsiString& value);

    // The control this one stands in (a group box, a tab sheet); a person
    // cannot act on a control whose container is disabled.
    TControl* Parent() const { return parent; }
    void SetParent(TControl* value) { parent = value; }
    bool EnabledWithParents() const;

    // A point of the control in screen coordinates; the binding supplies the
    // mapping, and a control without one is taken to stand at the origin.
    TPoint ClientToScreen(TPoint client) const;
    std::function<TPoint(TPoint)> ScreenMapper;

    // Returns a token for Unsubscribe.
    int Subscribe(Listener listener);
    void Unsubscribe(int token);

protected:
    void Changed(TChange change);

private:
    TForm* owner;
    std::string name;
    AnsiString caption;
    bool enabled = true;
    bool visible = true;
    TCursor cursor = crDefault;
    int width = 0;
    int height = 0;
    int helpContext = 0;
    AnsiString helpKeyword;
    AnsiString hint;
    TControl* parent = nullptr;
    std::vector<std::pair<int, Listener>> listeners;
    int nextToken = 1;
};
