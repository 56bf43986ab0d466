#include "calendar/KWRepeatInstanceService.h"

#include "calendar/OccurrencesAhead.h"
#include "calendar/RepeatInstanceRun.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWTask.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QSemaphore>
#include <QThreadPool>

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// Occurrences in the store: what is generated, kept, widened, thrown away and announced.
class KWRepeatInstanceService_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWRepeatInstanceService> m_service;
    KWNotificationCenter::Observation m_observation;
    QStringList m_announced;

    static Instant at(const char *day) { return CXTimeZone::utc().startOfDay(dayOf(day)); }
    static Day dayOf(const char *day)
    {
        const QDate date = QDate::fromString(QLatin1StringView{day}, Qt::ISODate);
        return Day{local_days{year{date.year()} / date.month() / date.day()}};
    }
    static QString textOf(Instant moment)
    {
        return QDateTime::fromMSecsSinceEpoch(moment.time_since_epoch().count(), Qt::UTC)
            .toString(u"MM-dd hh:mm"_s);
    }

    QString add(const char *title, const char *start, const char *rule, const char *end = nullptr)
    {
        TaskBuilder task = aTask(title).startingAt(start).with(&KWTaskModel::timeZone, u"UTC"_s);
        if (end) task.endingAt(end);
        return task.with(&KWTaskModel::repeatRule, QString::fromLatin1(rule)).savedIn(*m_store);
    }

    /// Waits for it; whether anything was generated.
    bool generate(const char *from, const char *to)
    {
        std::optional<bool> answer;
        m_service->generateInstances(at(from), at(to),
                                     [&answer](bool generated, Instant, Instant) { answer = generated; });
        [&answer] { QTRY_VERIFY(answer); }();
        return answer.value_or(false);
    }

    /// "05-01 09:00, 05-02 09:00", of one task.
    QString stored(const QString &taskID) const
    {
        const auto found = KWRepeatInstance::instancesOfUser(m_store->userID(), {taskID}, at("2000-01-01"),
                                                             at("2100-01-01"), m_store->context());
        QStringList starts;
        for (const KWRepeatInstance::Start &each : *found)
            starts << textOf(each.startDate);
        return starts.join(u", "_s);
    }
    std::int64_t number(const char *sql) const { return m_store->context().number(sql); }
    QString ids() const // of the stored rows: those that stay keep theirs
    {
        QStringList texts;
        for (const std::int64_t each :
             m_store->context().numbers("SELECT id FROM repeatInstances ORDER BY id"))
            texts << QString::number(each);
        return texts.join(u' ');
    }

    void makeService()
    {
        m_service = std::make_unique<KWRepeatInstanceService>(m_store->kit().manager(), m_store->account(),
                                                              m_store->kit().center(), m_store->clock);
    }

private Q_SLOTS:
    void init()
    {
        m_announced.clear();
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "UTC");
        makeService();
        m_observation = m_store->kit().center().addObserver(
            KWKWRepeatInstanceGeneratedNotification, [this](const KWNotification &notification) {
                const auto day = [&](const char *key) {
                    return notification.userInfo.value(QLatin1StringView{key})
                        .toDateTime()
                        .toUTC()
                        .toString(u"MM-dd"_s);
                };
                m_announced << day("startDate") + u".."_s + day("endDate");
            });
    }
    void cleanup()
    {
        m_observation = {};
        m_service.reset();
        m_store.reset();
    }

    void answersNothingOnceItHasGone()
    {
        const QString daily = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        bool isAnswered = false;
        m_service->generateInstances(at("2030-05-01"), at("2030-05-04"),
                                     [&isAnswered](bool, Instant, Instant) { isAnswered = true; });
        m_service.reset();
        m_store->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
        QVERIFY(!isAnswered && m_announced.isEmpty());
        makeService(); // whatever was written is whole
        generate("2030-05-01", "2030-05-04");
        QCOMPARE(stored(daily), u"05-02 08:00, 05-03 08:00"_s);
    }

    void storesWhatFollowsTheFirstOne()
    {
        const QString daily = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY", "2030-05-01 08:30");
        const QString weekly = add("Bins", "2030-04-29 18:00", "RRULE:FREQ=WEEKLY;COUNT=2");
        setSaved<KWTask>(*m_store, daily, &KWTaskModel::exDates, {at("2030-05-03") + 8h});
        QVERIFY(generate("2030-05-01", "2030-05-07"));
        QCOMPARE(stored(daily), u"05-02 08:00, 05-04 08:00, 05-05 08:00, 05-06 08:00"_s);
        QCOMPARE(stored(weekly), u"05-06 18:00"_s);
        QCOMPARE(number("SELECT count(*) FROM repeatInstances WHERE endDate - startDate = 1800000"), 4);
        QCOMPARE(number("SELECT count(*) FROM repeatInstances WHERE endDate = startDate"), 1);
        QCOMPARE(m_announced, QStringList{u"05-01..05-07"_s});
    }

    void generatesWhatIsCoveredOnlyOnce()
    {
        const QString task = add("Water", "2030-05-01 00:00", "RRULE:FREQ=DAILY");
        QVERIFY(generate("2030-05-03", "2030-05-06"));
        const QString before = ids();
        QVERIFY(!generate("2030-05-03", "2030-05-06"));
        QVERIFY(!generate("2030-05-04", "2030-05-05"));
        QCOMPARE(ids(), before);
        QCOMPARE(m_announced.size(), 1);

        QVERIFY(generate("2030-05-02", "2030-05-08")); // the old boundaries are stored already
        QVERIFY(ids().startsWith(before));
        QCOMPARE(stored(task),
                 u"05-02 00:00, 05-03 00:00, 05-04 00:00, 05-05 00:00, 05-06 00:00, 05-07 00:00, "
                 "05-08 00:00"_s);
        QVERIFY(generate("2030-05-10", "2030-05-11")); // and so is what lies between
        QVERIFY(stored(task).endsWith(u"05-08 00:00, 05-09 00:00, 05-10 00:00, 05-11 00:00"_s));
    }

    void makesAnewWhatIsAnotherOne_data()
    {
        QTest::addColumn<std::function<void(KWTask &)>>("change");
        QTest::addColumn<bool>("isAnother");
        const auto row = [](const char *name, bool isAnother, std::function<void(KWTask &)> change) {
            QTest::newRow(name) << std::move(change) << isAnother;
        };
        row("rule", true,
            [](KWTask &task) { task.set(&KWTaskModel::repeatRule, u"FREQ=DAILY;INTERVAL=2"_s); });
        row("start", true, [](KWTask &task) { task.set(&KWTaskModel::startDate, at("2030-05-01") + 9h); });
        row("end", true, [](KWTask &task) { task.set(&KWTaskModel::endDate, at("2030-05-01") + 10h); });
        row("all day", true, [](KWTask &task) { task.set(&KWTaskModel::isAllDay, true); });
        row("basis", true, [](KWTask &task) { task.set(&KWTaskModel::repeatFrom, CXRecurrenceFromDueDate); });
        row("exdate", true, [](KWTask &task) { task.set(&KWTaskModel::exDates, {at("2030-05-03") + 8h}); });
        row("zone", false, [](KWTask &task) { task.set(&KWTaskModel::timeZone, u"Asia/Tokyo"_s); });
        row("title", false, [](KWTask &task) { task.set(&KWTaskModel::title, u"Feed"_s); });
        row("completion", false,
            [](KWTask &task) { task.set(&KWTaskModel::completionDate, at("2030-05-01")); });
    }
    void makesAnewWhatIsAnotherOne()
    {
        QFETCH(const std::function<void(KWTask &)>, change);
        QFETCH(const bool, isAnother);
        const QString task = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        const QString other = add("Bins", "2030-05-01 18:00", "RRULE:FREQ=DAILY");
        QVERIFY(generate("2030-05-01", "2030-05-08"));
        const QString otherStored = stored(other);
        saved(*m_store, [&](ObjectContext &context) { change(*context.find<KWTask>(task)); });
        QCOMPARE(generate("2030-05-02", "2030-05-05"), isAnother);
        QCOMPARE(stored(other), otherStored);
        QCOMPARE(number("SELECT count(*) FROM repeatInstanceFetchFlags"), 2);
        // What was made anew is made for the range that was asked for.
        QCOMPARE(stored(task).contains(u"05-07"_s), !isAnother);
        QVERIFY(stored(task).contains(u"05-04"_s) || QLatin1StringView{QTest::currentDataTag()} == u"rule"_s);
    }

    void throwsAwayWhatNoLongerRepeats_data()
    {
        QTest::addColumn<std::function<void(KWTask &)>>("change");
        QTest::newRow("no rule") << std::function{
            [](KWTask &task) { task.set(&KWTaskModel::repeatRule, {}); }};
        QTest::newRow("no date") << std::function{
            [](KWTask &task) { task.set(&KWTaskModel::startDate, std::nullopt); }};
        QTest::newRow("trash") << std::function{
            [](KWTask &task) { task.set(&KWTaskModel::isTrashed, true); }};
        QTest::newRow("gone") << std::function{[](KWTask &task) { task.context().remove(task); }};
    }
    void throwsAwayWhatNoLongerRepeats()
    {
        QFETCH(const std::function<void(KWTask &)>, change);
        const QString task = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        const QString other = add("Bins", "2030-05-01 18:00", "RRULE:FREQ=DAILY");
        QVERIFY(generate("2030-05-01", "2030-05-08"));
        saved(*m_store, [&](ObjectContext &context) { change(*context.find<KWTask>(task)); });
        QVERIFY(generate("2030-05-01", "2030-05-08"));
        QCOMPARE(stored(task), QString{});
        QVERIFY(!stored(other).isEmpty());
        QCOMPARE(number("SELECT count(*) FROM repeatInstanceFetchFlags"), 1);
        QVERIFY(!generate("2030-05-01", "2030-05-08"));
    }

    void keepsAFlagOfWhatYieldsNothing()
    {
        const QString task = add("Cut hair", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        setSaved<KWTask>(*m_store, task, &KWTaskModel::repeatFrom, CXRecurrenceFromCompletionDate);
        const QString broken = add("Odd", "2030-05-01 08:00", "RRULE:FREQ=SOMETIMES");
        const QString often = add("Breathe", "2030-05-01 08:00", "RRULE:FREQ=SECONDLY");
        QVERIFY(!generate("2030-05-01", "2030-05-08"));
        QCOMPARE(stored(task) + stored(broken) + stored(often), QString{});
        QCOMPARE(number("SELECT count(*) FROM repeatInstanceFetchFlags"), 3);
        QVERIFY(m_announced.isEmpty());
    }

    void generatesEventsOfSubscribedCalendars()
    {
        KWCalSubscriptionEventModel event;
        event.userID = m_store->userID();
        event.startDate = at("2030-05-01") + 20h;
        event.endDate = at("2030-05-01") + 22h;
        event.timeZone = u"UTC"_s;
        event.repeatRule = u"RRULE:FREQ=DAILY"_s;
        event.exDates = {at("2030-05-03") + 20h};
        QString match;
        saved(*m_store, [&](ObjectContext &context) {
            KWCalSubscriptionModel calendar;
            calendar.userID = m_store->userID();
            event.subscriptionID = context.insert<KWCalSubscription>(calendar).sid();
            match = context.insert<KWCalSubscriptionEvent>(event).sid();
        });
        const QString task = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        QVERIFY(generate("2030-05-01", "2030-05-05"));
        QCOMPARE(stored(match), u"05-02 20:00, 05-04 20:00"_s);
        QCOMPARE(number("SELECT count(*) FROM repeatInstances WHERE instanceType = 1 AND endDate - startDate "
                        "= 7200000"),
                 2);
        // Tasks come first.
        QCOMPARE(number(("SELECT min(id) FROM repeatInstances WHERE instanceType = 1")),
                 1 + number("SELECT max(id) FROM repeatInstances WHERE instanceType = 0"));
        saved(*m_store,
              [&](ObjectContext &context) { context.remove(*context.find<KWCalSubscriptionEvent>(match)); });
        const QString taskStored = stored(task);
        QVERIFY(generate("2030-05-01", "2030-05-05"));
        QCOMPARE(stored(match), QString{});
        QCOMPARE(stored(task), taskStored);
    }

    void keepsTheWallClock()
    {
        m_store->clock.setZone("America/New_York");
        const QString task = aTask("Stand-up", "America/New_York")
                                 .startingAt("2030-03-08 02:30")
                                 .with(&KWTaskModel::timeZone, u"America/New_York"_s)
                                 .with(&KWTaskModel::repeatRule, u"RRULE:FREQ=DAILY"_s)
                                 .savedIn(*m_store);
        QVERIFY(generate("2030-03-08", "2030-03-12"));
        // The clocks go forward on the 10th: half past two is half past three that day.
        QCOMPARE(stored(task), u"03-09 07:30, 03-10 07:30, 03-11 06:30"_s);
    }

    void theLatestRequestWins()
    {
        const QString task = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        QStringList answers;
        const auto answer = [&answers](const char *name) {
            return [&answers, name](bool generated, Instant, Instant) {
                answers << QLatin1StringView{name} + (generated ? u" yes"_s : u" no"_s);
            };
        };
        // The first is under way, and has not got far, when the others come.
        QThreadPool &threads = m_store->kit().manager().threadPool();
        threads.setMaxThreadCount(1);
        QSemaphore others;
        threads.start([&others] { others.acquire(); });
        m_service->generateInstances(at("2030-05-01"), at("2030-06-01"), answer("first"));
        m_service->generateInstances(at("2030-05-01"), at("2030-07-01"), answer("second"));
        m_service->generateInstances(at("2030-05-01"), at("2030-05-03"), answer("third"));
        others.release();
        QTRY_COMPARE(answers.value(answers.size() - 1), u"third yes"_s);
        QCOMPARE(stored(task), u"05-02 08:00"_s);
        QCOMPARE(m_announced, QStringList{u"05-01..05-03"_s});
        QCOMPARE(answers, (QStringList{u"first no"_s, u"third yes"_s}));
    }

    void aCancelledRunChangesNothing()
    {
        const QString kept = add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        const QString changed = add("Bins", "2030-05-01 18:00", "RRULE:FREQ=DAILY");
        QVERIFY(generate("2030-05-02", "2030-05-04"));
        setSaved<KWTask>(*m_store, changed, &KWTaskModel::repeatRule, u"RRULE:FREQ=WEEKLY"_s);
        add("New", "2030-05-01 12:00", "RRULE:FREQ=DAILY");
        const QString before = ids();
        bool hasEnded = false;
        int allowed = 0;
        for (; !hasEnded; ++allowed) {
            int asked = 0;
            bool generated = false;
            saved(*m_store, [&](ObjectContext &context) {
                RepeatInstanceRun run{{m_store->userID(), at("2030-05-01"), at("2030-05-09")}, context, [&] {
                                          return asked++ == allowed;
                                      }};
                generated = *run.perform();
            });
            hasEnded = asked <= allowed;
            QCOMPARE(generated, hasEnded);
            QCOMPARE(ids() == before, !hasEnded);
            QCOMPARE(number("SELECT count(*) FROM repeatInstanceFetchFlags"), hasEnded ? 3 : 2);
        }
        QVERIFY(allowed > 5);
        QCOMPARE(stored(kept).count(u','), 6);
        QCOMPARE(stored(changed), u"05-08 18:00"_s);
    }

    void asksForHalfAYear()
    {
        m_store->clock.setNow(::at("2030-08-31 15:00"));
        const QString task = add("Rent", "2030-01-28 08:00", "RRULE:FREQ=MONTHLY");
        m_service->generateInstancesWithInSixMonthes();
        QTRY_COMPARE(m_announced, QStringList{u"08-31..02-28"_s});
        QCOMPARE(stored(task), u"09-28 08:00, 10-28 08:00, 11-28 08:00, 12-28 08:00, 01-28 08:00"_s);
    }

    void looksAheadAfterSigningInAndEveryDay()
    {
        const QString task = add("Rent", "2030-04-28 08:00", "RRULE:FREQ=MONTHLY");
        const OccurrencesAhead ahead{*m_service, m_store->kit().center(), m_store->clock};
        m_store->kit().center().post(KWUserDidSignInNotification);
        m_store->clock.advance(10s);
        QTRY_COMPARE(m_announced, QStringList{u"05-01..11-01"_s});
        QVERIFY(stored(task).endsWith(u"10-28 08:00"_s));
        m_store->clock.setNow(::at("2030-05-29 00:00"));
        m_store->kit().center().post(KWNewDayComesNotification);
        QTRY_VERIFY(stored(task).endsWith(u"11-28 08:00"_s));
    }

    void answersNothingWhileNobodyIsSignedIn()
    {
        add("Water", "2030-05-01 08:00", "RRULE:FREQ=DAILY");
        QVERIFY(m_store->account().signOut());
        QVERIFY(!generate("2030-05-01", "2030-05-08"));
        QCOMPARE(number("SELECT count(*) FROM repeatInstanceFetchFlags"), 0);
        QVERIFY(m_announced.isEmpty());
    }
};

ORVANE_TEST(KWRepeatInstanceService_test)
#include "KWRepeatInstanceService_test.moc"
