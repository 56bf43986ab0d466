#include "lists/ListSortType.h"

#include "model/account/AccountSettings.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

using namespace Qt::StringLiterals;

namespace {

template <class Record>
Result<void> setSortType(KWTaskSortType sortType, Record *record)
{
    if (!record || record->isDeleted()) return Error{storeText("There is no such list any more.")};
    record->set(&Record::Model::sortType, sortType);
    return {};
}

Result<void> setSortType(KWTaskSortType sortType, const KWListIdentifier &list, const QString &userID,
                         ObjectContext &context)
{
    const QString &id = list.entityID;
    switch (list.type) {
    case KWListIdentifierType::Project:
        return setSortType(sortType, context.find<KWProject>(id));
    case KWListIdentifierType::Group:
        return setSortType(sortType, context.find<KWProjectGroup>(id));
    case KWListIdentifierType::Filter:
        return setSortType(sortType, context.find<KWFilter>(id));
    case KWListIdentifierType::Tag:
        return setSortType(sortType, KWTag::findTagNamed(id, userID, context));
    case KWListIdentifierType::SmartProject:
    case KWListIdentifierType::Calendar:
    case KWListIdentifierType::View:
        break;
    }
    return {};
}

} // namespace

Result<void> saveSortType(KWTaskSortType sortType, const KWListIdentifier &list, const QString &userID,
                          KWCoreDataManager &manager, KWNotificationCenter &center)
{
    if (list.type == KWListIdentifierType::SmartProject)
        if (const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID))
            return AccountSettings{manager, center, userID}.setSortType(sortType, *smart);
    const Result<void> saved = KWCoreDataService{manager}.sync_save(
        [&](ObjectContext &context) { return setSortType(sortType, list, userID, context); });
    if (saved)
        center.post(KWListDisplayConfigurationDidChangeNotification, {},
                    {{u"listID"_s, list.userDefaultEncode()}});
    return saved;
}
