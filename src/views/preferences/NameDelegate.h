#pragma once

#include <QStyledItemDelegate>

/// A row that is a name: rounded behind when selected or pointed at, with a ring when the keyboard is there.
class NameDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
