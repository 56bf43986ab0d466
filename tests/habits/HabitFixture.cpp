#include "habits/HabitFixture.h"

#include "model/records/DayStamp.h"
#include "model/store/HabitDays.h"

using namespace Qt::StringLiterals;

HabitDay HabitFixture::day(const QString &id, int stamp)
{
    const Day day = DayStamp::toDay(stamp).value();
    return readHabitDays(habit(id), day, day).first();
}

QString HabitFixture::told(const QString &id, int stamp)
{
    const HabitDay day = this->day(id, stamp);
    const QStringList words{u"open"_s, u"done"_s, u"unachieved"_s, u"skipped"_s};
    return u"%1 %2/%3"_s.arg(words.at(int(day.state))).arg(day.value).arg(day.goal);
}
