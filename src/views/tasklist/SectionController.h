#pragma once

#include "lists/KWTaskListService.h"

#include <QObject>

class AddFieldController;
class CXClock;
class QMenu;
class BatchActions;
class TaskListPane;

/// What the headers of sections offer: add a task with what the section stands for, put overdue tasks off,
/// fold and select. Main thread.
class SectionController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        TaskListPane &pane;
        KWTaskListService &service;
        AddFieldController &addField;
        BatchActions &actions;
        const CXClock &clock;
    };
    explicit SectionController(const Parts &parts);

private:
    const KWTaskCategory *sectionOf(const TaskListRow &row) const;
    void add(const TaskListRow &row);
    void postpone(const TaskListRow &row);
    void fillMenu(QMenu &menu, const TaskListRow &row);
    void foldAll(bool isFolded);

    Parts m_parts;
};
