#include "integration/summary/SummaryDocument.h"
#include "integration/summary/SummaryMarkdown.h"
#include "integration/summary/SummaryPageApi.h"
#include "integration/summary/SummaryReader.h"

#include "corvexkit/time/TimeText.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWPomodoro.h"
#include "model/store/Connection.h"
#include "support/CaseText.h"
#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The summary of some days: what is chosen, read and written. The first of May 2030 is a Wednesday.
class Summary_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    SummaryChoice choiceOf(const QByteArray &json)
    {
        return SummaryChoice::fromJson(QJsonDocument::fromJson(json).object(), m_store->clock.today(),
                                       std::chrono::Monday);
    }
    QString written(const QByteArray &json)
    {
        QString text;
        const auto read =
            KWCoreDataService{m_store->kit().manager()}.sync_perform([&](ObjectContext &context) {
                const auto content = readSummary(choiceOf(json), m_store->userID(), context);
                if (!content) return Result<void>{content.error()};
                text = summaryMarkdown(*content, m_store->clock.zone(), QLocale{u"en_GB"_s});
                return Result<void>{};
            });
        return read ? text : read.error().sentence;
    }
    // Leaves one task out.
    SummaryPageApi pageApi(const QString &hiddenTask = {})
    {
        return {m_store->kit(), m_store->clock, [hiddenTask] { return QSet<QString>{hiddenTask}; }};
    }
    void focusOn(const QString &taskID, const char *from, std::chrono::minutes length)
    {
        KWPomodoroModel session;
        session.userID = m_store->userID();
        session.startDate =
            m_store->clock.zone().toInstant(*TimeText::toLocalTime(QString::fromLatin1(from)));
        session.endDate = *session.startDate + length;
        session.taskID = taskID;
        saved(*m_store, [&](ObjectContext &context) { context.insert<KWPomodoro>(session); });
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin"); }

    void knowsItsDays_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("days");
        const auto row = [](const char *json, const char *days) {
            QTest::addRow("%s", json) << QByteArray{json} << QString::fromLatin1(days);
        };
        row("{\"range\": \"today\"}", "2030-05-01 2030-05-01");
        row("{\"range\": \"yesterday\"}", "2030-04-30 2030-04-30");
        row("{\"range\": \"thisWeek\"}", "2030-04-29 2030-05-05");
        row("{\"range\": \"lastWeek\"}", "2030-04-22 2030-04-28");
        row("{\"range\": \"thisMonth\"}", "2030-05-01 2030-05-31");
        row("{\"range\": \"lastMonth\"}", "2030-04-01 2030-04-30");
        row("{\"range\": \"days\", \"from\": \"2030-02-27\", \"to\": \"2030-03-01\"}",
            "2030-02-27 2030-03-01");
        row("{\"range\": \"days\", \"from\": \"2030-03-01\", \"to\": \"2030-02-27\"}",
            "2030-02-27 2030-03-01");
        row("{\"range\": \"days\", \"from\": \"2030-02-30\", \"to\": 7}", "2030-05-01 2030-05-01");
        row("{\"range\": \"days\", \"from\": \"0001-01-01\", \"to\": \"2030-05-01\"}",
            "2020-04-24 2030-05-01");
        row("{\"range\": \"days\", \"to\": \"2050-01-01\"}", "2039-12-26 2050-01-01");
        row("{\"range\": \"someday\"}", "2030-04-29 2030-05-05");
        row("{}", "2030-04-29 2030-05-05");
        row("{\"range\": [\"today\"], \"lists\": \"x\", \"statuses\": 1, \"fields\": {}, \"group\": null}",
            "2030-04-29 2030-05-05");
    }
    void knowsItsDays()
    {
        QFETCH(const QByteArray, json);
        const SummaryChoice choice = choiceOf(json);
        const QJsonObject back = choice.toJson();
        QTEST(back[u"from"_s].toString() + u' ' + back[u"to"_s].toString(), "days");
        QCOMPARE(SummaryChoice::fromJson(back, m_store->clock.today(), std::chrono::Monday).toJson(), back);
        QCOMPARE(choice.isShortened, json.contains("0001-01-01") || json.contains("2050-01-01"));
    }

    void keepsWhatIsChosen()
    {
        const QByteArray json =
            "{\"range\": \"today\", \"lists\": [\"a\", 7, \"b\"], \"statuses\": [\"open\"],"
            "\"fields\": [\"text\", \"habits\", \"nonsense\"], \"group\": \"status\"}";
        const SummaryChoice choice = choiceOf(json);
        QCOMPARE(choice.listIDs, (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(choice.statuses, SummaryChoice::Statuses{SummaryChoice::Status::Open});
        QCOMPARE(choice.fields, SummaryChoice::Detail::Text | SummaryChoice::Detail::Habits);
        QCOMPARE(choice.toJson()[u"group"_s].toString(), u"status"_s);
        QCOMPARE(choiceOf("{\"statuses\": [], \"fields\": []}").fields, SummaryChoice::Details{});
    }

    void writesWhatWasDoneAndWhatIsPlanned()
    {
        const QString list = m_store->makeList(u"Client *launch*"_s);
        const char *zone = "Europe/Berlin";
        const QString venue = aTask("Call the venue", zone)
                                  .in(list)
                                  .tagged("errand")
                                  .completedAt("2030-04-29 17:30")
                                  .savedIn(*m_store);
        aTask("Read", zone).completedAt("2030-04-28 23:59").savedIn(*m_store); // the week before
        aTask("Late", zone).dueOn("2030-04-28").savedIn(*m_store);
        aTask("<b>Write</b>", zone).in(list).startingAt("2030-05-02 10:00").savedIn(*m_store);
        aTask("Trip", zone).dueFrom("2030-04-20", "2030-05-09").savedIn(*m_store);
        aTask("No date", zone).savedIn(*m_store);
        focusOn(venue, "2030-04-29T16:00:00", 25min);
        focusOn({}, "2030-04-30T23:50:00", 70min);
        focusOn({}, "2030-04-28T23:50:00", 20min); // half of it in these days

        QCOMPARE(
            written("{\"fields\": [\"list\", \"tags\", \"date\", \"completion\", \"focusTime\", \"focus\"]}"),
            u"# Monday 29 April – Sunday 5 May 2030\n"
            "\n## Monday 29 April\n\n"
            "- [x] Call the venue — Client \\*launch\\* · \\#errand · 17:30 · 25 min of focus\n"
            "- [ ] Trip — Inbox · 20 Apr\n"
            "\n## Thursday 2 May\n\n"
            "- [ ] \\<b\\>Write\\</b\\> — Client \\*launch\\* · 10:00\n"
            "\n## Focus\n\n1 h 45 min in 3 sessions\n"_s);
        QCOMPARE(written("{\"fields\": [\"focus\"], \"group\": \"list\", \"statuses\": [\"completed\"]}"),
                 u"# Monday 29 April – Sunday 5 May 2030\n"
                 "\n## Client \\*launch\\*\n\n- [x] Call the venue\n"
                 "\n## Focus\n\n1 h 45 min in 3 sessions\n"_s);
        const QByteArray ofList =
            "{\"fields\": [\"focus\", \"habits\", \"date\"], \"group\": \"status\", \"lists\": [\"" +
            list.toUtf8() + "\"]}";
        QCOMPARE(written(ofList), u"# Monday 29 April – Sunday 5 May 2030\n"
                                  "\n## Completed\n\n- [x] Call the venue\n"
                                  "\n## Open\n\n- [ ] \\<b\\>Write\\</b\\> — 2 May 10:00\n"
                                  "\n## Focus\n\n25 min in one session\n"_s);
    }

    void writesTextsAndHabits()
    {
        aTask("", "Europe/Berlin")
            .dueOn("2030-05-01")
            .with(&KWTaskModel::content, u"One\n\n  - two\n"_s)
            .savedIn(*m_store);
        saved(*m_store, [&](ObjectContext &context) {
            KWHabitModel water;
            water.userID = m_store->userID();
            water.name = u"Drink water"_s;
            water.isRealType = true;
            water.goal = 8;
            water.unit = u"cups"_s;
            water.startStamp = 20300401;
            KWHabit &habit = context.insert<KWHabit>(water);
            for (const int stamp : {20300428, 20300429, 20300430})
                habit.makeCheckInAtDateStamp(stamp).updateValue(8.5);
            KWHabitModel idle = water;
            idle.name = u"Stretch"_s;
            context.insert<KWHabit>(idle);
        });
        QCOMPARE(written("{\"fields\": [\"text\", \"habits\"]}"),
                 u"# Monday 29 April – Sunday 5 May 2030\n"
                 "\n## Wednesday 1 May\n\n- [ ] Untitled\n  - One\n  - \\- two\n"
                 "\n## Habits\n\n- Drink water — 2 days, 17 cups\n"_s);
    }

    void namesTheYearsOfDaysInOthers()
    {
        aTask("Sow").completedAt("2029-12-31 10:00").savedIn(*m_store);
        aTask("Reap").completedAt("2030-01-01 10:00").savedIn(*m_store);
        const QByteArray days = "\"range\": \"days\", \"from\": \"2029-12-31\", \"fields\": [\"completion\"]";
        const QString byDay = written("{" + days + "}");
        QVERIFY(byDay.contains(u"## Monday 31 December 2029\n") && byDay.contains(u"## Tuesday 1 January\n"));
        const QString byStatus = written("{\"group\": \"status\", " + days + "}");
        QVERIFY2(byStatus.contains(u"- [x] Sow — 31 Dec 2029 ") && byStatus.contains(u"- [x] Reap — 1 Jan "),
                 qPrintable(byStatus));
    }

    void writesAddressesThatWork()
    {
        aTask("Read https://example.org/a_b?x=1&y=2").dueOn("2030-05-01").savedIn(*m_store);
        const QString markdown = written("{\"range\": \"today\", \"fields\": []}");
        QVERIFY2(markdown.contains(u"- [ ] Read <https://example.org/a_b?x=1&y=2>\n"), qPrintable(markdown));
        const QString html = SummaryDocument::htmlOfMarkdown(markdown);
        QVERIFY2(html.contains(u"href=\"https://example.org/a_b?x=1&amp;y=2\""), qPrintable(html));
    }

    void namesItsDaysAsTheLocaleDoes_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("title");
        QTest::newRow("one") << u"en_US"_s << u"2030-05-01"_s << u"Wednesday May 1, 2030"_s;
        QTest::newRow("one year") << u"en_US"_s << u"2030-01-31"_s
                                  << u"Thursday January 31 – Wednesday May 1, 2030"_s;
        QTest::newRow("two years") << u"de_DE"_s << u"2029-12-31"_s
                                   << u"Montag 31. Dezember 2029 – Mittwoch 1. Mai 2030"_s;
        QTest::newRow("units") << u"zh_CN"_s << u"2030-05-01"_s << u"星期三 2030年5月1日"_s;
    }
    void namesItsDaysAsTheLocaleDoes()
    {
        QFETCH(const QString, locale);
        QFETCH(const QString, from);
        SummaryContent content;
        content.choice = choiceOf("{\"range\": \"days\", \"from\": \"" + from.toUtf8() + "\"}");
        QTEST(summaryTitle(content, QLocale{locale}), "title");
    }

    void saysThatThereIsNothing()
    {
        QCOMPARE(written("{\"range\": \"today\"}"),
                 u"# Wednesday 1 May 2030\n\nNothing was done in these days, and nothing is planned.\n"_s);
    }

    void becomesOtherDocuments()
    {
        const QString markdown = u"# <script>\n\n- [x] a **b**\n- [ ] <img src=x onerror=y>\n"_s;
        const QString html = SummaryDocument::htmlOfMarkdown(markdown);
        QVERIFY2(html.contains(u"checked") && html.contains(u"unchecked"), qPrintable(html));
        QVERIFY2(!html.contains(u"<script") && !html.contains(u"<img"), qPrintable(html));
        const QString page = SummaryDocument::htmlPage(u"a < b"_s, markdown);
        QVERIFY(page.contains(u"<title>a &lt; b</title>"));
        QVERIFY2(page.contains(u">☑ ") && page.contains(u">☐ "), qPrintable(page));
        QCOMPARE(page.count(u"list-style-type:none"), 2);

        const QTemporaryDir folder;
        const QString file = folder.filePath(u"week.pdf"_s);
        QVERIFY(SummaryDocument::writePdf(u"Week"_s, markdown, file));
        QVERIFY(bytesOf(file).startsWith("%PDF-"));
        const auto refused =
            SummaryDocument::writePdf(u"Week"_s, markdown, folder.filePath(u"no/week.pdf"_s));
        QVERIFY(!refused && refused.error().sentence.contains(u"week.pdf"));
    }

    void answersThePageForTheLastChoice()
    {
        m_store->makeList(u"Garden"_s);
        SummaryPageApi api = pageApi();
        const QJsonObject page = QJsonDocument::fromJson(api.openSummary({}).toUtf8()).object();
        QVERIFY(api.summaryLists({}).contains(u"Garden"));
        QCOMPARE(page[u"choice"_s][u"range"_s].toString(), u"thisWeek"_s);
        QVERIFY(page[u"texts"_s].toObject().size() > 30);
        QCOMPARE(page[u"canInsert"_s].toBool(), false);

        QSignalSpy read{&api, &SummaryPageApi::summaryRead};
        QCOMPARE(api.requestSummary(u"{\"range\": \"yesterday\"}"_s), QString{});
        QCOMPARE(api.requestSummary(u"{\"range\": \"today\"}"_s), QString{});
        QCOMPARE(api.requestSummary(u"no JSON"_s), QString{});
        QTRY_COMPARE(read.size(), 1);
        const QJsonObject summary = QJsonDocument::fromJson(read.at(0).at(0).toString().toUtf8()).object();
        QVERIFY(summary[u"title"_s].toString().contains(u"1"));
        QVERIFY(summary[u"markdown"_s].toString().startsWith(u"# "));
        const QJsonObject again = QJsonDocument::fromJson(api.openSummary({}).toUtf8()).object();
        QCOMPARE(again[u"choice"_s][u"range"_s].toString(), u"today"_s);
    }

    void tellsThePageWhatIsThereNow()
    {
        const QString waiting = aTask("Waits to be deleted").dueOn("2030-05-01").savedIn(*m_store);
        aTask("Water the plants").dueOn("2030-05-01").savedIn(*m_store);
        SummaryPageApi api = pageApi(waiting);
        QSignalSpy changes{&api, &SummaryPageApi::summaryChanged};
        const QString list = m_store->makeList(u"Garden"_s);
        m_store->makeList(u"Attic"_s);
        QVERIFY(changes.isEmpty());
        m_store->clock.advance(300ms);
        QCOMPARE(changes.size(), 1); // many changes are one
        QVERIFY(api.summaryLists({}).contains(list));
        for (const QString &each : {delayDeleteStatusChangedNotification, KWNewDayComesNotification,
                                    KWDataDidChangeOutsideMainAppNotification}) {
            changes.clear();
            m_store->kit().center().post(each);
            m_store->clock.advance(300ms);
            QVERIFY2(changes.size() == 1, qPrintable(each));
        }

        QSignalSpy read{&api, &SummaryPageApi::summaryRead};
        api.requestSummary(u"{\"range\": \"days\", \"from\": \"2000-01-01\"}"_s);
        QTRY_COMPARE(read.size(), 1);
        const QJsonObject summary = QJsonDocument::fromJson(read.at(0).at(0).toString().toUtf8()).object();
        QVERIFY(summary[u"html"_s].toString().contains(u"Water the plants"));
        QVERIFY(!summary[u"markdown"_s].toString().contains(u"deleted"));
        QCOMPARE(summary[u"isShortened"_s], QJsonValue{true}); // it is of ten years
    }

    void laysOutWhatIsNotTooLong_data()
    {
        QTest::addColumn<QString>("markdown");
        QTest::addColumn<bool>("isLaidOut");
        const QString line = u"- <b>\n"_s;
        QTest::newRow("nothing") << QString{} << true;
        QTest::newRow("as many lines as there may be") << line.repeated(3000) << true;
        QTest::newRow("a line more") << line.repeated(3001) << false;
        QTest::newRow("as many characters as there may be") << u"- "_s + QString(199'998, u'x') << true;
        QTest::newRow("a character more") << u"- "_s + QString(199'999, u'x') << false;
    }
    void laysOutWhatIsNotTooLong()
    {
        QFETCH(const QString, markdown);
        SummaryPageApi api = pageApi();
        QSignalSpy made{&api, &SummaryPageApi::previewMade};
        QCOMPARE(api.requestPreview(markdown), QString{});
        QTRY_COMPARE(made.size(), 1);
        const QString html = made.at(0).at(0).toString();
        QTEST(!html.startsWith(u"<pre>- "), "isLaidOut");
        QVERIFY(!html.contains(u"<b>"));
    }

    void tellsWhatItCannotReadAndOutlivesNothing()
    {
        auto api =
            std::make_unique<SummaryPageApi>(m_store->kit(), m_store->clock, [] { return QSet<QString>{}; });
        QSignalSpy read{api.get(), &SummaryPageApi::summaryRead};
        m_store->context().connection().execute("ALTER TABLE pomodoros RENAME TO elsewhere");
        api->requestSummary(u"{}"_s);
        QTRY_COMPARE(read.size(), 1);
        QVERIFY(read.at(0).at(0).toString().contains(u"error"));
        api->requestSummary(u"{}"_s);
        api.reset();
        m_store->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
    }
};

ORVANE_TEST(Summary_test)
#include "Summary_test.moc"
