#include "app/KWSignificantTimeChangeObserver.h"

#include "app/RecordingAlerts.h"
#include "corvexkit/time/TimeText.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "support/FailingWrites.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *home = "America/New_York";

struct Traveller {
    StoreFixture store{"2030-05-01 09:00", home};
    RecordingAlerts alerts;
    CountingRelaunch relaunch;
    std::unique_ptr<KWSignificantTimeChangeObserver> observer;

    Traveller() { start(); }

    void start()
    {
        OrvaneKit &kit = store.kit();
        observer =
            std::make_unique<KWSignificantTimeChangeObserver>(KWSignificantTimeChangeObserver::Collaborators{
                store.clock, kit.manager(), kit.account(), kit.defaults(), kit.center(), absentSync, alerts,
                relaunch});
        observer->applicationDidFinishLaunching();
        settle();
    }
    void restart()
    {
        observer.reset();
        store.reopen();
        start();
    }
    void flyTo(const char *zone)
    {
        store.clock.setZone(zone);
        store.kit().center().post(SystemTimeZoneDidChangeNotification);
        settle();
    }
    void settle()
    {
        store.kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
    }
    KWTaskModel task(const QString &id) { return store.context().find<KWTask>(id)->model(); }
    std::optional<Instant> startOf(const QString &id)
    {
        const KWTask *owner = store.context().find<KWTask>(id);
        return owner ? owner->model().startDate
                     : store.context().find<KWChecklistItem>(id)->model().startDate;
    }
    QString wall(Instant date) { return TimeText::fromLocalTime(store.clock.zone().toLocal(date)); }

    KWSyncManager absentSync;
};

} // namespace

class KWSignificantTimeChangeObserver_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aJourneyAndBackLeavesDatesOnTheWall()
    {
        Traveller traveller;
        StoreFixture &store = traveller.store;
        const auto tomorrow = [] { return aTask("Run", home).startingAt("2030-05-02 07:00"); };
        const QString day = aTask("Pay rent", home)
                                .dueFrom("2030-03-09", "2030-03-11")
                                .with(&KWTaskModel::exDates, {at("2030-05-09 00:00", home)})
                                .savedIn(store);
        const QString floating = tomorrow()
                                     .with(&KWTaskModel::isFloating, true)
                                     .withItem("0, of the floating task", "2030-05-02 06:30")
                                     .savedIn(store);
        const QString fixed = tomorrow()
                                  .withItem("1, of a day", "2030-05-02 00:00")
                                  .withItem("2, of a time", "2030-05-02 06:30")
                                  .savedIn(store);
        const auto items = store.context().models<KWChecklistItem>({.orderBy = "title"});
        setSaved<KWChecklistItem>(store, items.at(1).sid, &KWChecklistItemModel::isAllDay, true);
        const QString nameless =
            aTask("Water", home).dueOn("2030-05-03").with(&KWTaskModel::timeZone, {}).savedIn(store);
        const QString deleted = aTask("Gone", home).dueOn("2030-05-02").savedIn(store);
        saved(store, [&](ObjectContext &context) { context.find<KWTask>(deleted)->markDelete(); });
        const auto dates = [&] {
            const KWTaskModel days = traveller.task(day);
            QStringList seen{traveller.wall(*days.endDate), traveller.wall(days.exDates.value(0))};
            for (const QString &each : {day, floating, nameless, items.at(0).sid, items.at(1).sid})
                seen << traveller.wall(*traveller.startOf(each));
            for (const QString &each : {fixed, deleted, items.at(2).sid})
                seen << TimeText::fromInstant(*traveller.startOf(each));
            return seen;
        };
        const QStringList datesAtHome = dates();

        for (const char *zone : {"Asia/Tokyo", home, "Pacific/Apia", "Africa/Cairo", home}) {
            traveller.flyTo(zone);
            QCOMPARE(traveller.alerts.messages.takeFirst(), u"Time zone has changed"_s);
            traveller.alerts.answer(0);
            traveller.restart();
            QCOMPARE(traveller.alerts.messages.takeFirst(), u"Time Zone Change"_s);
            QCOMPARE(dates(), datesAtHome);
        }
        // The last act before a crash may have been the save, without the note of the zone.
        store.kit().defaults().set(Settings::lastLocalTimeZone, u"Asia/Tokyo"_s);
        traveller.restart();
        QCOMPARE(dates(), datesAtHome);
        QCOMPARE(traveller.alerts.messages, QStringList{});
        QCOMPARE(traveller.relaunch.count, 5);
    }

    void asksOnceAfterTheRestartUnlessTheOptionIsOn()
    {
        Traveller traveller;
        aTask("Pay rent", home).dueOn("2030-05-02").savedIn(traveller.store);
        traveller.flyTo("Asia/Tokyo");
        QCOMPARE(traveller.alerts.last.buttons, QStringList{u"Restart Now"_s});
        traveller.restart();
        QCOMPARE(traveller.alerts.last.buttons, QStringList({u"Enable"_s, u"Cancel"_s}));
        traveller.alerts.answer(1);
        QVERIFY(!traveller.store.account().userSettings().isTimeZoneOptionEnabled);
        traveller.restart();
        QCOMPARE(traveller.alerts.messages.size(), 2);

        traveller.flyTo(home);
        traveller.restart();
        traveller.alerts.answer(0);
        QVERIFY(traveller.store.account().userSettings().isTimeZoneOptionEnabled);
        traveller.alerts.messages.clear();
        traveller.flyTo("Asia/Tokyo");
        traveller.restart();
        QCOMPARE(traveller.alerts.messages, QStringList{u"Time zone has changed"_s});
    }

    void adaptsAtTheNextCheckWhatCouldNotBeSaved()
    {
        FailingWrites writes;
        Traveller traveller;
        const QString id = aTask("Pay rent", home).dueOn("2030-05-02").savedIn(traveller.store);
        const QString dayAtHome = traveller.wall(*traveller.startOf(id));
        writes.failAt(1);
        traveller.flyTo("Asia/Tokyo");
        QVERIFY(writes.hasFailed());
        QCOMPARE(traveller.alerts.messages, QStringList{});
        QCOMPARE(traveller.observer->lastLocalTimeZone()->identifier(), u"Asia/Tokyo"_s);

        traveller.restart();
        QCOMPARE(traveller.alerts.messages, QStringList{u"Time zone has changed"_s});
        QCOMPARE(traveller.wall(*traveller.startOf(id)), dayAtHome);
        traveller.restart();
        QCOMPARE(traveller.alerts.messages.value(1), u"Time Zone Change"_s);
    }

    void comparesOffsetsAndNotNames()
    {
        Traveller traveller;
        const QString id = aTask("Pay rent", home).dueOn("2030-05-02").savedIn(traveller.store);
        traveller.flyTo("America/Toronto");
        QCOMPARE(traveller.alerts.messages, QStringList{});
        QCOMPARE(traveller.observer->lastLocalTimeZone()->identifier(), u"America/Toronto"_s);
        QCOMPARE(traveller.task(id).timeZone, QString::fromLatin1(home));
        traveller.store.kit().defaults().set(Settings::lastLocalTimeZone, u"Atlantis/Capital"_s);
        traveller.flyTo("Asia/Tokyo");
        QCOMPARE(traveller.alerts.messages, QStringList{});
        QCOMPARE(traveller.observer->lastLocalTimeZone()->identifier(), u"Asia/Tokyo"_s);
    }
};

ORVANE_TEST(KWSignificantTimeChangeObserver_test)
#include "KWSignificantTimeChangeObserver_test.moc"
