#include "platform/PortalColorScheme.h"

#include "platform/FakeService.h"
#include "support/LogRecorder.h"
#include "support/TestMain.h"

#include <QDBusVariant>

using namespace Qt::StringLiterals;

using Preference = PortalColorScheme::Preference;

class PortalColorScheme_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void followsThatSettingOfThePortalAlone()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
        const QVariantList setting{u"org.freedesktop.appearance"_s, u"color-scheme"_s};
        const auto wrapped = [](const QVariant &value) { return QVariant::fromValue(QDBusVariant{value}); };
        FakeService portal{u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                           [&](const QString &call, const QVariantList &arguments) -> FakeService::Answer {
                               if (call != u"org.freedesktop.portal.Settings.Read(ss)" ||
                                   arguments != setting)
                                   return {};
                               return {{wrapped(wrapped(2u))}};
                           }};
        PortalColorScheme scheme;
        QList<Preference> changes;
        scheme.onChanged = [&changes](Preference preference) { changes << preference; };
        scheme.start();
        QCOMPARE(scheme.preference(), Preference::None); // it did not wait
        QTRY_COMPARE(changes, QList{Preference::Light});
        const auto change = [&](const QVariantList &changed, uint value) {
            portal.tell("org.freedesktop.portal.Settings", "SettingChanged",
                        changed + QVariantList{wrapped(value)});
        };
        change({u"org.gnome.desktop.interface"_s, setting.last()}, 1);
        change({setting.first(), u"contrast"_s}, 1);
        for (const uint value : {2, 1, 7}) // the last is one of a later version: no preference
            change(setting, value);
        QTRY_COMPARE(changes, (QList{Preference::Light, Preference::Dark, Preference::None}));
    }

    void saysThatThereIsNoPortal()
    {
        LogRecorder log;
        PortalColorScheme scheme;
        scheme.start();
        QTRY_COMPARE(log.lines(u"appearance"_s).size(), 1);
    }
};

ORVANE_TEST(PortalColorScheme_test)
#include "PortalColorScheme_test.moc"
