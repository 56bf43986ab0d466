#include "model/records/KWSmartProject.h"

#include "model/records/KWSmartProjectSetting.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/ObjectContext.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

// As the list comes.
KWSmartProjectSettingModel initialSetting(const QString &identifier)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(identifier);
    KWSmartProjectSettingModel setting;
    setting.smartProjectID = identifier;
    if (!smart) return setting;
    if (smart->isCompleted() || smart->isAbandoned()) setting.sortType = KWTaskSortTypeCompletionDate;
    if (smart->isTrash()) setting.sortType = KWTaskSortTypeModifiedTime;
    setting.visibility = smart->defaultVisibility();
    return setting;
}

// A deleted one too: its place is taken.
KWSmartProjectSetting *storedSetting(const QString &identifier, const QString &userID, ObjectContext &context)
{
    for (KWSmartProjectSetting *each : context.inserted<KWSmartProjectSetting>())
        if ((*each)->smartProjectID == identifier && (*each)->userID == userID) return each;
    const auto found = context.fetch<KWSmartProjectSetting>(
        {.where = "userID = ? AND smartProjectID = ?", .values = {userID, identifier}});
    return found.isEmpty() ? nullptr : found.first();
}

KWSmartProjectSetting &settingToChange(const QString &identifier, const QString &userID,
                                       ObjectContext &context)
{
    KWSmartProjectSettingModel setting = initialSetting(identifier);
    KWSmartProjectSetting *existing = storedSetting(identifier, userID, context);
    if (!existing) {
        setting.userID = userID;
        return context.insert<KWSmartProjectSetting>(std::move(setting));
    }
    if (existing->isDeleted()) { // it begins as the list comes, again
        existing->unmarkDelete();
        existing->set(&KWSmartProjectSettingModel::sortType, setting.sortType);
        existing->set(&KWSmartProjectSettingModel::visibility, setting.visibility);
    }
    return *existing;
}

} // namespace

KWSmartProject::KWSmartProject(QString identifier, const char *nameKey)
    : m_identifier(std::move(identifier)), m_nameKey(nameKey)
{
}

QString KWSmartProject::displayName() const { return KWLocalizedString(m_nameKey); }

#define SMART_PROJECT(accessor, identifier, key)                                                             \
    const KWSmartProject &KWSmartProject::accessor()                                                         \
    {                                                                                                        \
        static const KWSmartProject instance{identifier, key};                                               \
        return instance;                                                                                     \
    }
SMART_PROJECT(all, u"smart.all"_s, "All")
SMART_PROJECT(today, u"smart.today"_s, "Today")
SMART_PROJECT(tomorrow, u"smart.tomorrow"_s, "Tomorrow")
SMART_PROJECT(next7days, u"smart.next7days"_s, "Next 7 Days")
SMART_PROJECT(assignedToMe, u"smart.assignedToMe"_s, "Assigned to Me")
SMART_PROJECT(completed, u"smart.completed"_s, "Completed")
SMART_PROJECT(abandoned, u"smart.abandoned"_s, "Abandoned")
SMART_PROJECT(trash, u"smart.trash"_s, "Trash")
SMART_PROJECT(summary, u"smart.summary"_s, "Summary")
SMART_PROJECT(tag, u"smart.tag"_s, "Tags")
SMART_PROJECT(filter, u"smart.filter"_s, "Filters")
SMART_PROJECT(inbox, u"smart.inbox"_s, "Inbox")
SMART_PROJECT(project, u"smart.project"_s, "Lists")
SMART_PROJECT(subcal, u"smart.subcal"_s, "Subscriptions")
SMART_PROJECT(calendar, u"smart.calendar"_s, "Calendar")
SMART_PROJECT(habit, u"smart.habit"_s, "Habits")
SMART_PROJECT(focus, u"smart.focus"_s, "Focus")
#undef SMART_PROJECT

std::span<const KWSmartProject *const> KWSmartProject::configurable()
{
    static const std::array<const KWSmartProject *, 11> inOrder{
        &all(),       &today(), &tomorrow(), &next7days(), &assignedToMe(), &completed(),
        &abandoned(), &trash(), &summary(),  &tag(),       &filter()};
    return inOrder;
}

const KWSmartProject *KWSmartProject::withIdentifier(const QString &identifier)
{
    for (const KWSmartProject *each : configurable())
        if (each->identifier() == identifier) return each;
    for (const KWSmartProject *each : {&inbox(), &project(), &subcal(), &calendar(), &habit(), &focus()})
        if (each->identifier() == identifier) return each;
    return nullptr;
}

bool KWSmartProject::isListOfTasks() const
{
    return isAll() || isToday() || isTomorrow() || isNext7Days() || isAssigneedToMe() || isCompleted() ||
           isAbandoned() || isTrash();
}

KWSmartProjectVisibility KWSmartProject::defaultVisibility() const
{
    const bool isShown = isToday() || isTomorrow() || isNext7Days() || isCompleted() || isTrash() ||
                         isSummary() || this == &tag() || this == &filter() || this == &habit();
    return isShown ? KWSmartProjectVisibilityShown : KWSmartProjectVisibilityHidden;
}

KWSmartProjectVisibility KWSmartProject::visibilityOfUser(const QString &userID, ObjectContext &context) const
{
    return visibilities(userID, context).value(m_identifier, defaultVisibility());
}

QHash<QString, KWSmartProjectVisibility> KWSmartProject::visibilities(const QString &userID,
                                                                      ObjectContext &context)
{
    QHash<QString, KWSmartProjectVisibility> visibilities;
    for (const KWSmartProject *each : configurable())
        visibilities.insert(each->identifier(), each->defaultVisibility());
    for (const KWSmartProjectSettingModel &each :
         context.models<KWSmartProjectSetting>({.where = "userID = ? AND isDeleted = 0", .values = {userID}}))
        visibilities.insert(each.smartProjectID, each.visibility);
    return visibilities;
}

bool KWSmartProject::isCompletedSmartProjectID(const QString &identifier)
{
    return identifier == completed().identifier();
}

bool KWSmartProject::isDateSensetiveSmartProjectID(const QString &identifier)
{
    return identifier == today().identifier() || identifier == tomorrow().identifier() ||
           identifier == next7days().identifier();
}

KWTaskSortType KWSmartProject::sortTypeWithSmartProjectID(const QString &identifier, const QString &userID,
                                                          ObjectContext &context)
{
    const KWSmartProjectSetting *existing = storedSetting(identifier, userID, context);
    return existing && existing->isNotDeleted() ? (*existing)->sortType : initialSetting(identifier).sortType;
}

void KWSmartProject::updateSortType(KWTaskSortType sortType, const QString &ofSmartProject,
                                    const QString &userID, ObjectContext &context)
{
    settingToChange(ofSmartProject, userID, context).set(&KWSmartProjectSettingModel::sortType, sortType);
}

void KWSmartProject::updateVisibility(KWSmartProjectVisibility visibility, const QString &ofSmartProject,
                                      const QString &userID, ObjectContext &context)
{
    settingToChange(ofSmartProject, userID, context).set(&KWSmartProjectSettingModel::visibility, visibility);
}
