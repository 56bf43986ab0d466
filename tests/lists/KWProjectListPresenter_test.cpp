#include "lists/KWProjectListPresenter.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWProjectListPresenter_test : public QObject {
    Q_OBJECT

    struct Sidebar {
        explicit Sidebar(OrvaneKit &kit)
            : counts{kit.manager(), kit.center()}
            , presenter{kit.manager(), kit.account(), counts, kit.defaults(), kit.center(), kit.bus()}
        {
            presenter.onTreeRebuilt = [this] { ++rebuilt; };
            presenter.onCountsChanged = [this] { ++counted; };
            presenter.onSelectionChanged = [this](const KWListIdentifier &list) { selected << list; };
        }
        KWProjectListCountFetcher counts;
        KWProjectListPresenter presenter;
        int rebuilt = 0;
        int counted = 0;
        QList<KWListIdentifier> selected;
    };

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<Sidebar> m_sidebar;
    QString m_home; // id of a list

    KWProjectListPresenter &presenter() { return m_sidebar->presenter; }

    void startAgain()
    {
        m_sidebar.reset();
        m_store->reopen();
        m_sidebar = std::make_unique<Sidebar>(m_store->kit());
        presenter().reload();
    }

    template <class Value>
    void setHome(Value KWProjectModel::*member, std::type_identity_t<Value> value)
    {
        setSaved<KWProject>(*m_store, m_home, member, value);
    }

    KWListIdentifier home() const { return KWListIdentifier::project(m_home); }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_home = m_store->makeList(u"Home"_s);
        m_sidebar = std::make_unique<Sidebar>(m_store->kit());
        presenter().reload();
        QTRY_COMPARE(m_sidebar->counted, 1);
    }

    void cleanup()
    {
        m_sidebar.reset();
        m_store.reset();
    }

    void selectsTheStoredListOrTodayWhereItIsGone()
    {
        const auto today = KWListIdentifier::todayProject();
        QVERIFY(m_sidebar->selected == QList{today});
        presenter().select(home());
        QVERIFY(m_sidebar->selected.last() == home());
        startAgain();
        QVERIFY(m_sidebar->selected == QList{home()} && presenter().selectedList() == home());
        setHome(&KWProjectModel::closed, true);
        QVERIFY(m_sidebar->selected.last() == today && presenter().selectedNode()->isSelected());
        startAgain();
        presenter().select(KWListIdentifier::project(u"no such list"_s));
        presenter().select(today); // now it is chosen
        QVERIFY(m_sidebar->selected == QList{today});
        setHome(&KWProjectModel::closed, false);
        QVERIFY(presenter().selectedList() == today);
    }

    void rebuildsOnlyWhenListsChange()
    {
        KWProjectListNode *today = presenter().selectedNode();
        presenter().select(home());
        QVERIFY(!today->isSelected());
        aTask("Pay rent").in(m_home).savedIn(*m_store);
        presenter().reload();
        QCOMPARE(m_sidebar->rebuilt, 1);
        setHome(&KWProjectModel::name, u"House"_s); // makes the nodes anew
        QCOMPARE(m_sidebar->rebuilt, 2);
        QVERIFY(presenter().selectedNode()->isSelected());
        QCOMPARE(presenter().selectedNode()->title(), u"House"_s);
    }

    void recountsWhenTasksOrTheDayChange()
    {
        const auto today = [this] {
            return presenter().countOf(*presenter().dataService().nodeFor(KWListIdentifier::todayProject()));
        };
        QCOMPARE(today(), std::optional{0});
        aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
        aTask("Buy milk").dueOn("2030-05-02").savedIn(*m_store);
        QTRY_COMPARE(today(), std::optional{1});
        m_store->clock.advance(std::chrono::hours{24});
        m_store->kit().center().post(KWNewDayComesNotification);
        QTRY_COMPARE(today(), std::optional{2});
        QVERIFY(!presenter().countOf(presenter().dataService().tagNode()));
    }

    void remembersWhatIsFolded()
    {
        saved(*m_store, [this](ObjectContext &context) {
            KWProjectGroupModel house;
            house.sid = u"house, \"old\""_s;
            house.userID = m_store->userID();
            context.insert<KWProjectGroup>(house);
        });
        const auto node = [this]() -> KWProjectListNode & {
            return *presenter().dataService().nodeFor(KWListIdentifier::group(u"house, \"old\""_s));
        };
        presenter().setIsExpanded(false, node());
        presenter().setIsExpanded(false, presenter().dataService().tagNode());
        setHome(&KWProjectModel::name, u"Homes"_s); // makes the nodes anew
        QVERIFY(!node().isExpanded());
        presenter().setIsExpanded(true, presenter().dataService().tagNode());
        startAgain();
        QVERIFY(!node().isExpanded());
        QVERIFY(presenter().dataService().tagNode().isExpanded());
    }

    void isEmptyAfterSigningOut()
    {
        QVERIFY(m_store->account().signOut());
        presenter().clear();
        QVERIFY(!presenter().selectedNode());
        m_store->kit().center().post(KWNewDayComesNotification);
        setHome(&KWProjectModel::name, u"House"_s);
        presenter().reload();
        QVERIFY(presenter().dataService().lists().isEmpty());

        QVERIFY(m_store->account().signInLocally(QLocale::c()));
        presenter().reload();
        QCOMPARE(presenter().dataService().nodeFor(home())->title(), u"House"_s);
    }
};

ORVANE_TEST(KWProjectListPresenter_test)
#include "KWProjectListPresenter_test.moc"
