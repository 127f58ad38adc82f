#include "gui/CellToolTipDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

bool TCellToolTipDelegate::Elided(const QStyleOptionViewItem& option, const QString& text) {
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    // The room the style leaves for the text inside the cell.
    const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    return option.fontMetrics.horizontalAdvance(text) > room.width() - 2 * margin;
}

bool TCellToolTipDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                     const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (!event || !view || event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    const QString tip = index.data(Qt::ToolTipRole).toString();
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (tip.isEmpty() || (tip == text && !Elided(cell, text))) {
        QToolTip::hideText();
        event->ignore();
        return true;
    }
    QToolTip::showText(event->globalPos(), tip, view, view->visualRect(index));
    return true;
}
