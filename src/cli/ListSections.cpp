#include "cli/ListSections.h"

#include "lists/KWTaskListService.h"

Result<QList<SmartListSection>> ListSections::sections(const KWListIdentifier &list, const QString &userID,
                                                       ObjectContext &context)
{
    const auto content = ListContent::read(list, userID, KWTaskListService::firstExtent(list), context);
    if (!content) return content.error();
    QList<SmartListSection> sections;
    for (const KWTaskCategory &each : content->sections(m_hiddenTasks()).categories) {
        SmartListSection &section = sections.emplaceBack();
        section.isOfNotes = each.isNoteKind();
        section.title = each.title();
        for (const KWTaskListItemModel &row : each.models())
            if (row.isTask()) section.taskIDs.append(row.sid);
    }
    return sections;
}
