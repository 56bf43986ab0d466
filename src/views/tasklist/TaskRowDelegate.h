#pragma once

#include "views/tasklist/RowPart.h"

#include <QStyledItemDelegate>

#include <functional>

class TaskListModel;

/// Paints and edits the rows of a TaskListModel: tasks 40 pixels high at a text size of 100 %, headers of
/// sections see KWTaskListSectionCell.
class TaskRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// How far a row's checkbox is filled, from 0 to 1; nothing for a row that is not changing.
    using CheckProgress = std::function<std::optional<double>(const QString &sid)>;

    TaskRowDelegate(const TaskListModel &model, CheckProgress checkProgress, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    /// Announces what was typed; the model changes when the task does.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    /// What of that row is at `position`; `bounds` is the whole row.
    RowPart partAt(const QPoint &position, const QModelIndex &index, const QRect &bounds,
                   Qt::LayoutDirection direction) const;
    /// What is under the mouse, and of which row.
    void setHovered(const QModelIndex &index, RowPart part);

Q_SIGNALS:
    void titleEdited(const QString &id, bool isItem, const QString &title) const;

private:
    void paintTask(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintSection(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const TaskListModel &m_model;
    CheckProgress m_checkProgress;
    QPersistentModelIndex m_hovered;
    RowPart m_hoveredPart = RowPart::None;
};
