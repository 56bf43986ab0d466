#include "model/store/ObjectContext.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ObjectContext_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_rent; // ids of two stored tasks
    QString m_milk;

    std::unique_ptr<ObjectContext> context() { return std::move(*m_store->kit().store().makeContext()); }

    std::optional<KWTaskModel> stored(const QString &id)
    {
        const auto fresh = context();
        const KWTask *found = fresh->find<KWTask>(id);
        return found ? std::optional{found->model()} : std::nullopt;
    }

    KWTaskModel task(const char *title) const { return aTask(title).in(inbox()).model(); }
    QString inbox() const { return KWProject::inboxIDOfUser(m_store->userID()); }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_rent = aTask("Pay rent").savedIn(*m_store);
        m_milk = aTask("Buy milk").savedIn(*m_store);
    }

    void writesManyRowsWithItsSave()
    {
        const auto rename = [](ObjectContext &context) {
            context.bulkWriting().execute("UPDATE tasks SET title = 'X'");
        };
        const auto here = context();
        QStringList saves;
        here->onSaved = [&saves](const StoreChange &change) {
            saves << QString::number(change.of(RecordKind::Task).updated.size());
        };
        rename(*here);
        QVERIFY(here->hasChanges());
        QCOMPARE(stored(m_rent)->title, u"Pay rent"_s);
        here->rollback();
        QVERIFY(here->save() && !here->hasChanges());
        QCOMPARE(stored(m_rent)->title, u"Pay rent"_s);

        rename(*here);
        here->find<KWTask>(m_milk)->set(&KWTaskModel::priority, KWTaskPriorityHigh);
        QVERIFY(here->save());
        QCOMPARE(stored(m_rent)->title + stored(m_milk)->title, u"XX"_s);
        rename(*here);
        QVERIFY(here->save());
        QCOMPARE(saves, QStringList{u"1"_s}); // rows alone are no records
    }

    void stampsWhatIsNewAndWhatChanged()
    {
        const auto here = context();
        const Instant before = m_store->clock.now();
        m_store->clock.advance(1min);
        const QString made = here->insert<KWTask>(task("Water plants")).sid();
        KWTaskModel older = task("Old");
        older.sid = u"given"_s;
        older.createdTime = older.modifiedTime = at("2020-01-01 00:00");
        here->insert<KWTask>(older);
        here->find<KWTask>(m_milk);
        here->find<KWTask>(m_rent)->set(&KWTaskModel::priority, KWTaskPriorityHigh);
        QVERIFY(here->save());
        QCOMPARE(stored(made)->createdTime, std::optional{before + 1min});
        QCOMPARE(stored(u"given"_s), std::optional{older});
        QCOMPARE(stored(m_rent)->modifiedTime, std::optional{before + 1min});
        QCOMPARE(stored(m_milk)->modifiedTime, std::optional{before});
    }

    void announcesEachRecordOnce()
    {
        const auto here = context();
        QList<StoreChange::Ids> announced;
        here->onSaved = [&announced](const StoreChange &change) { announced << change.of(RecordKind::Task); };
        KWTask &rent = *here->find<KWTask>(m_rent);
        rent.set(&KWTaskModel::title, rent->title);
        QVERIFY(!here->hasChanges());
        // Fields that say nothing to the service can be set back.
        rent.set(&KWTaskModel::serverStartDate, m_store->clock.now());
        QVERIFY(here->hasChanges());
        rent.set(&KWTaskModel::serverStartDate, std::nullopt);
        QVERIFY(!here->hasChanges() && here->save()->isEmpty() && announced.isEmpty());

        KWTask &made = here->insert<KWTask>(task("Water plants"));
        made.set(&KWTaskModel::content, u"Twice a week"_s);
        here->remove(here->insert<KWTask>(task("Never saved")));
        rent.set(&KWTaskModel::title, u"Pay the rent"_s);
        rent.set(&KWTaskModel::priority, KWTaskPriorityLow);
        KWTask &milk = *here->find<KWTask>(m_milk);
        milk.set(&KWTaskModel::title, u"Buy oat milk"_s);
        here->remove(milk);
        milk.set(&KWTaskModel::title, u"in vain"_s);
        QCOMPARE(here->find<KWTask>(m_milk), nullptr);
        QCOMPARE(here->fetch<KWTask>({}).size(), 1); // of those in the store
        const Result<StoreChange> change = here->save();
        QVERIFY(change && !change->touches(RecordKind::Project) && !stored(m_milk));
        QCOMPARE(announced.size(), 1);
        for (const StoreChange::Ids &each : {announced.first(), change->of(RecordKind::Task)}) {
            QCOMPARE(each.inserted, QStringList{made.sid()});
            QCOMPARE(each.updated, QStringList{m_rent});
            QCOMPARE(each.deleted, QStringList{m_milk});
        }
    }

    void savesNothingWhenAChangedRecordIsGone()
    {
        const auto here = context();
        here->find<KWTask>(m_milk)->set(&KWTaskModel::title, u"Buy oat milk"_s);
        here->find<KWTask>(m_rent)->set(&KWTaskModel::title, u"Pay the rent"_s);
        saved(*m_store, [this](ObjectContext &context) { context.remove(*context.find<KWTask>(m_rent)); });
        QVERIFY(isRefused(here->save(), u"nothing was saved."));
        QCOMPARE(stored(m_milk)->title, u"Buy milk"_s);
        here->refreshAll();
        QCOMPARE(here->find<KWTask>(m_rent), nullptr);
        QVERIFY(here->save());
        QCOMPARE(stored(m_milk)->title, u"Buy oat milk"_s);
    }

    void rollsEveryChangeBack()
    {
        const auto here = context();
        KWTask &rent = *here->find<KWTask>(m_rent);
        const KWTaskModel before = rent.model();
        const QString made = here->insert<KWTask>(task("Water plants")).sid();
        rent.set(&KWTaskModel::title, u"Pay the rent"_s);
        QCOMPARE(here->fetch<KWTask>({.where = "title = 'Pay rent'"}), QList{&rent}); // as it is stored
        here->remove(rent);
        here->rollback();
        QVERIFY(!here->hasChanges() && here->save()->isEmpty());
        QCOMPARE(rent.model(), before);
        QCOMPARE(here->find<KWTask>(m_rent), &rent);
        QCOMPARE(here->find<KWTask>(made), nullptr);
    }

    void keepsDifferentFieldsOfTwoWriters()
    {
        const auto here = context();
        const auto there = context();
        KWTask &rent = *here->find<KWTask>(m_rent);
        rent.set(&KWTaskModel::title, u"Pay the rent"_s);
        KWTask &other = *there->find<KWTask>(m_rent);
        other.set(&KWTaskModel::content, u"By transfer"_s);
        here->refresh(*there->save());
        QCOMPARE(rent->title + rent->content, u"Pay the rentBy transfer"_s);
        other.set(&KWTaskModel::tags, {u"home"_s});
        QVERIFY(there->save() && here->save()); // without the tags, which it does not know of
        QCOMPARE(stored(m_rent)->title, u"Pay the rent"_s);
        QCOMPARE(stored(m_rent)->tags, QStringList{u"home"_s});
    }

    void failingSavesKeepEverything_data() { addCaseRows("model/failing-saves.txt", 3); }
    void failingSavesKeepEverything()
    {
        QFETCH(const QStringList, cells);
        const auto here = context();
        int announced = 0;
        here->onSaved = [&announced](const StoreChange &) { ++announced; };
        KWTask &rent = *here->find<KWTask>(m_rent);
        rent.set(&KWTaskModel::title, u"Pay the rent"_s);
        here->remove(*here->find<KWTask>(m_milk));
        KWTask &plants = here->insert<KWTask>(task("Water plants"));
        plants.set(&KWTaskModel::content, QString{200'000, u'x'});
        KWChecklistItemModel item;
        item.taskID = plants.sid();
        here->insert<KWChecklistItem>(item);
        here->connection().execute(qPrintable(cells.at(0)));

        for (int attempt = 0; attempt < 2; ++attempt) {
            QVERIFY(isRefused(here->save(), cells.at(2)));
            QCOMPARE(stored(m_rent)->title, u"Pay rent"_s);
            QVERIFY(stored(m_milk) && !stored(plants.sid()));
            QCOMPARE(rent->title, u"Pay the rent"_s);
            QVERIFY(here->hasChanges() && announced == 0);
        }
        here->connection().execute(qPrintable(cells.at(1)));
        QVERIFY(here->save());
        QCOMPARE(stored(m_rent)->title, u"Pay the rent"_s);
        QVERIFY(!stored(m_milk));
        QCOMPARE(stored(plants.sid()), std::optional{plants.model()});
        QVERIFY(!here->hasChanges() && announced == 1);
    }

    void passesThroughTheSyncStates()
    {
        const auto here = context();
        KWTask &rent = *here->find<KWTask>(m_rent);
        rent.set(&KWTaskModel::title, u"Pay the rent"_s);
        QCOMPARE(rent->syncStatus, KWSyncStatusCreated); // still unknown to the service
        rent.markDone();
        rent.set(&KWTaskModel::etag, u"v1"_s);
        QCOMPARE(rent->syncStatus, KWSyncStatusDone);
        rent.set(&KWTaskModel::content, u"By transfer"_s);
        rent.set(&KWTaskModel::sortOrder, 6);
        QCOMPARE(rent->syncStatus, KWSyncStatusUpdated);
        QCOMPARE(int(rent->pendingChanges), int(Change::Content) | int(Change::Order));
        rent.markDelete();
        rent.set(&KWTaskModel::title, u"Rent"_s);
        QCOMPARE(rent->syncStatus, KWSyncStatusDeleted);
        QVERIFY(rent.isDeleted() && rent.isMarkedDeleted());
        QVERIFY(here->save());
        QVERIFY(stored(m_rent)->isDeleted); // until it was pushed
        rent.markDone();
        QVERIFY(rent.isDeleted() && !rent.isMarkedDeleted());
    }

    void readingADamagedTableFindsNothing()
    {
        const auto here = context();
        here->connection().execute("ALTER TABLE checklistItems RENAME TO lost");
        QVERIFY(!here->find<KWChecklistItem>(u"any"_s) && here->fetch<KWChecklistItem>({}).isEmpty());
        QCOMPARE(here->number("SELECT count(*) FROM checklistItems"), 0);
        QVERIFY(here->find<KWTask>(m_rent) && !here->readResult());
    }
};

ORVANE_TEST(ObjectContext_test)
#include "ObjectContext_test.moc"
