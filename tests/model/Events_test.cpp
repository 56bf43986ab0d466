#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class Events_test : public QObject {
    Q_OBJECT

    using Call = std::function<void()>;

    // Who observes with `Holder` may drop itself and others, and add others, while it is being told.
    template <class Holder>
    static void comeAndGo(const std::function<Holder(Call)> &observe, const Call &post)
    {
        QStringList heard;
        Holder self, later, added;
        self = observe([&] {
            later = self = {};
            heard << u"self"_s; // still whole after it dropped itself
            added = observe([&] { heard << u"added"_s; });
        });
        later = observe([&] { heard << u"later"_s; });
        post();
        QCOMPARE(heard, QStringList{u"self"_s});
        post();
        QCOMPARE(heard, QStringList({u"self"_s, u"added"_s}));
    }

private Q_SLOTS:
    void tellsWhoeverObservesTheName()
    {
        KWNotificationCenter center;
        QStringList heard;
        const auto hear = [&heard](const KWNotification &each) {
            heard << each.name + each.object.toString();
        };
        auto first = center.addObserver(u"day"_s, [&center](const KWNotification &) {
            center.post(u"hour"_s); // within a post
        });
        const auto everything = center.addObserver(hear);
        const auto second = center.addObserver(u"day"_s, hear);
        center.post(u"day"_s, 7);
        first = {};
        center.post(u"day"_s, 8);
        QCOMPARE(heard.join(u' '), u"hour day7 day7 day8 day8"_s);
    }

    void standsObserversThatComeAndGo()
    {
        KWNotificationCenter center;
        comeAndGo<KWNotificationCenter::Observation>(
            [&center](const Call &call) {
                return center.addObserver(u"day"_s, [call](const KWNotification &) { call(); });
            },
            [&center] { center.post(u"day"_s); });
        KWEventBus bus;
        comeAndGo<KWEventBus::Registration>(
            [&bus](const Call &call) {
                return bus.registerEventBus([call](const StoreChange &change) {
                    QCOMPARE(change.of(RecordKind::Task).deleted, QStringList{u"a"_s});
                    call();
                });
            },
            [&bus] { eb_postTasksDeleted(bus, {u"a"_s}); });
    }
};

ORVANE_TEST(Events_test)
#include "Events_test.moc"
