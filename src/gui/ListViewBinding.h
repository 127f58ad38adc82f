#pragma once
// Binds a TListView to a QTreeView in report style: header clicks and double
// clicks go to the model's events, and the selection is kept the same on
// both sides. Enter on a row is a double click; a cell too narrow for its
// text shows it whole in a tooltip.

#include <QObject>

#include "gui/CellToolTipDelegate.h"
#include "gui/ListViewModel.h"

class QTreeView;
class QItemSelection;

class TListViewBinding : public QObject {
    Q_OBJECT
public:
    TListViewBinding(TListView& list, QTreeView& view);

private:
    void ViewSelectionChanged();
    void ModelSelectionChanged();

    TListViewModel model;
    TCellToolTipDelegate delegate;
    QTreeView& view;
    bool syncing = false;
};
