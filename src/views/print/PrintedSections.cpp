#include "views/print/PrintedSections.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "views/tasklist/TaskListModel.h"

QSet<QString> collapsedSectionNames(const TaskListModel &list)
{
    QSet<QString> names;
    for (const TaskListRow &row : list.rows())
        if (row.kind == TaskListRow::Kind::Section && row.isFolded) names.insert(row.id);
    return names;
}

QString printedTitle(const TaskListRow &section, const QSet<QString> &collapsedSectionNames)
{
    if (!collapsedSectionNames.contains(section.id)) return section.title;
    return KWLocalizedString("%1 (%2)").arg(section.title).arg(section.count);
}

QString printedName(const KWTaskListItemModel &row)
{
    const QString title = displayTitle(row.title);
    if (!row.isChecklistItem()) return title;
    return KWLocalizedString("%1 (%2)").arg(title, displayTitle(row.ownerTitle));
}
