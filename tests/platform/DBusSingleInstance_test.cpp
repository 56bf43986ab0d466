#include "platform/DBusSingleInstance.h"

#include "support/Answers.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString applicationInterface = u"org.freedesktop.Application"_s;

// A connection of its own, as another process would have.
QDBusConnection connectionOf(const QString &party)
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, party);
}

} // namespace

class DBusSingleInstance_test : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    ManualClock m_clock{"2030-05-01 09:00"};
    QList<LaunchRequest> m_received;

    DataFolders folders() const { return DataFolders::locate(m_folder->path()); }
    InstanceChannel::Handler receiver()
    {
        return [this](const LaunchRequest &request) { m_received << request; };
    }
    DBusSingleInstance channelOf(const char *party)
    {
        return {folders(), m_clock, [party] { return connectionOf(QLatin1String{party}); }};
    }

    // As any program may.
    QDBusPendingCall call(const QString &interface, const QString &method, const QVariantList &arguments)
    {
        const QString name = DBusSingleInstance::busName(folders());
        QDBusMessage message =
            QDBusMessage::createMethodCall(name, DBusSingleInstance::objectPath(name), interface, method);
        message.setArguments(arguments);
        return connectionOf(u"second"_s).asyncCall(message);
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY2(connectionOf(u"first"_s).isConnected(), "run it on a bus"); }
    void init()
    {
        m_folder.emplace();
        m_received.clear();
    }

    void namesTheFolder()
    {
        QCOMPARE(DBusSingleInstance::busName(DataFolders::standard()), u"org.orvane.Orvane"_s);
        QCOMPARE(DBusSingleInstance::objectPath(u"org.orvane.Orvane"_s), u"/org/orvane/Orvane"_s);
        const QString name = DBusSingleInstance::busName(folders());
        QVERIFY2(name.startsWith(u"org.orvane.Orvane.h"_s), qUtf8Printable(name));
        const QTemporaryDir another;
        QVERIFY(DBusSingleInstance::busName(DataFolders::locate(another.path())) != name);
        const QString link = another.path() + u"/link"_s;
        QVERIFY(QFile::link(m_folder->path(), link));
        QCOMPARE(DBusSingleInstance::busName(DataFolders::locate(link)), name);
        const QString standard = DataFolders::standard().data;
        QVERIFY(QFile::remove(link) && QDir{}.mkpath(standard) && QFile::link(standard, link));
        QCOMPARE(DBusSingleInstance::busName(DataFolders::locate(link)), u"org.orvane.Orvane"_s);
    }

    void handsOverWhileItListens()
    {
        const LaunchRequest links{.links = {u"orvane://task/1"_s, u"ORVANE://list/ü?x=1"_s},
                                  .activationToken = u"token"_s};
        const QList<LaunchRequest> requests{
            {},
            links,
            {.cause = LaunchCause::LoginItem},
            {.cause = LaunchCause::Diagnostics},
            {.cause = LaunchCause::AddTask},
            {.cause = LaunchCause::AddTask, .title = u"Füße hochlegen"_s, .activationToken = u"token"_s}};
        DBusSingleInstance first = channelOf("first"), second = channelOf("second");
        first.listen(receiver());
        for (const LaunchRequest &request : requests)
            QVERIFY(second.handOver(request));
        QTRY_COMPARE(m_received, requests);
        first.stopListening();
        QVERIFY(!connectionOf(u"second"_s)
                     .interface()
                     ->isServiceRegistered(DBusSingleInstance::busName(folders())));
    }

    void waitsForAFirstThatIsJustStarting()
    {
        DBusSingleInstance first = channelOf("first"), second = channelOf("second");
        std::function<void()> meanwhile = [this] { m_clock.advance(DBusSingleInstance::patience); };
        QTimer waiting; // until somebody waits
        waiting.callOnTimeout([&] {
            if (m_clock.isIdle()) return;
            waiting.stop();
            meanwhile();
        });
        waiting.start();
        QVERIFY(!second.handOver({}));

        // Time stands still, so that nothing but its coming ends the wait.
        meanwhile = [&] { first.listen(receiver()); };
        waiting.start();
        QVERIFY(second.handOver({}));
        QTRY_COMPARE(m_received.size(), 1);
    }

    void passesOverWhatIsNoLinkAndNoAction()
    {
        DBusSingleInstance first = channelOf("first");
        first.listen(receiver());
        const QStringList links{u"file:///etc/passwd"_s, u"orvane://task/1"_s, u"orvanex://y"_s};
        call(applicationInterface, u"Open"_s, {links, QVariantMap{}});
        const auto answer =
            call(applicationInterface, u"ActivateAction"_s, {u"erase"_s, QVariantList{}, QVariantMap{}});
        QTRY_COMPARE(answer.error().message(), u"There is no action “erase”."_s);
        QTRY_COMPARE(m_received.size(), 1);
        QCOMPARE(m_received.first().links, QStringList{u"orvane://task/1"_s});
    }

    void takesATitleFromAnyProgram()
    {
        DBusSingleInstance first = channelOf("first");
        first.listen(receiver());
        const auto act = [this](const QVariantList &parameter) {
            return call(applicationInterface, u"ActivateAction"_s, {u"add-task"_s, parameter, QVariantMap{}});
        };
        act({});
        act({u"Pay rent"_s});
        const auto shown = call(u"org.orvane.QuickAdd1"_s, u"Show"_s, {u"Wash up"_s});
        for (const QVariantList &wrong : {QVariantList{7}, QVariantList{u"Pay"_s, u"rent"_s}}) {
            const auto refused = act(wrong);
            QTRY_VERIFY(refused.error().message().contains(u"one text"_s));
        }
        QVERIFY(!shown.isError());
        QTRY_COMPARE(joined(m_received, &LaunchRequest::title), u" Pay rent Wash up"_s);
        for (const LaunchRequest &each : m_received)
            QCOMPARE(each.cause, LaunchCause::AddTask);
    }
};

ORVANE_TEST(DBusSingleInstance_test)
#include "DBusSingleInstance_test.moc"
