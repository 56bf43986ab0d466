#include "capture/NewTaskContextOfList.h"

#include "corvexkit/time/CXClock.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/store/FilterCondition.h"
#include "model/store/ObjectContext.h"
#include "model/store/TaskPermissions.h"

namespace {

// Of a filter that is gone or cannot be read, nothing.
NewTaskContext contextOfFilter(const QString &filterID, const QString &userID, ObjectContext &context)
{
    const KWFilter *filter = context.find<KWFilter>(filterID);
    if (!filter) return {};
    const Result<CXSmartFilter> read = filter->parsedSmartFilter();
    const Result<CXSmartFilterFrame> frame = StoredFilter::frameOf(userID, context);
    return read && frame ? newTaskContextOf(*read, *frame) : NewTaskContext{};
}

std::optional<Day> baseDateForNewTask(const QString &smartListID, const CXClock &clock)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(smartListID);
    if (smart && (smart->isToday() || smart->isNext7Days())) return clock.today();
    if (smart && smart->isTomorrow()) return clock.today() + std::chrono::days{1};
    return std::nullopt;
}

// The first of its lists that takes tasks.
std::optional<QString> listOfFolder(const QString &folderID, const QString &userID, ObjectContext &context)
{
    for (const KWProject *each :
         context.fetch<KWProject>({.where = "userID = ? AND groupID = ? AND isDeleted = 0 AND closed = 0",
         .values = {userID, folderID},
         .orderBy = "sortOrder, sid"}))
        if (mayTakeTasks(each)) return each->sid();
    return std::nullopt;
}

} // namespace

bool takesNewTasks(const KWListIdentifier &list)
{
    if (list.type == KWListIdentifierType::Calendar) return false;
    const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
    return list.type != KWListIdentifierType::SmartProject ||
           (smart && (smart->isAll() || smart->isToday() || smart->isTomorrow() || smart->isNext7Days()));
}

NewTaskContext newTaskContextOf(const KWListIdentifier &list, const QString &userID, ObjectContext &context)
{
    NewTaskContext preset;
    switch (list.type) {
    case KWListIdentifierType::Project:
        preset.presetList = list.entityID;
        break;
    case KWListIdentifierType::Tag:
        preset.presetTagNames = {list.entityID};
        break;
    case KWListIdentifierType::SmartProject:
        preset.presetDay = baseDateForNewTask(list.entityID, context.clock());
        break;
    case KWListIdentifierType::Filter:
        return contextOfFilter(list.entityID, userID, context);
    case KWListIdentifierType::Group:
        preset.presetList = listOfFolder(list.entityID, userID, context);
        break;
    case KWListIdentifierType::Calendar:
    case KWListIdentifierType::View:
        break;
    }
    return preset;
}
