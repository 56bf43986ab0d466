#include "platform/PortalColorScheme.h"

#include "support/LogRecorder.h"
#include "support/TestMain.h"

#include <QDBusMessage>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

using Preference = PortalColorScheme::Preference;

namespace {

const QString appearance = u"org.freedesktop.appearance"_s;

} // namespace

/// The portal of a desktop, as another process would be.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(uint preference) : m_preference(preference)
    {
        m_bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    ~FakePortal() override
    {
        // Answered by the bus, so that the next test does not meet the name.
        m_bus.unregisterService(u"org.freedesktop.portal.Desktop"_s);
        QDBusConnection::disconnectFromBus(u"portal"_s);
    }

    void change(const QString &nameSpace, const QString &key, uint value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << nameSpace << key << QVariant::fromValue(QDBusVariant{value});
        m_bus.send(signal);
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &nameSpace, const QString &key)
    {
        const bool isKnown = nameSpace == appearance && key == u"color-scheme";
        return QDBusVariant{QVariant::fromValue(QDBusVariant{isKnown ? m_preference : 0})};
    }

private:
    uint m_preference;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
};

class PortalColorScheme_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
    }

    void takesWhatThePortalAnswers_data()
    {
        QTest::addColumn<uint>("answer");
        QTest::addColumn<int>("preference");
        QTest::newRow("dark") << 1u << int(Preference::Dark);
        QTest::newRow("light") << 2u << int(Preference::Light);
    }

    void takesWhatThePortalAnswers()
    {
        QFETCH(uint, answer);
        QFETCH(int, preference);
        FakePortal portal{answer};
        PortalColorScheme scheme;
        scheme.start();
        QCOMPARE(scheme.preference(), Preference::None); // it did not wait
        QTRY_COMPARE(int(scheme.preference()), preference);
    }

    void followsChangesOfThatSettingAlone()
    {
        FakePortal portal{2};
        PortalColorScheme scheme;
        QList<Preference> changes;
        scheme.onChanged = [&changes](Preference preference) { changes << preference; };
        scheme.start();
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
        PortalColorScheme alone{
            [] { return QDBusConnection::connectToBus(u"unix:path=/no/such/bus"_s, u"none"_s); }};
        alone.start();
        QCOMPARE(log.lines(u"appearance"_s).size(), 2);
        QCOMPARE(alone.preference(), Preference::None);
    }
};

ORVANE_TEST(PortalColorScheme_test)
#include "PortalColorScheme_test.moc"
