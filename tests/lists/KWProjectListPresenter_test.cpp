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
    void startAgain();
    template <class Value>
    void setHome(Value KWProjectModel::*member, Value value);
    KWListIdentifier home() const { return KWListIdentifier::project(m_home); }

private Q_SLOTS:
    void init();
    void cleanup();
    void selectsTodayFirstAndTheStoredListLater();
    void fallsBackToTodayWhenTheListIsGone();
    void remembersTodayWhenItIsChosenInPlaceOfAGoneList();
    void selectsOnlyWhatHasANode();
    void movesTheSelectionFromNodeToNode();
    void rebuildsOnlyWhenListsChange();
    void recountsWhenTasksOrTheDayChange();
    void remembersWhatIsFolded();
    void isEmptyAfterSigningOut();
    void dropsACountThatOutlivesIt();
};

void KWProjectListPresenter_test::init()
{
    m_store = std::make_unique<StoreFixture>();
    m_home = m_store->makeList(u"Home"_s);
    m_sidebar = std::make_unique<Sidebar>(m_store->kit());
    presenter().reload();
    QTRY_COMPARE(m_sidebar->counted, 1);
}

void KWProjectListPresenter_test::cleanup()
{
    m_sidebar.reset();
    m_store.reset();
}

void KWProjectListPresenter_test::startAgain()
{
    m_sidebar.reset();
    m_store->reopen();
    m_sidebar = std::make_unique<Sidebar>(m_store->kit());
    presenter().reload();
}

template <class Value>
void KWProjectListPresenter_test::setHome(Value KWProjectModel::*member, Value value)
{
    saved(*m_store, [&](ObjectContext &context) { context.find<KWProject>(m_home)->set(member, value); });
}

void KWProjectListPresenter_test::selectsTodayFirstAndTheStoredListLater()
{
    QVERIFY(m_sidebar->selected == QList{KWListIdentifier::todayProject()});
    presenter().select(home());
    QVERIFY(m_sidebar->selected.last() == home());
    startAgain();
    QVERIFY(presenter().selectedList() == home());
    QVERIFY(m_sidebar->selected == QList{home()});
    QVERIFY(presenter().selectedNode()->isSelected());
}

void KWProjectListPresenter_test::fallsBackToTodayWhenTheListIsGone()
{
    presenter().select(home());
    setHome(&KWProjectModel::closed, true);
    QVERIFY(presenter().selectedList() == KWListIdentifier::todayProject());
    QVERIFY(m_sidebar->selected.last() == KWListIdentifier::todayProject());
    QVERIFY(presenter().selectedNode()->isSelected());
    startAgain();
    QVERIFY(presenter().selectedList() == KWListIdentifier::todayProject());
}

void KWProjectListPresenter_test::remembersTodayWhenItIsChosenInPlaceOfAGoneList()
{
    presenter().select(home());
    setHome(&KWProjectModel::closed, true);
    presenter().select(KWListIdentifier::todayProject());
    setHome(&KWProjectModel::closed, false);
    QVERIFY(presenter().selectedList() == KWListIdentifier::todayProject());
}

void KWProjectListPresenter_test::selectsOnlyWhatHasANode()
{
    m_sidebar->selected.clear();
    presenter().select(KWListIdentifier::project(u"no such list"_s));
    presenter().select(KWListIdentifier::todayProject()); // is selected already
    QVERIFY(m_sidebar->selected.isEmpty());
    startAgain();
    QVERIFY(presenter().selectedList() == KWListIdentifier::todayProject());
}

void KWProjectListPresenter_test::movesTheSelectionFromNodeToNode()
{
    KWProjectListNode *today = presenter().selectedNode();
    presenter().select(home());
    QVERIFY(!today->isSelected());
    QVERIFY(presenter().selectedNode() != today && presenter().selectedNode()->isSelected());
    setHome(&KWProjectModel::name, u"House"_s); // makes the nodes anew
    QVERIFY(presenter().selectedNode()->isSelected());
    QCOMPARE(presenter().selectedNode()->title(), u"House"_s);
}

void KWProjectListPresenter_test::rebuildsOnlyWhenListsChange()
{
    QCOMPARE(m_sidebar->rebuilt, 1);
    aTask("Pay rent").in(m_home).savedIn(*m_store);
    presenter().reload();
    QCOMPARE(m_sidebar->rebuilt, 1);
    setHome(&KWProjectModel::color, u"#336699"_s);
    QCOMPARE(m_sidebar->rebuilt, 2);
    QCOMPARE(presenter().dataService().nodeFor(home())->color(), u"#336699"_s);
}

void KWProjectListPresenter_test::recountsWhenTasksOrTheDayChange()
{
    const auto today = [this] {
        return presenter().countOf(*presenter().dataService().nodeFor(KWListIdentifier::todayProject()));
    };
    QCOMPARE(today(), std::optional{0});
    aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
    QTRY_COMPARE(today(), std::optional{1});
    aTask("Buy milk").dueOn("2030-05-02").savedIn(*m_store);
    QTRY_VERIFY(m_sidebar->counted >= 3);
    QCOMPARE(today(), std::optional{1});
    m_store->clock.advance(std::chrono::hours{24});
    m_store->kit().center().post(KWNewDayComesNotification);
    QTRY_COMPARE(today(), std::optional{2});
    QVERIFY(!presenter().countOf(presenter().dataService().tagNode()));
}

void KWProjectListPresenter_test::remembersWhatIsFolded()
{
    saved(*m_store, [this](ObjectContext &context) {
        KWProjectGroupModel house;
        house.sid = u"house"_s;
        house.userID = m_store->userID();
        house.name = u"House, \"old\""_s;
        context.insert<KWProjectGroup>(house);
    });
    const auto node = [this]() -> KWProjectListNode & {
        return *presenter().dataService().nodeFor(KWListIdentifier::group(u"house"_s));
    };
    presenter().setIsExpanded(false, node());
    presenter().setIsExpanded(false, presenter().dataService().tagNode());
    setHome(&KWProjectModel::name, u"Homes"_s);
    QVERIFY(!node().isExpanded());
    startAgain();
    QVERIFY(!node().isExpanded());
    QVERIFY(!presenter().dataService().tagNode().isExpanded());
    QVERIFY(presenter().dataService().listNode().isExpanded());
    presenter().setIsExpanded(true, node());
    startAgain();
    QVERIFY(node().isExpanded());
}

void KWProjectListPresenter_test::isEmptyAfterSigningOut()
{
    QVERIFY(m_store->account().signOut());
    presenter().clear();
    QVERIFY(presenter().dataService().lists().isEmpty());
    QVERIFY(!presenter().selectedNode());
    m_store->kit().center().post(KWNewDayComesNotification);
    setHome(&KWProjectModel::name, u"House"_s);
    presenter().reload();
    QVERIFY(presenter().dataService().lists().isEmpty());

    QVERIFY(m_store->account().signInLocally(QLocale::c()));
    presenter().reload();
    QCOMPARE(presenter().dataService().nodeFor(home())->title(), u"House"_s);
}

void KWProjectListPresenter_test::dropsACountThatOutlivesIt()
{
    int announced = 0;
    const auto observation =
        m_store->kit().center().addObserver(countChanged, [&](const KWNotification &) { ++announced; });
    presenter().recount();
    m_sidebar.reset();
    int completed = 0;
    for (int i = 0; i < 4; ++i)
        KWCoreDataService{m_store->kit().manager()}.async_perform(
            [](ObjectContext &) { return Result<void>{}; }, [&](const Result<void> &) { ++completed; });
    QTRY_COMPARE(completed, 4);
    QCOMPARE(announced, 0);
}

ORVANE_TEST(KWProjectListPresenter_test)
#include "KWProjectListPresenter_test.moc"
