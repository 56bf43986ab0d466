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
};

ORVANE_TEST(TaskDateText_test)
#include "TaskDateText_test.moc"
