#include "calendar/KWRepeatInstanceService.h"

#include "model/account/KWAccountManager.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/store/KWCoreDataManager.h"

#include <QDateTime>
#include <QPointer>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

// The last day of the month where that has no such day.
Day monthsLater(Day day, months later)
{
    const year_month_day moved = year_month_day{day} + later;
    return moved.ok() ? Day{local_days{moved}} : Day{local_days{moved.year() / moved.month() / last}};
}

} // namespace

KWRepeatInstanceService::KWRepeatInstanceService(KWCoreDataManager &manager, KWAccountManager &account,
                                                 KWNotificationCenter &center, const CXClock &clock)
    : m_manager(manager), m_account(account), m_center(center), m_clock(clock)
{
}

void KWRepeatInstanceService::generateInstances(Instant start, Instant end, Completion completion)
{
    if (QThread::currentThread() == m_mainThread.thread()) return enqueue(start, end, completion);
    QMetaObject::invokeMethod(
        &m_mainThread, [=, this] { enqueue(start, end, completion); }, Qt::QueuedConnection);
}

void KWRepeatInstanceService::generateInstancesWithInSixMonthes()
{
    const CXTimeZone zone = m_clock.zone();
    const Day today = m_clock.today();
    generateInstances(zone.startOfDay(today), zone.startOfDay(monthsLater(today, months{6})));
}

void KWRepeatInstanceService::enqueue(Instant start, Instant end, const Completion &completion)
{
    m_generateRepeatInstances.cancelAllOperations();
    if (!m_account.isSignedIn()) {
        if (completion) completion(false, start, end);
        return;
    }
    m_generateRepeatInstances.addOperation(std::make_shared<KWGenerateInstanceOperation>(
        m_manager, m_account.currentUserID(), start, end,
        [this, alive = QPointer{&m_mainThread}, completion](bool generated, Instant from, Instant to) {
            if (!alive) return; // the service has gone meanwhile
            if (completion) completion(generated, from, to);
            if (generated) announce(from, to);
        }));
}

void KWRepeatInstanceService::announce(Instant start, Instant end)
{
    const auto moment = [](Instant each) {
        return QDateTime::fromMSecsSinceEpoch(each.time_since_epoch().count());
    };
    m_center.post(KWKWRepeatInstanceGeneratedNotification, {},
                  {{u"startDate"_s, moment(start)}, {u"endDate"_s, moment(end)}});
}
