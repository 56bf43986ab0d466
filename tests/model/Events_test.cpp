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

    void tellsWhoeverObservesTheName()
    {
        QVariant object;
        auto first = m_center.addObserver(u"day"_s, [&](const KWNotification &each) {
            object = each.object;
            m_center.post(u"hour"_s); // within a post
        });
        const auto everything = m_center.addObserver(hear(u"everything"_s));
        const auto second = m_center.addObserver(u"day"_s, hear(u"second"_s));
        m_center.post(u"day"_s, 7);
        QCOMPARE(object, QVariant{7});
        QCOMPARE(m_heard, QStringList({u"everything hour"_s, u"everything day"_s, u"second day"_s}));
        m_heard.clear();
        first = {};
        m_center.post(u"day"_s);
        QCOMPARE(m_heard, QStringList({u"everything day"_s, u"second day"_s}));
    }

    void standsObserversThatComeAndGoWhilePosting()
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

    void mayGoBeforeItsObservations()
    {
        auto center = std::make_unique<KWNotificationCenter>();
        auto observation = center->addObserver(hear(u"late"_s));
        center.reset();
        observation = {};
        QVERIFY(m_heard.isEmpty());
    }

    void standsHandlersOfChangesThatComeAndGo()
    {
        KWEventBus::Registration self;
        KWEventBus::Registration later;
        KWEventBus::Registration added;
        const auto hearDeleted = [this](const StoreChange &change) {
            m_heard << change.of(RecordKind::Task).deleted;
        };
        self = m_bus.registerEventBus([&](const StoreChange &) {
            KWEventBus::eb_unregister(later);
            KWEventBus::eb_unregister(self);
            m_heard << u"self"_s;
            added = m_bus.registerEventBus(hearDeleted);
        });
        later = m_bus.registerEventBus(hearDeleted);
        m_bus.post({});
        QCOMPARE(m_heard, QStringList{u"self"_s});
        eb_postTasksDeleted(m_bus, {u"a"_s, u"b"_s});
        QCOMPARE(m_heard, QStringList({u"self"_s, u"a"_s, u"b"_s}));
    }
};

ORVANE_TEST(Events_test)
#include "Events_test.moc"
