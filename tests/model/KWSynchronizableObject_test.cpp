#include "model/records/KWSynchronizableObject.h"

#include "model/records/KWTask.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWSynchronizableObject_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_rent; // ids of two stored tasks
    QString m_milk;

    std::unique_ptr<ObjectContext> context() { return std::move(*m_store->kit().store().makeContext()); }
    KWTaskModel stored(const QString &id) { return context()->find<KWTask>(id)->model(); }

private Q_SLOTS:
    void init();
    void flagsTheKindOfChange();
    void passesThroughTheSyncStates();
    void takesAVersionOverWithoutItsIdentity();
};

void KWSynchronizableObject_test::init()
{
    m_store = std::make_unique<StoreFixture>();
    m_rent = aTask("Pay rent").savedIn(*m_store);
    m_milk = aTask("Buy milk").savedIn(*m_store);
}

void KWSynchronizableObject_test::flagsTheKindOfChange()
{
    const auto here = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    const auto flaggedBy = [&rent](auto edit) {
        rent.markDone();
        edit(rent);
        return int(rent->pendingChanges);
    };
    QCOMPARE(flaggedBy([](KWTask &task) { task.set(&KWTaskModel::title, u"a"_s); }), int(Change::Content));
    QCOMPARE(flaggedBy([](KWTask &task) { task.set(&KWTaskModel::desc, u"a"_s); }), int(Change::Content));
    QCOMPARE(flaggedBy([](KWTask &task) { task.set(&KWTaskModel::sortOrder, 5); }), int(Change::Order));
    QCOMPARE(flaggedBy([](KWTask &task) { task.set(&KWTaskModel::tags, {u"a"_s}); }), int(Change::General));
    QCOMPARE(flaggedBy([](KWTask &task) { task.set(&KWTaskModel::etag, u"a"_s); }), int(Change::None));
    QCOMPARE(flaggedBy([](KWTask &task) { task.markUpdate(); }), int(Change::General));
    QCOMPARE(flaggedBy([](KWTask &task) { task.markUpdateForContentUpdate(); }), int(Change::Content));
    QCOMPARE(flaggedBy([](KWTask &task) { task.markUpdateForOrderUpdate(); }), int(Change::Order));
    QCOMPARE(flaggedBy([](KWTask &task) {
                 task.set(&KWTaskModel::content, u"b"_s);
                 task.set(&KWTaskModel::sortOrder, 6);
             }),
             int(Change::Content) | int(Change::Order));
}

void KWSynchronizableObject_test::passesThroughTheSyncStates()
{
    const auto here = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    QCOMPARE(rent->syncStatus, KWSyncStatusCreated);
    rent.set(&KWTaskModel::title, u"Pay the rent"_s);
    QCOMPARE(rent->syncStatus, KWSyncStatusCreated); // still unknown to the service
    rent.markDone();
    QCOMPARE(rent->syncStatus, KWSyncStatusDone);
    rent.set(&KWTaskModel::etag, u"v1"_s);
    QCOMPARE(rent->syncStatus, KWSyncStatusDone);
    rent.markUpdateForOrderUpdate();
    QCOMPARE(rent->syncStatus, KWSyncStatusUpdated);
    QVERIFY(!rent.isMarkedDeleted());
    rent.markDelete();
    QCOMPARE(rent->syncStatus, KWSyncStatusDeleted);
    rent.set(&KWTaskModel::title, u"Rent"_s);
    QCOMPARE(rent->syncStatus, KWSyncStatusDeleted);
    QVERIFY(rent.isDeleted() && !rent.isNotDeleted() && rent.isMarkedDeleted());
    QVERIFY(here->save());
    QVERIFY(stored(m_rent).isDeleted); // until it was pushed
    rent.markDone();
    QVERIFY(rent.isDeleted() && !rent.isMarkedDeleted());
}

void KWSynchronizableObject_test::takesAVersionOverWithoutItsIdentity()
{
    const auto here = context();
    KWTask &rent = *here->find<KWTask>(m_rent);
    rent.markDone();
    QVERIFY(here->save());
    KWTaskModel version = here->find<KWTask>(m_milk)->model();
    version.userID = u"somebody else"_s;
    version.createdTime = rent->createdTime;
    rent.assign(version);
    QCOMPARE(rent.sid(), m_rent);
    QCOMPARE(rent->userID, m_store->userID());
    QCOMPARE(rent->title, u"Buy milk"_s);
    QCOMPARE(rent->syncStatus, KWSyncStatusUpdated);
    QCOMPARE(int(rent->pendingChanges), int(Change::Content));
    QVERIFY(here->save());
    QCOMPARE(stored(m_rent), rent.model());
    QCOMPARE(context()->fetch<KWTask>({}).size(), 2);
}

ORVANE_TEST(KWSynchronizableObject_test)
#include "KWSynchronizableObject_test.moc"
