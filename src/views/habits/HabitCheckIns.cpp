#include "views/habits/HabitCheckIns.h"

#include "model/OrvaneKit.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitRecord.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/HabitDays.h"
#include "views/habits/HabitPhrases.h"
#include "views/habits/HabitUndo.h"

HabitCheckIns::HabitCheckIns(OrvaneKit &kit, KWHabitCheckHelper &checks, QWidget &window)
    : m_kit(kit), m_checks(checks), m_days(kit, checks), m_window(window)
{
    m_checks.setCheckInPopup([this](const QString &habitID, int stamp, const QRect &anchor) {
        if (const auto day = DayStamp::toDay(stamp)) openPopup(habitID, *day, anchor);
    });
    m_registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        for (const RecordKind each :
             {RecordKind::Habit, RecordKind::HabitCheckin, RecordKind::HabitRecord, RecordKind::HabitSkip})
            if (change.touches(each)) return refreshPopup();
    });
}

const KWHabit *HabitCheckIns::find(const QString &habitID) const
{
    const KWHabit *habit = m_kit.context().find<KWHabit>(habitID);
    return habit && habit->isNotDeleted() ? habit : nullptr;
}

std::optional<HabitCheckInPopup::Content> HabitCheckIns::contentOf(const QString &habitID, Day day) const
{
    const KWHabit *habit = find(habitID);
    if (!habit) return std::nullopt;
    const KWHabitRecord *note = habit->recordAtDateStamp(DayStamp::fromDay(day));
    return HabitCheckInPopup::Content{.habit = habit->model(),
                                      .day = readHabitDays(*habit, day, day).first(),
                                      .note = note ? (*note)->content : QString{}};
}

void HabitCheckIns::check(QString habitID, Day day, bool takesBack)
{
    const auto content = contentOf(habitID, day);
    if (!content) return;
    const bool isUnticked = !content->habit.isRealType && content->day.state == HabitDayState::Done;
    const int stamp = DayStamp::fromDay(day);
    const auto done = takesBack && content->day.state == HabitDayState::UnAchieved
                          ? m_days.undoUnAchieved(habitID, stamp)
                          : m_checks.check(habitID, stamp,
                                           takesBack || isUnticked ? HabitCheck::TakeBack : HabitCheck::Add);
    report(done ? Result<QList<UndoToken>>{QList<UndoToken>{*done}} : done.error(), habitID, day);
}

void HabitCheckIns::clickDay(QString habitID, Day day, const QRect &place)
{
    const auto done = m_days.clickDay(habitID, DayStamp::fromDay(day), place);
    report(done ? Result<QList<UndoToken>>{QList<UndoToken>{*done}} : done.error(), habitID, day);
}

void HabitCheckIns::openDay(QString habitID, Day day, const QRect &place)
{
    const auto opened = m_days.openDay(habitID, DayStamp::fromDay(day), place);
    if (!opened) Q_EMIT failed(opened.error().sentence);
}

void HabitCheckIns::apply(QString habitID, Day day, const HabitDayEdit &edit)
{
    report(store(habitID, day, edit), habitID, day);
}

bool HabitCheckIns::setNote(QString habitID, Day day, const QString &note)
{
    const auto done = store(habitID, day, {.note = note});
    const KWHabit *habit = find(habitID);
    if (!done || !habit)
        report(done, habitID, day);
    else
        tell(*done, (note.isEmpty() ? KWLocalizedString("Note on %1 removed")
                                    : KWLocalizedString("Note on %1 changed"))
                        .arg(HabitPhrases::quoted((*habit)->name)));
    return bool(done);
}

void HabitCheckIns::openPopup(const QString &habitID, Day day, const QRect &anchor)
{
    const auto content = contentOf(habitID, day);
    if (!content) return;
    if (m_popup) m_popup->close();
    m_popup = new HabitCheckInPopup{*content, &m_window};
    connect(m_popup, &HabitCheckInPopup::edited, this, &HabitCheckIns::take);
    connect(m_popup, &HabitCheckInPopup::refused, this, &HabitCheckIns::failed);
    m_popup->popUp(anchor);
}

void HabitCheckIns::take(const HabitDayEdit &edit)
{
    HabitCheckInPopup *popup = m_popup;
    if (!popup) return;
    const QString habitID = popup->habitID();
    const Day day = popup->day();
    m_isStoring = true;
    const auto done = store(habitID, day, edit);
    m_isStoring = false;
    if (!done && popup->isVisible() && find(habitID)) return popup->showProblem(done.error().sentence);
    popup->discard();
    report(done, habitID, day);
}

void HabitCheckIns::refreshPopup()
{
    if (!m_popup || !m_popup->isVisible() || m_isStoring) return;
    const QString name = HabitPhrases::quoted(m_popup->content().habit.name);
    const auto content = contentOf(m_popup->habitID(), m_popup->day());
    if (content && !content->habit.isArchived) return m_popup->setContent(*content);
    m_popup->discard();
    Q_EMIT failed((content ? KWLocalizedString("%1 has been archived meanwhile.")
                           : KWLocalizedString("%1 has been deleted meanwhile."))
                      .arg(name));
}

Result<UndoToken> HabitCheckIns::mark(const QString &habitID, int stamp, HabitDayEdit::Mark mark)
{
    switch (mark) {
    case HabitDayEdit::Mark::None:
        break;
    case HabitDayEdit::Mark::Done:
        return m_checks.check(habitID, stamp, HabitCheck::Add);
    case HabitDayEdit::Mark::NotDone:
        return m_checks.check(habitID, stamp, HabitCheck::TakeBack);
    case HabitDayEdit::Mark::UnAchieved:
        return m_checks.markUnAchieved(habitID, stamp);
    case HabitDayEdit::Mark::UndoUnAchieved:
        return m_days.undoUnAchieved(habitID, stamp);
    case HabitDayEdit::Mark::Skipped:
        return m_checks.skip(habitID, stamp);
    case HabitDayEdit::Mark::NotSkipped:
        return m_checks.unskip(habitID, stamp);
    }
    return UndoToken{};
}

Result<QList<UndoToken>> HabitCheckIns::store(const QString &habitID, Day day, const HabitDayEdit &edit)
{
    const int stamp = DayStamp::fromDay(day);
    QList<UndoToken> tokens;
    if (edit.amount) {
        const auto done = m_checks.setValue(habitID, stamp, *edit.amount);
        if (!done) return done.error();
        tokens << *done;
    }
    const auto marked = mark(habitID, stamp, edit.mark);
    if (!marked) return marked.error();
    tokens << *marked;
    if (edit.note) {
        const auto noted = m_checks.setNote(habitID, stamp, *edit.note);
        if (!noted) return noted.error();
        tokens << *noted;
    }
    return tokens;
}

void HabitCheckIns::report(const Result<QList<UndoToken>> &done, const QString &habitID, Day day)
{
    if (!done) return Q_EMIT failed(done.error().sentence);
    if (const auto content = contentOf(habitID, day))
        tell(*done,
             KWLocalizedString("%1: %2").arg(HabitPhrases::quoted(content->habit.name),
                                             HabitPhrases::state(content->day, content->habit, QLocale{})));
}

void HabitCheckIns::tell(const QList<UndoToken> &done, const QString &message)
{
    if (!HabitUndo::hasAny(done)) return;
    Q_EMIT changed(message, HabitUndo::undoing(done, m_kit.manager(),
                                               [this](const QString &sentence) { Q_EMIT failed(sentence); }));
}
