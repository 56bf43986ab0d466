#pragma once

#include <QStyledItemDelegate>

class HabitListModel;

/// Paints the cells of a HabitListModel: the headers of sections, the names of habits with their pictures,
/// and the circles of their days. What stands behind a row is the view's.
class HabitRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    HabitRowDelegate(const HabitListModel &model, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    static int dayWidth();
    /// The circle of a day in its cell.
    static QRect circleIn(const QRect &cell);
    /// The button of a section's menu in its row.
    static QRect moreIn(const QRect &row, Qt::LayoutDirection direction);
    /// Over which section the pointer is.
    void setHovered(const QModelIndex &section) { m_hovered = section; }

private:
    void paintSection(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintName(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const HabitListModel &m_model;
    QPersistentModelIndex m_hovered;
};
