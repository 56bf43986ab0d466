#pragma once

#include <QStyledItemDelegate>

class FoundRowsModel;

/// Paints what was found, the places that fit marked.
class FoundRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    FoundRowDelegate(const FoundRowsModel &model, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /// Where a click in a row is meant for its checkbox.
    static QRect markArea(const QRect &row, Qt::LayoutDirection direction);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    const FoundRowsModel &m_model;
};
