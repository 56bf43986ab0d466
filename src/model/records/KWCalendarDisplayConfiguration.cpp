#include "model/records/KWCalendarDisplayConfiguration.h"

KWCalendarDisplayConfigurationModel KWCalendarDisplayConfiguration::ofUser(const QString &userID,
                                                                           ObjectContext &context)
{
    const auto *stored = context.find<KWCalendarDisplayConfiguration>(userID);
    return stored && stored->isNotDeleted() ? stored->model() : KWCalendarDisplayConfigurationModel{};
}

void KWCalendarDisplayConfiguration::forgetList(const QString &listID, const QString &userID,
                                                ObjectContext &context)
{
    auto *stored = context.find<KWCalendarDisplayConfiguration>(userID);
    if (!stored) return;
    QStringList hidden = (*stored)->hiddenLists;
    hidden.removeAll(listID);
    stored->set(&KWCalendarDisplayConfigurationModel::hiddenLists, hidden);
}
