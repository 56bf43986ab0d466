#include "model/records/KWChecklistItem.h"

#include "model/records/KWTask.h"
#include "model/records/NextAlert.h"
#include "model/records/ZoneMove.h"

void KWChecklistItem::updateStatus(KWTaskStatus status)
{
    set(&KWChecklistItemModel::status, status);
    set(&KWChecklistItemModel::completionDate,
        status == KWTaskStatusOpen ? std::nullopt : std::optional{context().clock().now()});
}

bool KWChecklistItem::adaptToTimeZoneFromDesignatedToLocalIfNeeded(const CXTimeZone &lastLocalZone)
{
    const KWTask *task = context().find<KWTask>(model().taskID);
    const bool isFloating = task && (*task)->isFloating;
    if (!model().startDate || !(model().isAllDay || isFloating)) return false;
    const Instant start = *model().startDate;
    const CXTimeZone local = context().clock().zone();
    const bool taskFollows = task && (isFloating || (*task)->isAllDay);
    const CXTimeZone designated =
        CXTimeZone::named(taskFollows ? (*task)->timeZone : QString{}).value_or(lastLocalZone);
    const Instant moved =
        model().isAllDay
            ? ZoneMove{ZoneMove::zoneOfDay(start, {designated, lastLocalZone, local}), local}.day(start)
            : ZoneMove{designated, local}.time(start);
    if (moved == start) return false;
    set(&KWChecklistItemModel::startDate, moved);
    const std::optional<Instant> alert = model().remindTime;
    const bool isCounted = alert && alert != model().snoozedRemindDate;
    keepAlert(isCounted ? std::optional{ZoneMove{designated, local}.time(*alert)} : alert);
    return true;
}

void KWChecklistItem::keepAlert(std::optional<Instant> alert)
{
    set(&KWChecklistItemModel::remindTime, alert);
    m_keepsAlert = true;
}

void KWChecklistItem::willSave()
{
    if (std::exchange(m_keepsAlert, false) || !needsNewAlert(storedVersion(), model())) return;
    set(&KWChecklistItemModel::remindTime, nextAlert(model(), context().clock().now()));
}

bool KWChecklistItem::isModified() const { return !differsInAlertAlone(storedVersion(), model()); }
