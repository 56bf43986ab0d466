#include "capture/NewTaskCandidates.h"

#include "capture/PriorityLabels.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTeam.h"
#include "model/records/KWTeamworker.h"
#include "model/settings/KWLocalizedString.h"

#include <algorithm>
#include <tuple>

namespace {

using Candidates = QList<KWCandidateModel>;

bool mattersToCandidates(const StoreChange &change)
{
    return std::ranges::any_of(std::array{RecordKind::Tag, RecordKind::Project, RecordKind::ProjectGroup,
                                          RecordKind::Team, RecordKind::Teamworker},
                               [&change](RecordKind kind) { return change.touches(kind); });
}

/// Where lists stand in the sidebar: the inbox, then by team, the user's own last; there a folder and the
/// lists in no folder share one order.
class SidebarPlaces {
public:
    using Place = std::tuple<bool, qsizetype, std::int64_t, qsizetype>;

    SidebarPlaces(const QString &userID, ObjectContext &context)
    {
        for (const KWTeamModel &each : context.models<KWTeam>(
                 {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, sid"}))
            m_teams.insert(each.sid, m_teams.size());
        for (const KWProjectGroup *each : KWProjectGroup::findGroupsOfUser(userID, context))
            m_folders.insert(each->sid(), {(*each)->sortOrder, m_folders.size()});
    }

    Place operator()(const KWProject *project) const
    {
        const KWProjectModel &list = project->model();
        const qsizetype team = m_teams.value(list.teamID, m_teams.size());
        const bool isPersonal = team == m_teams.size();
        const auto alone = std::pair{isPersonal ? list.sortOrder : 0, m_folders.size()};
        const auto [order, folder] = isPersonal ? m_folders.value(list.groupID, alone) : alone;
        return {!list.isInbox, team, order, folder};
    }

private:
    QHash<QString, qsizetype> m_teams;
    QHash<QString, std::pair<std::int64_t, qsizetype>> m_folders;
};

Candidates listsOf(const QString &userID, ObjectContext &context)
{
    QList<KWProject *> projects = KWProject::orderedOpenProjects(userID, context);
    std::ranges::stable_sort(projects, {}, SidebarPlaces{userID, context});
    Candidates lists;
    for (const KWProject *each : std::as_const(projects)) {
        if (!each->isWritable()) continue;
        const QString title = each->isInbox() ? KWSmartProject::inbox().displayName() : (*each)->name;
        lists.append({.title = title, .color = (*each)->color, .object = each->sid()});
    }
    return lists;
}

// A tag stands behind its parent.
Candidates tagsOf(const QString &userID, ObjectContext &context)
{
    const QList<KWTag *> tags = KWTag::findTagsOfUser(userID, context);
    QHash<QString, Candidates> children;
    Candidates top;
    const auto candidate = [](const KWTagModel &tag) {
        return KWCandidateModel{.title = tag.label, .color = tag.color, .object = tag.name};
    };
    for (const KWTag *each : tags)
        ((*each)->parent.isEmpty() ? top : children[(*each)->parent]).append(candidate(each->model()));
    Candidates all;
    for (const KWCandidateModel &each : std::as_const(top))
        all << each << children.take(each.object);
    for (const KWTag *each : tags) // whose parent is gone
        if (children.contains((*each)->parent)) all << candidate(each->model());
    return all;
}

Candidates teamworkersOf(const QString &projectID, ObjectContext &context)
{
    const KWProject *project = context.find<KWProject>(projectID);
    if (!project || !(*project)->isShared) return {};
    Candidates people;
    for (const KWTeamworker *each : KWTeamworker::sortedByName(context.fetch<KWTeamworker>(
             {.where = "projectID = ? AND isDeleted = 0", .values = {projectID}})))
        people.append({.title = (*each)->name,
                       .imageURL = (*each)->avatar,
                       .object = QString::number((*each)->userServerID)});
    return people;
}

} // namespace

NewTaskCandidates::NewTaskCandidates(OrvaneKit &kit) : m_kit(kit)
{
    m_recordsChanged = kit.bus().registerEventBus([this](const StoreChange &change) {
        if (mattersToCandidates(change)) forget();
    });
    for (const QString &name : {KWUserDidSignInNotification, KWUserDidSignOutNotification,
                                KWDataDidChangeOutsideMainAppNotification, KWNewDayComesNotification})
        m_observations.append(kit.center().addObserver(name, [this](const KWNotification &) { forget(); }));
}

void NewTaskCandidates::forget()
{
    m_tags.reset();
    m_lists.reset();
    m_allTeamworkers.clear();
    if (onChange) onChange();
}

QList<KWCandidateModel> NewTaskCandidates::tags()
{
    if (!m_tags) m_tags = tagsOf(m_kit.account().currentUserID(), m_kit.context());
    return *m_tags;
}

QList<KWCandidateModel> NewTaskCandidates::lists(const QSet<QString> &blockedListIDs)
{
    if (!m_lists) m_lists = listsOf(m_kit.account().currentUserID(), m_kit.context());
    if (blockedListIDs.isEmpty()) return *m_lists;
    Candidates shown = *m_lists;
    shown.removeIf([&](const KWCandidateModel &each) { return blockedListIDs.contains(each.object); });
    return shown;
}

QList<KWCandidateModel> NewTaskCandidates::priorities(const QSet<KWTaskPriority> &blocked) const
{
    const PriorityLabels priorityDict;
    Candidates shown;
    for (const KWTaskPriority each : KWTaskPriorities)
        if (!blocked.contains(each))
            shown.append({.title = priorityDict.labelOf(each), .object = QString::number(each)});
    return shown;
}

QList<KWCandidateModel> NewTaskCandidates::allTeamworkers(const QString &projectID)
{
    const auto known = m_allTeamworkers.constFind(projectID);
    if (known != m_allTeamworkers.cend()) return *known;
    return *m_allTeamworkers.insert(projectID, teamworkersOf(projectID, m_kit.context()));
}

QList<KWCandidateModel> NewTaskCandidates::dates() const
{
    static constexpr std::array near{"Today", "Tomorrow"};
    static constexpr std::array weekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                         "Thursday", "Friday", "Saturday"};
    static constexpr std::array later{"This Weekend", "Next Week", "Next Month"};
    Candidates all;
    const auto add = [&all](const char *key) {
        const QString title = KWLocalizedString(key);
        all.append({.title = title, .object = title});
    };
    std::ranges::for_each(near, add);
    const std::chrono::weekday tomorrow{m_kit.clock().today() + std::chrono::days{1}};
    for (unsigned i = 0; i < weekdays.size(); ++i)
        add(weekdays[(tomorrow.c_encoding() + i) % weekdays.size()]);
    std::ranges::for_each(later, add);
    return all;
}
