#pragma once
// Alt hot keys of a window's panel buttons. A caption's own "&" mark wins;
// a caption without one gets its first letter that no label or earlier
// button of the window holds, then any later letter of it that is free. The
// keys are chosen again whenever a caption changes (the Run Mail button takes
// the mail client's name), so they never clash.

#include <QObject>
#include <QString>
#include <QStringList>
#include <vector>

class QWidget;

// One letter (upper case) per caption, or a null QChar where none is free.
// taken: letters the window's labels already use.
std::vector<QChar> ChooseHotKeys(const QStringList& captions, QString taken);

class THotKeys : public QObject {
    Q_OBJECT
public:
    // Gives every panel button of window its key; lives as long as window.
    static void Install(QWidget& window);

private:
    explicit THotKeys(QWidget& window);
    void Assign();

    QWidget& window;
};
