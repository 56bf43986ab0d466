#include "lists/KWTaskListService.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWTaskListService_test : public QObject {
    Q_OBJECT

    static constexpr int longLength = 1000; // of a list that is not read at once

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWTaskListService> m_service;
    QList<qsizetype> m_lengths; // of the rows, at every change
    QStringList m_failures;

    QString makeLongList()
    {
        const QString list = m_store->makeList(u"Long"_s);
        saved(*m_store, [&](ObjectContext &context) {
            for (int i = 0; i < longLength; ++i)
                context.insert<KWTask>(aTask("Task").in(list).ordered(i).model());
        });
        return list;
    }

    QStringList titles() const
    {
        QStringList titles;
        for (const KWTaskListItemModel &each : m_service->rows())
            titles << each.title;
        return titles;
    }

    void finishReading()
    {
        m_store->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
    }

    KWListIdentifier inbox() const
    {
        return KWListIdentifier::project(KWProject::inboxIDOfUser(m_store->userID()));
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        OrvaneKit &kit = m_store->kit();
        m_service =
            std::make_unique<KWTaskListService>(kit.manager(), kit.account(), kit.center(), kit.bus());
        m_lengths.clear();
        m_failures.clear();
        m_service->onRowsChanged = [this] { m_lengths << m_service->rows().size(); };
        m_service->onFailure = [this](const QString &sentence) { m_failures << sentence; };
    }

    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void showsTheRowsOfTheSelectedList()
    {
        const QString home = m_store->makeList(u"Home"_s);
        aTask("Pay rent").in(home).savedIn(*m_store);
        m_service->select(KWListIdentifier::project(home));
        QCOMPARE(titles(), QStringList{u"Pay rent"_s});
        m_service->select(KWListIdentifier::project(home)); // as it is
        m_service->select(KWListIdentifier::todayProject());
        QVERIFY(m_service->list() == KWListIdentifier::todayProject());
        m_service->select(inbox());
        QCOMPARE(m_lengths, QList<qsizetype>({1, 0, 0}));
    }

    void followsChangesOfItsTasksOnly()
    {
        m_service->select(KWListIdentifier::todayProject());
        const QString rent = aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
        QCOMPARE(m_lengths, QList<qsizetype>({0, 1}));
        aTask("Buy milk").dueOn("2030-06-01").savedIn(*m_store);
        QCOMPARE(m_lengths.size(), 2);
        setSaved<KWTask>(*m_store, rent, &KWTaskModel::title, u"Rent"_s);
        QCOMPARE(titles(), QStringList{u"Rent"_s});
        setSaved<KWProject>(*m_store, inbox().entityID, &KWProjectModel::showsInSmartList, false);
        QCOMPARE(m_lengths, QList<qsizetype>({0, 1, 1, 0}));
    }

    void followsTheDayWhereItMatters()
    {
        aTask("Pay rent").dueOn("2030-05-02").savedIn(*m_store);
        m_service->select(KWListIdentifier::smartProject(KWSmartProject::tomorrow().identifier()));
        QCOMPARE(m_lengths, QList<qsizetype>{1});
        m_store->clock.advance(std::chrono::hours{24});
        m_store->kit().center().post(KWNewDayComesNotification);
        QCOMPARE(m_lengths, QList<qsizetype>({1, 0}));
        m_service->select(KWListIdentifier::todayProject());
        QCOMPARE(titles(), QStringList{u"Pay rent"_s});
    }

    void readsAgainWhatAnotherProcessWrote()
    {
        m_service->select(inbox());
        const auto other = std::move(*m_store->kit().store().makeContext()); // announces nothing here
        KWTaskModel task = aTask("Pay rent").in(inbox().entityID).model();
        other->insert<KWTask>(task);
        QVERIFY(other->save());
        QCOMPARE(m_lengths, QList<qsizetype>{0});
        m_store->kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        QCOMPARE(m_lengths, QList<qsizetype>({0, 1}));
    }

    void showsTheTopOfALongListFirst()
    {
        const QString list = makeLongList();
        m_service->select(KWListIdentifier::project(list));
        QCOMPARE(m_lengths.size(), 1);
        QVERIFY(m_lengths.first() > 50 && m_lengths.first() < longLength);
        for (qsizetype i = 0; i < m_lengths.first(); ++i)
            QCOMPARE(m_service->rows().at(i).sortOrder, i);
        QTRY_COMPARE(m_lengths.last(), longLength);
        QCOMPARE(m_lengths.size(), 2);
        for (qsizetype i = 0; i < longLength; ++i)
            QCOMPARE(m_service->rows().at(i).sortOrder, i);
    }

    void neverShrinksALongListMeanwhile()
    {
        const QString list = makeLongList();
        m_service->select(KWListIdentifier::project(list));
        QTRY_COMPARE(m_lengths.last(), longLength);
        m_lengths.clear();
        aTask("one more").in(list).ordered(-1).savedIn(*m_store);
        QTRY_COMPARE(m_lengths, QList<qsizetype>{longLength + 1});
        QCOMPARE(m_service->rows().first().title, u"one more"_s);

        saved(*m_store, [&](ObjectContext &context) {
            for (KWTask *each : context.fetch<KWTask>({.where = "sortOrder > 1"}))
                each->updateStatus(KWTaskStatusCompleted);
        });
        QTRY_COMPARE(m_lengths, QList<qsizetype>({longLength + 1, 3}));
    }

    void answersTheLatestRequestAlone()
    {
        const QString list = makeLongList();
        aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
        m_service->select(KWListIdentifier::project(list));
        m_service->reload(); // while the rest is still being read
        m_service->select(KWListIdentifier::todayProject());
        finishReading();
        QCOMPARE(titles(), QStringList{u"Pay rent"_s});
        QCOMPARE(m_lengths.last(), 1);

        m_service->select(KWListIdentifier::project(list));
        m_service->reload();
        QTRY_COMPARE(m_lengths.last(), longLength);
    }

    void tellsWhyItCannotRead()
    {
        m_store->context().connection().execute("ALTER TABLE checklistItems RENAME TO lost");
        m_service->select(inbox());
        QCOMPARE(m_failures.size(), 1);
        QVERIFY(m_failures.first().endsWith(u'.'));
        m_store->context().connection().execute("ALTER TABLE lost RENAME TO checklistItems");
        m_service->reload();
        QCOMPARE(m_lengths, QList<qsizetype>{0});
    }

    void isEmptyAfterSigningOut()
    {
        aTask("Pay rent").savedIn(*m_store);
        m_service->select(inbox());
        QVERIFY(m_store->account().signOut());
        m_service->clear();
        QCOMPARE(m_lengths.last(), 0);
        m_service->reload();
        QVERIFY(m_store->account().signInLocally(QLocale::c()));
        m_service->select(inbox());
        QCOMPARE(m_lengths, QList<qsizetype>({1, 0, 1}));
    }

    void dropsAnAnswerThatOutlivesIt()
    {
        m_service->select(KWListIdentifier::project(makeLongList()));
        m_service.reset();
        finishReading();
        QCOMPARE(m_lengths.size(), 1);
    }
};

ORVANE_TEST(KWTaskListService_test)
#include "KWTaskListService_test.moc"
