#pragma once

#include "views/theme/Metrics.h"

#include <QAbstractItemDelegate>

/// Draws a row of a focus record: the dot of its list, the title, and when it was.
class FocusRecordDelegate : public QAbstractItemDelegate {
    Q_OBJECT

public:
    /// What stands in a row begins and ends so far inside it.
    static constexpr int inset = 2 * Metrics::grid;
    enum Role { RecordRole = Qt::UserRole, ColorRole, NoteRole };
    using QAbstractItemDelegate::QAbstractItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
