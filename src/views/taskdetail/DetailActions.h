#pragma once

#include "model/store/KWTaskEditor.h"
#include "views/taskdetail/TaskDetailData.h"
#include "views/tasklist/OccurrenceActions.h"

#include <QObject>

class OrvaneKit;
class QMenu;
class QPoint;
class BatchActions;
class TaskDetailView;

/// What the header, the footer and the menu of the detail do with its task. What can be done to several
/// tasks as well is done by the actions of the list. Main thread.
class DetailActions : public QObject {
    Q_OBJECT

public:
    DetailActions(TaskDetailView &view, OrvaneKit &kit, BatchActions &common);

    /// The task on show; one without an id for none.
    void setTask(const TaskDetailData &shown)
    {
        m_task = shown.task;
        m_mayChange = shown.mayChange;
        m_focus = shown.focus;
    }
    /// Asks for dates, reminders and repeat in a frame whose corner is there.
    void pickDate(const QPoint &position);

Q_SIGNALS:
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);
    void saved();
    void taskRequested(const QString &taskID);
    /// Files to attach are to be chosen.
    void filesRequested();
    /// A summary is to be put into the text.
    void summaryRequested();
    /// A session on the task is to begin.
    void focusRequested(const QString &taskID, KWFocusType mode);

private:
    void connectHeader();
    void connectFooter();
    void connectChecklist();
    void pickItemDate(const QString &itemID, const QPoint &position);
    void scheduleItem(const QString &itemID, const std::optional<KWDateTime> &date);
    QString messageOf(const std::optional<KWDateTime> &date) const;
    void schedule(const QString &taskID, const TaskSchedule &chosen, const TaskSchedule &shown,
                  OccurrenceScope scope);
    void fillMenu(QMenu &menu);
    void addChanges(QMenu &menu);
    void addKinds(QMenu &menu);
    void addFocus(QMenu &menu);
    void estimate(const QPoint &position);
    void addFacts(QMenu &menu);
    void duplicate();
    /// Tells of what was done; nothing is told of what was so before.
    void report(const Result<UndoToken> &done, const QString &message);

    TaskDetailView &m_view;
    OrvaneKit &m_kit;
    BatchActions &m_common;
    OccurrenceActions m_occurrences;
    KWTaskEditor m_editor;
    KWTaskModel m_task;
    bool m_mayChange = true;
    FocusOfTask m_focus;
};
