#include "calendar/SourceModel.h"

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
};

ORVANE_TEST(SourceModel_test)
#include "SourceModel_test.moc"
