#include "views/calendar/CalendarController.h"

#include "capture/NewTaskService.h"
#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"
#include "views/calendar/CalendarDrag.h"
#include "views/calendar/CalendarPane.h"
#include "views/calendar/CalendarWording.h"
#include "views/calendar/EventPopover.h"
#include "views/calendar/ItemDays.h"
#include "views/tasklist/BatchActions.h"
#include "views/wording/DateWording.h"

#include <QCursor>
#include <QLocale>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

// A day alone ends by itself.
bool hasLength(const CalendarItem &item)
{
    const auto least =
        item.isAllDay ? std::chrono::milliseconds{std::chrono::days{1}} : std::chrono::milliseconds{0};
    return item.end - item.start > least;
}

} // namespace

CalendarController::CalendarController(CalendarPane &pane, const Rooms &rooms)
    : m_pane(pane)
    , m_rooms(rooms)
    , m_editor(rooms.kit.manager())
    , m_occurrences(rooms.kit.manager(), rooms.actions)
{
    const CalendarEdits &edits = m_pane.edits();
    connect(&edits, &CalendarEdits::moveRequested, this, &CalendarController::move);
    connect(&edits, &CalendarEdits::createRequested, this, &CalendarController::create);
    connect(&edits, &CalendarEdits::completeRequested, this, &CalendarController::complete);
    connect(&edits, &CalendarEdits::deleteRequested, this, &CalendarController::remove);
    connect(&edits, &CalendarEdits::openRequested, this, &CalendarController::open);
    connect(&edits, &CalendarEdits::menuRequested, this, &CalendarController::openMenu);
    connect(&edits, &CalendarEdits::scheduleRequested, this, &CalendarController::schedule);
}

bool CalendarController::refuses(const CalendarItem &item)
{
    const bool isReadOnly = item.kind == CalendarItem::Kind::Event || item.isReadOnly;
    if (isReadOnly) Q_EMIT failed(KWLocalizedString("This can only be read."));
    return isReadOnly;
}

TaskOccurrence CalendarController::occurrenceOf(const CalendarItem &item) const
{
    const KWTask *task = m_rooms.kit.context().find<KWTask>(item.taskID);
    const Instant first = task ? (*task)->startDate.value_or(Instant{}) : Instant{};
    return {item.taskID, item.occurrence.value_or(first)};
}

void CalendarController::move(const CalendarItem &item, const CalendarItem &there)
{
    if (refuses(item)) return m_pane.view().letGoOfDrop();
    if (item.repeats && item.kind == CalendarItem::Kind::Task) {
        const KWDateTime start = dateOf(there.start, there);
        TaskOccurrences::Dates to{.startDate = start.date, .endDate = {}, .isAllDay = there.isAllDay};
        if (hasLength(there)) to.endDate = dateOf(there.end, there).date;
        return moveOccurrence(occurrenceOf(item), to, there);
    }
    const Result<UndoToken> done = item.kind == CalendarItem::Kind::ChecklistItem
                                       ? m_editor.setItemDate(item.entityID, dateOf(there.start, there))
                                       : setDates(item.entityID, there);
    if (!done) {
        m_pane.view().letGoOfDrop();
        return Q_EMIT failed(done.error().sentence);
    }
    report({*done}, whenText(there));
}

void CalendarController::moveOccurrence(const TaskOccurrence &occurrence, const TaskOccurrences::Dates &to,
                                        const CalendarItem &there)
{
    m_pane.view().setDropAsked(true);
    const auto move = [this, occurrence, to, there](OccurrenceScope scope) {
        m_pane.view().setDropAsked(false);
        if (const auto taskID = m_occurrences.move(occurrence, scope, to, whenText(there)))
            m_pane.view().selectOnceThere(*taskID, there.start);
        else
            m_pane.view().letGoOfDrop();
    };
    const QMenu &question = m_occurrences.askScope(occurrence, QCursor::pos(), move);
    connect(&question, &QObject::destroyed, this, [this] {
        if (m_pane.view().isDropAsked()) m_pane.view().letGoOfDrop();
    });
}

Result<UndoToken> CalendarController::setDates(const QString &taskID, const CalendarItem &there)
{
    const auto task = m_editor.read(taskID);
    if (!task) return Error{KWLocalizedString("The task is no longer there.")};
    const TaskSchedule shown = TaskSchedule::ofTask(task->task);
    TaskSchedule chosen = shown;
    chosen.dates.startDateTime = dateOf(there.start, there);
    chosen.dates.endDateTime.reset();
    if (hasLength(there)) chosen.dates.endDateTime = dateOf(there.end, there);
    if (chosen.timeZone.isEmpty() || there.isAllDay) chosen.timeZone = m_rooms.clock.zone().identifier();
    return m_editor.setSchedule(taskID, chosen, shown);
}

KWDateTime CalendarController::dateOf(LocalTime time, const CalendarItem &item) const
{
    const CXTimeZone zone = m_rooms.clock.zone();
    const Day day = std::chrono::floor<std::chrono::days>(time);
    return {item.isAllDay ? zone.startOfDay(day) : zone.toInstant(time), !item.isAllDay};
}

QString CalendarController::whenText(const CalendarItem &there) const
{
    const ItemDays days = ItemDays::of(there);
    const QLocale locale;
    const QString day = DateWording::weekdayAndDay(days.first, m_rooms.clock.today(), locale);
    const QString when = !days.isOne()    ? CalendarWording::time(there, locale)
                         : there.isAllDay ? day
                                          : day + u", "_s + CalendarWording::time(there, locale);
    return KWLocalizedString("Date: %1").arg(when);
}

void CalendarController::report(const QList<UndoToken> &done, const QString &message)
{
    Q_EMIT changed(message, [this, done] {
        for (const UndoToken &each : done)
            if (const Result<void> undone = each.undo(m_rooms.kit.manager()); !undone)
                return Q_EMIT failed(undone.error().sentence);
    });
}

void CalendarController::create(const QString &title, const CalendarItem &there)
{
    // The place says when: a date in the words is part of the title.
    NewTaskContext context;
    context.presetDay = ItemDays::of(there).first;
    context.recognition.donotParseDate = true;
    NewTaskDraft draft = m_rooms.newTasks.compose(title, context);
    KWTaskDateTimeReminderModel dates;
    dates.startDateTime = dateOf(there.start, there);
    if (hasLength(there)) dates.endDateTime = dateOf(there.end, there);
    dates.presetDefaultRemindersIfNeeded(m_rooms.kit.account().taskDefaultConfiguration());
    dates.applyTo(draft.task, m_rooms.clock.zone().identifier());
    const auto made = m_rooms.newTasks.save(draft);
    if (!made) return Q_EMIT failed(made.error().sentence);
    report({made->undo}, KWLocalizedString("Task added"));
    m_pane.view().selectOnceThere(made->tasks.first().sid, there.start);
}

void CalendarController::complete(const CalendarItem &item)
{
    if (item.kind == CalendarItem::Kind::Habit)
        return Q_EMIT habitChecked(item.entityID, std::chrono::floor<std::chrono::days>(item.start),
                                   item.isClosed);
    if (refuses(item)) return;
    if (!item.occurrence) return m_rooms.actions.tick({item.entityID});
    if (const auto taskID = m_occurrences.close(occurrenceOf(item), KWTaskStatusCompleted))
        m_pane.view().selectOnceThere(*taskID, item.start);
}

void CalendarController::remove(const CalendarItem &item)
{
    if (refuses(item)) return;
    if (!item.repeats || item.kind != CalendarItem::Kind::Task)
        return m_rooms.actions.remove({item.entityID});
    const TaskOccurrence occurrence = occurrenceOf(item);
    m_occurrences.askScope(occurrence, m_pane.placeOfSelected(), [this, occurrence](OccurrenceScope scope) {
        if (scope == OccurrenceScope::OnlyThis)
            m_occurrences.skip(occurrence);
        else if (scope == OccurrenceScope::ThisAndLater)
            m_occurrences.removeFrom(occurrence);
        else
            m_rooms.actions.remove({occurrence.taskID});
    });
}

void CalendarController::open(const CalendarItem &item, const QRect &place)
{
    if (item.kind == CalendarItem::Kind::Habit)
        return Q_EMIT habitOpened(item.entityID, std::chrono::floor<std::chrono::days>(item.start), place);
    if (item.kind == CalendarItem::Kind::Focus) return Q_EMIT focusOpened();
    if (item.kind != CalendarItem::Kind::Event) return Q_EMIT opened(item.taskID);
    (new EventPopover{item, &m_pane})->popUp(place);
}

void CalendarController::openMenu(const CalendarItem &item, const QPoint &place)
{
    if (item.taskID.isEmpty()) return;
    auto *menu = new QMenu{&m_pane};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(KWLocalizedString("Open"), this, [this, item] { Q_EMIT opened(item.taskID); });
    if (!item.isReadOnly) {
        menu->addAction(item.isClosed ? KWLocalizedString("Reopen") : KWLocalizedString("Complete"), this,
                        [this, item] { complete(item); });
        if (item.repeats && !item.isClosed && item.kind == CalendarItem::Kind::Task)
            m_occurrences.addTo(*menu, occurrenceOf(item));
        menu->addSeparator();
        menu->addAction(KWLocalizedString("Delete"), this, [this, item] { remove(item); });
    }
    menu->popup(place);
}

void CalendarController::schedule(const QStringList &taskIDs, const CalendarSpot &spot)
{
    CalendarItem there = CalendarDrag::newAt(spot);
    there.end = there.start;
    QList<UndoToken> done;
    for (const QString &each : taskIDs) {
        const Result<UndoToken> set = setDates(each, there);
        if (!set) {
            Q_EMIT failed(set.error().sentence);
            break;
        }
        done.append(*set);
    }
    if (!done.isEmpty()) report(done, whenText(there));
}
