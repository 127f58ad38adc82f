#include "gui/ListViewBinding.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QShortcut>
#include <QTreeView>

#include "gui/ControlBinding.h"

TListViewBinding::TListViewBinding(TListView& list, QTreeView& view) : model(list), view(view) {
    view.setModel(&model);
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true); // what keeps 100,000 rows fast
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setAlternatingRowColors(true);
    view.setAllColumnsShowFocus(true);
    view.header()->setSectionsClickable(true);
    view.header()->setSortIndicatorShown(false);
    for (std::size_t i = 0; i < list.Columns.size(); ++i)
        view.setColumnWidth(static_cast<int>(i), list.Columns[i].Width);
    connect(view.header(), &QHeaderView::sectionClicked, this,
            [&list](int column) { Guarded([&] { list.ColumnClick(column); }); });
    connect(&view, &QTreeView::doubleClicked, this,
            [&list](const QModelIndex&) { Guarded([&] { list.DblClick(); }); });
    // Enter on a row is what a double click on it is.
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* enter = new QShortcut(QKeySequence(key), &view); // owned by the view
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, [&list] { Guarded([&] { list.DblClick(); }); });
    }
    view.setItemDelegate(&delegate);
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { ViewSelectionChanged(); });
    connect(&model, &TListViewModel::selectionChangedInModel, this,
            [this] { ModelSelectionChanged(); });
    BindCommonProperties(list, view);
}

void TListViewBinding::ViewSelectionChanged() {
    if (syncing) return;
    syncing = true;
    TListView& list = model.List();
    list.BeginUpdate();
    list.ClearSelection();
    for (const QModelIndex& row : view.selectionModel()->selectedRows())
        list.SetSelected(row.row(), true);
    list.EndUpdate();
    syncing = false;
}

void TListViewBinding::ModelSelectionChanged() {
    if (syncing) return;
    syncing = true;
    TListView& list = model.List();
    QItemSelection selection;
    for (int i = 0; i < list.Count(); ++i)
        if (list.Item(i).Selected)
            selection.select(model.index(i, 0), model.index(i, model.columnCount() - 1));
    view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    syncing = false;
}
