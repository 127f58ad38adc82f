#include "gui/HotKeys.h"

#include <QLabel>

#include "gui/PanelButtonWidget.h"
#include "gui/QtText.h"

namespace {

// The letter after a single "&" ("&&" is a plain ampersand), or a null QChar.
QChar MarkedLetter(const QString& caption) {
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] == '&') {
            ++i;
            continue;
        }
        return caption[i + 1].toUpper();
    }
    return {};
}

QChar FirstFreeLetter(const QString& caption, const QString& taken) {
    for (const QChar c : caption)
        if (c.isLetterOrNumber() && c != '&' && !taken.contains(c.toUpper())) return c.toUpper();
    return {};
}

} // namespace

std::vector<QChar> ChooseHotKeys(const QStringList& captions, QString taken) {
    std::vector<QChar> keys(static_cast<std::size_t>(captions.size()));
    // Marked letters first, so an unmarked caption never takes one of them.
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const QChar marked = MarkedLetter(captions[i]);
        if (marked.isNull() || taken.contains(marked)) continue;
        keys[static_cast<std::size_t>(i)] = marked;
        taken += marked;
    }
    for (qsizetype i = 0; i < captions.size(); ++i) {
        QChar& key = keys[static_cast<std::size_t>(i)];
        if (!key.isNull()) continue;
        key = FirstFreeLetter(captions[i], taken);
        if (!key.isNull()) taken += key;
    }
    return keys;
}

THotKeys::THotKeys(QWidget& window) : QObject(&window), window(window) {}

void THotKeys::Install(QWidget& window) {
    auto* keys = new THotKeys(window); // owned by window as its child
    for (TPanelButtonWidget* button : window.findChildren<TPanelButtonWidget*>())
        connect(button, &TPanelButtonWidget::captionChanged, keys, &THotKeys::Assign);
    keys->Assign();
}

void THotKeys::Assign() {
    QString taken;
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (const QChar marked = MarkedLetter(label->text()); !marked.isNull()) taken += marked;
    // Buttons in Tab order, so the earlier button keeps its first letter.
    std::vector<TPanelButtonWidget*> buttons;
    QStringList captions;
    for (QWidget* w = window.nextInFocusChain(); w && w != &window; w = w->nextInFocusChain()) {
        auto* button = qobject_cast<TPanelButtonWidget*>(w);
        if (!button || !window.isAncestorOf(button) || button->IsMenuButton()) continue;
        buttons.push_back(button);
        captions << ToQString(button->Model().Caption());
    }
    const std::vector<QChar> keys = ChooseHotKeys(captions, taken);
    for (std::size_t i = 0; i < buttons.size(); ++i)
        buttons[i]->SetHotKey(keys[i]);
}
