#include "model/store/KWReminderService.h"

#include "corvexkit/time/TimeText.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/TimeZoneAdaptation.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr const char *zone = "Europe/Berlin";

std::optional<Instant> instantOf(const QString &text, const QString &zoneName = QString::fromLatin1(zone))
{
    if (text == u"-") return std::nullopt;
    return at(qPrintable(text.size() == 10 ? text + u" 00:00"_s : text), qPrintable(zoneName));
}

struct ReminderScene {
    StoreFixture store{"2030-05-01 08:00", zone};
    KWReminderService reminders{store.kit().manager()};

    QString addTask(const char *start, const char *reminder = "TRIGGER:PT0S")
    {
        const QString id = aTask("Call", zone).startingAt(start).savedIn(store);
        setSaved<KWTask>(store, id, &KWTaskModel::reminders, {QString::fromLatin1(reminder)});
        return id;
    }
    std::optional<Instant> alertOf(const QString &id)
    {
        return store.context().find<KWTask>(id)->model().remindTime;
    }
    QStringList dueTitles()
    {
        QStringList titles;
        for (const DueReminder &each : reminders.due({store.userID(), 0}, store.clock.now()))
            titles << (each.isSilent ? u"("_s + each.title + u")"_s : each.title);
        return titles;
    }
};

} // namespace

class KWReminderService_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plansTheNextAlert_data() { addCaseRows("model/next-alerts.txt", 6); }
    void plansTheNextAlert()
    {
        QFETCH(QStringList, cells);
        ReminderScene scene;
        scene.store.clock.setNow(*instantOf(cells.at(0)));
        KWTaskModel task = aTask("Call", zone).model();
        task.userID = scene.store.userID();
        task.projectID = KWProject::inboxIDOfUser(task.userID);
        task.isAllDay = cells.at(1).size() == 10;
        task.timeZone = cells.at(2) == u"-" ? QString{} : cells.at(2);
        task.startDate = instantOf(cells.at(1), task.isAllDay ? task.timeZone : QString::fromLatin1(zone));
        task.reminders = cells.at(3).split(u' ');
        task.snoozedRemindDate = instantOf(cells.at(4));
        QString id;
        saved(scene.store, [&](ObjectContext &context) { id = context.insert<KWTask>(task).sid(); });
        QCOMPARE(scene.alertOf(id), instantOf(cells.at(5)));
        const auto next = scene.reminders.nextRemindTime(task.userID, scene.store.clock.now());
        QCOMPARE(next, instantOf(cells.at(5)));
    }

    void followsEditsAndLeavesTheModificationTimeAlone()
    {
        ReminderScene scene;
        const QString id = scene.addTask("2030-05-01 09:00");
        setSaved<KWTask>(scene.store, id, &KWTaskModel::startDate, at("2030-05-01 10:00", zone));
        QCOMPARE(scene.alertOf(id), at("2030-05-01 10:00", zone));

        const auto modified = scene.store.context().find<KWTask>(id)->model().modifiedTime;
        scene.store.clock.advance(2h);
        QCOMPARE(scene.dueTitles(), QStringList{u"Call"_s});
        const auto due = scene.reminders.due({scene.store.userID(), 0}, scene.store.clock.now());
        QVERIFY(scene.reminders.markDelivered(due, scene.store.clock.now()));
        QCOMPARE(scene.alertOf(id), std::nullopt);
        QCOMPARE(scene.store.context().find<KWTask>(id)->model().modifiedTime, modified);

        // Stored by somebody who worked out no alert.
        setSaved<KWTask>(scene.store, id, &KWTaskModel::startDate, at("2030-05-01 12:00", zone));
        scene.store.context().connection().execute("UPDATE tasks SET remindTime = NULL");
        scene.reminders.planMissing(scene.store.userID());
        scene.store.kit().manager().threadPool().waitForDone();
        QCOMPARE(scene.reminders.nextRemindTime(scene.store.userID(), scene.store.clock.now()),
                 at("2030-05-01 12:00", zone));
    }

    void carriesAlertsToAnotherZoneOnce()
    {
        constexpr const char *away = "America/New_York";
        ReminderScene scene;
        const auto addDay = [&scene] {
            const QString id = aTask("Pay rent", zone).dueOn("2030-05-02").savedIn(scene.store);
            setSaved<KWTask>(scene.store, id, &KWTaskModel::reminders, {u"TRIGGER:P0DT9H0M0S"_s});
            return id;
        };
        const QString left = addDay(), edited = addDay();
        QCOMPARE(scene.alertOf(left), at("2030-05-02 09:00", zone));
        scene.store.clock.setZone(away);
        setSaved<KWTask>(scene.store, edited, &KWTaskModel::reminders, {u"TRIGGER:P0DT10H0M0S"_s});
        QCOMPARE(scene.alertOf(edited), at("2030-05-02 10:00", away));
        saved(scene.store, [](ObjectContext &context) {
            QCOMPARE(adaptDatesToLocalTimeZone(*CXTimeZone::named(QString::fromLatin1(zone)), context), 2);
        });
        QCOMPARE(scene.alertOf(left), at("2030-05-02 09:00", away));
        QCOMPARE(scene.alertOf(edited), at("2030-05-02 10:00", away));
    }

    void staysSilentAboutWhatNobodyIsToHear()
    {
        ReminderScene scene;
        const QString muted = scene.store.makeList(u"Muted"_s);
        const QString archived = scene.store.makeList(u"Archived"_s);
        QHash<QString, QString> ids;
        for (const char *each : {"muted", "archived", "else's", "mine", "completed", "trashed", "deleted"}) {
            const QString id = ids[QString::fromLatin1(each)] = scene.addTask("2030-05-01 09:00");
            setSaved<KWTask>(scene.store, id, &KWTaskModel::title, QString::fromLatin1(each));
        }
        saved(scene.store, [&](ObjectContext &context) {
            const auto task = [&](const QString &title) { return context.find<KWTask>(ids.value(title)); };
            context.find<KWProject>(muted)->set(&KWProjectModel::isMuted, true);
            context.find<KWProject>(archived)->set(&KWProjectModel::closed, true);
            task(u"muted"_s)->set(&KWTaskModel::projectID, muted);
            task(u"archived"_s)->set(&KWTaskModel::projectID, archived);
            task(u"else's"_s)->set(&KWTaskModel::assignee, 7);
            task(u"mine"_s)->set(&KWTaskModel::assignee, 0);
            task(u"completed"_s)->updateStatus(KWTaskStatusCompleted);
            task(u"trashed"_s)->set(&KWTaskModel::isTrashed, true);
            task(u"deleted"_s)->markDelete();
            KWChecklistItemModel item;
            item.userID = scene.store.userID();
            item.startDate = at("2030-05-01 09:00", zone);
            for (const auto &[title, owner] :
                 {std::pair{u"item"_s, u"mine"_s}, {u"orphan"_s, u"completed"_s}}) {
                item.title = title;
                item.taskID = ids.value(owner);
                context.insert<KWChecklistItem>(item);
            }
        });
        scene.store.clock.advance(1h);
        QStringList titles = scene.dueTitles();
        titles.sort();
        QCOMPARE(titles, QStringList({u"(archived)"_s, u"(else's)"_s, u"(muted)"_s, u"(orphan)"_s, u"item"_s,
                                      u"mine"_s}));
    }
};

ORVANE_TEST(KWReminderService_test)
#include "KWReminderService_test.moc"
