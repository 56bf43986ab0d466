#include "views/tasklist/TaskDateText.h"

#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<Instant> instantOf(const QString &cell, const QString &zone)
{
    if (cell == u"-") return std::nullopt;
    return at(cell.toUtf8().constData(), zone.toUtf8().constData());
}

} // namespace

class TaskDateText_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysWhen_data() { addCaseRows("gui/task-dates.txt", 9); }
    void saysWhen()
    {
        QFETCH(const QStringList, cells);
        const CXTimeZone zone = CXTimeZone::named(cells[1]).value();
        const QLocale locale{cells[2]};
        const Instant now = instantOf(cells[0], cells[1]).value();
        const TaskDates dates{instantOf(cells[3], cells[1]), instantOf(cells[4], cells[1]),
                              cells[5].endsWith(u"all-day"), cells[5].startsWith(u"closed")};

        const TaskDateText row = rowDateText(dates, now, zone, locale);
        const TaskDateText detail = detailDateText(dates, now, zone, locale);
        QCOMPARE(row.text, cells[6] == u"-" ? QString{} : cells[6]);
        QCOMPARE(detail.text, cells[7] == u"-" ? QString{} : cells[7]);
        const QStringList tones{u"plain"_s, u"today"_s, u"overdue"_s};
        QCOMPARE(tones.value(int(row.tone)), cells[8]);
        QCOMPARE(detail.tone, row.tone);
    }

    void saysWhenEventsAre_data() { addCaseRows("gui/event-dates.txt", 4); }
    void saysWhenEventsAre()
    {
        QFETCH(const QStringList, cells);
        KWTaskListItemModel event;
        event.startDate = instantOf(cells[0], u"Europe/Berlin"_s);
        event.endDate = instantOf(cells[1], u"Europe/Berlin"_s);
        event.isAllDay = event.startDate == instantOf(cells[0].left(10) + u" 00:00"_s, u"Europe/Berlin"_s) &&
                         cells[1].endsWith(u"00:00"_s);
        const auto text = [&event](bool isUnderItsDay) {
            const TaskDateText said =
                eventDateText(event, isUnderItsDay, at("2030-05-01 12:00", "Europe/Berlin"),
                              *CXTimeZone::named(u"Europe/Berlin"_s), QLocale{u"en_GB"_s});
            return said.tone == TaskDateText::Tone::Plain ? said.text : u"urgent"_s;
        };
        QCOMPARE(text(false), cells[2]);
        QCOMPARE(text(true), cells[3]);
    }
};

ORVANE_TEST(TaskDateText_test)
#include "TaskDateText_test.moc"
