#include "model/store/KWReminderService.h"

#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr const char *zone = "Europe/Berlin";

std::optional<Instant> instantOf(const QString &cell)
{
    return cell == u"-" ? std::nullopt : std::optional{at(qPrintable(cell), zone)};
}

struct ReminderScene {
    StoreFixture store{"2030-05-01 08:00", zone};
    KWReminderService reminders{store.kit().manager()};

    /// To be reminded of at nine.
    static TaskBuilder task(const char *title, const char *state = "open")
    {
        TaskBuilder task = aTask(title, zone).startingAt("2030-05-01 09:00");
        task.with(&KWTaskModel::reminders, {u"TRIGGER:PT0S"_s});
        return task.inState(QString::fromLatin1(state), "2030-05-01 08:00");
    }
    std::optional<Instant> alertOf(const QString &id)
    {
        return store.context().find<KWTask>(id)->model().remindTime;
    }
    QString due()
    {
        auto found = reminders.due({store.userID(), 0}, store.clock.now());
        std::ranges::sort(found, {}, &DueReminder::title);
        return joined(found, [](const DueReminder &each) {
            return each.isSilent ? u"("_s + each.title + u")"_s : each.title;
        });
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
        const QByteArray zoneOfTask = cells.at(2).toLatin1();
        TaskBuilder task = aTask("Call", zoneOfTask).when(cells.at(1));
        task.with(&KWTaskModel::reminders, cells.at(3).split(u' '));
        const QString id =
            task.with(&KWTaskModel::snoozedRemindDate, instantOf(cells.at(4))).savedIn(scene.store);
        QCOMPARE(scene.alertOf(id), instantOf(cells.at(5)));
        const auto next = scene.reminders.nextRemindTime(scene.store.userID(), scene.store.clock.now());
        QCOMPARE(next, instantOf(cells.at(5)));
    }

    void followsEditsAndLeavesTheModificationTimeAlone()
    {
        ReminderScene scene;
        const QString id = scene.task("Call").savedIn(scene.store);
        setSaved<KWTask>(scene.store, id, &KWTaskModel::startDate, at("2030-05-01 10:00", zone));
        QCOMPARE(scene.alertOf(id), at("2030-05-01 10:00", zone));

        const auto modified = scene.store.context().find<KWTask>(id)->model().modifiedTime;
        scene.store.clock.advance(2h);
        QCOMPARE(scene.due(), u"Call"_s);
        const auto due = scene.reminders.due({scene.store.userID(), 0}, scene.store.clock.now());
        QVERIFY(scene.reminders.markDelivered(due, scene.store.clock.now()));
        QCOMPARE(scene.alertOf(id), std::nullopt);
        QCOMPARE(scene.store.context().find<KWTask>(id)->model().modifiedTime, modified);
    }

    void staysSilentAboutWhatNobodyIsToHear()
    {
        ReminderScene scene;
        const QString muted = scene.store.makeList(u"Muted"_s);
        const QString archived = scene.store.makeList(u"Archived"_s);
        setSaved<KWProject>(scene.store, muted, &KWProjectModel::isMuted, true);
        setSaved<KWProject>(scene.store, archived, &KWProjectModel::closed, true);
        scene.task("muted").in(muted).savedIn(scene.store);
        scene.task("archived").in(archived).savedIn(scene.store);
        for (const char *state : {"assigned-7", "trashed", "deleted"})
            scene.task(state, state).savedIn(scene.store);
        scene.task("mine", "assigned-0").withItem("item", "2030-05-01 09:00").savedIn(scene.store);
        scene.task("completed", "completed").withItem("orphan", "2030-05-01 09:00").savedIn(scene.store);
        scene.store.clock.advance(1h);
        QCOMPARE(scene.due(), u"(archived) (assigned-7) item mine (muted) (orphan)"_s);
    }
};

ORVANE_TEST(KWReminderService_test)
#include "KWReminderService_test.moc"
