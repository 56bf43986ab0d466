#include "calendar/subscriptions/CalSubscriptionService.h"

#include "calendar/ics/IcsReader.h"
#include "calendar/subscriptions/FeedAddress.h"
#include "calendar/subscriptions/FeedFile.h"
#include "corvexkit/log/CXLog.h"
#include "model/account/KWAccountManager.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/OneLine.h"
#include "model/records/SortOrder.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/SubscribedEvents.h"

#include <QPointer>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr CXLogger calendarLog{u"calendars"};

constexpr std::chrono::milliseconds readEvery{1h};
constexpr std::chrono::milliseconds firstRetry{5min};
constexpr std::chrono::milliseconds lastRetry{24h};

std::chrono::milliseconds retryAfter(int failureCount)
{
    const int doublings = std::clamp(failureCount - 1, 0, 10);
    return std::min<std::chrono::milliseconds>(firstRetry * (1 << doublings), lastRetry);
}

void noteRead(KWCalSubscriptionModel &subscription, const FeedAnswer &answer, Instant now)
{
    subscription.lastReadDate = subscription.lastTryDate = now;
    subscription.failureCount = 0;
    subscription.failure.clear();
    if (answer.isUnchanged) return;
    subscription.feedTag = answer.tag;
    subscription.feedDate = answer.date;
}

} // namespace

CalSubscriptionService::CalSubscriptionService(const Parts &parts) : m_parts(parts)
{
    for (const QString &each : {KWUserDidSignInNotification, KWUserDidSignOutNotification})
        m_observations.push_back(m_parts.center.addObserver(each, [this](const auto &) { schedule(); }));
}

void CalSubscriptionService::start()
{
    m_isStarted = true;
    KWCoreDataService{m_parts.manager}.async_save(
        [](ObjectContext &context) -> Result<void> {
            for (KWCalSubscription *each : context.fetch<KWCalSubscription>({.where = "isDeleted = 1"}))
                context.remove(*each);
            return {};
        },
        [service = QPointer{this}](const Result<void> &removed) {
            if (!removed) calendarLog.error(removed.error().sentence);
            if (service) service->schedule();
        });
}

Instant CalSubscriptionService::dueDate(const KWCalSubscriptionModel &subscription, Instant now)
{
    if (!subscription.lastTryDate) return now;
    const auto interval = subscription.failureCount == 0 ? readEvery : retryAfter(subscription.failureCount);
    // The clock may have been set back since.
    return std::min(*subscription.lastTryDate, now) + interval;
}

QList<KWCalSubscriptionModel> CalSubscriptionService::subscriptions() const
{
    QList<KWCalSubscriptionModel> models;
    if (!m_parts.account.isSignedIn()) return models;
    for (const KWCalSubscription *each : KWCalSubscription::findSubscriptionsOfUser(
             m_parts.account.currentUserID(), m_parts.manager.MR_defaultContext()))
        models.append(each->model());
    return models;
}

void CalSubscriptionService::schedule()
{
    m_next.cancel();
    if (!m_isStarted) return;
    std::optional<Instant> next;
    const Instant now = m_parts.clock.now();
    for (const KWCalSubscriptionModel &each : subscriptions()) {
        if (m_reading.contains(each.sid)) continue;
        const Instant due = dueDate(each, now);
        next = std::min(next.value_or(due), due);
    }
    if (next) m_next = m_parts.clock.callAt(*next, [this] { readWhatIsDue(); });
}

void CalSubscriptionService::readWhatIsDue()
{
    const Instant now = m_parts.clock.now();
    for (const KWCalSubscriptionModel &each : subscriptions())
        if (dueDate(each, now) <= now) refresh(each.sid);
    schedule();
}

void CalSubscriptionService::refresh(const QString &subscriptionID)
{
    const auto *stored = m_parts.manager.MR_defaultContext().find<KWCalSubscription>(subscriptionID);
    if (!stored || stored->isDeleted() || m_reading.contains(subscriptionID)) return;
    m_reading.insert(subscriptionID);
    const KWCalSubscriptionModel &known = stored->model();
    fetch({QUrl{known.url}, known.feedTag, known.feedDate},
          [this, subscriptionID](const Result<FeedAnswer> &answer) {
              if (answer)
                  take(subscriptionID, *answer);
              else
                  noteFailure(subscriptionID, answer.error().sentence);
          });
}

// What comes when the service has gone is dropped: here and below.
void CalSubscriptionService::fetch(const FeedRequest &request, const Fetched &fetched)
{
    const auto ifAlive = [service = QPointer{this}, fetched](const Result<FeedAnswer> &answer) {
        if (service) fetched(answer);
    };
    if (!request.url.isLocalFile()) return m_parts.network.download(request, ifAlive);
    const auto answer = std::make_shared<Result<FeedAnswer>>(FeedAnswer{});
    KWCoreDataService{m_parts.manager}.async_perform(
        [answer, request](ObjectContext &) -> Result<void> {
            *answer = readFeedFile(request);
            return {};
        },
        [answer, ifAlive](const Result<void> &done) { ifAlive(done ? *answer : done.error()); });
}

void CalSubscriptionService::parse(const QByteArray &text, const Parsed &parsed)
{
    const auto calendar = std::make_shared<Result<IcsCalendar>>(IcsCalendar{});
    KWCoreDataService{m_parts.manager}.async_perform(
        [calendar, text, zone = m_parts.clock.zone()](ObjectContext &) -> Result<void> {
            *calendar = IcsReader::read(text, zone);
            return {};
        },
        [service = QPointer{this}, calendar, parsed](const Result<void> &done) {
            if (service) parsed(done ? *calendar : done.error());
        });
}

void CalSubscriptionService::take(const QString &subscriptionID, const FeedAnswer &answer)
{
    const auto noted = [answer, now = m_parts.clock.now()](KWCalSubscriptionModel &subscription) {
        noteRead(subscription, answer, now);
    };
    if (answer.isUnchanged) return finish(subscriptionID, noted);
    parse(answer.body, [this, subscriptionID, noted](const Result<IcsCalendar> &calendar) {
        if (calendar)
            store(subscriptionID, *calendar, noted);
        else
            noteFailure(subscriptionID, calendar.error().sentence);
    });
}

void CalSubscriptionService::store(const QString &subscriptionID, const IcsCalendar &calendar,
                                   const Change &change)
{
    const auto isAnother = std::make_shared<bool>(false);
    KWCoreDataService{m_parts.manager}.async_save(
        [isAnother, subscriptionID, events = calendar.events](ObjectContext &context) -> Result<void> {
            const auto *subscription = context.find<KWCalSubscription>(subscriptionID);
            if (!subscription) return {};
            const auto replaced = replaceEvents(subscriptionID, (*subscription)->userID, events, context);
            if (!replaced) return replaced.error();
            *isAnother = *replaced;
            return {};
        },
        [service = QPointer{this}, isAnother, subscriptionID, change](const Result<void> &saved) {
            if (!service) return;
            if (!saved) return service->noteFailure(subscriptionID, saved.error().sentence);
            service->finish(subscriptionID, change);
            if (*isAnother) service->m_parts.center.post(KWCalSubDidPullEventsNotification, subscriptionID);
        });
}

void CalSubscriptionService::noteFailure(const QString &subscriptionID, const QString &sentence)
{
    finish(subscriptionID, [sentence, now = m_parts.clock.now()](KWCalSubscriptionModel &subscription) {
        subscription.lastTryDate = now;
        subscription.failure = sentence;
        ++subscription.failureCount;
    });
}

void CalSubscriptionService::finish(const QString &subscriptionID, const Change &change)
{
    const auto saved =
        KWCoreDataService{m_parts.manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            auto *subscription = context.find<KWCalSubscription>(subscriptionID);
            if (!subscription) return {};
            KWCalSubscriptionModel model = subscription->model();
            change(model);
            subscription->assign(model);
            return {};
        });
    if (!saved) calendarLog.error(saved.error().sentence);
    m_reading.remove(subscriptionID);
    schedule();
}

void CalSubscriptionService::subscribe(const QString &address, const QString &name, Completion completion)
{
    const Result<QUrl> url = feedAddress(address);
    if (!url) return completion(url.error());
    for (const KWCalSubscriptionModel &each : subscriptions())
        if (each.url == url->toString(QUrl::FullyEncoded))
            return completion(
                Error{KWLocalizedString("This calendar is subscribed to already, as “%1”.").arg(each.name)});
    fetch({*url}, [this, url = *url, name, completion](const Result<FeedAnswer> &answer) {
        if (!answer) return completion(answer.error());
        parse(answer->body, [=, this, answer = *answer](const Result<IcsCalendar> &calendar) {
            if (!calendar) return completion(calendar.error());
            make(url, name, answer, *calendar, completion);
        });
    });
}

void CalSubscriptionService::make(const QUrl &url, const QString &name, const FeedAnswer &answer,
                                  const IcsCalendar &calendar, const Completion &completion)
{
    KWCalSubscriptionModel model;
    model.userID = m_parts.account.currentUserID();
    model.url = url.toString(QUrl::FullyEncoded);
    model.color = calendar.color;
    const QString file = url.fileName();
    for (const QString &each : {name, calendar.name, file, url.host()})
        if (model.name.isEmpty()) model.name = onOneLine(each);
    noteRead(model, answer, m_parts.clock.now());
    const auto id = std::make_shared<QString>();
    KWCoreDataService{m_parts.manager}.async_save(
        [id, model, events = calendar.events](ObjectContext &context) -> Result<void> {
            KWCalSubscriptionModel placed = model;
            placed.sortOrder = sortOrderBehindAll<KWCalSubscription>(model.userID, context);
            *id = context.insert<KWCalSubscription>(std::move(placed)).sid();
            const auto made = replaceEvents(*id, model.userID, events, context);
            return made ? Result<void>{} : made.error();
        },
        [service = QPointer{this}, id, completion](const Result<void> &saved) {
            if (!service) return;
            if (!saved) return completion(saved.error());
            service->schedule();
            service->m_parts.center.post(KWCalSubDidPullEventsNotification, *id);
            completion(*id);
        });
}
