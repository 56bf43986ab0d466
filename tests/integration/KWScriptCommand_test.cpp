#include "cli/ListSections.h"
#include "integration/scripting/KWScriptCommand.h"
#include "integration/scripting/ScriptJson.h"
#include "integration/scripting/ScriptSearch.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/records/RecordJson.h"
#include "model/store/Connection.h"

#include "support/Answers.h"
#include "support/JsonSchema.h"
#include "support/LogRecorder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct NotedUsage : UsageEventsPort {
    QStringList events;
    void record(int category, const QString &key, const QString &value) override
    {
        events << u"%1 %2=%3"_s.arg(category).arg(key, value);
    }
};

struct NotedFocus : FocusStartPort {
    bool isEnabled = true;
    bool runsPomo = false;
    bool runsStopwatch = false;
    QList<std::int64_t> started;

    bool isPomoEnabled() const override { return isEnabled; }
    bool isPomoRunning() const override { return runsPomo; }
    bool isStopWatchRunning() const override { return runsStopwatch; }
    void startPomo(std::int64_t seconds) override { started << seconds; }
};

QJsonArray arrayOf(const QString &json) { return QJsonDocument::fromJson(json.toUtf8()).array(); }

// "Overdue: Pay rent, Wash up", one text for each section.
QStringList sectionsOf(const QString &json)
{
    QStringList sections;
    for (const QJsonValue &each : arrayOf(json)) {
        QStringList titles;
        for (const QJsonValue &task : each[u"tasks"_s].toArray())
            titles << task[u"title"_s].toString();
        sections << u"%1 %2: %3"_s.arg(each[u"id"_s].toString(), each[u"name"_s].toString(),
                                       titles.join(u", "_s));
    }
    return sections;
}

} // namespace

class KWScriptCommand_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    NotedUsage m_usage;
    NotedFocus m_focus;
    QSet<QString> m_hidden;

    std::optional<QString> perform(const char *name, const QVariant &parameter = {},
                                   const QVariantMap &arguments = {})
    {
        ListSections lists{[this] { return m_hidden; }};
        const ScriptSurroundings with{m_store->kit(), lists, m_focus, m_usage};
        return performScriptCommand(QString::fromLatin1(name), with, {parameter, arguments});
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin");
        m_usage = {};
        m_focus = {};
        m_hidden.clear();
    }

    void answersTheSectionsOfToday()
    {
        const char *zone = "Europe/Berlin";
        aTask("Pay rent", zone).dueOn("2030-04-29").savedIn(*m_store);
        aTask("Water the plants", zone).startingAt("2030-05-01 18:00").tagged("home").savedIn(*m_store);
        aTask("Tomorrow", zone).dueOn("2030-05-02").savedIn(*m_store);
        // Only its item is of today: no task stands in its place.
        aTask("Pack", zone).dueOn("2030-06-01").withItem("Socks", "2030-05-01 10:00").savedIn(*m_store);

        const QString today = perform("today").value_or(QString{});
        QCOMPARE(misfitOf(today, u"sections"_s), QString{});
        QCOMPARE(sectionsOf(today),
                 QStringList({u"date Overdue: Pay rent"_s, u"date Today: Water the plants"_s}));
        const QJsonValue task = arrayOf(today).at(1)[u"tasks"_s][0];
        QCOMPARE(task[u"startDate"_s].toString(), u"2030-05-01T16:00:00Z"_s);
        QCOMPARE(task[u"tags"_s].toArray(), QJsonArray{u"home"_s});
    }

    void sectionsAreThoseOfTheSortTypeOfTheList()
    {
        aTask("Low").dueOn("2030-05-01").prioritized(KWTaskPriorityLow).savedIn(*m_store);
        aTask("High").dueOn("2030-05-01").prioritized(KWTaskPriorityHigh).savedIn(*m_store);
        aTask("Saturday").dueOn("2030-05-04").prioritized(KWTaskPriorityLow).savedIn(*m_store);
        aTask("Idea").dueOn("2030-05-04").with(&KWTaskModel::kind, KWTaskKindNote).savedIn(*m_store);
        saved(*m_store, [this](ObjectContext &context) {
            KWSmartProject::updateSortType(KWTaskSortTypePriority, KWSmartProject::next7days().identifier(),
                                           m_store->userID(), context);
        });
        QCOMPARE(sectionsOf(*perform("today")), QStringList{u"date Today: High, Low"_s});
        QCOMPARE(sectionsOf(*perform("next7days")),
                 QStringList({u"date High: High"_s, u"date Low: Low, Saturday"_s, u"note Notes: Idea"_s}));
    }

    void whateverIsInARecordIsReadBackAsItIs()
    {
        const QString odd = u"\"quoted\" \\u0041 \t\n\u0001\u0000\u2028 ümläut 牛奶 🥛 </script>"_s;
        KWTaskModel task = aTask("").dueOn("2030-05-01").model();
        task.sid = newRecordIdentifier(m_store->clock.now());
        task.title = task.content = odd;
        task.tags = {odd, u""_s};
        task.sortOrder = -5 * KWSortOrderStep;
        task.estimatedDuration = std::numeric_limits<std::int64_t>::max();
        task.exDates = {at("2030-05-02 00:00"), Instant::min()};
        QJsonObject expected = toJson(task);
        for (const char *each : {"userID", "etag", "syncStatus", "pendingChanges", "isDeleted",
                                 "serverStartDate", "serverEndDate"})
            QVERIFY(!expected.take(QLatin1StringView{each}).isUndefined());
        QCOMPARE(QJsonDocument::fromJson(cx_JSONString(task).toUtf8()).object(), expected);
        QCOMPARE(cx_JSONString(QJsonValue{0.1}), u"0.1"_s);
    }

    void emptySectionsLeaveAnEmptyArray()
    {
        QCOMPARE(perform("today"), u"[]"_s);
        const QString task = aTask("Water the plants").dueOn("2030-05-01").savedIn(*m_store);
        QVERIFY(perform("today") != u"[]"_s);
        m_hidden.insert(task); // its delete can still be undone
        QCOMPARE(perform("today"), u"[]"_s);
        QCOMPARE(perform("search", u"plants"_s), u"[]"_s);
        QCOMPARE(perform("next7days"), u"[]"_s);
    }

    void findsTasksByWords()
    {
        aTask("Call the venue").savedIn(*m_store);
        aTask("Write to the venue").completedAt("2030-04-30 10:00").savedIn(*m_store);
        aTask("Chairs").with(&KWTaskModel::content, u"for the venue"_s).savedIn(*m_store);
        aTask("Venue of long ago").inState(u"trashed"_s, "2030-04-01 10:00").savedIn(*m_store);
        const QString found = perform("search", u"venue"_s).value_or(QString{});
        QCOMPARE(misfitOf(found, u"tasks"_s), QString{});
        QStringList titles;
        for (const QJsonValue &each : arrayOf(found))
            titles << each[u"title"_s].toString();
        QCOMPARE(titles, QStringList({u"Call the venue"_s, u"Chairs"_s, u"Write to the venue"_s}));
    }

    void searchesForTextAlone_data()
    {
        QTest::addColumn<QVariant>("text");
        QTest::addColumn<QString>("answer"); // null: nothing
        QTest::newRow("none") << QVariant{} << QString{};
        QTest::newRow("empty") << QVariant{QString{}} << QString{};
        QTest::newRow("a number") << QVariant{7} << QString{};
        QTest::newRow("a list") << QVariant{QStringList{u"venue"_s}} << QString{};
        QTest::newRow("no word") << QVariant{u" \"* "_s} << u"[]"_s;
        QTest::newRow("ten million letters") << QVariant{QString{10'000'000, u'v'}} << u"[]"_s;
        QTest::newRow("a million quotation marks") << QVariant{QString{1'000'000, u'"'}} << u"[]"_s;
    }
    void searchesForTextAlone()
    {
        QFETCH(const QVariant, text);
        QFETCH(const QString, answer);
        aTask("Call the venue").savedIn(*m_store);
        QCOMPARE(perform("search", text), answer.isNull() ? std::optional<QString>{} : answer);
    }

    void answersTheListsInTheirOrder()
    {
        m_store->makeList(u"Work"_s);
        const QString closed = m_store->makeList(u"Old"_s);
        m_store->makeList(u"Ideas"_s, KWProjectKindNote);
        setSaved<KWProject>(*m_store, closed, &KWProjectModel::closed, true);
        const QString lists = perform("projects").value_or(QString{});
        QCOMPARE(misfitOf(lists, u"projects"_s), QString{});
        QStringList names;
        for (const QJsonValue &each : arrayOf(lists))
            names << each[u"name"_s].toString();
        QCOMPARE(names, QStringList({u"Inbox"_s, u"Work"_s, u"Ideas"_s}));
        QVERIFY(!arrayOf(lists).at(0).toObject().contains(u"userID"_s));
    }

    void startsAPomoOnlyWhenNothingIsUnderWay()
    {
        const auto tryWith = [this](const QVariant &seconds) {
            m_focus.started.clear();
            const bool isSilent = !perform("pomo", seconds);
            return isSilent ? m_focus.started : QList<std::int64_t>{-999};
        };
        const QList<std::int64_t> nothing;
        QCOMPARE(tryWith(1500), QList<std::int64_t>{1500});
        QCOMPARE(tryWith(qlonglong{0}), QList<std::int64_t>{0});
        for (const QVariant &wrong : {QVariant{}, QVariant{u"1500"_s}, QVariant{1500.0}, QVariant{true},
                                      QVariant{QVariantList{1500}}})
            QCOMPARE(tryWith(wrong), nothing);
        for (bool NotedFocus::*each : {&NotedFocus::runsPomo, &NotedFocus::runsStopwatch}) {
            m_focus.*each = true;
            QCOMPARE(tryWith(1500), nothing);
            m_focus.*each = false;
        }
        m_focus.isEnabled = false;
        QCOMPARE(tryWith(1500), nothing);
    }

    void recordsTheOneCallerThatIsNamedExactly()
    {
        perform("today", {}, {{u"from"_s, u"raycast"_s}});
        perform("search", u"x"_s, {{u"from"_s, u"raycast"_s}});
        for (const QVariant &other : {QVariant{u"Raycast"_s}, QVariant{u"RAYCAST"_s}, QVariant{u"raycast "_s},
                                      QVariant{u""_s}, QVariant{QByteArray{"raycast"}}, QVariant{7}})
            perform("projects", {}, {{u"from"_s, other}});
        QCOMPARE(m_usage.events, QStringList({u"13 action=today"_s, u"13 action=search"_s}));
    }

    void logsEveryCall()
    {
        const LogRecorder log;
        perform("next7days");
        perform("pomo", u"no number"_s, {{u"from"_s, u"a launcher"_s}});
        perform("today", {}, {{u"from"_s, u"two\nlines"_s + QString{1'000'000, u'!'}}});
        const QString cut = u"two lines"_s + QString{191, u'!'};
        QCOMPARE(log.lines(u"script"_s),
                 QStringList({u"apple script: next7days, from:"_s, u"apple script: pomo, from: a launcher"_s,
                              u"apple script: today, from: "_s + cut}));
    }

    void answersNothingToNobody_data()
    {
        QTest::addColumn<bool>("isOfAnotherVersion");
        QTest::newRow("signed out") << false;
        QTest::newRow("a store that a later version has changed") << true;
    }
    void answersNothingToNobody()
    {
        QFETCH(const bool, isOfAnotherVersion);
        aTask("Water the plants").dueOn("2030-05-01").savedIn(*m_store);
        if (isOfAnotherVersion)
            m_store->context().connection().execute("PRAGMA user_version = 100000");
        else
            QVERIFY(bool(m_store->account().signOut()));
        const LogRecorder log;
        for (const char *each : {"today", "next7days", "projects"})
            QCOMPARE(perform(each, {}, {{u"from"_s, u"raycast"_s}}), std::nullopt);
        QCOMPARE(perform("search", u"plants"_s), std::nullopt);
        QCOMPARE(perform("pomo", 1500), std::nullopt);
        QVERIFY(m_usage.events.isEmpty() && m_focus.started.isEmpty() && log.lines(u"script"_s).isEmpty());
    }
};

ORVANE_TEST(KWScriptCommand_test)
#include "KWScriptCommand_test.moc"
