#include "model/store/ListRemoval.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWColumn.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWListIdentifier.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectPinnedSortOrder.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/KWTeamworker.h"
#include "model/records/SortOrderContext.h"

namespace {

class ListContents {
public:
    explicit ListContents(const KWProject &list) : m_list(list), m_context(list.context()) {}

    void deleteForAll()
    {
        KWTask::deleteTaskAndDescendantsForever(tasks("projectID = ? AND isDeleted = 0"), m_context);
        forEach<KWColumn>("projectID = ?", [](KWColumn &each) { each.deleteForever(); });
    }

    /// What stays until the service was told that it is deleted still belongs to the list.
    bool mustStay() const
    {
        return m_context.number("SELECT EXISTS (SELECT 1 FROM tasks WHERE projectID = ? AND (isDeleted = 1 "
                                "OR syncStatus <> ?))",
                                {m_list.sid(), std::int64_t(KWSyncStatusCreated)}) != 0;
    }

    void removeHere()
    {
        const auto remove = [this](auto &each) { m_context.remove(each); };
        forEach<KWChecklistItem>(ofItsTasks, remove);
        forEach<KWAttachment>(ofItsTasks, remove);
        for (KWTask *each : tasks("projectID = ?"))
            m_context.remove(*each);
        forEach<KWColumn>("projectID = ?", remove);
        forEach<KWTeamworker>("projectID = ?", remove);
    }

    void deletePlaces()
    {
        const auto forget = [](auto &each) { each.deleteForever(); };
        const QString inList = contextID({.projectID = m_list.sid()});
        forEach<KWTaskDueDateSortOrder>("contextID = ?", forget, inList);
        forEach<KWTaskPrioritySortOrder>("contextID = ?", forget, inList);
        forEach<KWTaskProjectSortOrder>("contextID = ?", forget, inList);
        forEach<KWTaskProjectSortOrder>("projectID = ?", forget);
        forEach<KWTaskTagSortOrder>("contextID = ?", forget, inList);
        forEach<KWTaskPinnedSortOrder>("contextID = ?", forget, inList);
        const QString encoded = KWListIdentifier::project(m_list.sid()).userDefaultEncode();
        forEach<KWListDisplayConfiguration>("listID = ?", forget, encoded);
        forEach<KWProjectPinnedSortOrder>("listID = ?", forget, encoded);
        KWCalendarDisplayConfiguration::forgetList(m_list.sid(), m_list->userID, m_context);
    }

private:
    static constexpr const char *ofItsTasks = "taskID IN (SELECT sid FROM tasks WHERE projectID = ?)";

    QList<KWTask *> tasks(const char *condition) const
    {
        return m_context.fetch<KWTask>({.where = condition, .values = {m_list.sid()}});
    }

    template <class Record, class Action>
    void forEach(const char *condition, const Action &action, const QString &value)
    {
        for (Record *each : m_context.fetch<Record>({.where = condition, .values = {value}}))
            if (each->isNotDeleted() && !each->isRemoved()) action(*each);
    }
    template <class Record, class Action>
    void forEach(const char *condition, const Action &action)
    {
        forEach<Record>(condition, action, m_list.sid());
    }

    const KWProject &m_list;
    ObjectContext &m_context;
};

} // namespace

void removeWithContents(KWProject &list)
{
    ListContents contents{list};
    const bool staysForAWhile = list.belongsToMe() && contents.mustStay();
    list.belongsToMe() ? contents.deleteForAll() : contents.removeHere();
    contents.deletePlaces();
    staysForAWhile ? list.markDelete() : list.deleteForever();
}
