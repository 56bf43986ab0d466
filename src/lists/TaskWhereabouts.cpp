#include "lists/TaskWhereabouts.h"

#include "lists/KWProjectListPresenter.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWListDataFetcher.h"

TaskWhereabouts::TaskWhereabouts(KWCoreDataManager &manager, KWAccountManager &account,
                                 KWProjectListPresenter &sidebar)
    : m_manager(manager), m_account(account), m_sidebar(sidebar)
{
}

const KWProjectListNode *TaskWhereabouts::nodeElsewhere(const QString &taskID) const
{
    const KWListIdentifier &selected = m_sidebar.selectedList();
    if (isIn(selected, taskID)) return nullptr;

    const auto nodeFor = [this](const KWListIdentifier &list) {
        return m_sidebar.dataService().nodeFor(list);
    };
    if (KWSmartProject::isDateSensetiveSmartProjectID(selected.entityID))
        for (const KWSmartProject *each :
             {&KWSmartProject::today(), &KWSmartProject::tomorrow(), &KWSmartProject::next7days()}) {
            const auto list = KWListIdentifier::smartProject(each->identifier());
            const KWProjectListNode *node = nodeFor(list);
            if (node && isIn(list, taskID)) return node;
        }
    const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    return task ? nodeFor(KWListIdentifier::project(task->model().projectID)) : nullptr;
}

bool TaskWhereabouts::isIn(const KWListIdentifier &list, const QString &taskID) const
{
    const KWListDataFetcher fetcher{m_manager.store().clock()};
    return fetcher
        .contains(taskID, {.userID = m_account.currentUserID(), .selection = list},
                  m_manager.MR_defaultContext().connection())
        .valueOr(false);
}
