#pragma once
// Binds a TListView to a QTreeView in report style: header clicks and double
// clicks go to the model's events, and the selection is kept the same on
// both sides.

#include <QObject>

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
    QTreeView& view;
    bool syncing = false;
};
