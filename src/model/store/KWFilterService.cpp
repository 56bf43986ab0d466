#include "model/store/KWFilterService.h"

#include "model/records/KWFilter.h"
#include "model/records/OneLine.h"
#include "model/records/SortOrder.h"
#include "model/store/Connection.h"
#include "model/store/FilterCondition.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/ListQuery.h"
#include "model/store/StoreFailure.h"

namespace {

Error noSuchFilter() { return {storeText("There is no such filter any more.")}; }

Result<QString> checkedName(const QString &typed, const KWFilter *itself, const QString &userID,
                            ObjectContext &context)
{
    const QString name = onOneLine(typed);
    if (name.isEmpty()) return Error{storeText("A filter needs a name.")};
    for (const KWFilter *each : KWFilter::findFiltersOfUser(userID, context))
        if (each != itself && (*each)->name.compare(name, Qt::CaseInsensitive) == 0)
            return Error{storeText("There is a filter “%1” already.").arg((*each)->name)};
    return name;
}

KWFilter *findFilter(const QString &filterID, ObjectContext &context)
{
    KWFilter *filter = context.find<KWFilter>(filterID);
    return filter && filter->isNotDeleted() ? filter : nullptr;
}

} // namespace

KWFilterService::KWFilterService(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

Result<QString> KWFilterService::create(const QString &name, const CXSmartFilter &filter)
{
    QString filterID;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        const Result<QString> checked = checkedName(name, nullptr, m_userID, context);
        if (!checked) return checked.error();
        KWFilterModel model;
        model.userID = m_userID;
        model.name = *checked;
        model.rule = filter.toRule();
        model.sortOrder = sortOrderBehindAll<KWFilter>(m_userID, context);
        filterID = context.insert<KWFilter>(std::move(model)).sid();
        return {};
    });
    if (!saved) return saved.error();
    return filterID;
}

Result<void> KWFilterService::change(const QString &filterID, const QString &name,
                                     const CXSmartFilter &filter)
{
    return KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        KWFilter *changed = findFilter(filterID, context);
        if (!changed) return noSuchFilter();
        const Result<QString> checked = checkedName(name, changed, m_userID, context);
        if (!checked) return checked.error();
        changed->set(&KWFilterModel::name, *checked);
        changed->set(&KWFilterModel::rule, filter.toRule());
        return {};
    });
}

Result<UndoToken> KWFilterService::remove(const QString &filterID)
{
    UndoToken token;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        KWFilter *filter = findFilter(filterID, context);
        if (!filter) return noSuchFilter();
        filter->markDelete();
        token = UndoToken::of(context);
        return {};
    });
    if (!saved) return saved.error();
    return token;
}

Result<int> KWFilterService::countOfTasks(const CXSmartFilter &filter) const
{
    ObjectContext &context = m_manager.MR_defaultContext();
    try {
        const auto frame = StoredFilter::frameOf(m_userID, context.clock(), context.connection());
        return ListQuery::ofFilter(filter, frame, m_userID).count(context.connection());
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
