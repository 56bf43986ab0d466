#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/records/KWTaskModel.h"

#include <QWidget>

class CheckBox;
class DateButton;
class IconButton;
struct TaskDetailData;

/// The top line of the detail: checkbox, date and priority.
class DetailHeader : public QWidget {
    Q_OBJECT

public:
    explicit DetailHeader(CXClock &clock, QWidget *parent = nullptr);

    /// The words for the date follow the clock: call it again each minute.
    void setTask(const TaskDetailData &shown);
    void dress();
    /// Shows a button that closes the pane, which lies over another then.
    void setHasClose(bool hasClose);

    QSize sizeHint() const override;

Q_SIGNALS:
    void completionToggled();
    void closeRequested();
    /// The date is to be chosen, in a frame whose corner is there.
    void dateRequested(const QPoint &position);
    void priorityChosen(KWTaskPriority priority);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void openPriorities();

    CXClock &m_clock;
    CheckBox *m_checkBox;
    DateButton *m_date;
    IconButton *m_priority;
    IconButton *m_close;
    KWTaskModel m_task;
};
