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
        m_service->onRowsChanged = [this] { m_lengths << m_service->rows().size(); };
        m_service->onFailure = [this](const QString &sentence) { m_failures << sentence; };
    }

    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void followsWhatItsListShows()
    {
        const KWListIdentifier today = KWListIdentifier::todayProject();
        m_service->select(today);
        m_service->select(today); // as it is
        const QString rent = aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
        aTask("Buy milk").dueOn("2030-06-01").savedIn(*m_store);
        QCOMPARE(m_lengths, QList<qsizetype>({0, 1}));
        setSaved<KWTask>(*m_store, rent, &KWTaskModel::title, u"Rent"_s);
        QCOMPARE(titles(), QStringList{u"Rent"_s});
        setSaved<KWProject>(*m_store, inbox().entityID, &KWProjectModel::showsInSmartList, false);
        QCOMPARE(m_lengths, QList<qsizetype>({0, 1, 1, 0}));
        m_service->select(KWListIdentifier::smartProject(KWSmartProject::tomorrow().identifier()));
        QCOMPARE(m_lengths.size(), 5); // another list, though as empty
        setSaved<KWProject>(*m_store, inbox().entityID, &KWProjectModel::showsInSmartList, true);
        aTask("Sow").dueOn("2030-05-02").savedIn(*m_store);
        m_store->clock.advance(std::chrono::hours{24});
        m_store->kit().center().post(KWNewDayComesNotification);
        QCOMPARE(m_lengths.mid(5), QList<qsizetype>({1, 0}));
    }

    void readsAgainWhatAnotherProcessWrote()
    {
        m_service->select(inbox());
        const auto other = std::move(*m_store->kit().store().makeContext()); // announces nothing here
        other->insert<KWTask>(aTask("Pay rent").in(inbox().entityID).model());
        QVERIFY(other->save());
        QCOMPARE(m_lengths, QList<qsizetype>{0});
        m_store->kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        QCOMPARE(m_lengths, QList<qsizetype>({0, 1}));
    }

    void showsTheTopOfALongListFirstAndNeverShrinksItMeanwhile()
    {
        const QString list = makeLongList();
        const auto isInOrder = [this] {
            return std::ranges::is_sorted(m_service->rows(), {}, &KWTaskListItemModel::sortOrder);
        };
        m_service->select(KWListIdentifier::project(list));
        QVERIFY(m_lengths.first() > 50 && m_lengths.first() < longLength);
        QCOMPARE(m_service->rows().last().sortOrder, m_lengths.first() - 1);
        QVERIFY(isInOrder());
        QTRY_COMPARE(m_lengths.last(), longLength);
        QVERIFY(isInOrder());
        aTask("one more").in(list).ordered(-1).savedIn(*m_store);
        QTRY_COMPARE(m_lengths.mid(1), QList<qsizetype>({longLength, longLength + 1}));
        QCOMPARE(m_service->rows().first().title, u"one more"_s);

        saved(*m_store, [&](ObjectContext &context) {
            for (KWTask *each : context.fetch<KWTask>({.where = "sortOrder > 1"}))
                each->updateStatus(KWTaskStatusCompleted);
        });
        QTRY_COMPARE(m_lengths.mid(3), QList<qsizetype>{3});
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
        QVERIFY(m_failures.size() == 1 && m_failures.first().endsWith(u'.'));
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
