#include "platform/ScriptingFixture.h"

#include "cli/Commands.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWPomoSettingsManager.h"
#include "support/Files.h"
#include "support/JsonSchema.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <QThread>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

const QVariantMap options{{u"from"_s, u"a launcher"_s}};

// Runs it on a thread of its own while this one answers calls.
void runBeside(const std::function<void()> &work)
{
    const std::unique_ptr<QThread> thread{QThread::create(work)};
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
}

QString idIn(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object()[u"id"_s].toString();
}

} // namespace

/// What other programs get on the bus, the client being what it is.
class Scripting_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ScriptingFixture> m_client;
    QList<QStringList> m_changedTasks;
    int m_listChanges = 0;

    QString answer(const char *member, const QVariantList &arguments = {options})
    {
        return m_client->answer(member, arguments);
    }
    KWPomoRunningManager &pomo() { return m_client->rooms().focus().pomo(); }

public Q_SLOTS:
    void noteTasks(const QStringList &ids) { m_changedTasks << ids; }
    void noteLists() { ++m_listChanges; }

private Q_SLOTS:
    void init() { m_client = std::make_unique<ScriptingFixture>(); }
    void cleanup()
    {
        m_client.reset();
        m_changedTasks.clear();
        m_listChanges = 0;
    }

    void answersTheFive()
    {
        const QString id = aTask("Water the plants").dueOn("2030-05-01").savedIn(m_client->store);
        const std::pair<QString, QString> answers[] = {{answer("Today"), u"sections"_s},
                                                       {answer("Next7Days"), u"sections"_s},
                                                       {answer("Search", {u"plant"_s, options}), u"tasks"_s},
                                                       {answer("Projects"), u"projects"_s}};
        for (const auto &[json, schema] : answers) {
            QCOMPARE(misfitOf(json, schema), QString{});
            QCOMPARE(json.contains(id), schema != u"projects");
        }
        QCOMPARE(answer("Pomo", {1200, options}), QString{});
        QCOMPARE(pomo().currentCountDown(), 1200);
        // Options may be left out, and so may the interface.
        QCOMPARE(answer("Today", {}), answers[0].first);
        const auto reply = m_client->call(ScriptingObject::path, {}, u"Today"_s, {});
        QCOMPARE(reply.arguments().value(0).toString(), answers[0].first);
    }

    void answersNothingToWhatItDoesNotUnderstand_data()
    {
        QTest::addColumn<QByteArray>("member");
        QTest::addColumn<QVariantList>("arguments");
        const QString million{1'000'000, u'x'};
        const auto row = [](const char *name, const char *member, const QVariantList &arguments) {
            QTest::newRow(name) << QByteArray{member} << arguments;
        };
        row("a text where nothing is", "Today", {u"today"_s, options});
        row("text for options", "Today", {u"from"_s});
        row("options in a list", "Today", {QVariant::fromValue(QList<QVariantMap>{options})});
        row("options in a list behind a text", "Search",
            {u"x"_s, QVariant::fromValue(QList<QVariantMap>{options})});
        row("options twice", "Projects", {options, options});
        row("no text", "Search", {options});
        row("a number for a text", "Search", {7, options});
        row("texts for a text", "Search", {QStringList{u"x"_s}, options});
        row("an empty text", "Search", {QString{}, options});
        row("text for a number", "Pomo", {u"1500"_s, options});
        row("a fraction", "Pomo", {1500.5, options});
        row("a flag", "Pomo", {true, options});
        row("no number", "Pomo", {});
        row("two numbers", "Pomo", {1500, 300, options});
        row("a text of ten megabytes", "Today", {million.repeated(10)});
    }
    void answersNothingToWhatItDoesNotUnderstand()
    {
        QFETCH(const QByteArray, member);
        QFETCH(const QVariantList, arguments);
        aTask("7 x").dueOn("2030-05-01").savedIn(m_client->store);
        QCOMPARE(answer(member.constData(), arguments), QString{});
        QCOMPARE(pomo().state(), KWPomoRunningState::idle);
        QVERIFY(answer("Today").contains(u"7 x"_s)); // it goes on
    }

    void tenMegabytesFindNothing()
    {
        QCOMPARE(answer("Today", {QVariantMap{{u"from"_s, QString{10'000'000, u'v'}}}}), u"[]"_s);
        QCOMPARE(answer("Search", {QString{10'000'000, u'v'}, options}), u"[]"_s);
        const QDBusMessage refused = m_client->scripting("Add", {QString{10'000'000, u'v'}, options});
        QCOMPARE(refused.errorMessage(), u"The text is longer than 10000 characters."_s);
    }

    void answersNothingWithoutAnAccountOrAStore_data()
    {
        QTest::addColumn<bool>("isSignedOut");
        QTest::newRow("signed out") << true;
        QTest::newRow("before the store is open") << false;
    }
    void answersNothingWithoutAnAccountOrAStore()
    {
        QFETCH(const bool, isSignedOut);
        const QString id = aTask("Water the plants").dueOn("2030-05-01").savedIn(m_client->store);
        if (isSignedOut)
            QVERIFY(bool(m_client->kit().account().signOut()));
        else
            m_client->closeStore();
        for (const char *each : {"Today", "Next7Days", "Projects"})
            QCOMPARE(answer(each), QString{});
        QCOMPARE(answer("Search", {u"plants"_s, options}), QString{});
        QCOMPARE(answer("Pomo", {1500, options}), QString{});
        for (const char *each : {"Add", "Complete", "List"}) {
            const QDBusMessage refused = m_client->scripting(each, {id, options});
            QCOMPARE(refused.errorName(), ScriptingObject::errorName);
            QVERIFY(refused.errorMessage().endsWith(u'.'));
        }
        QCOMPARE(pomo().state(), KWPomoRunningState::idle);
    }

    void answersAThousandCallsOfAnotherThread()
    {
        aTask("Water the plants").dueOn("2030-05-01").savedIn(m_client->store);
        const QString expected = answer("Today");
        const QString name = m_client->busName();
        int same = 0;
        runBeside([&] {
            QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"thread"_s);
            for (int i = 0; i < 1000; ++i) {
                QDBusMessage call = QDBusMessage::createMethodCall(name, ScriptingObject::path,
                                                                   ScriptingObject::interface, u"Today"_s);
                call.setArguments({options});
                if (bus.call(call).arguments().value(0).toString() == expected) ++same;
            }
            QDBusConnection::disconnectFromBus(u"thread"_s);
        });
        QCOMPARE(same, 1000);
    }

    void tellsItsDefinition()
    {
        const QString path = ScriptingObject::path;
        const QString definition = QString::fromUtf8(
            bytesOf(QStringLiteral(ORVANE_TEST_DATA "/../../packaging/dbus/org.orvane.Scripting1.xml")));
        QVERIFY(definition.contains(u"Next7Days"_s));
        const auto told = m_client->call(path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s, {});
        QCOMPARE(told.arguments().value(0).toString(), definition);
        // What bindings ask beside it.
        const auto properties = m_client->call(path, u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s,
                                               {ScriptingObject::interface});
        QCOMPARE(properties.signature(), u"a{sv}"_s);
        m_client->call(path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                       {ScriptingObject::interface, u"Version"_s});
        for (const char *unknown : {"today", "TODAY", "Yesterday", ""})
            QCOMPARE(m_client->scripting(unknown, {options}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(m_client->scripting("Yesterday", {options}).errorMessage(),
                 u"There is no method “Yesterday”."_s);
        QCOMPARE(answer("Today"), u"[]"_s);
    }

    void startsNoPomoBesideWhatRuns()
    {
        KWFocusRunningManager &focus = m_client->rooms().focus().manager();
        const auto isStarted = [this] {
            answer("Pomo", {1200, options});
            return pomo().isFocusing() && pomo().countDownDuration() == 1200;
        };
        focus.startStopWatch();
        QVERIFY(!isStarted());
        focus.pauseStopWatch();
        QVERIFY(!isStarted());
        focus.stopStopWatch();
        QVERIFY(isStarted());
        pomo().pause();
        answer("Pomo", {600, options});
        QVERIFY(pomo().state() == KWPomoRunningState::paused && pomo().countDownDuration() == 1200);
        pomo().abandonFocusing();
        KWPomoSettingsManager settings{m_client->kit().manager(), m_client->kit().center(),
                                       m_client->store.userID()};
        KWPomoSettingsModel off = settings.settings();
        off.isPomoEnabled = false;
        QVERIFY(bool(settings.save(off)));
        QVERIFY(!isStarted());
    }

    void theCommandLineStartsAPomoInTheClient()
    {
        const auto orvane = [this](const QStringList &words) {
            const auto invocation =
                Invocation::parse(QStringList{u"--home"_s, m_client->kit().folders().data} + words);
            if (!invocation) qFatal("%s", qUtf8Printable(invocation.error().sentence));
            QString said;
            std::istringstream in;
            QTextStream out{&said};
            QTextStream err{&said};
            runBeside([&] { runCommand(*invocation, {in, out, err}); });
            return said;
        };
        QCOMPARE(orvane({u"pomo"_s, u"900"_s, u"--from"_s, u"a launcher"_s}), QString{});
        QCOMPARE(pomo().currentCountDown(), 900);
        QCOMPARE(orvane({u"pomo"_s, u"600"_s}), QString{}); // one runs
        QCOMPARE(pomo().currentCountDown(), 900);
    }

    void addsListsAndCompletes()
    {
        m_client->store.makeList(u"Client launch"_s);
        const QString added = answer("Add", {u"Call the venue today 11pm remind me 10 minutes before !high"_s,
                                             QVariantMap{{u"list"_s, u"client launch"_s}}});
        QCOMPARE(misfitOf(added, u"task"_s), QString{});
        const QString listID = QJsonDocument::fromJson(added.toUtf8())[u"projectId"_s].toString();
        QVERIFY(answer("Today").contains(idIn(added)));
        QCOMPARE(answer("List", {u"Client launch"_s, options}), u'[' + added + u']');
        QCOMPARE(answer("List", {listID, options}), u'[' + added + u']');
        QCOMPARE(answer("List", {u""_s, options}), u'[' + added + u']');

        const QString completed = answer("Complete", {idIn(added), options});
        QVERIFY2(completed.contains(u"\"status\":2"_s), qUtf8Printable(completed));
        QCOMPARE(answer("List", {listID, options}), u"[]"_s);
        const QString repeating = answer("Add", {u"Wash up every day"_s, options});
        QVERIFY(answer("Complete", {idIn(repeating), options}).contains(u"\"status\":0"_s)); // the next one
    }

    void refusesWithASentence()
    {
        const std::tuple<const char *, QVariantList, QString> refusals[] = {
            {"Add", {u" #home"_s, options}, {}},
            {"Add", {u"Pay"_s, QVariantMap{{u"list"_s, u"Nowhere"_s}}}, u"There is no list “Nowhere”."_s},
            {"Add", {u"Pay"_s, QVariantMap{{u"list"_s, 7}}}, u"The list is no text."_s},
            {"Add", {7, options}, u"“Add” takes a text and options: “sa{sv}”."_s},
            {"Complete", {u"zzzz"_s, options}, u"There is no task “zzzz”."_s},
            {"Complete", {}, u"“Complete” takes a text and options: “sa{sv}”."_s},
            {"List", {u"Nowhere"_s, options}, u"There is no list “Nowhere”."_s},
        };
        for (const auto &[member, arguments, sentence] : refusals) {
            const QDBusMessage refused = m_client->scripting(member, arguments);
            QCOMPARE(refused.type(), QDBusMessage::ErrorMessage);
            if (sentence.isEmpty())
                QVERIFY2(refused.errorMessage().endsWith(u'.'), qUtf8Printable(refused.errorMessage()));
            else
                QCOMPARE(refused.errorMessage(), sentence);
        }
        QCOMPARE(answer("List", {u""_s, options}), u"[]"_s);
    }

    void tellsWhatChangesOnceForAll()
    {
        QDBusConnection bus = ScriptingFixture::caller();
        const QString name = m_client->busName();
        bus.connect(name, ScriptingObject::path, ScriptingObject::interface, u"TasksChanged"_s, this,
                    SLOT(noteTasks(QStringList)));
        bus.connect(name, ScriptingObject::path, ScriptingObject::interface, u"ListsChanged"_s, this,
                    SLOT(noteLists()));
        answer("Today"); // the bus knows who listens
        QStringList ids{aTask("Wash up").savedIn(m_client->store),
                        aTask("Pay rent").savedIn(m_client->store)};
        ids.sort();
        setSaved<KWTask>(m_client->store, ids.first(), &KWTaskModel::title, u"Wash it all"_s);
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_changedTasks, QList<QStringList>{ids});
        QCOMPARE(m_listChanges, 0);

        m_client->store.makeList(u"Work"_s);
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_listChanges, 1);
        QCOMPARE(m_changedTasks.size(), 1);

        saved(m_client->store, [this](ObjectContext &context) {
            for (int i = 0; i <= ScriptingSignals::mostIDs; ++i)
                context.insert<KWTask>(
                    aTask("Chair").in(KWProject::inboxIDOfUser(m_client->store.userID())).model());
        });
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_changedTasks.size(), 2);
        QVERIFY(m_changedTasks.last().isEmpty()); // any may have

        m_client->rooms().deletes().deleteTasks(ids);
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_changedTasks.size(), 3);
        m_client->rooms().deletes().undo();
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_changedTasks.size(), 4);
        m_client->kit().center().post(KWNewDayComesNotification);
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_changedTasks.size(), 5);
        QCOMPARE(m_listChanges, 1);
        QVERIFY(bool(m_client->kit().account().signOut()));
        m_client->store.clock.advance(ScriptingSignals::joinedOver);
        QTRY_COMPARE(m_listChanges, 2);
    }
};

ORVANE_TEST(Scripting_test)
#include "Scripting_test.moc"
