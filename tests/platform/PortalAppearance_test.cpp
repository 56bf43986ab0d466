#include "platform/PortalAppearance.h"

#include "platform/FakeService.h"
#include "support/LogRecorder.h"
#include "support/TestMain.h"

#include <QDBusVariant>

using namespace Qt::StringLiterals;

using Scheme = PortalAppearance::ColorScheme;

class PortalAppearance_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void followsTheSettingsOfThePortal()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
        const QVariantList scheme{u"org.freedesktop.appearance"_s, u"color-scheme"_s};
        const QVariantList text{u"org.gnome.desktop.interface"_s, u"text-scaling-factor"_s};
        const auto wrapped = [](const QVariant &value) { return QVariant::fromValue(QDBusVariant{value}); };
        FakeService portal{u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                           [&](const QString &call, const QVariantList &arguments) -> FakeService::Answer {
                               if (call != u"org.freedesktop.portal.Settings.Read(ss)") return {};
                               if (arguments == scheme) return {{wrapped(wrapped(2u))}};
                               if (arguments == text) return {{wrapped(wrapped(1.5))}};
                               return {};
                           }};
        PortalAppearance appearance;
        QList<Scheme> schemes;
        QList<double> scales;
        appearance.onColorScheme = [&schemes](Scheme each) { schemes << each; };
        appearance.onTextScale = [&scales](double each) { scales << each; };
        appearance.start();
        QVERIFY(schemes.isEmpty()); // it did not wait
        QTRY_COMPARE(schemes, QList{Scheme::Light});
        QTRY_COMPARE(scales, QList{1.5});
        const auto change = [&](const QVariantList &setting, const QVariant &value) {
            portal.tell("org.freedesktop.portal.Settings", "SettingChanged",
                        setting + QVariantList{wrapped(value)});
        };
        change({text.first(), scheme.last()}, 1u);
        change({scheme.first(), u"contrast"_s}, 1u);
        for (const double value : {1.5, 20.0, 0.0, 2.0}) // the second and the third are no sizes to read at
            change(text, value);
        for (const uint value : {2u, 1u, 7u}) // the last is one of a later version: no preference
            change(scheme, value);
        QTRY_COMPARE(schemes, (QList{Scheme::Light, Scheme::Dark, Scheme::None}));
        QCOMPARE(scales, (QList{1.5, 2.0}));
    }

    void saysThatThereIsNoPortal()
    {
        LogRecorder log;
        PortalAppearance appearance;
        appearance.start();
        QTRY_COMPARE(log.lines(u"appearance"_s).size(), 2);
    }
};

ORVANE_TEST(PortalAppearance_test)
#include "PortalAppearance_test.moc"
