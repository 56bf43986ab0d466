#pragma once

#include "corvexkit/time/CXClock.h"
#include "lists/KWTaskListService.h"

#include <QObject>

class TaskListPane;

/// Shows the sections and rows of a list in a pane, folds them and loads more as the person asks. Main
/// thread.
class ShownRows : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    ShownRows(TaskListPane &pane, KWTaskListService &service, const CXClock &clock);

    /// Shows what the service has read. To be called when it has changed.
    void show();
    /// Whether tasks can be added to its sections: not in the archive, nor where one may only read.
    void setTakesTasks(bool takesTasks);

private:
    void fold(const TaskListRow &row);

    TaskListPane &m_pane;
    KWTaskListService &m_service;
    const CXClock &m_clock;
    bool m_takesTasks = true;
};
