#include "platform/ScriptingFixture.h"

#include "model/records/KWTask.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QDBusArgument>
#include <QLineEdit>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

const QString shell = u"org.gnome.Shell.SearchProvider2"_s;
const QString krunner = u"org.kde.krunner1"_s;

} // namespace

/// The searches of the desktops, over the bus.
class DesktopSearch_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ScriptingFixture> m_client;

    QVariant ask(const QString &path, const QString &interface, const char *member,
                 const QVariantList &arguments)
    {
        const QDBusMessage reply = m_client->call(path, interface, QString::fromLatin1(member), arguments);
        if (reply.type() != QDBusMessage::ReplyMessage)
            qFatal("%s failed: %s", member, qUtf8Printable(reply.errorMessage()));
        return reply.arguments().value(0);
    }
    QVariant askShell(const char *member, const QVariantList &arguments)
    {
        return ask(SearchProvider::path, shell, member, arguments);
    }
    QList<RunnerMatch> matches(const QString &query)
    {
        return qdbus_cast<QList<RunnerMatch>>(ask(Runner::path, krunner, "Match", {query}));
    }
    QString save(const char *title) { return aTask(title).savedIn(m_client->store); }
    QString currentTask() { return m_client->rooms().mainWindow().window()->listPane().list().currentTask(); }

private Q_SLOTS:
    void init() { m_client = std::make_unique<ScriptingFixture>(); }
    void cleanup() { m_client.reset(); }

    void theShellFindsAndOpensTasks()
    {
        const QString list = m_client->store.makeList(u"Client launch"_s);
        const QString open = aTask("Call the venue").dueOn("2030-05-03").in(list).savedIn(m_client->store);
        const QString done =
            aTask("Visit the venue").completedAt("2030-04-30 10:00").savedIn(m_client->store);
        const QStringList found =
            askShell("GetInitialResultSet", {QStringList{u"ven"_s, u"the"_s}}).toStringList();
        QCOMPARE(found, QStringList({open, done}));
        QCOMPARE(
            askShell("GetSubsearchResultSet", {found, QStringList{u"venue"_s, u"call"_s}}).toStringList(),
            QStringList{open});

        const auto metas =
            qdbus_cast<QList<QVariantMap>>(askShell("GetResultMetas", {QStringList{open, u"gone"_s, done}}));
        QCOMPARE(metas.size(), 2);
        QCOMPARE(metas[0][u"id"_s].toString(), open);
        QCOMPARE(metas[0][u"name"_s].toString(), u"Call the venue"_s);
        QCOMPARE(metas[0][u"description"_s].toString(), u"Client launch · 3 May"_s);
        QCOMPARE(metas[1][u"description"_s].toString(), u"Inbox · Completed"_s);

        askShell("ActivateResult", {open, QStringList{u"ven"_s}, 0U});
        QCOMPARE(currentTask(), open);
        askShell("LaunchSearch", {QStringList{u"ven"_s, u"the"_s}, 0U});
        const auto *field = m_client->rooms().mainWindow().window()->findChild<QLineEdit *>(u"searchField"_s);
        QVERIFY(field && field->isVisible());
        QCOMPARE(field->text(), u"ven the"_s);
    }

    // The files in which desktops look for the objects.
    void theDesktopsKnowWhereToAsk()
    {
        const auto valueIn = [](const char *file, const char *key) {
            const QSettings settings{QStringLiteral(ORVANE_TEST_DATA "/../../packaging/") +
                                         QString::fromLatin1(file),
                                     QSettings::IniFormat};
            return settings.value(QString::fromLatin1(key)).toString();
        };
        const QString name = DBusSingleInstance::busName(DataFolders::standard());
        const char *const provider = "gnome-shell/org.orvane.Orvane.search-provider.ini";
        QCOMPARE(valueIn(provider, "Shell Search Provider/BusName"), name);
        QCOMPARE(valueIn(provider, "Shell Search Provider/ObjectPath"), SearchProvider::path);
        const char *const plugin = "krunner/org.orvane.Orvane.desktop";
        QCOMPARE(valueIn(plugin, "Desktop Entry/X-Plasma-DBusRunner-Service"), name);
        QCOMPARE(valueIn(plugin, "Desktop Entry/X-Plasma-DBusRunner-Path"), Runner::path);
        QCOMPARE(valueIn("dbus/org.orvane.Orvane.service.in", "D-BUS Service/Name"), name);
    }

    void aWindowThatWasClosedComesBack()
    {
        const QString task = save("Call the venue");
        m_client->rooms().mainWindow().window()->close();
        askShell("ActivateResult", {task, QStringList{}, 0U});
        QVERIFY(m_client->rooms().mainWindow().window()->isVisible());
        askShell("ActivateResult", {u"gone"_s, QStringList{}, 0U}); // a sentence in the window
        QCOMPARE(currentTask(), task);
    }

    void answersFewHoweverManyThereAre()
    {
        for (int i = 0; i < 40; ++i)
            save("Water the plants");
        QCOMPARE(askShell("GetInitialResultSet", {QStringList{u"plants"_s}}).toStringList().size(),
                 SearchProvider::mostResults);
        QCOMPARE(matches(u"plants"_s).size(), Runner::mostMatches);
        QCOMPARE(matches(QString{10'000'000, u'p'}).size(), 0);
        const QStringList terms{100'000, u"plants"_s};
        QVERIFY(askShell("GetInitialResultSet", {terms}).toStringList().isEmpty());
        QVERIFY(qdbus_cast<QList<QVariantMap>>(askShell("GetResultMetas", {terms})).isEmpty());
    }

    void theRunnerMatchesOpensAndCompletes()
    {
        const QString exact = save("Pay rent");
        const QString other = save("Pay rent twice");
        const QString done =
            aTask("Pay rent in advance").completedAt("2030-04-30 10:00").savedIn(m_client->store);
        const QList<RunnerMatch> found = matches(u"pay rent"_s);
        QCOMPARE(found.size(), 3);
        for (const RunnerMatch &each : found) {
            QCOMPARE(each.type, each.id == exact ? 100 : 30);
            const QStringList actions = each.properties[u"actions"_s].toStringList();
            QCOMPARE(actions.join(u','), each.id == done ? u""_s : u"complete"_s);
        }
        QVERIFY(found[0].relevance > found[1].relevance && found[1].relevance > found[2].relevance);
        const auto actions = qdbus_cast<QList<RunnerAction>>(ask(Runner::path, krunner, "Actions", {}));
        QCOMPARE(actions.first().id, u"complete"_s);
        QCOMPARE(actions.first().text, u"Complete"_s);

        ask(Runner::path, krunner, "Run", {other, u""_s});
        QCOMPARE(currentTask(), other);
        ask(Runner::path, krunner, "Run", {exact, u"erase"_s}); // no action of ours
        ask(Runner::path, krunner, "Run", {u"gone"_s, u"complete"_s});
        ask(Runner::path, krunner, "Run", {exact, u"complete"_s});
        QVERIFY(m_client->kit().context().find<KWTask>(exact)->isCompleted());
        QVERIFY(!m_client->kit().context().find<KWTask>(other)->isCompleted());
    }

    void findsNothingSignedOutOrBeforeTheStoreIsOpen_data()
    {
        QTest::addColumn<bool>("isSignedOut");
        QTest::newRow("signed out") << true;
        QTest::newRow("before the store is open") << false;
    }
    void findsNothingSignedOutOrBeforeTheStoreIsOpen()
    {
        QFETCH(const bool, isSignedOut);
        const QString task = save("Pay rent");
        if (isSignedOut)
            QVERIFY(bool(m_client->kit().account().signOut()));
        else
            m_client->closeStore();
        QVERIFY(askShell("GetInitialResultSet", {QStringList{u"rent"_s}}).toStringList().isEmpty());
        QVERIFY(qdbus_cast<QList<QVariantMap>>(askShell("GetResultMetas", {QStringList{task}})).isEmpty());
        QVERIFY(matches(u"rent"_s).isEmpty());
        ask(Runner::path, krunner, "Run", {task, u"complete"_s});
        askShell("LaunchSearch", {QStringList{u"rent"_s}, 0U});
        QVERIFY(!m_client->kit().context().find<KWTask>(task)->isCompleted());
    }
};

ORVANE_TEST(DesktopSearch_test)
#include "DesktopSearch_test.moc"
