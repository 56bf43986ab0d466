#include "app/UserNotificationShares.h"

#include "app/RecordingAlerts.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// Each service hears of its own messages alone.
class UserNotificationShares_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsEachOfItsOwn()
    {
        RecordingNotifications center;
        UserNotificationShares shares{center};
        UserNotificationCenterPort &first = shares.makeShare(), &second = shares.makeShare();
        QStringList heard;
        const auto listen = [&heard](UserNotificationCenterPort &share, const QString &name) {
            share.onResponse = [&heard, name](const auto &each) { heard << name + u' ' + each.action; };
            share.onClosed = [&heard, name](const QString &identifier) {
                heard << name + u" closed "_s + identifier;
            };
        };
        listen(first, u"first"_s);
        listen(second, u"second"_s);
        first.show({.identifier = u"a"_s, .title = u"A"_s, .body{}, .actions{}});
        second.show({.identifier = u"b"_s, .title = u"B"_s, .body{}, .actions{}});
        center.onResponse({.identifier = u"b"_s, .action = u"go"_s, .activationToken{}});
        center.onResponse({.identifier = u"c"_s, .action = u"go"_s, .activationToken{}});
        center.onClosed(u"a"_s);
        center.onClosed(u"a"_s);
        QCOMPARE(heard, QStringList({u"second go"_s, u"first closed a"_s}));

        second.withdraw(u"b"_s);
        center.onResponse({.identifier = u"b"_s, .action = u"go"_s, .activationToken{}});
        QCOMPARE(heard.size(), 2);
    }
};

ORVANE_TEST(UserNotificationShares_test)
#include "UserNotificationShares_test.moc"
