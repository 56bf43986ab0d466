#include "focus/FocusRecordEditor.h"

#include "focus/FocusLimits.h"
#include "focus/FocusStretches.h"
#include "model/OrvaneKit.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWHabit.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FocusRows.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

QList<KWFocusSlice *> slicesOf(const KWPomodoro &session)
{
    return session.context().fetch<KWFocusSlice>(
        {.where = "pomodoroID = ? AND isDeleted = 0", .values = {session.sid()}, .orderBy = "startDate, id"});
}

FocusTarget targetOf(const QString &taskID, const QString &habitID)
{
    if (!habitID.isEmpty()) return FocusTarget::habit(habitID);
    return taskID.isEmpty() ? FocusTarget{} : FocusTarget::task(taskID);
}

FocusStretch stretchOf(const KWFocusSliceModel &slice, Instant fallback)
{
    const Instant start = slice.startDate.value_or(fallback);
    return {.startDate = start,
            .endDate = slice.endDate.value_or(start),
            .target = targetOf(slice.taskID, slice.habitID)};
}

// As it is stored, without the pauses. One that came without stretches is one, shorter by the pause.
FocusRecord storedRecordOf(const KWPomodoro &session)
{
    FocusRecord record{.startDate = session->startDate.value_or(Instant{}),
                       .type = session->type,
                       .status = session->pomoStatus,
                       .pauseDuration = session->pauseDuration};
    record.endDate = session->endDate.value_or(record.startDate);
    for (const KWFocusSlice *each : slicesOf(session))
        record.stretches.append(stretchOf(each->model(), record.startDate));
    if (record.stretches.isEmpty())
        record.stretches = {{.startDate = record.startDate,
                             .endDate = record.endDate - std::chrono::seconds{record.pauseDuration},
                             .target = targetOf(session->taskID, {})}};
    return record;
}

std::chrono::milliseconds focusedIn(const FocusRecord &record)
{
    std::chrono::milliseconds focused{0};
    for (const FocusStretch &each : record.stretches)
        focused += each.length();
    return focused;
}

FocusRecord recordWith(const FocusRecordEditor::Change &change, const FocusRecord &before)
{
    FocusRecord after = before;
    after.startDate = change.startDate;
    after.endDate = change.endDate;
    after.stretches = stretchesFor(before, change.startDate, change.endDate);
    if (change.target)
        for (FocusStretch &each : after.stretches)
            each.target = *change.target;
    const auto pause = std::max(after.endDate - after.startDate - focusedIn(after), 0ms);
    after.pauseDuration = std::chrono::round<std::chrono::seconds>(pause).count();
    return after;
}

bool isThere(const FocusTarget &target, ObjectContext &context)
{
    switch (target.kind) {
    case FocusTarget::Kind::Task: {
        const KWTask *task = context.find<KWTask>(target.entityID);
        return task && task->isNotDeleted();
    }
    case FocusTarget::Kind::Habit: {
        const KWHabit *habit = context.find<KWHabit>(target.entityID);
        return habit && habit->isNotDeleted();
    }
    case FocusTarget::Kind::None:
        break;
    }
    return true;
}

Result<void> checkTarget(const FocusTarget &target, ObjectContext &context)
{
    if (isThere(target, context)) return {};
    if (target.kind == FocusTarget::Kind::Habit)
        return Error{KWLocalizedString("There is no such habit any more.")};
    return Error{KWLocalizedString("There is no such task any more.")};
}

Result<void> checkTimes(const FocusRecord &record, Instant now)
{
    if (record.endDate <= record.startDate)
        return Error{KWLocalizedString("The end must be after the start.")};
    if (record.endDate > now) return Error{KWLocalizedString("This time is still to come.")};
    if (record.endDate - record.startDate > FocusRecordEditor::longest)
        return Error{KWLocalizedString("A focus record is 24 hours long at most.")};
    if (focusedIn(record) < FocusLimits::minimumFocus)
        return Error{KWLocalizedString("A focus record needs a minute of focus at least.")};
    return {};
}

// What is still of the same task or habit keeps what it was called.
void keepNames(QList<KWFocusSliceModel> &slices, const QList<KWFocusSlice *> &stored)
{
    for (KWFocusSliceModel &each : slices) {
        const auto same = std::ranges::find_if(stored, [&](const KWFocusSlice *other) {
            return (*other)->taskID == each.taskID && (*other)->habitID == each.habitID;
        });
        if (same == stored.end()) continue;
        each.title = (**same)->title;
        each.projectName = (**same)->projectName;
        each.stringOfTagNames = (**same)->stringOfTagNames;
    }
}

// Puts the slices in the place of those that there are.
void storeSlices(KWPomodoro &session, QList<KWFocusSliceModel> slices)
{
    QList<KWFocusSlice *> stored = slicesOf(session);
    keepNames(slices, stored);
    for (KWFocusSliceModel &each : slices) {
        each.userID = session->userID;
        each.pomodoroID = session.sid();
        if (stored.isEmpty())
            session.context().insert<KWFocusSlice>(std::move(each));
        else
            stored.takeFirst()->reviveAs(std::move(each));
    }
    for (KWFocusSlice *each : stored)
        each->markDelete();
}

QString lastTaskOf(const QList<KWFocusSliceModel> &slices)
{
    QString taskID;
    for (const KWFocusSliceModel &each : slices)
        if (!each.taskID.isEmpty()) taskID = each.taskID;
    return taskID;
}

} // namespace

Result<FocusRecordEditor::Made> FocusRecordEditor::add(const Entry &entry)
{
    const FocusRecord record{
        .startDate = entry.startDate,
        .endDate = entry.endDate,
        .type = entry.type,
        .stretches = {{.startDate = entry.startDate, .endDate = entry.endDate, .target = entry.target}}};
    QString recordID;
    const auto undo = save([&](ObjectContext &context) -> Result<void> {
        if (const Result<void> times = check(record, {}, context); !times) return times;
        if (const Result<void> target = checkTarget(entry.target, context); !target) return target;
        recordID = FocusRecordWriter::insert(record, m_kit.account().currentUserID(), context);
        credit(record, context);
        return {};
    });
    if (!undo) return undo.error();
    return Made{.recordID = recordID, .undo = *undo};
}

Result<UndoToken> FocusRecordEditor::change(const QString &recordID, const Change &change)
{
    return saveRecord(recordID, [&](KWPomodoro &session) -> Result<void> {
        const FocusRecord before = storedRecordOf(session);
        const FocusRecord after = recordWith(change, before);
        const bool hasOtherTimes = after.startDate != before.startDate || after.endDate != before.endDate;
        if (hasOtherTimes)
            if (const Result<void> times = check(after, recordID, session.context()); !times) return times;
        if (change.target)
            if (const Result<void> target = checkTarget(*change.target, session.context()); !target)
                return target;
        if (!hasOtherTimes && after.stretches == before.stretches) return {};
        takeCreditBack(before, session.context());
        credit(after, session.context());
        session.set(&KWPomodoroModel::startDate, std::optional{after.startDate});
        session.set(&KWPomodoroModel::endDate, std::optional{after.endDate});
        session.set(&KWPomodoroModel::pauseDuration, after.pauseDuration);
        const auto slices = FocusRecordWriter::slicesOf(after.stretches, session.context());
        session.set(&KWPomodoroModel::taskID, lastTaskOf(slices));
        storeSlices(session, slices);
        return {};
    });
}

Result<UndoToken> FocusRecordEditor::remove(const QString &recordID)
{
    return saveRecord(recordID, [&](KWPomodoro &session) -> Result<void> {
        takeCreditBack(storedRecordOf(session), session.context());
        for (KWFocusSlice *each : slicesOf(session))
            each->markDelete();
        session.markDelete();
        return {};
    });
}

Result<UndoToken> FocusRecordEditor::save(const std::function<Result<void>(ObjectContext &)> &block)
{
    if (!m_kit.account().isSignedIn()) return Error{KWLocalizedString("Nobody is signed in.")};
    UndoToken token;
    const auto saved =
        KWCoreDataService{m_kit.manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
            const Result<void> done = block(context);
            if (done) token = UndoToken::of(context);
            return done;
        });
    if (!saved) return saved.error();
    return token;
}

Result<UndoToken> FocusRecordEditor::saveRecord(const QString &recordID,
                                                const std::function<Result<void>(KWPomodoro &)> &block)
{
    return save([&](ObjectContext &context) -> Result<void> {
        KWPomodoro *session = context.find<KWPomodoro>(recordID);
        if (!session || session->isDeleted() || (*session)->userID != m_kit.account().currentUserID())
            return Error{KWLocalizedString("There is no such focus record any more.")};
        return block(*session);
    });
}

Result<void> FocusRecordEditor::check(const FocusRecord &record, const QString &recordID,
                                      ObjectContext &context) const
{
    if (const Result<void> times = checkTimes(record, context.clock().now()); !times) return times;
    const auto rows = readFocusRows(
        {.userID = m_kit.account().currentUserID(), .from = record.startDate, .to = record.endDate}, context);
    if (!rows) return rows.error();
    for (const FocusRow &other : *rows) {
        if (other.sessionID == recordID) continue;
        const auto overlaps = [&](const FocusStretch &each) {
            return each.startDate < other.endDate && other.startDate < each.endDate;
        };
        if (std::ranges::any_of(record.stretches, overlaps))
            return Error{KWLocalizedString("Another focus record has this time already.")};
    }
    return {};
}

void FocusRecordEditor::credit(const FocusRecord &record, ObjectContext &context) const
{
    applyCredits(creditsOf(record.stretches, record.type, record.status), record.creditSource(),
                 *m_kit.account().currentUser(), context);
}

void FocusRecordEditor::takeCreditBack(const FocusRecord &record, ObjectContext &context) const
{
    QList<FocusCredit> credits = creditsOf(record.stretches, record.type, record.status);
    for (FocusCredit &each : credits) {
        each.seconds = -each.seconds;
        each.pomos = -each.pomos;
    }
    applyCredits(credits, record.creditSource(), *m_kit.account().currentUser(), context);
}
