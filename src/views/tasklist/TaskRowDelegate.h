#pragma once

#include <QStyledItemDelegate>

#include <functional>

class TaskListModel;

/// Paints and edits the rows of a TaskListModel, 40 pixels high at a text size of 100 %.
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
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    /// Announces what was typed; the model changes when the task does.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    /// The row whose checkbox is under the mouse.
    void setHoveredCheckbox(const QModelIndex &index) { m_hoveredCheckbox = index; }

Q_SIGNALS:
    void titleEdited(const QString &sid, const QString &title) const;

private:
    const TaskListModel &m_model;
    CheckProgress m_checkProgress;
    QPersistentModelIndex m_hoveredCheckbox;
};
