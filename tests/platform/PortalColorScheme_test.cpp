#include "platform/PortalColorScheme.h"

#include "platform/FakeService.h"
#include "support/LogRecorder.h"
#include "support/TestMain.h"

#include <QDBusVariant>

using namespace Qt::StringLiterals;

using Preference = PortalColorScheme::Preference;

namespace {

const QString appearance = u"org.freedesktop.appearance"_s;

} // namespace

/// The portal of a desktop.
class FakePortal : public FakeService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(uint preference)
        : FakeService{u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s}
        , m_preference(preference)
    {
    }
    void change(const QString &nameSpace, const QString &key, uint value)
    {
        tell("org.freedesktop.portal.Settings", "SettingChanged",
             {nameSpace, key, QVariant::fromValue(QDBusVariant{value})});
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &nameSpace, const QString &key)
    {
        const bool isKnown = nameSpace == appearance && key == u"color-scheme";
        return QDBusVariant{QVariant::fromValue(QDBusVariant{isKnown ? m_preference : 0})};
    }

private:
    uint m_preference;
};

class PortalColorScheme_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
    }

    void followsChangesOfThatSettingAlone()
    {
        FakePortal portal{2};
        PortalColorScheme scheme;
        QList<Preference> changes;
        scheme.onChanged = [&changes](Preference preference) { changes << preference; };
        scheme.start();
        QCOMPARE(scheme.preference(), Preference::None); // it did not wait
        QTRY_COMPARE(changes, QList{Preference::Light});
        portal.change(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, 1);
        portal.change(appearance, u"contrast"_s, 1);
        portal.change(appearance, u"color-scheme"_s, 2);
        portal.change(appearance, u"color-scheme"_s, 1);
        portal.change(appearance, u"color-scheme"_s, 7); // of a later version: no preference
        QTRY_COMPARE(changes, (QList{Preference::Light, Preference::Dark, Preference::None}));
    }

    void doesWithoutAPortal()
    {
        LogRecorder log;
        PortalColorScheme scheme;
        scheme.start();
        QTRY_COMPARE(log.lines(u"appearance"_s).size(), 1);
    }
};

ORVANE_TEST(PortalColorScheme_test)
#include "PortalColorScheme_test.moc"
