#include "model/store/ObjectContext.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

StoreChange::Ids tasksOf(const StoreChange &change) { return change.of(RecordKind::Task); }

} // namespace

class ObjectContext_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_rent; // ids of two stored tasks
    QString m_milk;

    std::unique_ptr<ObjectContext> context() { return std::move(*m_store->kit().store().makeContext()); }
    std::optional<KWTaskModel> stored(const QString &id);
    KWTaskModel task(const char *title) const { return aTask(title).in(inbox()).model(); }
    QString inbox() const { return KWProject::inboxIDOfUser(m_store->userID()); }

private Q_SLOTS:
    void init();
    void keepsOneObjectARecord();
    void fillsWhatANewRecordNeeds();
    void makesIdentifiersThatSortByTime();
    void stampsTheModificationOfWhatChanged();
    void announcesEachRecordOnce();
    void savesNothingWhereNothingChanged();
    void removesARecordThatWasEdited();
    void removesARecordThatWasNeverSaved();
    void editsARemovedRecordInVain();
    void rollsEveryChangeBack();
    void refreshesAndKeepsWhatChangedHere();
    void forgetsWhatAnotherContextRemoved();
    void keepsDifferentFieldsOfTwoWriters();
    void findsTheTagMadeInTheSameContext();
    void failingSavesKeepEverything_data();
    void failingSavesKeepEverything();
    void readingADamagedTableFindsNothing();
};

void ObjectContext_test::init()
{
    m_store = std::make_unique<StoreFixture>();
    m_rent = aTask("Pay rent").savedIn(*m_store);
    m_milk = aTask("Buy milk").savedIn(*m_store);
}

std::optional<KWTaskModel> ObjectContext_test::stored(const QString &id)
{
    const auto fresh = context();
    const KWTask *found = fresh->find<KWTask>(id);
    return found ? std::optional{found->model()} : std::nullopt;
}

void ObjectContext_test::keepsOneObjectARecord()
{
    const auto here = context();
    KWTask *rent = here->find<KWTask>(m_rent);
    QVERIFY(rent);
    QCOMPARE(here->find<KWTask>(m_rent), rent);
    QVERIFY(here->fetch<KWTask>({}).contains(rent));
    QCOMPARE(here->fetch<KWTask>({.where = "title = ?", .values = {u"Pay rent"_s}}), QList{rent});

    rent->set(&KWTaskModel::title, u"Pay the rent"_s);
    QCOMPARE(here->fetch<KWTask>({.where = "title = ?", .values = {u"Pay rent"_s}}), QList{rent});
    QCOMPARE(rent->model().title, u"Pay the rent"_s);
    QCOMPARE(here->find<KWTask>(u"no such id"_s), nullptr);

    KWTask &made = here->insert<KWTask>(task("Water plants"));
    QCOMPARE(here->find<KWTask>(made.sid()), &made);
    QVERIFY(here->save());
    QCOMPARE(here->find<KWTask>(made.sid()), &made);
}

void ObjectContext_test::fillsWhatANewRecordNeeds()
{
    const auto here = context();
    const KWTask &made = here->insert<KWTask>(task("Water plants"));
    QVERIFY(!made.sid().isEmpty());
    QCOMPARE(made->createdTime, std::optional{m_store->clock.now()});
    QCOMPARE(made->modifiedTime, std::optional{m_store->clock.now()});

    KWTaskModel older = task("Old");
    older.sid = u"given"_s;
    older.createdTime = older.modifiedTime = at("2020-01-01 00:00");
    const KWTask &kept = here->insert<KWTask>(older);
    QVERIFY(here->save());
    QCOMPARE(stored(u"given"_s), std::optional{older});
    QCOMPARE(kept.model(), older);
}

void ObjectContext_test::makesIdentifiersThatSortByTime()
{
    const Instant now = m_store->clock.now();
    const QString one = newRecordIdentifier(now);
    QCOMPARE(one.size(), 24);
    QVERIFY(one < newRecordIdentifier(now + 1ms));
    QVERIFY(newRecordIdentifier(now) != newRecordIdentifier(now));
}

void ObjectContext_test::stampsTheModificationOfWhatChanged()
{
    const auto here = context();
    const Instant before = m_store->clock.now();
    here->find<KWTask>(m_milk);
    m_store->clock.advance(1min);
    here->find<KWTask>(m_rent)->set(&KWTaskModel::priority, KWTaskPriorityHigh);
    QVERIFY(here->save());
    QCOMPARE(stored(m_rent)->modifiedTime, std::optional{before + 1min});
    QCOMPARE(stored(m_milk)->modifiedTime, std::optional{before});
}

void ObjectContext_test::announcesEachRecordOnce()
{
    const auto here = context();
    QList<StoreChange> announced;
    here->onSaved = [&announced](const StoreChange &change) { announced << change; };

    KWTask &made = here->insert<KWTask>(task("Water plants"));
    made.set(&KWTaskModel::content, u"Twice a week"_s);
    KWTask &rent = *here->find<KWTask>(m_rent);
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    rent.set(&KWTaskModel::priority, KWTaskPriorityLow);
    KWTask &milk = *here->find<KWTask>(m_milk);
    milk.set(&KWTaskModel::title, u"Buy oat milk"_s);
    here->remove(milk);
    here->remove(milk);
    const Result<StoreChange> change = here->save();

    QVERIFY(change);
    QCOMPARE(tasksOf(*change).inserted, QStringList{made.sid()});
    QCOMPARE(tasksOf(*change).updated, QStringList{m_rent});
    QCOMPARE(tasksOf(*change).deleted, QStringList{m_milk});
    QVERIFY(!change->touches(RecordKind::Project));
    QCOMPARE(announced.size(), 1);
    QCOMPARE(tasksOf(announced.first()).updated, QStringList{m_rent});
}

void ObjectContext_test::savesNothingWhereNothingChanged()
{
    const auto here = context();
    int announced = 0;
    here->onSaved = [&announced](const StoreChange &) { ++announced; };
    KWTask &rent = *here->find<KWTask>(m_rent);
    rent.set(&KWTaskModel::title, rent->title);
    QVERIFY(!here->hasChanges());

    // Fields that say nothing to the service can be set back.
    rent.set(&KWTaskModel::serverStartDate, m_store->clock.now());
    QVERIFY(here->hasChanges());
    rent.set(&KWTaskModel::serverStartDate, std::nullopt);
    QVERIFY(!here->hasChanges());
    QVERIFY(here->save()->isEmpty());
    QCOMPARE(announced, 0);

    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    QVERIFY(here->save());
    QCOMPARE(announced, 1);
}

void ObjectContext_test::removesARecordThatWasEdited()
{
    const auto here = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    here->remove(rent);
    QCOMPARE(here->find<KWTask>(m_rent), nullptr);
    QCOMPARE(here->fetch<KWTask>({}).size(), 1);
    QVERIFY(here->save());
    QCOMPARE(here->find<KWTask>(m_rent), nullptr);
    QVERIFY(!stored(m_rent));
    QVERIFY(stored(m_milk));
}

void ObjectContext_test::removesARecordThatWasNeverSaved()
{
    const auto here = context();
    KWTask &made = here->insert<KWTask>(task("Water plants"));
    const QString id = made.sid();
    here->remove(made);
    QVERIFY(!here->hasChanges());
    QCOMPARE(here->find<KWTask>(id), nullptr);
    QVERIFY(here->save()->isEmpty());
}

void ObjectContext_test::editsARemovedRecordInVain()
{
    const auto here = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    here->remove(rent);
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    const Result<StoreChange> change = here->save();
    QVERIFY(change);
    QCOMPARE(tasksOf(*change).deleted, QStringList{m_rent});
    QVERIFY(tasksOf(*change).updated.isEmpty());
    QVERIFY(!stored(m_rent));
}

void ObjectContext_test::rollsEveryChangeBack()
{
    const auto here = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    KWTask &milk = *here->find<KWTask>(m_milk);
    const KWTaskModel before = rent.model();
    const QString made = here->insert<KWTask>(task("Water plants")).sid();
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    rent.set(&KWTaskModel::sortOrder, 7);
    here->remove(rent);
    here->remove(milk);
    here->rollback();

    QVERIFY(!here->hasChanges());
    QCOMPARE(rent.model(), before);
    QCOMPARE(here->find<KWTask>(m_rent), &rent);
    QCOMPARE(here->find<KWTask>(m_milk), &milk);
    QCOMPARE(here->find<KWTask>(made), nullptr);
    QVERIFY(here->save()->isEmpty());

    rent.set(&KWTaskModel::title, u"Rent"_s);
    QVERIFY(here->save());
    QCOMPARE(stored(m_rent)->title, u"Rent"_s);
}

void ObjectContext_test::refreshesAndKeepsWhatChangedHere()
{
    const auto here = context();
    const auto there = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    KWTask &other = *there->find<KWTask>(m_rent);
    other.set(&KWTaskModel::title, u"Rent!"_s);
    other.set(&KWTaskModel::content, u"By transfer"_s);
    const Result<StoreChange> change = there->save();
    here->refresh(*change);

    QCOMPARE(rent->title, u"Pay the rent"_s);
    QCOMPARE(rent->content, u"By transfer"_s);
    QVERIFY(here->hasChanges());
    here->rollback();
    QCOMPARE(rent->title, u"Rent!"_s);
    QCOMPARE(rent.model(), other.model());
}

void ObjectContext_test::forgetsWhatAnotherContextRemoved()
{
    const auto here = context();
    const auto there = context();
    here->find<KWTask>(m_rent)->set(&KWTaskModel::title, u"Pay the rent"_s);
    here->find<KWTask>(m_milk);
    there->remove(*there->find<KWTask>(m_rent));
    QVERIFY(there->save());
    here->refreshAll();
    QCOMPARE(here->find<KWTask>(m_rent), nullptr);
    QVERIFY(here->find<KWTask>(m_milk));
    QVERIFY(!here->hasChanges());
}

void ObjectContext_test::keepsDifferentFieldsOfTwoWriters()
{
    const auto here = context();
    const auto there = context();
    KWTask &mine = *here->find<KWTask>(m_rent);
    KWTask &theirs = *there->find<KWTask>(m_rent);
    mine.set(&KWTaskModel::title, u"Pay the rent"_s);
    theirs.set(&KWTaskModel::tags, {u"home"_s});
    QVERIFY(there->save());
    QVERIFY(here->save());
    QCOMPARE(stored(m_rent)->title, u"Pay the rent"_s);
    QCOMPARE(stored(m_rent)->tags, QStringList{u"home"_s});
}

void ObjectContext_test::findsTheTagMadeInTheSameContext()
{
    const auto here = context();
    const QString user = m_store->userID();
    KWTag *made = KWTag::createNewTagWithName(u"Straße"_s, user, TagUniqueness::MustBeNew, *here);
    QVERIFY(made);
    QCOMPARE((*made)->name, u"straße"_s);
    QCOMPARE(KWTag::createNewTagWithName(u"STRAßE"_s, user, TagUniqueness::MayExist, *here), made);
    QCOMPARE(KWTag::createNewTagWithName(u"straße"_s, user, TagUniqueness::MustBeNew, *here), nullptr);
    KWTag *second = KWTag::createNewTagWithName(u"home"_s, user, TagUniqueness::MayExist, *here);
    QVERIFY((*second)->sortOrder > (*made)->sortOrder);
    QVERIFY(here->save());

    QCOMPARE(KWTag::findTagsOfUser(user, *context()).size(), 2);
    made->markDelete();
    QVERIFY(here->save());
    KWTag *again = KWTag::createNewTagWithName(u"Straße"_s, user, TagUniqueness::MustBeNew, *here);
    QVERIFY(again && again != made);
    QVERIFY(here->save());
    QVERIFY(KWTag::createNewTagWithName(u"home"_s, u"somebody else"_s, TagUniqueness::MustBeNew, *here));
}

void ObjectContext_test::failingSavesKeepEverything_data()
{
    QTest::addColumn<QByteArray>("refusal");
    QTest::addColumn<QByteArray>("relief");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("a file that cannot be written")
        << "PRAGMA query_only = 1"_ba
        << "PRAGMA query_only = 0"_ba << u"The data folder cannot be written, so nothing was saved."_s;
    QTest::newRow("a full disk") << "PRAGMA max_page_count = 1"_ba
                                 << "PRAGMA max_page_count = 1000000"_ba
                                 << u"The disk is full, so nothing was saved."_s;
    const auto refusing = [](const char *row, const char *event) {
        QTest::newRow(row) << "CREATE TEMP TRIGGER refusal BEFORE "_ba + event +
                                  " BEGIN SELECT RAISE(ABORT, 'refused'); END"
                           << "DROP TRIGGER refusal"_ba << u"The store reported a problem: refused."_s;
    };
    refusing("the first row", "UPDATE ON tasks");
    refusing("the second row", "DELETE ON tasks");
    refusing("the third row", "INSERT ON tasks WHEN NEW.title = 'Water plants'");
    refusing("the last row", "INSERT ON checklistItems");
    // Foreign keys are checked when the transaction ends.
    QTest::newRow("the end of the transaction")
        << "CREATE TEMP TRIGGER stray AFTER INSERT ON checklistItems BEGIN UPDATE checklistItems SET taskID = 'gone'; END"_ba
        << "DROP TRIGGER stray"_ba << u"The store reported a problem: FOREIGN KEY constraint failed."_s;
}

void ObjectContext_test::failingSavesKeepEverything()
{
    QFETCH(const QByteArray, refusal);
    QFETCH(const QByteArray, relief);
    const auto here = context();
    QList<StoreChange> announced;
    here->onSaved = [&announced](const StoreChange &change) { announced << change; };
    KWTask &rent = *here->find<KWTask>(m_rent);
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    here->remove(*here->find<KWTask>(m_milk));
    KWTask &plants = here->insert<KWTask>(task("Water plants"));
    plants.set(&KWTaskModel::content, QString{200'000, u'x'});
    KWChecklistItemModel item;
    item.taskID = plants.sid();
    here->insert<KWChecklistItem>(item);
    here->connection().execute(refusal.constData());

    for (int attempt = 0; attempt < 2; ++attempt) {
        const Result<StoreChange> refused = here->save();
        QVERIFY(!refused);
        QTEST(refused.error().sentence, "sentence");
        QCOMPARE(stored(m_rent)->title, u"Pay rent"_s);
        QVERIFY(stored(m_milk));
        QVERIFY(!stored(plants.sid()));
        QCOMPARE(rent->title, u"Pay the rent"_s);
        QVERIFY(here->hasChanges());
        QVERIFY(announced.isEmpty());
    }
    here->connection().execute(relief.constData());
    QVERIFY(here->save());
    QCOMPARE(stored(m_rent)->title, u"Pay the rent"_s);
    QVERIFY(!stored(m_milk));
    QCOMPARE(stored(plants.sid()), std::optional{plants.model()});
    QCOMPARE(announced.size(), 1);
    QVERIFY(!here->hasChanges());
}

void ObjectContext_test::readingADamagedTableFindsNothing()
{
    const auto here = context();
    here->connection().execute("ALTER TABLE checklistItems RENAME TO lost");
    QCOMPARE(here->find<KWChecklistItem>(u"any"_s), nullptr);
    QVERIFY(here->fetch<KWChecklistItem>({}).isEmpty());
    QCOMPARE(here->number("SELECT count(*) FROM checklistItems"), 0);
    QVERIFY(here->find<KWTask>(m_rent));
}

ORVANE_TEST(ObjectContext_test)
#include "ObjectContext_test.moc"
