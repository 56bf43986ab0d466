#include "integration/summary/SummaryReader.h"

#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/store/FocusRows.h"
#include "model/store/KWTaskFinder.h"
#include "model/store/ObjectContext.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace std::chrono;

namespace {

class SummaryReading {
public:
    SummaryReading(const SummaryChoice &choice, const QString &userID, ObjectContext &context,
                   const QSet<QString> &hiddenTasks)
        : m_choice(choice)
        , m_userID(userID)
        , m_context(context)
        , m_zone(context.clock().zone())
        , m_from(m_zone.startOfDay(choice.first))
        , m_to(m_zone.startOfDay(choice.last + days{1}))
        , m_wantedLists(choice.listIDs.begin(), choice.listIDs.end())
        , m_hiddenTasks(hiddenTasks)
    {
    }

    Result<SummaryContent> read()
    {
        m_content.choice = m_choice;
        m_content.today = m_context.clock().today();
        readNames();
        if (const Result<void> done = readFocus(); !done) return done.error();
        readTasks();
        if (m_choice.fields.testFlag(SummaryChoice::Detail::Habits) && m_wantedLists.isEmpty()) readHabits();
        return std::move(m_content);
    }

private:
    bool isWanted(const QString &listID) const
    {
        return m_wantedLists.isEmpty() || m_wantedLists.contains(listID);
    }

    void readNames()
    {
        int place = 0;
        for (const KWProject *each :
             KWProject::findProjectsOfUser(m_userID, ProjectScope::OpenAndClosed, m_context))
            m_lists.insert(
                each->sid(),
                {each->isInbox() ? KWSmartProject::inbox().displayName() : each->model().name, place++});
        for (const KWTag *each : KWTag::findTagsOfUser(m_userID, m_context))
            m_tagLabels.insert(each->model().name, each->model().label);
    }

    Result<void> readFocus()
    {
        const auto rows = readFocusRows({.userID = m_userID, .from = m_from, .to = m_to}, m_context);
        if (!rows) return rows.error();
        QSet<QString> sessions;
        milliseconds whole{0};
        for (const FocusRow &each : *rows) {
            const milliseconds inside =
                std::max(std::min(each.endDate, m_to) - std::max(each.startDate, m_from), milliseconds{0});
            m_focused[each.taskID] += inside;
            if (!m_wantedLists.isEmpty() && !m_wantedLists.contains(each.listID)) continue;
            whole += inside;
            sessions.insert(each.sessionID);
        }
        m_content.focused = round<seconds>(whole);
        m_content.sessions = int(sessions.size());
        return {};
    }

    void readTasks()
    {
        const TaskOwner owner{m_userID};
        if (m_choice.statuses.testFlag(SummaryChoice::Status::Completed))
            for (const KWTask *each : KWTaskFinder::fetchCompletedBetween(
                     m_from, m_to, owner, TaskInclusion::ClosedLists | TaskInclusion::HiddenProjects,
                     m_context))
                take(*each, each->model().completionDate);
        if (m_choice.statuses.testFlag(SummaryChoice::Status::Open))
            for (const KWTask *each : KWTaskFinder::fetchAllOfUser(
                     owner, {}, m_from, m_to, TaskInclusion::Repeating | TaskInclusion::HiddenProjects,
                     m_context))
                take(*each, each->model().startDate);
    }

    void take(const KWTask &task, const std::optional<Instant> &date)
    {
        const KWTaskModel &model = task.model();
        if (task.isNoteKind() || !isWanted(model.projectID) || m_hiddenTasks.contains(model.sid)) return;
        const List list = m_lists.value(model.projectID);
        SummaryTask &taken = m_content.tasks.emplace_back();
        taken.task = model;
        taken.listName = list.name;
        taken.listPlace = list.place;
        for (const QString &tag : model.tags)
            taken.tagLabels.append(m_tagLabels.value(tag, tag));
        taken.focused = round<seconds>(m_focused.value(model.sid));
        if (!date) return;
        // What began before these days and goes on stands under the first of them.
        taken.day = std::clamp(m_zone.dayOf(*date), m_choice.first, m_choice.last);
    }

    void readHabits()
    {
        for (const KWHabit *each : KWHabit::fetchAll(m_userID, HabitScope::ActiveAndArchived, m_context)) {
            SummaryHabit habit{.name = each->model().name, .unit = each->model().unit};
            for (const KWHabitCheckin *checkin : each->checkInsBetween(m_choice.first, m_choice.last)) {
                if (checkin->isDone()) ++habit.doneDays;
                if (each->model().isRealType) habit.amount += checkin->model().value;
            }
            if (habit.doneDays > 0 || habit.amount > 0) m_content.habits.push_back(std::move(habit));
        }
    }

    struct List {
        QString name;
        int place = 0;
    };

    const SummaryChoice &m_choice;
    const QString &m_userID;
    ObjectContext &m_context;
    const CXTimeZone m_zone;
    const Instant m_from;
    const Instant m_to;
    const QSet<QString> m_wantedLists;
    const QSet<QString> &m_hiddenTasks;
    QHash<QString, List> m_lists;
    QHash<QString, QString> m_tagLabels;
    QHash<QString, milliseconds> m_focused; // by task
    SummaryContent m_content;
};

} // namespace

Result<SummaryContent> readSummary(const SummaryChoice &choice, const QString &userID, ObjectContext &context,
                                   const QSet<QString> &hiddenTasks)
{
    return SummaryReading{choice, userID, context, hiddenTasks}.read();
}
