#pragma once

#include "lists/TaskArranger.h"

#include <QObject>

class BatchActions;
class KWTaskListService;
class TaskListView;

/// Puts tasks where they are dropped or moved by key in the shown list. Main thread.
class ArrangeController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        TaskListView &list;
        KWTaskListService &service;
        BatchActions &actions;
        KWCoreDataManager &manager;
    };
    explicit ArrangeController(const Parts &parts);

private:
    void drop(const QStringList &taskIDs, const TaskDropPlace &place);

    Parts m_parts;
    TaskArranger m_arranger;
};
