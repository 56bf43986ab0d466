#include "model/exchange/StoreExport.h"
#include "model/exchange/StoreImport.h"
#include "model/records/EveryRecord.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QBuffer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A folder whose store has no account yet.
struct EmptyHome {
    QTemporaryDir folder;
    ManualClock clock{"2031-01-01 09:00"};
    Store::Opening opening = Store::open(folder.filePath(u"store.sqlite"_s), clock);
    Store &store() const { return *opening.store; }
};

QByteArray exported(Store &store)
{
    QByteArray document;
    const Result<void> done = exportStore(store, [&document](const QByteArray &piece) {
        document += piece;
        return true;
    });
    if (!done) qFatal("%s", qUtf8Printable(done.error().sentence));
    return document;
}

Result<ImportSummary> imported(QByteArray document, Store &store)
{
    QBuffer device{&document};
    device.open(QIODevice::ReadOnly);
    return importStore(device, store);
}

void addTag(const QString &name, const QString &userID, ObjectContext &context)
{
    KWTagModel tag;
    tag.userID = userID;
    tag.name = name;
    context.insert<KWTag>(std::move(tag));
}

/// One record of each kind, each belonging to those made before.
void makeOneOfEach(StoreFixture &store)
{
    QHash<QByteArray, QString> ids; // by table
    saved(store, [&](ObjectContext &context) {
        const auto make = [&]<class Record>(std::type_identity<Record>) {
            typename Record::Model model;
            model.userID = store.userID();
            model.etag = u"‘e’ ü\n\"\\ 日本"_s;
            model.sortOrder = std::numeric_limits<std::int64_t>::max() - 1;
            model.syncStatus = KWSyncStatusUpdated;
            model.pendingChanges = 5;
            model.isDeleted = Record::Model::recordKind == RecordKind::Tag;
            if constexpr (requires { model.projectID; }) model.projectID = ids.value("projects");
            if constexpr (requires { model.taskID; }) model.taskID = ids.value("tasks");
            if constexpr (requires { model.habitID; }) model.habitID = ids.value("habits");
            if constexpr (requires { model.pomodoroID; }) model.pomodoroID = ids.value("pomodoros");
            if constexpr (requires { model.subscriptionID; })
                model.subscriptionID = ids.value("calSubscriptions");
            if constexpr (requires { model.isTrashed; }) model.isTrashed = true;
            ids[Record::Model::tableName] = context.insert<Record>(std::move(model)).sid();
        };
#define MAKE(Record) make(std::type_identity<Record>{});
        EVERY_RECORD(MAKE)
#undef MAKE
    });
}

} // namespace

/// The store as a document, and back.
class StoreExchange_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDocumentComesBackAsItWas()
    {
        StoreFixture store;
        makeOneOfEach(store);
        saved(store, [&](ObjectContext &context) {
            for (int i = 0; i < 1100; ++i) // more than one page
                addTag(QString::number(i), store.userID(), context);
        });
        const QByteArray document = exported(store.kit().store());
        const int count = int(recordKindCount) + 3 + 1100;
        QCOMPARE(document.count("\n{"), count);

        const EmptyHome home;
        QCOMPARE(imported(document, home.store())->added, count);
        QCOMPARE(exported(home.store()), document);
        QCOMPARE(imported(document, home.store())->kept, count);
        QCOMPARE(exported(home.store()), document);
    }

    void twoComputersComeTogether()
    {
        StoreFixture here;
        StoreFixture there{"2030-05-02 09:00"};
        const QString milk = aTask("Milk").tagged("errand").savedIn(there);
        const QString rent = aTask("Rent").savedIn(here);
        for (StoreFixture *each : {&here, &there})
            saved(*each, [each](ObjectContext &context) { addTag(u"errand"_s, each->userID(), context); });
        const auto shownIn = [](StoreFixture &store) {
            return KWListDisplayConfigurationManager{store.kit().manager(), store.kit().center(),
                                                     store.userID()};
        };
        const auto inboxOf = [](StoreFixture &store) {
            return KWListIdentifier::project(KWProject::inboxIDOfUser(store.userID()));
        };
        auto shown = shownIn(there).configuration(inboxOf(there));
        shown.showsDetails = true;
        QVERIFY(shownIn(there).save(shown));
        const QByteArray document = exported(there.kit().store());
        QCOMPARE(imported(document, here.kit().store())->added, 2); // not the tag of that name
        here.reopen();
        QVERIFY(shownIn(here).configuration(inboxOf(here)).showsDetails);
        QCOMPARE(here.context().number("SELECT count(*) FROM users"), 1);
        QCOMPARE(here.context().find<KWTask>(milk)->model().projectID,
                 KWProject::inboxIDOfUser(here.userID()));
        QVERIFY(here.context().find<KWTask>(rent));
    }

    void theLaterVersionStays()
    {
        StoreFixture store;
        const QString task = aTask("Earlier").savedIn(store);
        const QByteArray earlier = exported(store.kit().store());
        store.clock.advance(1min);
        setSaved<KWTask>(store, task, &KWTaskModel::title, u"Later"_s);
        const QByteArray later = exported(store.kit().store());
        const EmptyHome home;
        for (const auto &[document, replaced] : {std::pair{earlier, 0}, {later, 1}, {earlier, 0}})
            QCOMPARE(imported(document, home.store())->replaced, replaced);
        QCOMPARE(exported(home.store()), later);
    }

    void badDocumentsChangeNothing_data() { addCaseRows("model/bad_documents.txt", 2); }
    void badDocumentsChangeNothing()
    {
        QFETCH(QStringList, cells);
        const QString head =
            u"{\"format\": \"orvane-export\", \"version\": 1, \"users\": [{\"id\": \"u\"}]\n"_s;
        const EmptyHome home;
        const QByteArray before = exported(home.store());
        const QString document =
            cells.at(0) == u"-" ? QString{} : QString{cells.at(0)}.replace(u"«head»"_s, head);
        QVERIFY(isRefused(imported(document.toUtf8(), home.store()), cells.at(1)));
        QCOMPARE(exported(home.store()), before);
    }

    void aFullDiskEndsAnExport()
    {
        const EmptyHome home;
        int pieces = 0;
        QVERIFY(!exportStore(home.store(), [&pieces](const QByteArray &) { return ++pieces < 10; }));
        QCOMPARE(pieces, 10);
        exported(home.store()); // the connection is free again
    }
};

ORVANE_TEST(StoreExchange_test)
#include "StoreExchange_test.moc"
