#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// The sidebar, and the tasks of the list selected there.
class ListsStory_test : public QObject {
    Q_OBJECT

    using Lengths = QList<qsizetype>;
    static constexpr int longLength = 1000; // of a list that is not read at once

    struct Window {
        explicit Window(OrvaneKit &kit)
            : counts{kit.manager(), kit.center()}
            , sidebar{kit.manager(), kit.account(), counts, kit.defaults(), kit.center(), kit.bus()}
            , tasks{kit.manager(), kit.account(), kit.center(), kit.bus()}
        {
            sidebar.onTreeRebuilt = [this] { ++rebuilt; };
            sidebar.onSelectionChanged = [this](const KWListIdentifier &list) {
                selected << list;
                tasks.select(list);
            };
            tasks.onRowsChanged = [this] { lengths << tasks.rows().size(); };
            tasks.onFailure = [this](const QString &sentence) { failures << sentence; };
            sidebar.reload();
        }
        KWProjectListCountFetcher counts;
        KWProjectListPresenter sidebar;
        KWTaskListService tasks;
        int rebuilt = 0;
        QList<KWListIdentifier> selected;
        Lengths lengths; // of the rows, at every change
        QStringList failures;
    };

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<Window> m_window;
    QString m_home; // id of a list
    const KWListIdentifier m_today = KWListIdentifier::todayProject();

    KWProjectListPresenter &sidebar() { return m_window->sidebar; }
    KWTaskListService &tasks() { return m_window->tasks; }
    const Lengths &lengths() { return m_window->lengths; }
    KWListIdentifier home() const { return KWListIdentifier::project(m_home); }

    void startAgain()
    {
        m_window.reset();
        m_store->reopen();
        m_window = std::make_unique<Window>(m_store->kit());
    }
    template <class Value, class Owner>
    void setHome(Value Owner::*member, std::type_identity_t<Value> value)
    {
        setSaved<KWProject>(*m_store, m_home, member, value);
    }
    void makeHomeLong()
    {
        saved(*m_store, [&](ObjectContext &context) {
            for (int i = 0; i < longLength; ++i)
                context.insert<KWTask>(aTask("Task").in(m_home).ordered(i).model());
        });
    }
    void finishReading()
    {
        m_store->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
    }
    void beginNextDay()
    {
        m_store->clock.advance(std::chrono::hours{24});
        m_store->kit().center().post(KWNewDayComesNotification);
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_home = m_store->makeList(u"Home"_s);
        m_window = std::make_unique<Window>(m_store->kit());
    }

    void cleanup()
    {
        m_window.reset();
        m_store.reset();
    }

    void selectsTheStoredListOrTodayWhereItIsGone()
    {
        QVERIFY(m_window->selected == QList{m_today});
        sidebar().select(home());
        QVERIFY(m_window->selected.last() == home());
        startAgain();
        QVERIFY(m_window->selected == QList{home()} && sidebar().selectedList() == home());
        setHome(&KWProjectModel::isDeleted, true);
        QVERIFY(m_window->selected.last() == m_today && sidebar().selectedNode()->isSelected());
        startAgain();
        sidebar().select(KWListIdentifier::project(u"no such list"_s));
        sidebar().select(m_today); // now it is chosen
        QVERIFY(m_window->selected == QList{m_today});
        setHome(&KWProjectModel::isDeleted, false);
        QVERIFY(sidebar().selectedList() == m_today);
    }

    void makesTheTreeAnewOnlyWhenListsChange()
    {
        const KWProjectListNode *today = sidebar().selectedNode();
        sidebar().select(home());
        QVERIFY(!today->isSelected());
        sidebar().setIsExpanded(false, sidebar().dataService().listNode());
        sidebar().setIsExpanded(false, sidebar().dataService().tagNode());
        aTask("Pay rent").in(m_home).savedIn(*m_store);
        sidebar().reload();
        QCOMPARE(m_window->rebuilt, 1);
        setHome(&KWProjectModel::name, u"House"_s);
        QCOMPARE(m_window->rebuilt, 2);
        QVERIFY(sidebar().selectedNode()->isSelected());
        QCOMPARE(sidebar().selectedNode()->title(), u"House"_s);
        sidebar().setIsExpanded(true, sidebar().dataService().tagNode());
        for (int start = 1; start <= 2; ++start, startAgain())
            QVERIFY(!sidebar().dataService().listNode().isExpanded() &&
                    sidebar().dataService().tagNode().isExpanded());
    }

    void followsTasksAndTheDay()
    {
        const auto count = [this] { return sidebar().countOf(*sidebar().dataService().nodeFor(m_today)); };
        tasks().select(m_today); // as it is
        const QString rent = aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
        QList<int> counts;
        sidebar().dataService().nodeFor(m_today)->countChangedHandler =
            [&counts](int now, KWProjectListNode &) { counts << now; };
        aTask("Buy milk").dueOn("2030-06-01").savedIn(*m_store);
        QCOMPARE(lengths(), Lengths({0, 1}));
        setSaved<KWTask>(*m_store, rent, &KWTaskModel::title, u"Rent"_s);
        QCOMPARE(tasks().rows().first().title, u"Rent"_s);
        const auto other = std::move(*m_store->kit().store().makeContext()); // announces nothing here
        other->insert<KWTask>(aTask("Water").dueOn("2030-05-01").in(m_home).model())
            .set(&KWTaskModel::userID, m_store->userID());
        QVERIFY(other->save());
        m_store->kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        QCOMPARE(lengths(), Lengths({0, 1, 1, 2}));
        QTRY_COMPARE(count(), std::optional{2});
        QCOMPARE(counts.last(), 2);
        setHome(&KWProjectModel::showsInSmartList, false);
        QCOMPARE(lengths().last(), 1);

        const auto tomorrow = KWListIdentifier::smartProject(KWSmartProject::tomorrow().identifier());
        sidebar().select(tomorrow);
        aTask("Sow").dueOn("2030-05-02").savedIn(*m_store);
        beginNextDay();
        QCOMPARE(lengths().mid(5), Lengths({0, 1, 0}));
        sidebar().select(home());
        sidebar().select(tomorrow);
        QCOMPARE(lengths().mid(8), Lengths({1, 0})); // another list, though as empty
        QTRY_COMPARE(count(), std::optional{2});
        QVERIFY(!sidebar().countOf(sidebar().dataService().tagNode()));
    }

    void showsTheTopOfALongListFirstAndNeverShrinksItMeanwhile()
    {
        makeHomeLong();
        sidebar().select(home());
        const qsizetype top = lengths().last();
        QVERIFY(top > 50 && top < longLength);
        QCOMPARE(tasks().rows().last().sortOrder, top - 1);
        QTRY_COMPARE(lengths().last(), longLength);
        aTask("one more").in(m_home).ordered(-1).savedIn(*m_store);
        QTRY_COMPARE(lengths().last(), longLength + 1);
        QVERIFY(std::ranges::is_sorted(tasks().rows(), {}, &KWTaskListItemModel::sortOrder));
        saved(*m_store, [&](ObjectContext &context) {
            for (KWTask *each : context.fetch<KWTask>({.where = "sortOrder > 1"}))
                each->updateStatus(KWTaskStatusCompleted);
        });
        finishReading();
        QCOMPARE(lengths(), Lengths({0, top, longLength, longLength + 1, 3 + 5}));
    }

    void answersTheLatestRequestAlone()
    {
        makeHomeLong();
        sidebar().select(home());
        tasks().reload(); // while the rest is still being read
        sidebar().select(m_today);
        finishReading();
        QCOMPARE(lengths().last(), 0);
        tasks().select(home());
        tasks().reload();
        QTRY_COMPARE(lengths().last(), longLength);
        tasks().reload();
        m_window.reset();
        finishReading(); // an answer that nobody waits for
    }

    void tellsWhyItCannotRead()
    {
        m_store->context().connection().execute("ALTER TABLE checklistItems RENAME TO lost");
        sidebar().select(home());
        QVERIFY(m_window->failures.size() == 1 && m_window->failures.first().endsWith(u'.'));
        m_store->context().connection().execute("ALTER TABLE lost RENAME TO checklistItems");
        tasks().reload();
        QCOMPARE(lengths(), Lengths({0, 0, 0}));
    }

    void isEmptyAfterSigningOut()
    {
        aTask("Pay rent").in(m_home).savedIn(*m_store);
        sidebar().select(home());
        QVERIFY(m_store->account().signOut());
        sidebar().clear();
        tasks().clear();
        QVERIFY(!sidebar().selectedNode());
        beginNextDay();
        setHome(&KWProjectModel::name, u"House"_s);
        sidebar().reload();
        tasks().reload();
        QVERIFY(sidebar().dataService().lists().isEmpty());
        QVERIFY(m_store->account().signInLocally(QLocale::c()));
        sidebar().reload();
        QCOMPARE(sidebar().selectedNode()->title(), u"House"_s);
        QCOMPARE(lengths(), Lengths({0, 1, 0, 1}));
    }
};

ORVANE_TEST(ListsStory_test)
#include "ListsStory_test.moc"
