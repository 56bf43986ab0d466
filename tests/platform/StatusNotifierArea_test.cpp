#include "platform/StatusNotifierArea.h"

#include "platform/FakeService.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDBusVariant>

using namespace Qt::StringLiterals;

class StatusNotifierArea_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isThereOnceTheServiceThatTellsOfAreasKnowsOne()
    {
        ManualClock clock{"2030-05-01 08:00"};
        StatusNotifierArea area{clock, StatusNotifierArea::OlderKind::Impossible};
        int appeared = 0;
        area.onAppeared = [&appeared] { ++appeared; };
        area.start();

        const QVariantList question{u"org.kde.StatusNotifierWatcher"_s, u"IsStatusNotifierHostRegistered"_s};
        bool hasArea = false;
        int asked = 0;
        FakeService watcher{u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
                            [&](const QString &call, const QVariantList &arguments) -> FakeService::Answer {
                                if (call != u"org.freedesktop.DBus.Properties.Get(ss)" ||
                                    arguments != question)
                                    return {};
                                ++asked;
                                return {{QVariant::fromValue(QDBusVariant{hasArea})}};
                            }};
        const auto tellOfAnArea = [&watcher] {
            watcher.tell("org.kde.StatusNotifierWatcher", "StatusNotifierHostRegistered");
        };
        QTRY_COMPARE(asked, 1);
        tellOfAnArea();
        QTRY_COMPARE(asked, 2);
        QVERIFY(!area.isThere()); // as it was answered first
        hasArea = true;
        tellOfAnArea();
        tellOfAnArea();
        QTRY_VERIFY(area.isThere());

        StatusNotifierArea later{clock, StatusNotifierArea::OlderKind::Impossible};
        later.start();
        QTRY_VERIFY(later.isThere());
        QCOMPARE(appeared, 1);
    }
};

ORVANE_TEST(StatusNotifierArea_test)
#include "StatusNotifierArea_test.moc"
