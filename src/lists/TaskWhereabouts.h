#pragma once

#include <QString>

class KWAccountManager;
class KWCoreDataManager;
class KWProjectListNode;
class KWProjectListPresenter;
struct KWListIdentifier;

/// Where a task is to be seen when it is not in the list that is shown. Main thread.
class TaskWhereabouts {
public:
    TaskWhereabouts(KWCoreDataManager &manager, KWAccountManager &account, KWProjectListPresenter &sidebar);

    /// None while the selected list shows the task. Otherwise, where the selected list is one of days: the
    /// first of Today, Tomorrow and Next 7 Days that shows it; else the task's own list. None too when the
    /// sidebar has no such node or the task is gone.
    const KWProjectListNode *nodeElsewhere(const QString &taskID) const;

private:
    bool isIn(const KWListIdentifier &list, const QString &taskID) const;

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWProjectListPresenter &m_sidebar;
};
