#include "gui/ListViewModel.h"

#include "gui/QtText.h"

TListViewModel::TListViewModel(TListView& list, QObject* parent)
    : QAbstractTableModel(parent), list(list), shownRows(list.Count()) {
    subscription = list.Subscribe([this](TControl&, TChange change) {
        if (change == TChange::Rows || change == TChange::RowsSoFar) {
            beginResetModel();
            shownRows = this->list.Count();
            endResetModel();
            emit selectionChangedInModel();
        } else if (change == TChange::RowsAdded) {
            // Only new rows at the end: the view keeps its place and its selection.
            if (this->list.Count() <= shownRows) return;
            beginInsertRows({}, shownRows, this->list.Count() - 1);
            shownRows = this->list.Count();
            endInsertRows();
        } else if (change == TChange::Selection) {
            emit selectionChangedInModel();
        }
    });
}

TListViewModel::~TListViewModel() {
    list.Unsubscribe(subscription);
}

int TListViewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows;
}

int TListViewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list.Columns.size());
}

QVariant TListViewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= list.Count()) return {};
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const TListItem& row = list.Item(index.row());
    const auto sub = static_cast<std::size_t>(index.column() - 1);
    const QString text = index.column() == 0         ? ToQString(row.Caption)
                         : sub < row.SubItems.size() ? ToQString(row.SubItems.View(sub))
                                                     : QString();
    if (role == Qt::ToolTipRole && index.column() == list.HintColumn && !row.Hint.IsEmpty())
        return text + '\n' + ToQString(row.Hint);
    return text;
}

QVariant TListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 ||
        section >= static_cast<int>(list.Columns.size()))
        return {};
    if (role == Qt::DisplayRole)
        return ToQString(list.Columns[static_cast<std::size_t>(section)].Caption);
    return {};
}
