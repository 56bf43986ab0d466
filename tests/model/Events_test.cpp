#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class Events_test : public QObject {
    Q_OBJECT

    KWNotificationCenter m_center;
    KWEventBus m_bus;
    QStringList m_heard;

    KWNotificationCenter::Handler hear(const QString &who)
    {
        return [this, who](const KWNotification &notification) { m_heard << who + u' ' + notification.name; };
    }

private Q_SLOTS:
    void init() { m_heard.clear(); }
    void tellsWhoeverObservesTheName();
    void handsObjectAndUserInfoOver();
    void standsObserversThatComeAndGoWhilePosting();
    void postsWithinAPost();
    void outlivesItsObservationsAndTheOtherWayRound();
    void tellsEveryRegisteredHandlerOfAChange();
    void standsHandlersThatComeAndGoWhilePosting();
    void knowsWhatAChangeTouches();
};

void Events_test::tellsWhoeverObservesTheName()
{
    const auto first = m_center.addObserver(u"day"_s, hear(u"first"_s));
    const auto everything = m_center.addObserver(hear(u"everything"_s));
    auto second = m_center.addObserver(u"day"_s, hear(u"second"_s));
    m_center.post(u"day"_s);
    m_center.post(u"hour"_s);
    QCOMPARE(m_heard,
             QStringList({u"first day"_s, u"everything day"_s, u"second day"_s, u"everything hour"_s}));
    m_heard.clear();
    second = {};
    m_center.post(u"day"_s);
    QCOMPARE(m_heard, QStringList({u"first day"_s, u"everything day"_s}));
}

void Events_test::handsObjectAndUserInfoOver()
{
    KWNotification got;
    const auto observation = m_center.addObserver(u"day"_s, [&](const KWNotification &each) { got = each; });
    m_center.post(u"day"_s, 7, {{u"key"_s, u"value"_s}});
    QCOMPARE(got.object, QVariant{7});
    QCOMPARE(got.userInfo.value(u"key"_s), QVariant{u"value"_s});
}

void Events_test::standsObserversThatComeAndGoWhilePosting()
{
    KWNotificationCenter::Observation later;
    KWNotificationCenter::Observation self;
    KWNotificationCenter::Observation added;
    self = m_center.addObserver(u"day"_s, [&](const KWNotification &) {
        later = {};
        self = {};
        m_heard << u"self"_s; // still whole after it dropped itself
        added = m_center.addObserver(u"day"_s, hear(u"added"_s));
    });
    later = m_center.addObserver(u"day"_s, hear(u"later"_s));
    m_center.post(u"day"_s);
    QCOMPARE(m_heard, QStringList{u"self"_s});
    m_center.post(u"day"_s);
    QCOMPARE(m_heard, QStringList({u"self"_s, u"added day"_s}));
}

void Events_test::postsWithinAPost()
{
    const auto outer =
        m_center.addObserver(u"day"_s, [this](const KWNotification &) { m_center.post(u"hour"_s); });
    const auto all = m_center.addObserver(hear(u"all"_s));
    m_center.post(u"day"_s);
    QCOMPARE(m_heard, QStringList({u"all hour"_s, u"all day"_s}));
}

void Events_test::outlivesItsObservationsAndTheOtherWayRound()
{
    auto center = std::make_unique<KWNotificationCenter>();
    auto observation = center->addObserver(hear(u"late"_s));
    center.reset();
    observation = {};
    QVERIFY(m_heard.isEmpty());
}

void Events_test::tellsEveryRegisteredHandlerOfAChange()
{
    QStringList deleted;
    auto one = m_bus.registerEventBus(
        [&](const StoreChange &change) { deleted << change.of(RecordKind::Task).deleted; });
    const auto other = m_bus.registerEventBus([this](const StoreChange &) { m_heard << u"other"_s; });
    eb_postTasksDeleted(m_bus, {u"a"_s, u"b"_s});
    QCOMPARE(deleted, QStringList({u"a"_s, u"b"_s}));
    KWEventBus::eb_unregister(one);
    eb_postTasksDeleted(m_bus, {u"c"_s});
    QCOMPARE(deleted.size(), 2);
    QCOMPARE(m_heard.size(), 2);
}

void Events_test::standsHandlersThatComeAndGoWhilePosting()
{
    KWEventBus::Registration self;
    KWEventBus::Registration later;
    KWEventBus::Registration added;
    self = m_bus.registerEventBus([&](const StoreChange &) {
        KWEventBus::eb_unregister(later);
        KWEventBus::eb_unregister(self);
        m_heard << u"self"_s;
        added = m_bus.registerEventBus([this](const StoreChange &) { m_heard << u"added"_s; });
    });
    later = m_bus.registerEventBus([this](const StoreChange &) { m_heard << u"later"_s; });
    m_bus.post({});
    QCOMPARE(m_heard, QStringList{u"self"_s});
    m_bus.post({});
    QCOMPARE(m_heard, QStringList({u"self"_s, u"added"_s}));
}

void Events_test::knowsWhatAChangeTouches()
{
    StoreChange change;
    QVERIFY(change.isEmpty());
    change.of(RecordKind::Tag).updated << u"tag"_s;
    QVERIFY(!change.isEmpty());
    QVERIFY(change.touches(RecordKind::Tag));
    QVERIFY(!change.touches(RecordKind::Task));
}

ORVANE_TEST(Events_test)
#include "Events_test.moc"
