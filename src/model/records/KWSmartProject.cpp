#include "model/records/KWSmartProject.h"

#include "model/settings/KWLocalizedString.h"

#include <array>

using namespace Qt::StringLiterals;

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
    for (const KWSmartProject *each : {&inbox(), &project(), &subcal()})
        if (each->identifier() == identifier) return each;
    return nullptr;
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
