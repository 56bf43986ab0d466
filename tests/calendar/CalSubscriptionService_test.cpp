#include "calendar/subscriptions/CalSubscriptionService.h"

#include "calendar/subscriptions/FeedAddress.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalSubscriptionEvent.h"
#include "model/store/CalSubscriptionEditor.h"
#include "model/store/DatedThings.h"
#include "model/store/TimeZoneAdaptation.h"
#include "support/Answers.h"
#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

/// Keeps what it is asked for until the test answers.
class FakeNetwork : public FeedDownloadPort {
public:
    void download(const FeedRequest &request, Completion completion) override
    {
        requests.append(request);
        m_completions.append(std::move(completion));
    }
    void answer(const Result<FeedAnswer> &answer) { m_completions.takeFirst()(answer); }
    void answer(const QByteArray &body, const QString &tag = {})
    {
        answer(FeedAnswer{.body = body, .tag = tag});
    }
    qsizetype waiting() const { return m_completions.size(); }

    QList<FeedRequest> requests;

private:
    QList<Completion> m_completions;
};

QByteArray feed(const QByteArrayList &events)
{
    QByteArray text = "BEGIN:VCALENDAR\nX-WR-CALNAME:Town\nCOLOR:#ff0000\n";
    for (const QByteArray &each : events)
        text += "BEGIN:VEVENT\n" + each + "END:VEVENT\n";
    return text + "END:VCALENDAR\n";
}

QByteArray entry(const QByteArray &title, const QByteArray &start = "20300501T090000Z",
                 const QByteArray &rule = {})
{
    return "UID:" + title + "\nSUMMARY:" + title + "\nDTSTART:" + start + "\n" +
           (rule.isEmpty() ? rule : "RRULE:" + rule + "\n");
}

} // namespace

class CalSubscriptionService_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    FakeNetwork m_network;
    std::unique_ptr<CalSubscriptionService> m_service;
    std::optional<Result<QString>> m_answer;
    KWNotificationCenter::Observation m_observation;
    int m_pulls = 0;

    void restart()
    {
        m_service.reset();
        m_network = {};
        m_service = std::make_unique<CalSubscriptionService>(
            CalSubscriptionService::Parts{m_store->kit().manager(), m_store->account(),
                                          m_store->kit().center(), m_store->clock, m_network});
        m_service->start();
    }
    void ask(const QString &address, const QString &name = {})
    {
        m_answer.reset();
        m_service->subscribe(address, name, [this](const Result<QString> &answer) { m_answer = answer; });
    }
    /// The id of a new subscription to a feed.
    QString subscribed(const QByteArray &body, const QString &address = u"https://example.org/a.ics"_s)
    {
        ask(address);
        m_network.answer(body, u"\"1\""_s);
        [this] { QTRY_VERIFY(m_answer); }();
        m_network.requests.clear();
        return m_answer->valueOr({});
    }
    KWCalSubscriptionModel stored(const QString &id) const
    {
        return m_store->context().find<KWCalSubscription>(id)->model();
    }
    /// "Match Concert": of shown calendars, by their starts.
    QString titles() const
    {
        return joined(readDatedEvents({.userID = m_store->userID(),
                                       .from = at("2030-01-01 00:00"),
                                       .to = at("2031-01-01 00:00"),
                                       .includeRepeat = false},
                                      m_store->context().connection())
                          .value(),
                      &DatedThing::title);
    }
    QList<std::int64_t> rows() const
    {
        return m_store->context().numbers(
            "SELECT id * 1000000 + length(title) FROM calSubscriptionEvents ORDER BY id");
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00");
        m_pulls = 0;
        m_observation = m_store->kit().center().addObserver(KWCalSubDidPullEventsNotification,
                                                            [this](const auto &) { ++m_pulls; });
        restart();
    }
    void cleanup()
    {
        m_service.reset();
        m_observation = {};
        m_store.reset();
    }

    void readsAddresses_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("address");
        const auto row = [](const char16_t *typed, const char16_t *address) {
            const QString text = QString::fromUtf16(typed);
            QTest::newRow(qPrintable(text)) << text << QString::fromUtf16(address);
        };
        row(u" https://example.org/a.ics ", u"https://example.org/a.ics");
        row(u"http://example.org/a.ics#top", u"http://example.org/a.ics");
        row(u"webcal://example.org/a.ics?x=1", u"https://example.org/a.ics?x=1");
        row(u"WEBCAL://example.org/a.ics", u"https://example.org/a.ics");
        row(u"example.org/a.ics", u"https://example.org/a.ics");
        row(u"example.org:8080/a.ics", u"https://example.org:8080/a.ics");
        row(u"/srv/x/../My Calendar.ics", u"file:///srv/My%20Calendar.ics");
        row(u"file:///srv/a.ics", u"file:///srv/a.ics");
        for (const char16_t *wrong : {u"", u"  ", u"ftp://example.org/a.ics", u"javascript:alert(1)",
                                      u"file://example.org/share/a.ics", u"https://", u"data:text/calendar,x",
                                      u"https://exa mple.org/"})
            row(wrong, u"");
    }
    void readsAddresses()
    {
        QFETCH(const QString, typed);
        const Result<QUrl> url = feedAddress(typed);
        QTEST(url ? url->toString(QUrl::FullyEncoded) : QString{}, "address");
        QVERIFY(url || isRefused(url));
    }

    void subscribes()
    {
        const QString id = subscribed(feed({entry("Match"), entry("Concert", "20300502T190000Z")}));
        const KWCalSubscriptionModel calendar = stored(id);
        QCOMPARE(calendar.name, u"Town"_s);
        QCOMPARE(calendar.color, u"#ff0000"_s);
        QCOMPARE(calendar.feedTag, u"\"1\""_s);
        QCOMPARE(calendar.lastReadDate, std::optional{m_store->clock.now()});
        QCOMPARE(titles(), u"Match Concert"_s);
        QCOMPARE(m_pulls, 1);
        ask(u"webcal://example.org/a.ics"_s);
        QVERIFY(m_answer && isRefused(*m_answer, u"already"));
    }

    void takesTheNameThatWasTyped()
    {
        ask(u"https://example.org/a.ics"_s, u"Our\ntown"_s);
        m_network.answer(feed({}));
        QTRY_VERIFY(m_answer);
        QCOMPARE(stored(**m_answer).name, u"Our town"_s);
    }

    void makesNothingOfWhatCannotBeRead()
    {
        ask(u"https://example.org/a.ics"_s);
        m_network.answer(Error{u"The server is asleep."_s});
        QVERIFY(m_answer && isRefused(*m_answer, u"asleep"));
        ask(u"https://example.org/a.ics"_s);
        m_network.answer("<html></html>");
        QTRY_VERIFY(m_answer);
        QVERIFY(isRefused(*m_answer, u"no calendar"));
        ask(u"/no/such/file.ics"_s);
        QTRY_VERIFY(m_answer);
        QVERIFY(isRefused(*m_answer, u"no file"));
        QCOMPARE(m_store->context().number("SELECT count(*) FROM calSubscriptions"), 0);
    }

    void readsEveryHour()
    {
        const QString id = subscribed(feed({entry("Match")}));
        m_store->clock.advance(59min);
        QCOMPARE(m_network.requests.size(), 0);
        m_store->clock.advance(1min);
        QCOMPARE(m_network.requests.size(), 1);
        QCOMPARE(m_network.requests.first().tag, u"\"1\""_s);
        m_store->clock.advance(5h); // it is being read still
        QCOMPARE(m_network.requests.size(), 1);
        m_network.answer(FeedAnswer{.isUnchanged = true});
        QCOMPARE(stored(id).lastReadDate, std::optional{m_store->clock.now()});
        QCOMPARE(stored(id).feedTag, u"\"1\""_s);
        QCOMPARE(m_pulls, 1);
        m_store->clock.advance(1h);
        QCOMPARE(m_network.requests.size(), 2);
    }

    void readsAtTheStartWhatIsOld()
    {
        subscribed(feed({entry("Match")}));
        m_store->clock.advance(30min);
        restart();
        QTRY_VERIFY(!m_store->clock.isIdle());
        QCOMPARE(m_network.requests.size(), 0);
        m_service.reset();
        m_store->clock.advance(8h);
        restart();
        QTRY_VERIFY(!m_store->clock.isIdle());
        m_store->clock.advance(0ms);
        QCOMPARE(m_network.requests.size(), 1);
    }

    void triesEverMoreSeldomAndKeepsWhatItHas()
    {
        const QString id = subscribed(feed({entry("Match")}));
        const auto read = stored(id).lastReadDate;
        m_store->clock.advance(1h);
        QStringList waits;
        for (int failure = 0; failure < 11; ++failure) {
            m_network.answer(Error{u"The server is asleep."_s});
            milliseconds waited{0};
            for (; m_network.waiting() == 0; waited += 5min)
                m_store->clock.advance(5min);
            waits << QString::number(duration_cast<minutes>(waited).count());
        }
        QCOMPARE(waits.join(u' '), u"5 10 20 40 80 160 320 640 1280 1440 1440"_s);
        QCOMPARE(stored(id).failure, u"The server is asleep."_s);
        QCOMPARE(stored(id).lastReadDate, read);
        m_network.answer("BEGIN:VCALENDAR\nBEGIN:VEVENT\n");
        QTRY_VERIFY(stored(id).failure.contains(u"breaks off"_s));
        QCOMPARE(titles(), u"Match"_s);
        m_service->refresh(id);
        m_network.answer(feed({entry("Concert")}));
        QTRY_COMPARE(stored(id).failureCount, 0);
        QCOMPARE(stored(id).failure, QString{});
        QCOMPARE(titles(), u"Concert"_s);
    }

    void changesOnlyWhatIsAnotherOne()
    {
        const QString id = subscribed(feed(
            {entry("Match"), entry("Concert", "20300502T190000Z", "FREQ=DAILY"),
             entry("Fair", "20300503T190000Z"), "DTSTART:20300504T090000Z\n", "DTSTART:20300504T090000Z\n"}));
        const auto before = rows();
        const auto read = [&](const QByteArrayList &events) {
            const auto again = stored(id).lastReadDate;
            m_store->clock.advance(1h);
            m_network.answer(feed(events));
            [&] { QTRY_VERIFY(stored(id).lastReadDate != again); }();
        };
        read({entry("Match"), entry("Concert", "20300502T190000Z", "FREQ=DAILY"),
              entry("Fair", "20300503T190000Z"), "DTSTART:20300504T090000Z\n", "DTSTART:20300504T090000Z\n"});
        QCOMPARE(rows(), before);
        QCOMPARE(m_pulls, 1);
        const auto stamps = [this] {
            return m_store->context().numbers("SELECT modifiedTime FROM calSubscriptionEvents ORDER BY id");
        };
        const auto stampsBefore = stamps();
        read({entry("Market", "20300505T190000Z"), entry("Match", "20300501T100000Z"),
              entry("Concert", "20300502T190000Z", "FREQ=DAILY"), "DTSTART:20300504T090000Z\n"});
        QCOMPARE(m_pulls, 2);
        QCOMPARE(rows().sliced(0, 2), before.sliced(0, 2));
        QCOMPARE(rows().size(), 4);
        QVERIFY(stamps().at(0) > stampsBefore.at(0));
        QCOMPARE(stamps().at(1), stampsBefore.at(1));
        QCOMPARE(titles(), u"Match Concert  Market"_s);
    }

    void readsFiles()
    {
        const QString path = m_store->kit().folders().data + u"/a b.ics"_s;
        write(path, feed({entry("Match")}));
        ask(path, u"Ours"_s);
        QTRY_VERIFY(m_answer);
        const QString id = m_answer->value();
        m_store->clock.advance(1h);
        QTRY_COMPARE(stored(id).lastReadDate, std::optional{m_store->clock.now()});
        QCOMPARE(m_pulls, 1);
        QFile{path}.remove();
        m_store->clock.advance(1h);
        QTRY_VERIFY(stored(id).failure.contains(u"no file"_s));
        QCOMPARE(titles(), u"Match"_s);
        QCOMPARE(m_network.requests.size(), 0);
    }

    void comesBackUntilTheNextStart()
    {
        const QString id = subscribed(feed({entry("Match"), entry("Concert")}));
        CalSubscriptionEditor editor{m_store->kit().manager(), m_store->userID()};
        QVERIFY(editor.rename(id, u" Our town "_s) && editor.setColor(id, u"#00ff00"_s));
        QVERIFY(isRefused(editor.rename(id, u"\n"_s), u"name"));
        auto removed = editor.remove(id);
        QVERIFY(removed);
        QCOMPARE(titles(), QString{});
        m_store->clock.advance(3h);
        QCOMPARE(m_network.requests.size(), 0);
        QVERIFY(removed->undo(m_store->kit().manager()));
        QCOMPARE(titles(), u"Match Concert"_s);
        QCOMPARE(stored(id).name + stored(id).color, u"Our town#00ff00"_s);
        QVERIFY(editor.remove(id) && isRefused(editor.rename(id, u"Gone"_s)));
        restart();
        QTRY_COMPARE(m_store->context().number("SELECT count(*) FROM calSubscriptionEvents"), 0);
    }

    void leavesAloneWhatWasDeletedMeanwhile()
    {
        const QString id = subscribed(feed({entry("Match")}));
        m_service->refresh(id);
        QVERIFY(CalSubscriptionEditor(m_store->kit().manager(), m_store->userID()).remove(id));
        saved(*m_store,
              [&](ObjectContext &context) { context.remove(*context.find<KWCalSubscription>(id)); });
        m_network.answer(feed({entry("Concert")}));
        QTRY_VERIFY(m_store->kit().manager().threadPool().waitForDone(0));
        QCoreApplication::processEvents();
        QCOMPARE(m_store->context().number("SELECT count(*) FROM calSubscriptionEvents"), 0);
    }

    void daysStayWhereTheClocksAreOthers()
    {
        subscribed(
            feed({"SUMMARY:Day\nDTSTART;VALUE=DATE:20300501\nRRULE:FREQ=DAILY\nEXDATE;VALUE=DATE:20300503\n",
                  "SUMMARY:Floating\nDTSTART:20300501T090000\nDURATION:PT1H\n", entry("Fixed")}));
        m_store->clock.setZone("Asia/Tokyo");
        saved(*m_store,
              [](ObjectContext &context) { adaptDatesToLocalTimeZone(CXTimeZone::utc(), context); });
        const auto events = m_store->context().models<KWCalSubscriptionEvent>({.orderBy = "startDate"});
        QCOMPARE(joined(events, &KWCalSubscriptionEventModel::title), u"Day Floating Fixed"_s);
        QCOMPARE(events[0].startDate, std::optional{at("2030-05-01 00:00", "Asia/Tokyo")});
        QCOMPARE(events[0].endDate, std::optional{at("2030-05-02 00:00", "Asia/Tokyo")});
        QCOMPARE(events[0].exDates, QList{at("2030-05-03 00:00", "Asia/Tokyo")});
        QCOMPARE(events[1].endDate, std::optional{at("2030-05-01 10:00", "Asia/Tokyo")});
        QCOMPARE(events[2].startDate, std::optional{at("2030-05-01 09:00")});
    }
};

ORVANE_TEST(CalSubscriptionService_test)
#include "CalSubscriptionService_test.moc"
