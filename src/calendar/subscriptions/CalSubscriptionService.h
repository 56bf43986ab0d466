#pragma once

#include "calendar/subscriptions/FeedDownloadPort.h"
#include "corvexkit/time/CXClock.h"
#include "model/events/KWNotificationCenter.h"
#include "model/records/KWCalSubscriptionModel.h"

#include <QObject>
#include <QSet>

class KWAccountManager;
class KWCoreDataManager;
struct IcsCalendar;

/// Keeps the calendars that the account has subscribed to as their feeds are: each is read every hour, and
/// after a failure in minutes first, then ever more seldom. A feed that fails keeps the events that were read
/// last. KWCalSubDidPullEventsNotification tells that events are other ones now; its object is the id of the
/// calendar. Main thread.
class CalSubscriptionService : public QObject {
public:
    /// All outlive it.
    struct Parts {
        KWCoreDataManager &manager;
        KWAccountManager &account;
        KWNotificationCenter &center;
        CXClock &clock;
        FeedDownloadPort &network;
    };
    explicit CalSubscriptionService(const Parts &parts);

    /// Reads from now on what is due, and removes for good the calendars that were deleted.
    void start();

    /// Reads the calendar at an address, see feedAddress(), and subscribes to it: under that name, or the one
    /// that the calendar gives itself. Answers its id, or why nothing was done.
    using Completion = std::function<void(const Result<QString> &subscriptionID)>;
    void subscribe(const QString &address, const QString &name, Completion completion);

    /// Reads it now, unless it is being read.
    void refresh(const QString &subscriptionID);

    /// When it is read next.
    static Instant dueDate(const KWCalSubscriptionModel &subscription, Instant now);

private:
    using Fetched = std::function<void(const Result<FeedAnswer> &)>;
    using Parsed = std::function<void(const Result<IcsCalendar> &)>;
    using Change = std::function<void(KWCalSubscriptionModel &)>;

    void readWhatIsDue();
    void schedule();
    void fetch(const FeedRequest &request, const Fetched &fetched);
    void parse(const QByteArray &text, const Parsed &parsed);
    void take(const QString &subscriptionID, const FeedAnswer &answer);
    void store(const QString &subscriptionID, const IcsCalendar &calendar, const Change &change);
    void noteFailure(const QString &subscriptionID, const QString &sentence);
    void finish(const QString &subscriptionID, const Change &change);
    void make(const QUrl &url, const QString &name, const FeedAnswer &answer, const IcsCalendar &calendar,
              const Completion &completion);
    QList<KWCalSubscriptionModel> subscriptions() const;

    Parts m_parts;
    bool m_isStarted = false;
    QSet<QString> m_reading; // ids
    ClockCall m_next;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
