#include "calendar/ics/IcsReader.h"

#include "calendar/ics/IcsBlocks.h"
#include "corvexkit/time/TimeText.h"
#include "support/Answers.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

class IcsReader_test : public QObject {
    Q_OBJECT

    const CXTimeZone m_zone = *CXTimeZone::named(u"Europe/Berlin"_s);

    static QByteArray calendar(const QByteArray &lines)
    {
        return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + lines + "END:VCALENDAR\r\n";
    }
    static QByteArray event(const QByteArray &lines)
    {
        return "BEGIN:VEVENT\nDTSTART:20300501T090000Z\n" + lines + "\nEND:VEVENT\n";
    }

    Result<IcsCalendar> read(const QByteArray &text) const { return IcsReader::read(text, m_zone); }

    static QString textOf(const KWCalSubscriptionEventModel &event)
    {
        const auto moment = [](const std::optional<Instant> &date) { return TimeText::fromInstant(*date); };
        QStringList parts{moment(event.startDate) + u" .. "_s + moment(event.endDate) + u' ' + event.timeZone,
                          event.title};
        if (event.isAllDay) parts << u"all day"_s;
        if (event.isFloating) parts << u"floating"_s;
        if (!event.location.isEmpty()) parts << u"at "_s + event.location;
        if (!event.notes.isEmpty()) parts << u"notes "_s + QString{event.notes}.replace(u'\n', u'/');
        if (!event.repeatRule.isEmpty()) parts << event.repeatRule;
        if (event.recurrenceID) parts << u"for "_s + moment(event.recurrenceID);
        if (!event.exDates.isEmpty()) parts << u"not "_s + joined(event.exDates, moment);
        return parts.join(u" | "_s);
    }

private Q_SLOTS:
    void readsEvents_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("events");
        const QByteArray file = bytesOf(QStringLiteral(ORVANE_TEST_DATA "/calendar/events.txt"));
        for (const QString &each : QString::fromUtf8(file).split(u"\n> "_s).sliced(1)) {
            QStringList lines = each.split(u'\n', Qt::SkipEmptyParts);
            const QString title = lines.takeFirst();
            QStringList events = lines.filter(QRegularExpression{u"^="_s});
            lines.removeIf([](const QString &line) { return line.startsWith(u'='); });
            for (QString &event : events)
                event.remove(0, 2);
            QTest::newRow(qPrintable(title)) << (lines.join(u'\n') + u'\n').toUtf8() << events.join(u'\n');
        }
    }
    void readsEvents()
    {
        QFETCH(const QByteArray, lines);
        const bool isEvent = !lines.toUpper().contains("BEGIN:");
        const auto calendar =
            read(this->calendar(isEvent ? "BEGIN:VEVENT\n" + lines + "END:VEVENT\n" : lines));
        QVERIFY2(calendar, calendar ? "" : qPrintable(calendar.error().sentence));
        QStringList texts;
        for (const KWCalSubscriptionEventModel &each : calendar->events)
            texts << textOf(each);
        QTEST(texts.join(u'\n'), "events");
    }

    void readsTheHead_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("head");
        QTest::newRow("none") << QByteArray{} << u"/"_s;
        QTest::newRow("usual")
            << QByteArray{"X-WR-CALNAME:Town\\, events\nX-APPLE-CALENDAR-COLOR:#1BADF8FF\n"}
            << u"Town, events/#1badf8"_s;
        QTest::newRow("standard")
            << QByteArray{"COLOR:#00ff00\nNAME:School\nX-APPLE-CALENDAR-COLOR:#000000\n"}
            << u"School/#00ff00"_s;
        QTest::newRow("a name of a colour") << QByteArray{"COLOR:turquoise\n"} << u"/"_s;
    }
    void readsTheHead()
    {
        QFETCH(const QByteArray, lines);
        const auto calendar = read(this->calendar(lines + event("X-WR-CALNAME:no")));
        QTEST(calendar->name + u'/' + calendar->color, "head");
    }

    void countsWhatIsLeftOut()
    {
        const QByteArray endless = "BEGIN:VEVENT\nDTSTART:20300501T090000Z\n";
        const QByteArray tooLong =
            event(QByteArray{"X-A:"}.append(QByteArray(50'000, 'x')).append('\n').repeated(30));
        const auto calendar = read(this->calendar(event("SUMMARY:One") + "BEGIN:VEVENT\nEND:VEVENT\n" +
                                                  endless + tooLong + event("SUMMARY:Two")));
        QCOMPARE(joined(calendar->events, &KWCalSubscriptionEventModel::title), u"One Two"_s);
        QCOMPARE(calendar->leftOut, 3);
    }

    void passesOverFilesInEvents()
    {
        const auto calendar = read(this->calendar(
            event("ATTACH;ENCODING=BASE64;VALUE=BINARY:" + QByteArray(100'000, 'A') + "\nSUMMARY:Kept")));
        QCOMPARE(joined(calendar->events, &KWCalSubscriptionEventModel::title), u"Kept"_s);
    }

    void refusesWhatIsNoCalendar_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("part");
        const auto row = [](const char *name, const QByteArray &text, const char16_t *part) {
            QTest::newRow(name) << text << QString::fromUtf16(part);
        };
        row("nothing", {}, u"no calendar");
        row("a page", "<html><body>BEGIN:VCALENDAR</body></html>", u"no calendar");
        row("bytes", QByteArray(100'000, '\0'), u"no calendar");
        row("half of it", calendar(event("SUMMARY:One")).chopped(20), u"breaks off");
        row("a megabyte too much", calendar(QByteArray{"X-A:1\n"}.repeated(3'700'000)), u"20 MB");
        row("events", calendar(event("SUMMARY:One").repeated(50'001)), u"50,000");
        row("nested",
            calendar(QByteArray{"BEGIN:VEVENT\nBEGIN:X\n"} + QByteArray{"BEGIN:X\n"}.repeated(100'000)),
            u"nested");
        row("every second", calendar(event("RRULE:FREQ=SECONDLY")), u"repeat too often");
        row("every second, hidden",
            calendar(event("RRULE:FREQ=YEARLY;BYHOUR=1,2,3,4,5,6,7,8;BYMINUTE=" + numbers(60) +
                           ";BYSECOND=" + numbers(60))),
            u"repeat too often");
        row("each seldom, all often", calendar(event("RRULE:FREQ=HOURLY").repeated(500)),
            u"repeat too often");
        row("dates", calendar(event("RDATE:" + QByteArray{"20300501T090000Z,"}.repeated(500)).repeated(110)),
            u"repeat too often");
    }
    void refusesWhatIsNoCalendar()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const QString, part);
        QVERIFY(isRefused(read(text), part));
    }

    void readsUpToItsLimits()
    {
        QCOMPARE(read(calendar(event("SUMMARY:One").repeated(IcsBlocks::mostEvents)))->events.size(),
                 std::size_t(IcsBlocks::mostEvents));
        QCOMPARE(read(calendar(event("RRULE:FREQ=HOURLY").repeated(400)))->events.size(), 400U);
    }

private:
    static QByteArray numbers(int count)
    {
        QByteArrayList list;
        for (int each = 0; each < count; ++each)
            list << QByteArray::number(each);
        return list.join(',');
    }
};

ORVANE_TEST(IcsReader_test)
#include "IcsReader_test.moc"
