#pragma once

#include <QStyledItemDelegate>

/// Paints the rows of a small frame that offers choices: the dot of a colour where there is one, the title,
/// and a tick on what holds already. The title is the display role.
class ChoiceDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    enum Role {
        ColorRole = Qt::UserRole + 100, ///< "#rrggbb"; an empty one is a neutral dot, none is no dot
        CheckedRole,
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
