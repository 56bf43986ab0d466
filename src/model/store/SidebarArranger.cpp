#include "model/store/SidebarArranger.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTagService.h"
#include "model/store/SidebarPlaces.h"
#include "model/store/StoreFailure.h"

namespace {

template <class Record>
void placeBefore(const QString &id, const QString &ownID, Record &record, const SidebarPlaces &others)
{
    const auto setOrder = [&record](std::int64_t order) {
        record.set(&KWSynchronizableFields::sortOrder, order);
    };
    placeBefore(id, {{ownID, record.model().sortOrder, setOrder}}, others);
}

} // namespace

SidebarArranger::SidebarArranger(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

Result<UndoToken> SidebarArranger::save(const std::function<Result<void>(ObjectContext &)> &move)
{
    UndoToken undo;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) {
        const Result<void> moved = move(context);
        if (moved) undo = UndoToken::of(context);
        return moved;
    });
    if (!saved) return saved.error();
    return undo;
}

Result<UndoToken> SidebarArranger::moveList(const QString &listID, const QString &groupID,
                                            const QString &beforeID)
{
    return save([&](ObjectContext &context) -> Result<void> {
        KWProject *list = context.find<KWProject>(listID);
        if (!list || list->isDeleted()) return Error{storeText("There is no such list any more.")};
        if (list->isInbox() || list->isClosed())
            return Error{storeText("This list always stands where it is.")};
        const KWProjectGroup *folder = groupID.isEmpty() ? nullptr : context.find<KWProjectGroup>(groupID);
        if (!groupID.isEmpty() && (!folder || folder->isDeleted()))
            return Error{storeText("There is no such folder any more.")};
        const QString &teamID = (*list)->teamID;
        if (folder && !teamID.isEmpty())
            return Error{storeText("A list of a team stands among the lists of the team.")};
        list->set(&KWProjectModel::groupID, folder ? groupID : KWProjectGroupIDUngrouped);
        placeBefore(beforeID, listID, *list,
                    !teamID.isEmpty() ? placesInTeam(teamID, m_userID, context)
                    : folder          ? placesInFolder(groupID, m_userID, context)
                                      : placesAtTopLevel(m_userID, context));
        return {};
    });
}

Result<UndoToken> SidebarArranger::moveFolder(const QString &groupID, const QString &beforeID)
{
    return save([&](ObjectContext &context) -> Result<void> {
        KWProjectGroup *folder = context.find<KWProjectGroup>(groupID);
        if (!folder || folder->isDeleted()) return Error{storeText("There is no such folder any more.")};
        placeBefore(beforeID, groupID, *folder, placesAtTopLevel(m_userID, context));
        return {};
    });
}

Result<UndoToken> SidebarArranger::moveTag(const QString &name, const QString &parent,
                                           const QString &beforeName)
{
    return save([&](ObjectContext &context) -> Result<void> {
        if (Result<void> set = KWTagService::setParent(name, parent, m_userID, context); !set) return set;
        KWTag &tag = *KWTag::findTagNamed(name, m_userID, context);
        placeBefore(beforeName, tag->name, tag, placesOfTags(tag->parent, m_userID, context));
        return {};
    });
}

Result<UndoToken> SidebarArranger::moveFilter(const QString &filterID, const QString &beforeID)
{
    return save([&](ObjectContext &context) -> Result<void> {
        KWFilter *filter = context.find<KWFilter>(filterID);
        if (!filter || filter->isDeleted()) return Error{storeText("There is no such filter any more.")};
        placeBefore(beforeID, filterID, *filter, placesOfFilters(m_userID, context));
        return {};
    });
}

Result<UndoToken> SidebarArranger::moveCalendar(const QString &subscriptionID, const QString &beforeID)
{
    return save([&](ObjectContext &context) -> Result<void> {
        KWCalSubscription *calendar = context.find<KWCalSubscription>(subscriptionID);
        if (!calendar || calendar->isDeleted())
            return Error{storeText("There is no such calendar any more.")};
        placeBefore(beforeID, subscriptionID, *calendar, placesOfCalendars(m_userID, context));
        return {};
    });
}
