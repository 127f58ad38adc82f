#pragma once
// Binds a TMemo to a QPlainTextEdit: the memo's lines are the editor's lines.

#include "controls/Memo.h"
#include "gui/ModelBinding.h"

class QPlainTextEdit;

class TMemoBinding : public TModelBinding {
public:
    TMemoBinding(TMemo& memo, QPlainTextEdit& widget);

private:
    void ShowModel() override;

    TMemo& memo;
    QPlainTextEdit& editor;
    bool typing = false;
};
