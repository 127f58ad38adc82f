#pragma once
// How the first scan feels on the screen, measured from inside the program
// for the benchmark: when its first rows reach the list's model and the
// screen, when the whole sorted list is there, and the longest time the
// window's thread went without handling its events, from the window's first
// showing on. A timer ticks every 5 ms; a tick that comes late is a gap in
// which the window was frozen.
// The figures go to standard error once the window's activation is done,
// and the program ends.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QAbstractItemView;
class TInboxWindow;

class TScanTimings : public QObject {
    Q_OBJECT
public:
    // Starts the clock: construct it right before the window is shown.
    TScanTimings(TInboxWindow& window, QAbstractItemView& list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Tick();
    void Report();

    QAbstractItemView& list;
    QElapsedTimer clock;
    QTimer ticker;
    qint64 lastTick = -1;
    qint64 longestGap = 0;
    qint64 longestGapEnd = 0;
    qint64 firstInModel = -1;
    qint64 firstPainted = -1;
    qint64 whole = -1;
};
