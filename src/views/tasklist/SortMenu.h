#pragma once

#include "lists/KWTaskListService.h"

#include <QObject>

#include <functional>

class PageHeader;
class QMenu;

/// The menu at the head of a page: by what the list is sorted, back to the order it comes with, and whether
/// completed tasks are shown. Main thread.
class SortMenu : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    SortMenu(PageHeader &header, KWTaskListService &service, KWCoreDataManager &manager);

    /// To be called when the list or its rows are other ones.
    void show();

Q_SIGNALS:
    void failed(const QString &sentence);
    /// The order is another one now; `undo` takes it back.
    void changed(const QString &message, const std::function<void()> &undo);

private:
    void popup(const QWidget &relativeTo);
    void addSortTypes(QMenu &menu);
    void addCompleted(QMenu &menu);
    void resetManualOrder();
    void report(const Result<void> &done);

    PageHeader &m_header;
    KWTaskListService &m_service;
    KWCoreDataManager &m_manager;
};
