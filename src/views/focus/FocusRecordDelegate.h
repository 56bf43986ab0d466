#pragma once

#include <QAbstractItemDelegate>

/// Draws a row of a focus record: the dot of its list, the title, and when it was.
class FocusRecordDelegate : public QAbstractItemDelegate {
    Q_OBJECT

public:
    enum Role { RecordRole = Qt::UserRole, ColorRole, NoteRole };
    using QAbstractItemDelegate::QAbstractItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
