#include "gui/MemoBinding.h"

#include <QPlainTextEdit>

#include "gui/QtText.h"

namespace {

// The lines as the editor holds them: joined by LF, no line end after the last.
QString EditorText(const TStringList& lines) {
    QStringList texts;
    for (const AnsiString& line : lines)
        texts << ToQString(line);
    return texts.join(QLatin1Char('\n'));
}

} // namespace

TMemoBinding::TMemoBinding(TMemo& memo, QPlainTextEdit& widget)
    : TModelBinding(memo, widget), memo(memo), editor(widget) {
    connect(&widget, &QPlainTextEdit::textChanged, this, [this] {
        // While a person types, the editor is ahead of the lines (an Enter at
        // the end is no line yet): it is not set back from the model.
        typing = true;
        FromPerson([this] { this->memo.UserType(FromQString(editor.toPlainText()).view()); });
        typing = false;
    });
    Start();
}

void TMemoBinding::ShowModel() {
    if (typing) return;
    const QString text = EditorText(memo.Lines());
    if (editor.toPlainText() != text) editor.setPlainText(text);
}
