#pragma once

#include "lists/KWTaskListService.h"

#include <QObject>

class PageHeader;
class QMenu;

/// The menu at the head of a page: by what the list is sorted, back to the order it comes with, and whether
/// completed tasks are shown. Main thread.
class SortMenu : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    SortMenu(PageHeader &header, KWTaskListService &service);

    /// To be called when the list or its rows are other ones.
    void show();

Q_SIGNALS:
    void failed(const QString &sentence);

private:
    void popup(const QWidget &relativeTo);
    void addSortTypes(QMenu &menu);
    void addCompleted(QMenu &menu);
    void report(const Result<void> &done);

    PageHeader &m_header;
    KWTaskListService &m_service;
};
