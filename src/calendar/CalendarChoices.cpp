#include "calendar/CalendarChoices.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"

#include <algorithm>

namespace {

using Kind = CalendarChoice::Kind;
using Shown = CalendarChoice::Shown;
using Configuration = KWCalendarDisplayConfigurationModel;

constexpr std::pair<Kind, bool Configuration::*> switches[] = {
    {Kind::Completed, &Configuration::showsCompleted},
    {Kind::ChecklistItems, &Configuration::showsChecklistItems},
    {Kind::Repeats, &Configuration::showsRepeats},
    {Kind::Focus, &Configuration::showsFocus},
};

QString titleOf(const KWProject &list)
{
    return list.isInbox() ? KWSmartProject::inbox().displayName() : list->name;
}

void setHidden(QStringList &hidden, const QString &id, bool isShown)
{
    hidden.removeAll(id);
    if (!isShown) hidden.append(id);
}

} // namespace

CalendarChoices CalendarChoices::read(const QString &userID, ObjectContext &context)
{
    CalendarChoices choices;
    choices.m_configuration = KWCalendarDisplayConfiguration::ofUser(userID, context);
    choices.addKinds();
    choices.addLists(userID, context);
    choices.addCalendars(userID, context);
    return choices;
}

void CalendarChoices::addKinds()
{
    const QString titles[] = {KWLocalizedString("Completed Tasks"), KWLocalizedString("Checklist Items"),
                              KWLocalizedString("Later Dates of What Repeats"), KWLocalizedString("Focus")};
    for (std::size_t i = 0; i < std::size(switches); ++i)
        add({.kind = switches[i].first,
             .title = titles[i],
             .shown = m_configuration.*switches[i].second ? Shown::All : Shown::None});
}

// As in the sidebar: the inbox, then folders and lists by their places.
void CalendarChoices::addLists(const QString &userID, ObjectContext &context)
{
    struct Entry {
        std::int64_t order;
        CalendarChoice choice;
        QList<CalendarChoice> inside;
    };
    std::vector<Entry> entries;
    for (const KWProjectGroup *each : KWProjectGroup::findGroupsOfUser(userID, context))
        entries.push_back(
            {(*each)->sortOrder, {.kind = Kind::Folder, .id = each->sid(), .title = (*each)->name}, {}});
    const std::size_t folders = entries.size();
    for (const KWProject *each : KWProject::orderedOpenProjects(userID, context)) {
        if (!(*each)->showsInSmartList) continue;
        CalendarChoice choice{.id = each->sid(), .title = titleOf(*each), .color = (*each)->color};
        if (m_configuration.hiddenLists.contains(choice.id)) choice.shown = Shown::None;
        const auto end = entries.begin() + std::ptrdiff_t(folders);
        const auto folder = std::find_if(
            entries.begin(), end, [each](const Entry &entry) { return entry.choice.id == (*each)->groupID; });
        choice.isInFolder = folder != end;
        if (choice.isInFolder)
            folder->inside.append(choice);
        else if (each->isInbox())
            add(choice);
        else
            entries.push_back({(*each)->sortOrder, choice, {}});
    }
    std::ranges::stable_sort(entries, {}, &Entry::order);
    for (Entry &each : entries) {
        if (each.choice.kind == Kind::Folder) {
            if (each.inside.isEmpty()) continue;
            const auto hidden = std::ranges::count(each.inside, Shown::None, &CalendarChoice::shown);
            each.choice.shown = hidden == 0                    ? Shown::All
                                : hidden == each.inside.size() ? Shown::None
                                                               : Shown::Some;
        }
        add(each.choice);
        for (const CalendarChoice &list : each.inside) {
            add(list);
            m_listsOfFolders[each.choice.id].append(list.id);
        }
    }
}

void CalendarChoices::addCalendars(const QString &userID, ObjectContext &context)
{
    for (const KWCalSubscription *each : KWCalSubscription::findSubscriptionsOfUser(userID, context))
        add({.kind = Kind::Calendar,
             .id = each->sid(),
             .title = (*each)->name,
             .color = (*each)->color,
             .shown = m_configuration.hiddenCalendars.contains(each->sid()) ? Shown::None : Shown::All});
}

bool CalendarChoices::hideSomething() const
{
    return std::ranges::any_of(m_choices, [](const CalendarChoice &each) {
        return each.kind != Kind::Focus && each.shown != Shown::All;
    });
}

Configuration CalendarChoices::with(const CalendarChoice &choice, bool isShown) const
{
    Configuration other = m_configuration;
    for (const auto &[kind, member] : switches)
        if (kind == choice.kind) other.*member = isShown;
    if (choice.kind == Kind::Calendar) setHidden(other.hiddenCalendars, choice.id, isShown);
    if (choice.kind == Kind::List) setHidden(other.hiddenLists, choice.id, isShown);
    if (choice.kind == Kind::Folder)
        for (const QString &each : m_listsOfFolders.value(choice.id))
            setHidden(other.hiddenLists, each, isShown);
    return other;
}

Configuration CalendarChoices::withAllShown() const
{
    Configuration other = m_configuration;
    for (const auto &[kind, member] : switches)
        if (kind != Kind::Focus) other.*member = true;
    for (const CalendarChoice &each : m_choices) {
        other.hiddenLists.removeAll(each.id);
        other.hiddenCalendars.removeAll(each.id);
    }
    return other;
}
