#include "focus/FocusTargetChoices.h"

#include "focus/FocusTargetTitle.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/ObjectContext.h"
#include "model/text/SearchWords.h"

namespace {

QString colorOf(const FocusTarget &target, ObjectContext &context)
{
    if (target.kind == FocusTarget::Kind::Habit) {
        const KWHabit *habit = context.find<KWHabit>(target.entityID);
        return habit ? (*habit)->color : QString{};
    }
    const KWTask *task = context.find<KWTask>(target.taskID());
    const KWProject *list = task ? task->project() : nullptr;
    return list ? (*list)->color : QString{};
}

// What titles have to have. A text without words, of a smiley for instance, stands in them as it is.
struct Filter {
    explicit Filter(const QString &text) : typed(text.simplified()), phrase(typed) {}

    bool fits(const QString &title) const
    {
        return phrase.isEmpty() ? title.contains(typed) : phrase.fits({title});
    }

    QString typed;
    SearchPhrase phrase;
};

QList<FocusTargetChoice> tasksWhere(const std::string &dates, SqlValue date, const QString &userID,
                                    const Filter &filter, ObjectContext &context)
{
    std::string where = "status = 0 AND isDeleted = 0 AND isTrashed = 0 AND userID = ? AND kind <> ? AND "
                        "title <> '' AND +projectID IN (SELECT sid FROM projects WHERE userID = ? AND "
                        "isDeleted = 0 AND closed = 0) AND " +
                        dates;
    SqlValues values{userID, QString{textOf(KWTaskKindNote)}, userID, std::move(date)};
    if (!filter.phrase.isEmpty()) {
        where += " AND +id IN (SELECT rowid FROM taskSearch WHERE taskSearch MATCH ?)";
        values.push_back(QStringLiteral("title : (%1)").arg(filter.phrase.matchExpression()));
    } else if (!filter.typed.isEmpty()) {
        where += " AND instr(title, ?) > 0";
        values.push_back(filter.typed);
    }
    QList<FocusTargetChoice> choices;
    for (const KWTaskModel &each : context.models<KWTask>({.where = where.c_str(),
                                   .values = values,
                                   .orderBy = "startDate NULLS LAST, priority DESC, sortOrder, id",
                                   .limit = mostTargetChoices,
                                   .index = "openTasksInOrder"})) {
        const KWProject *list = context.find<KWProject>(each.projectID);
        choices.append({FocusTarget::task(each.sid), each.title, list ? (*list)->color : QString{}});
    }
    return choices;
}

} // namespace

FocusTargetChoice lookOf(const FocusTarget &target, ObjectContext &context)
{
    if (target.isNone()) return {};
    return {.target = target, .title = titleOf(target, context), .color = colorOf(target, context)};
}

QList<FocusTargetChoice> focusTargetChoices(const QString &userID, const QString &typed,
                                            ObjectContext &context)
{
    const Filter filter{typed};
    const CXClock &clock = context.clock();
    const Instant tomorrow = clock.zone().startOfDay(clock.today() + std::chrono::days{1});
    QList<FocusTargetChoice> choices =
        tasksWhere("startDate < ?", storedInstant(tomorrow), userID, filter, context);
    for (const KWHabit *each : KWHabit::fetchAll(userID, HabitScope::Active, context))
        if (filter.fits((*each)->name))
            choices.append({FocusTarget::habit(each->sid()), (*each)->name, (*each)->color});
    return choices + tasksWhere("(startDate >= ? OR startDate IS NULL)", storedInstant(tomorrow), userID,
                                filter, context);
}
