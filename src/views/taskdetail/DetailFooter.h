#pragma once

#include "views/taskdetail/TaskDetailData.h"

#include <QWidget>

class FlowLayout;
class IconButton;
class ListButton;
class TagField;
class TagPill;
class TextButton;
class QMenu;

/// The bottom of the detail: the list, who is assigned, the tags, and the menu of all that can be done with
/// the task.
class DetailFooter : public QWidget {
    Q_OBJECT

public:
    explicit DetailFooter(QWidget *parent = nullptr);

    void setTask(const TaskDetailData &shown);
    void dress();
    /// The tag that was handed over is saved.
    void clearTagField();

Q_SIGNALS:
    /// Another list is to be chosen, in a frame whose lower corner is there.
    void listRequested(const QPoint &position);
    /// What the task is thought to take is to be changed, in a frame whose lower corner is there.
    void estimateRequested(const QPoint &position);
    void assigneeChosen(std::int64_t userServerID);
    void tagAdded(const QString &label);
    void tagRemoved(const QString &name);
    /// The menu is to be filled; it opens then.
    void menuAboutToShow(QMenu &menu);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void setTags(const TaskDetailData &shown);
    void openAssignees();
    void openMenu();
    void fitHeight();

    FlowLayout *m_facts;
    ListButton *m_list;
    TextButton *m_assignee;
    TextButton *m_focus;
    TagField *m_tagField;
    IconButton *m_more;
    QList<TagPill *> m_tags;
    TaskDetailData m_shown;
};
