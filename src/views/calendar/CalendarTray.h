#pragma once

#include "views/tasklist/TaskListModel.h"

#include <QWidget>

class TaskListView;

/// The tasks without a date, beside a page of the calendar: to be dragged onto it. Enter puts a task on the
/// day and time that is current there.
class CalendarTray : public QWidget {
    Q_OBJECT

public:
    explicit CalendarTray(CXClock &clock, QWidget *parent = nullptr);

    TaskListView &list() { return *m_list; }
    /// At the end of the page's rows, or where that would leave them no room below the page.
    enum class Place { Beside, Below };
    void setPlace(Place place);
    void setTasks(const QList<KWTaskListItemModel> &tasks);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// It is shown now, or no longer.
    void visibilityChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    Place m_place = Place::Beside;
    TaskListModel m_model;
    TaskListView *m_list;
};
