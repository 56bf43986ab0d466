#include "focus/FocusNames.h"

#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FocusRows.h"

namespace {

QString listNameOf(const FocusRow &row)
{
    return row.isInInbox ? KWSmartProject::inbox().displayName() : row.listName;
}

FocusShare habits() { return {.kind = FocusShare::Kind::Habits, .name = KWLocalizedString("Habits")}; }

} // namespace

FocusNames::FocusNames(const QString &userID, ObjectContext &context)
{
    for (const KWProjectModel &each :
         context.models<KWProject>({.where = "userID = ? AND isDeleted = 0", .values = {userID}})) {
        const QString shown = each.isInbox ? KWSmartProject::inbox().displayName() : each.name;
        m_lists.insert(each.name, {.id = each.sid, .name = shown, .color = each.color});
    }
    for (const KWTagModel &each :
         context.models<KWTag>({.where = "userID = ? AND isDeleted = 0", .values = {userID}}))
        m_tags.insert(each.name, {.id = each.name, .name = each.label, .color = each.color});
}

FocusSubject FocusNames::subjectOf(const FocusRow &row) const
{
    FocusSubject subject{.title = row.title,
                         .listName = listNameOf(row),
                         .color = row.isThere ? row.color : m_lists.value(row.listName).color,
                         .isThere = row.isThere};
    if (!row.habitID.isEmpty())
        subject.target = FocusTarget::habit(row.habitID);
    else if (!row.taskID.isEmpty())
        subject.target = FocusTarget::task(row.taskID);
    for (const QString &each : row.tags)
        subject.tags.append(labelOf(each));
    return subject;
}

FocusShare FocusNames::listOf(const FocusRow &row) const
{
    if (!row.habitID.isEmpty()) return habits();
    if (!row.listID.isEmpty()) return {.id = row.listID, .name = listNameOf(row), .color = row.color};
    if (row.listName.isEmpty())
        return {.kind = FocusShare::Kind::Without, .name = KWLocalizedString("No List")};
    return m_lists.value(row.listName, {.name = row.listName});
}

QList<FocusShare> FocusNames::tagsOf(const FocusRow &row) const
{
    if (!row.habitID.isEmpty()) return {habits()};
    if (row.tags.isEmpty()) return {{.kind = FocusShare::Kind::Without, .name = KWLocalizedString("No Tag")}};
    QList<FocusShare> tags;
    for (const QString &each : row.tags)
        tags.append(m_tags.value(each, {.id = each, .name = each}));
    return tags;
}

QString FocusNames::labelOf(const QString &tag) const { return m_tags.value(tag, {.name = tag}).name; }
