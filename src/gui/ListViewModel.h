#pragma once
// A list view model shown by Qt: rows and columns come from the TListView,
// and one reset follows each notice of new rows (one per EndUpdate), so a
// scan of 100,000 messages costs one reset, not one per row. Rows a scan
// shows before its end come in as insertions at the end.

#include <QAbstractTableModel>

#include "controls/ListView.h"

class TListViewModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TListViewModel(TListView& list, QObject* parent = nullptr);
    ~TListViewModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    TListView& List() { return list; }

signals:
    // The list's selection changed in the model, not by the view.
    void selectionChangedInModel();

private:
    TListView& list;
    int subscription = 0;
    int shownRows = 0; // the rows the view has been told of
};
