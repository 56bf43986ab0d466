#include "corvexkit/time/TimeText.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

QString readAndWritten(const QString &kind, const QString &text)
{
    const auto written = [](const auto &value, auto write) { return value ? write(*value) : u"-"_s; };
    if (kind == u"day") return written(TimeText::toDay(text), TimeText::fromDay);
    if (kind == u"time") return written(TimeText::toTimeOfDay(text), TimeText::fromTimeOfDay);
    if (kind == u"local")
        return written(TimeText::toLocalTime(text),
                       [](LocalTime time) { return TimeText::fromLocalTime(time); });
    return written(TimeText::toInstant(text), [](Instant instant) { return TimeText::fromInstant(instant); });
}

} // namespace

class TimeText_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsAndWrites_data() { addCaseRows("corvexkit/texts.txt", 3); }
    void readsAndWrites()
    {
        QFETCH(QStringList, cells);
        QCOMPARE(readAndWritten(cells[0], cells[1]), cells[2]);
        if (cells[2] != u"-") QCOMPARE(readAndWritten(cells[0], cells[2]), cells[2]);
    }

    void readsNoPartOfAnInstant()
    {
        const QString whole = u"2030-05-01T09:00:00.25+02:00"_s;
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY2(!TimeText::toInstant(whole.first(length)), qPrintable(whole.first(length)));
        QVERIFY(TimeText::toInstant(whole));
    }

    void writesTheEndsOfTheCalendarForWhatLiesBeyond()
    {
        QCOMPARE(TimeText::fromInstant(Instant::min()), u"-32767-01-01T00:00:00Z"_s);
        QCOMPARE(TimeText::fromInstant(Instant::max()), u"32767-12-31T23:59:59.999Z"_s);
    }
};

ORVANE_TEST(TimeText_test)
#include "TimeText_test.moc"
