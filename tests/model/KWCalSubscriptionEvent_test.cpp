#include "model/records/KWCalSubscriptionEvent.h"

#include "model/records/KWCalSubscription.h"
#include "model/store/DatedThings.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWCalSubscriptionEvent_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_calendar;

    KWCalSubscriptionEventModel event(const char *title, const char *start, const char *end) const
    {
        KWCalSubscriptionEventModel model;
        model.userID = m_store->userID();
        model.subscriptionID = m_calendar;
        model.title = QString::fromLatin1(title);
        model.startDate = at(start);
        model.endDate = at(end);
        return model;
    }

    QString add(const KWCalSubscriptionEventModel &model)
    {
        QString sid;
        saved(*m_store,
              [&](ObjectContext &context) { sid = context.insert<KWCalSubscriptionEvent>(model).sid(); });
        return sid;
    }

    QString addCalendar(const char *name, std::int64_t sortOrder)
    {
        KWCalSubscriptionModel model;
        model.userID = m_store->userID();
        model.name = QString::fromLatin1(name);
        model.sortOrder = sortOrder;
        QString sid;
        saved(*m_store,
              [&](ObjectContext &context) { sid = context.insert<KWCalSubscription>(model).sid(); });
        return sid;
    }

    QString between(const char *start, const char *end, const QStringList &hidden = {}) const
    {
        return joined(
            readDatedEvents(
                {.userID = m_store->userID(), .from = at(start), .to = at(end), .hiddenCalendars = hidden},
                m_store->context().connection())
                .value(),
            &DatedThing::title);
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_calendar = addCalendar("Sports", 1);
    }

    void findsWhatTakesPlaceBetweenTwoMoments()
    {
        add(event("ended", "2030-05-01 08:00", "2030-05-02 00:00"));
        add(event("year", "2029-08-01 00:00", "2030-08-01 00:00"));
        add(event("lastYear", "2029-01-01 00:00", "2030-05-02 00:00"));
        add(event("over", "2030-05-01 20:00", "2030-05-02 01:00"));
        add(event("fortnight", "2030-04-20 00:00", "2030-05-03 00:00"));
        add(event("moment", "2030-05-02 00:00", "2030-05-02 00:00"));
        add(event("within", "2030-05-02 08:00", "2030-05-02 09:00"));
        add(event("next", "2030-05-03 00:00", "2030-05-03 01:00"));
        KWCalSubscriptionEventModel deleted = event("deleted", "2030-05-02 08:00", "2030-05-02 09:00");
        deleted.isDeleted = true;
        add(deleted);
        KWCalSubscriptionEventModel other = event("other", "2030-05-02 08:00", "2030-05-02 09:00");
        other.userID = u"somebody else"_s;
        add(other);
        QCOMPARE(between("2030-05-02 00:00", "2030-05-03 00:00"), u"year fortnight over moment within"_s);
    }

    void leavesHiddenCalendarsOut()
    {
        const QString shown = m_calendar;
        add(event("match", "2030-05-02 08:00", "2030-05-02 09:00"));
        m_calendar = addCalendar("Holidays", 0);
        add(event("holiday", "2030-05-02 00:00", "2030-05-03 00:00"));
        add(event("season", "2030-01-01 00:00", "2030-10-01 00:00"));
        QCOMPARE(between("2030-05-02 00:00", "2030-05-03 00:00", {m_calendar}), u"match"_s);
        QCOMPARE(between("2030-05-02 00:00", "2030-05-03 00:00", {shown}), u"season holiday"_s);
        QCOMPARE(joined(KWCalSubscription::findSubscriptionsOfUser(m_store->userID(), m_store->context()),
                        [](const KWCalSubscription *each) { return (*each)->name; }),
                 u"Holidays Sports"_s);
    }

    void tellsWhatRepeats()
    {
        add(event("once", "2030-05-01 08:00", "2030-05-01 09:00"));
        QStringList expected;
        const auto addRepeating = [&](const char *title, auto change) {
            KWCalSubscriptionEventModel model = event(title, "2030-05-01 00:00", "2030-05-02 00:00");
            model.repeatRule = u"FREQ=DAILY"_s;
            model.timeZone = u"Asia/Tokyo"_s;
            change(model);
            expected << add(model);
        };
        addRepeating("zoned", [](auto &model) {
            model.exDates = {at("2030-05-03 00:00"), at("2030-05-04 00:00")};
        });
        addRepeating("floating", [](auto &model) { model.isFloating = true; });
        addRepeating("all-day", [](auto &model) { model.isAllDay = true; });
        const auto events =
            KWCalSubscriptionEvent::eventsWillRepeatOfUser(m_store->userID(), m_store->context());
        QVERIFY(events);
        using Repeating = KWCalSubscriptionEvent::Repeating;
        QCOMPARE(joined(*events, &Repeating::entityID), expected.join(u' '));
        QCOMPARE(joined(*events, &Repeating::timeZone), u"Asia/Tokyo  "_s);
        QCOMPARE(events->front().exDates.size(), 2);
        QCOMPARE(events->front().endDate, std::optional{at("2030-05-02 00:00")});
        QVERIFY(events->back().isAllDay);
    }

    void goesWithItsCalendar()
    {
        add(event("match", "2030-05-02 08:00", "2030-05-02 09:00"));
        saved(*m_store,
              [&](ObjectContext &context) { context.remove(*context.find<KWCalSubscription>(m_calendar)); });
        QCOMPARE(between("2030-05-02 00:00", "2030-05-03 00:00"), QString{});
    }
};

ORVANE_TEST(KWCalSubscriptionEvent_test)
#include "KWCalSubscriptionEvent_test.moc"
