#include "focus/FocusFixture.h"

#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"

using namespace Qt::StringLiterals;

FocusFixture::FocusFixture(const char *localTime, const char *zone) : store(localTime, zone)
{
    const QString work = store.makeList(u"Work"_s);
    m_goneList = store.makeList(u"Old"_s);
    const auto add = [this](const char *name, TaskBuilder task) {
        m_targets.insert(QString::fromLatin1(name), FocusTarget::task(task.savedIn(store)));
    };
    add("A", aTask("A").in(work).tagged("x").tagged("y"));
    add("B", aTask("B"));
    add("D", aTask("D").in(work).tagged("x"));
    add("G", aTask("G").in(m_goneList));
    saved(store, [this](ObjectContext &context) {
        KWHabitModel habit;
        habit.userID = store.userID();
        habit.name = u"H"_s;
        m_targets.insert(u"H"_s, FocusTarget::habit(context.insert<KWHabit>(habit).sid()));
    });
}

QList<FocusStretch> FocusFixture::stretches(Instant start, const QString &text) const
{
    QList<FocusStretch> stretches;
    for (const QString &each : text.split(u'+')) {
        const QStringList parts = each.split(u':');
        const auto length = std::chrono::milliseconds{qRound64(parts.value(1).toDouble() * 60'000)};
        stretches.append({.startDate = start,
                          .endDate = start + length,
                          .target = target(parts.first()),
                          .isPause = parts.first() == u"pause"});
        start += length;
    }
    return stretches;
}

QString FocusFixture::session(const QString &type, Instant start, const QString &text)
{
    FocusRecord record{.startDate = start, .stretches = stretches(start, text)};
    record.endDate = record.stretches.last().endDate;
    record.type = type == u"stopwatch" ? KWFocusTypeStopwatch : KWFocusTypePomo;
    record.pauseDuration = std::chrono::round<std::chrono::seconds>(pauseOf(record.stretches)).count();
    const Result<QString> written = FocusRecordWriter{store.kit()}.write(record);
    if (!written) qFatal("%s", qUtf8Printable(written.error().sentence));
    if (type == u"abandoned")
        setSaved<KWPomodoro>(store, *written, &KWPomodoroModel::pomoStatus, KWPomoStatusAbandoned);
    return *written;
}

void FocusFixture::deleteWhatIsGone()
{
    saved(store, [this](ObjectContext &context) {
        context.find<KWTask>(target(u"D"_s).entityID)->markDelete();
        context.remove(*context.find<KWTask>(target(u"G"_s).entityID));
        context.find<KWProject>(m_goneList)->markDelete();
    });
}

QString FocusFixture::summaryOf(const QString &letter)
{
    const auto summaries = store.context().find<KWTask>(target(letter).entityID)->focusSummaries();
    if (summaries.isEmpty()) return u"none"_s;
    const KWFocusSummaryModel &first = summaries.first()->model();
    return u"%1 Pomos, %2 and %3 s"_s.arg(first.pomoCount)
        .arg(first.pomoDuration)
        .arg(first.stopwatchDuration);
}

std::int64_t FocusFixture::secondsOfHabit(int stamp)
{
    const auto *focus = store.context().find<KWHabit>(target(u"H"_s).entityID)->focusAtDateStamp(stamp);
    return focus ? (*focus)->duration : 0;
}
