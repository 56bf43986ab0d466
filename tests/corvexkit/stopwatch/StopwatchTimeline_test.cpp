#include "corvexkit/stopwatch/StopwatchTimeline.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QJsonDocument>

using Corvex::Focus::StopwatchSegment;
using Corvex::Focus::StopwatchTimeline;
using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr auto running = StopwatchSegment::Kind::Running;
constexpr auto paused = StopwatchSegment::Kind::Paused;

// "r10:book p5 r20": minutes of running on something, and of pauses.
StopwatchTimeline timelineOf(const QString &text)
{
    StopwatchTimeline timeline;
    Instant date = at("2030-05-01 09:00");
    for (const QString &each : text.split(u' ', Qt::SkipEmptyParts)) {
        const QString object = each.section(u':', 1);
        timeline.begin(each.startsWith(u'r') ? running : paused, object, date);
        date += minutes{each.section(u':', 0, 0).mid(1).toInt()};
    }
    timeline.end(date);
    return timeline;
}

QString textOf(const StopwatchTimeline &timeline)
{
    QStringList parts;
    for (const StopwatchSegment &each : timeline.segments()) {
        const auto length = duration_cast<minutes>(each.duration(each.startDate)).count();
        const QString object = each.object.isEmpty() ? QString{} : u':' + each.object;
        parts << (each.isRunning() ? u'r' : u'p') + QString::number(length) + object;
    }
    return parts.join(u' ');
}

} // namespace

class StopwatchTimeline_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sumsWhatRanAndWhatWasPaused()
    {
        StopwatchTimeline timeline = timelineOf(u"r10:book p5 r20"_s);
        QCOMPARE(timeline.cumulativeRunningDuration(), milliseconds{30min});
        QCOMPARE(timeline.pausedDuration(), milliseconds{5min});
        QCOMPARE(timeline.endDate(), at("2030-05-01 09:35"));
        timeline.begin(running, {}, at("2030-05-01 09:35"));
        QCOMPARE(timeline.endDate(), std::nullopt);
        QCOMPARE(timeline.cumulativeRunningDuration(), milliseconds{30min});
        QCOMPARE(timeline.cumulativeRunningDuration(at("2030-05-01 09:36")), milliseconds{31min});
        QCOMPARE(timeline.cumulativeRunningDuration(at("2030-05-01 09:00")), milliseconds{30min});
    }

    void keepsNoSegmentWithoutLength()
    {
        StopwatchTimeline timeline;
        timeline.begin(running, u"book"_s, at("2030-05-01 09:00"));
        timeline.begin(running, u"plants"_s, at("2030-05-01 09:00"));
        timeline.end(at("2030-05-01 09:10"));
        timeline.begin(paused, {}, at("2030-05-01 09:05")); // never before the end of the last one
        timeline.end(at("2030-05-01 09:12"));
        QCOMPARE(textOf(timeline), u"r10:plants p2"_s);
    }

    void cuts_data()
    {
        QTest::addColumn<QString>("whole");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("kept");
        QTest::newRow("inside one") << u"r10:a p5 r20:b"_s << 15 << u"r10:a p5 r5:b"_s;
        QTest::newRow("between two, without the pause behind") << u"r10:a p5 r20:b"_s << 10 << u"r10:a"_s;
        QTest::newRow("in the first") << u"p1 r10:a r20:b p5 r1"_s << 4 << u"p1 r4:a"_s;
        QTest::newRow("as long as it is") << u"r10:a p5"_s << 10 << u"r10:a p5"_s;
        QTest::newRow("longer than it is") << u"r10:a p5 r1"_s << 100 << u"r10:a p5 r1"_s;
        QTest::newRow("nothing") << u"p5 r10:a"_s << 0 << QString{};
        QTest::newRow("less than nothing") << u"r10:a"_s << -5 << QString{};
        QTest::newRow("of nothing") << QString{} << 5 << QString{};
    }
    void cuts()
    {
        QFETCH(QString, whole);
        QFETCH(int, length);
        QFETCH(QString, kept);
        StopwatchTimeline timeline = timelineOf(whole);
        timeline.cut(minutes{length});
        QCOMPARE(textOf(timeline), kept);
    }

    void readsWhatItWrites()
    {
        StopwatchTimeline timeline = timelineOf(u"r10:book p5 r20"_s);
        QVERIFY(*StopwatchTimeline::fromJson(timeline.toJson()) == timeline);
        timeline.begin(running, u"a “b” \\"_s, at("2030-05-01 10:00") + 1ms);
        QVERIFY(*StopwatchTimeline::fromJson(timeline.toJson()) == timeline);
        QVERIFY(*StopwatchTimeline::fromJson(StopwatchTimeline{}.toJson()) == StopwatchTimeline{});
    }

    void refusesDamagedText_data()
    {
        QTest::addColumn<QByteArray>("segments");
        const auto row = [](const char *name, const char *segments) {
            QTest::newRow(name) << QByteArray{segments};
        };
        row("no list", R"({"start": 5})");
        row("no segment", R"([5])");
        row("no kind", R"([{"start": "2030-05-01T09:00:00Z", "end": "2030-05-01T10:00:00Z"}])");
        row("another kind", R"([{"kind": "flying", "start": "2030-05-01T09:00:00Z"}])");
        row("no start", R"([{"kind": "running", "end": "2030-05-01T10:00:00Z"}])");
        row("no date", R"([{"kind": "running", "start": "2030-05-01T09:00:00Z", "end": "noon"}])");
        row("no text", R"([{"kind": "running", "start": "2030-05-01T09:00:00Z", "object": 5}])");
        row("backwards",
            R"([{"kind": "running", "start": "2030-05-01T09:00:00Z", "end": "2030-05-01T08:00:00Z"}])");
        row("overlapping",
            R"([{"kind": "running", "start": "2030-05-01T09:00:00Z", "end": "2030-05-01T10:00:00Z"},
                {"kind": "paused", "start": "2030-05-01T09:59:00Z", "end": "2030-05-01T11:00:00Z"}])");
        row("open in the middle",
            R"([{"kind": "running", "start": "2030-05-01T09:00:00Z"},
                {"kind": "paused", "start": "2030-05-01T09:59:00Z", "end": "2030-05-01T11:00:00Z"}])");
    }
    void refusesDamagedText()
    {
        QFETCH(QByteArray, segments);
        const auto json = QJsonDocument::fromJson("{\"segments\": " + segments + '}');
        QVERIFY(json.isObject());
        QVERIFY(!StopwatchTimeline::fromJson(json.object()));
    }
};

ORVANE_TEST(StopwatchTimeline_test)
#include "StopwatchTimeline_test.moc"
