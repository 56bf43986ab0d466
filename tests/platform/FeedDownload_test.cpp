#include "platform/FeedDownload.h"

#include "platform/FakeWebServer.h"
#include "support/Answers.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// Feeds as servers give them: real, broken and hostile ones.
class FeedDownload_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<FakeWebServer> m_server;
    std::unique_ptr<FeedDownload> m_download;
    std::optional<Result<FeedAnswer>> m_answer;

    static QByteArray ok(const QByteArray &body, const QByteArray &header = {})
    {
        return "HTTP/1.1 200 OK\r\nConnection: close\r\n" + header +
               "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    }

    void ask(const FeedRequest &request)
    {
        m_answer.reset();
        m_download->download(request, [this](const Result<FeedAnswer> &answer) { m_answer = answer; });
    }
    bool answered() { return m_answer.has_value(); }

    // Deflate blocks that hold nothing but zeros; each gives a thousand times its size.
    static QByteArray packedZeros(qsizetype size)
    {
        QByteArray packed = qCompress(QByteArray(size, '\0'), 9);
        return packed.sliced(4); // Qt's own length in front
    }

private Q_SLOTS:
    void init()
    {
        m_clock = std::make_unique<ManualClock>("2030-05-01 09:00");
        m_server = std::make_unique<FakeWebServer>();
        m_download = std::make_unique<FeedDownload>(*m_clock);
    }
    void cleanup()
    {
        m_download.reset();
        m_server.reset();
    }

    void readsAFeed()
    {
        m_server->answer("/a.ics",
                         ok("BEGIN", "ETag: \"1\"\r\nLast-Modified: Wed, 01 May 2030 08:00:00 GMT\r\n"));
        ask({m_server->url("/a.ics")});
        QTRY_VERIFY(answered());
        QVERIFY(*m_answer);
        QCOMPARE((*m_answer)->body, QByteArray{"BEGIN"});
        QCOMPARE((*m_answer)->tag, u"\"1\""_s);
        QCOMPARE((*m_answer)->date, u"Wed, 01 May 2030 08:00:00 GMT"_s);
        QVERIFY(!m_server->heard.first().contains("If-"));
        QVERIFY(m_clock->isIdle());
    }

    void asksOnlyForWhatIsAnotherOne()
    {
        m_server->answer("/a.ics", "HTTP/1.1 304 Not Modified\r\nConnection: close\r\n\r\n");
        ask({m_server->url("/a.ics"), u"\"1\""_s, u"Wed, 01 May 2030 08:00:00 GMT"_s});
        QTRY_VERIFY(answered());
        QVERIFY(*m_answer && (*m_answer)->isUnchanged);
        QVERIFY(m_server->heard.first().contains("If-None-Match: \"1\"\r\n"));
        QVERIFY(m_server->heard.first().contains("If-Modified-Since: Wed, 01 May 2030 08:00:00 GMT\r\n"));
    }

    void readsWhatIsPacked()
    {
        const QByteArray body = QByteArray{"BEGIN:VCALENDAR\r\n"}.repeated(100'000);
        m_server->answer("/a.ics", ok(qCompress(body).sliced(4), "Content-Encoding: deflate\r\n"));
        ask({m_server->url("/a.ics")});
        QTRY_VERIFY(answered());
        QVERIFY2(*m_answer, *m_answer ? "" : qPrintable(m_answer->error().sentence));
        QCOMPARE((*m_answer)->body, body);
    }

    void followsRedirects()
    {
        m_server->redirect("/a", "/b");
        m_server->redirect("/b", m_server->url("/c").toEncoded());
        m_server->answer("/c", ok("BEGIN"));
        QUrl url = m_server->url("/a");
        url.setUserInfo(u"me:secret"_s);
        ask({url, u"\"1\""_s});
        QTRY_VERIFY(answered());
        QVERIFY(*m_answer);
        QCOMPARE((*m_answer)->body, QByteArray{"BEGIN"});
        QVERIFY(!m_server->heard.last().contains("secret"));
    }

    void refusesWhatIsHostile_data()
    {
        using Setup = std::function<void(FakeWebServer &)>;
        QTest::addColumn<Setup>("setup");
        QTest::addColumn<QString>("part");
        const auto row = [](const char *name, const char16_t *part, const Setup &setup) {
            QTest::newRow(name) << setup << QString::fromUtf16(part);
        };
        row("endless", u"20 MB", [](FakeWebServer &server) {
            server.answer("/a.ics", [](QTcpSocket &socket) {
                socket.write("HTTP/1.1 200 OK\r\n\r\n");
                const auto more = [&socket] {
                    if (socket.bytesToWrite() < 1'000'000) socket.write(QByteArray(1'000'000, 'x'));
                };
                connect(&socket, &QTcpSocket::bytesWritten, &socket, more);
                more();
            });
        });
        row("a bomb", u"20 MB", [](FakeWebServer &server) {
            server.answer("/a.ics", ok(packedZeros(200'000'000), "Content-Encoding: deflate\r\n"));
        });
        row("a circle", u"from one address to the next",
            [](FakeWebServer &server) { server.redirect("/a.ics", "/a.ics"); });
        for (const char *target : {"file:///etc/passwd", "ftp://127.0.0.1/a.ics", "data:text/calendar,BEGIN",
                                   "javascript:1", "qrc:/a.ics"})
            row(target, u"not safe", [target](FakeWebServer &server) { server.redirect("/a.ics", target); });
        row("nowhere", u"no web address",
            [](FakeWebServer &server) { server.redirect("/a.ics", "http:///x"); });
        for (const auto &[status, part] :
             {std::pair{"404 Not Found", u"no such calendar"}, std::pair{"410 Gone", u"no such calendar"},
              std::pair{"401 Unauthorized", u"not allow"}, std::pair{"500 Internal Server Error", u"500"}})
            row(status, part, [status = QByteArray{status}](FakeWebServer &server) {
                server.answer("/a.ics",
                              "HTTP/1.1 " + status + "\r\nConnection: close\r\nContent-Length: 3\r\n\r\nabc");
            });
        row("breaks off", u"could not be reached", [](FakeWebServer &server) {
            server.answer("/a.ics", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nBEGIN");
        });
        row("no HTTP", u"could not be reached", [](FakeWebServer &server) {
            server.answer("/a.ics", QByteArray{"\0\1\2\3\r\n\r\n", 8});
        });
    }
    void refusesWhatIsHostile()
    {
        QFETCH(const std::function<void(FakeWebServer &)>, setup);
        QFETCH(const QString, part);
        setup(*m_server);
        ask({m_server->url("/a.ics")});
        QTRY_VERIFY_WITH_TIMEOUT(answered(), 20'000);
        QVERIFY2(isRefused(*m_answer, part), *m_answer ? "read" : qPrintable(m_answer->error().sentence));
        QVERIFY(m_server->heard.size() <= 1 + FeedDownload::mostRedirects);
        QVERIFY(m_clock->isIdle());
    }

    void waitsForNoServerForEver()
    {
        m_server->answer("/a.ics", [](QTcpSocket &socket) { socket.write("HTTP/1.1 200 OK\r\n\r\nBEG"); });
        ask({m_server->url("/a.ics")});
        QTRY_COMPARE(m_server->heard.size(), 1);
        m_clock->advance(FeedDownload::longest - std::chrono::milliseconds{1});
        QVERIFY(!answered());
        m_clock->advance(std::chrono::milliseconds{1});
        QVERIFY(answered() && isRefused(*m_answer, u"too long"));
    }

    void saysThatNobodyIsThere()
    {
        const QUrl url = m_server->url("/a.ics");
        m_server.reset();
        ask({url});
        QTRY_VERIFY(answered());
        QVERIFY(isRefused(*m_answer, u"could not be reached"));
    }

    void forgetsWhatIsOnItsWayWhenItGoes()
    {
        m_server->answer("/a.ics", [](QTcpSocket &) {});
        ask({m_server->url("/a.ics")});
        QTRY_COMPARE(m_server->heard.size(), 1);
        m_download.reset();
        m_clock->advance(FeedDownload::longest);
        QVERIFY(!answered());
    }
};

ORVANE_TEST(FeedDownload_test)
#include "FeedDownload_test.moc"
