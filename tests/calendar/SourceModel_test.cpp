#include "calendar/SourceModel.h"

#include "corvexkit/time/TimeText.h"

#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// What a repeating task is to the expansion. The fingerprints were worked out by hand.
class SourceModel_test : public QObject {
    Q_OBJECT

    static Instant second(std::int64_t value) { return Instant{seconds{value}}; }

private Q_SLOTS:
    void isFingerprinted_data()
    {
        QTest::addColumn<SourceModel>("source");
        QTest::addColumn<qint64>("hashTag");
        SourceModel source;
        QTest::newRow("nothing") << source << qint64{31};
        source.startDate = second(10);
        QTest::newRow("start") << source << qint64{(31 + 10) * 31};
        source.endDate = second(20) + 999ms; // whole seconds count
        QTest::newRow("end") << source << qint64{((31 + 10) * 31 + 20) * 31};
        source.isAllDay = true;
        QTest::newRow("all day") << source << qint64{((31 + 10) * 31 + 20) * 31 + 1};
        source = {};
        source.startDate = second(-1) - 999ms; // toward zero
        QTest::newRow("before 1970") << source << qint64{(31 - 1) * 31};
        source = {};
        source.recurrenceRule = u"ab"_s; // 97 * 31 + 98; "DUE" is 67 bits of the same: 68, 85, 69
        source.recurrenceFrom = CXRecurrenceFromDueDate;
        QTest::newRow("rule") << source << qint64{(31 * 31 + 3105) * 31 + (68 * 31 + 85) * 31 + 69};
        source = {};
        source.exDate = {second(5), second(3)};
        QTest::newRow("excluded ones, in order") << source << qint64{(31 * 31 + 3) * 31 + 5};
    }
    void isFingerprinted()
    {
        QFETCH(const SourceModel, source);
        QTEST(qint64{source.hashTag()}, "hashTag");
    }

    void wrapsWhereTheNumbersEnd()
    {
        SourceModel source;
        source.recurrenceRule = QString{200, u'z'};
        const std::int64_t whole = source.hashTag();
        source.recurrenceRule.append(u'z');
        QVERIFY(whole != source.hashTag());
        source.startDate = Instant::max();
        QVERIFY(whole != source.hashTag());
    }

    void takesTheZoneInForceWhereItHasNone()
    {
        const CXTimeZone tokyo = *CXTimeZone::named(u"Asia/Tokyo"_s);
        SourceModel source;
        QCOMPARE(source.timeZoneAsRecurringObject(tokyo).identifier(), u"Asia/Tokyo"_s);
        source.timeZone = CXTimeZone::named(u"Europe/Berlin"_s);
        QCOMPARE(source.timeZoneAsRecurringObject(tokyo).identifier(), u"Europe/Berlin"_s);
        source.isAllDay = true;
        QCOMPARE(source.timeZoneAsRecurringObject(tokyo).identifier(), u"Asia/Tokyo"_s);
    }

    void yieldsNothingWhereADayIsFlooded_data()
    {
        QTest::addColumn<QString>("rule");
        QTest::addColumn<int>("instanceType");
        QTest::addColumn<std::size_t>("inTheMonth");
        const auto minutes = u"RRULE:FREQ=MONTHLY;BYMONTHDAY=27;BYHOUR=%1;BYMINUTE=0,5,10,15,20,25,30,35"_s;
        const int task = KWRepeatInstanceTypeTask;
        QTest::addRow("96 on one day")
            << minutes.arg(u"0,1,2,3,4,5,6,7,8,9,10,11"_s) << task << std::size_t{96};
        QTest::addRow("104 on one day")
            << minutes.arg(u"0,1,2,3,4,5,6,7,8,9,10,11,12"_s) << task << std::size_t{0};
        QTest::addRow("of an event") << minutes.arg(u"0,1,2,3,4,5,6,7,8,9,10,11,12"_s)
                                     << int(KWRepeatInstanceTypeEvent) << std::size_t{104};
        QTest::addRow("each quarter")
            << u"RRULE:FREQ=MINUTELY;INTERVAL=15;BYMONTHDAY=27"_s << task << std::size_t{96};
    }
    void yieldsNothingWhereADayIsFlooded()
    {
        QFETCH(const QString, rule);
        QFETCH(const int, instanceType);
        SourceModel source;
        source.startDate = TimeText::toInstant(u"2030-09-30T00:00:00Z"_s);
        source.recurrenceRule = rule;
        source.instanceType = KWRepeatInstanceType(instanceType);
        const CXTimeZone berlin = *CXTimeZone::named(u"Europe/Berlin"_s);
        const auto countIn = [&](const QString &from, const QString &to) {
            return source
                .laterOccurrences(*TimeText::toInstant(from), *TimeText::toInstant(to), berlin, Monday)
                .size();
        };
        QFETCH(const std::size_t, inTheMonth);
        QCOMPARE(countIn(u"2030-10-01T00:00:00Z"_s, u"2030-11-01T00:00:00Z"_s), inTheMonth);
        QCOMPARE(countIn(u"2030-10-26T22:00:00Z"_s, u"2030-10-27T22:59:59Z"_s), inTheMonth);
    }
};

ORVANE_TEST(SourceModel_test)
#include "SourceModel_test.moc"
