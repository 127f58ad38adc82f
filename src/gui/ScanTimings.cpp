#include "gui/ScanTimings.h"

#include <QAbstractItemView>
#include <QEvent>
#include <cstdio>

#include "gui/InboxWindow.h"
#include "platform/Application.h"

TScanTimings::TScanTimings(TInboxWindow& window, QAbstractItemView& list) : list(list) {
    clock.start();
    ticker.setInterval(5);
    ticker.setTimerType(Qt::PreciseTimer);
    connect(&ticker, &QTimer::timeout, this, [this] { Tick(); });
    ticker.start();
    list.viewport()->installEventFilter(this);
    window.installEventFilter(this);
    QAbstractItemModel* model = list.model();
    const auto noteRows = [this, model] {
        if (firstInModel < 0 && model->rowCount() > 0) firstInModel = clock.elapsed();
    };
    connect(model, &QAbstractItemModel::rowsInserted, this, noteRows);
    connect(model, &QAbstractItemModel::modelReset, this, noteRows);
    // The whole list is there once it has been painted after the activation.
    connect(&window, &TInboxWindow::activated, this, [this] {
        this->list.viewport()->repaint();
        whole = clock.elapsed();
        Report();
    });
}

void TScanTimings::Tick() {
    const qint64 now = clock.elapsed();
    if (lastTick >= 0 && now - lastTick > longestGap) {
        longestGap = now - lastTick;
        longestGapEnd = now;
    }
    lastTick = now;
}

bool TScanTimings::eventFilter(QObject* watched, QEvent* event) {
    // Gaps count from the window's first showing on, the activation's included.
    if (event->type() == QEvent::Show && lastTick < 0) lastTick = clock.elapsed();
    if (event->type() == QEvent::Paint && firstPainted < 0 && list.model()->rowCount() > 0)
        firstPainted = clock.elapsed();
    return QObject::eventFilter(watched, event);
}

void TScanTimings::Report() {
    Tick();
    std::fprintf(stderr,
                 "rows: %d\nfirst rows in the model: %lld ms\nfirst rows painted: %lld ms\n"
                 "whole list (scan and sort): %lld ms\nlongest gap between events: %lld ms\n"
                 "longest gap ended at: %lld ms\n",
                 list.model()->rowCount(), firstInModel, firstPainted, whole, longestGap,
                 longestGapEnd);
    if (Application) Application->Terminate();
}
