#pragma once
// Draws list cells as usual and shows a cell's whole text in a tooltip when
// the column is too narrow for it, or when the row has more to say about
// the cell than it shows (its tooltip text differs from its text).

#include <QStyledItemDelegate>

class TCellToolTipDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // True if the cell's text, drawn in option's rectangle, is cut short.
    static bool Elided(const QStyleOptionViewItem& option, const QString& text);

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};
