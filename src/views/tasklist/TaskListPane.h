#pragma once

#include "views/controls/UnsavedTexts.h"
#include "views/tasklist/TaskListModel.h"

#include <QWidget>

class KWNewTaskTextField;
class PageHeader;
class TaskListView;

/// The middle column: the head of the page, the add field, the tasks. The focus that it is given goes to the
/// tasks, or to what stands in their place.
class TaskListPane : public QWidget, public UnsavedTextHolder {
    Q_OBJECT

public:
    explicit TaskListPane(CXClock &clock, QWidget *parent = nullptr);

    PageHeader &header() { return *m_header; }
    KWNewTaskTextField &addField() { return *m_addField; }
    TaskListView &list() { return *m_list; }
    TaskListModel &model() { return m_model; }

    /// What stands in the add field is no task yet.
    QStringList unsavedTexts() override;

private:
    TaskListModel m_model;
    PageHeader *m_header;
    KWNewTaskTextField *m_addField;
    TaskListView *m_list;
};
