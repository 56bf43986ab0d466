#include "lists/ProjectListContents.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWFilter.h"
#include "model/records/KWPomoSettings.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTeam.h"
#include "model/records/KWUser.h"

namespace {

template <class Record>
QList<typename Record::Model> valuesOf(const QList<Record *> &records)
{
    QList<typename Record::Model> values;
    values.reserve(records.size());
    for (const Record *each : records)
        values.append(each->model());
    return values;
}

} // namespace

ProjectListContents ProjectListContents::read(const QString &userID, ObjectContext &context)
{
    ProjectListContents contents;
    contents.userID = userID;
    for (const ProjectListSection each : allProjectListSections)
        contents.readSection(each, context);
    return contents;
}

void ProjectListContents::readSection(ProjectListSection section, ObjectContext &context)
{
    switch (section) {
    case ProjectListSection::SmartLists: {
        const auto visibilities = KWSmartProject::visibilities(userID, context);
        for (auto each = visibilities.begin(); each != visibilities.end(); ++each)
            if (each.value() == KWSmartProjectVisibilityHidden)
                hiddenSmartLists.insert(each.key());
            else if (each.value() == KWSmartProjectVisibilityShownIfNotEmpty)
                hiddenIfEmpty.insert(each.key());
        if (!KWPomoSettings::isFocusEnabled(userID, context))
            hiddenSmartLists.insert(KWSmartProject::focus().identifier());
        break;
    }
    case ProjectListSection::Filters:
        filters = valuesOf(KWFilter::findFiltersOfUser(userID, context));
        break;
    case ProjectListSection::Tags:
        tags = valuesOf(KWTag::findTagsOfUser(userID, context));
        break;
    case ProjectListSection::Subscriptions:
        hasSubscriptions = isCalSubAvailableForUser(userID, context);
        calendars = valuesOf(KWCalSubscription::findSubscriptionsOfUser(userID, context));
        if (const auto *shown = context.find<KWCalendarDisplayConfiguration>(userID))
            hiddenCalendars = (*shown)->hiddenCalendars;
        break;
    case ProjectListSection::Lists: {
        const QList<KWProject *> open = KWProject::orderedOpenProjects(userID, context);
        projects = valuesOf(open);
        for (const KWProject *each : open)
            iconNames.insert(each->sid(), each->iconName());
        closedProjects = valuesOf(KWProject::findClosedProjectsOfUser(userID, context));
        groups = valuesOf(KWProjectGroup::findGroupsOfUser(userID, context));
        teams = context.models<KWTeam>(
            {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, sid"});
        break;
    }
    }
}

bool ProjectListContents::takeSection(ProjectListSection section, const ProjectListContents &other)
{
    const auto take = [this, &other](auto... members) {
        const bool differs = ((this->*members != other.*members) || ...);
        ((this->*members = other.*members), ...);
        return differs;
    };
    using Contents = ProjectListContents;
    switch (section) {
    case ProjectListSection::SmartLists:
        return take(&Contents::hiddenSmartLists, &Contents::hiddenIfEmpty);
    case ProjectListSection::Filters:
        return take(&Contents::filters);
    case ProjectListSection::Tags:
        return take(&Contents::tags);
    case ProjectListSection::Subscriptions:
        return take(&Contents::hasSubscriptions, &Contents::calendars, &Contents::hiddenCalendars);
    case ProjectListSection::Lists:
        return take(&Contents::projects, &Contents::closedProjects, &Contents::iconNames, &Contents::groups,
                    &Contents::teams);
    }
    return false;
}

bool isCalSubAvailableForUser(const QString &userID, ObjectContext &context)
{
    return context.find<KWUser>(userID) != nullptr;
}
