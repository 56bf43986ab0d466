#include "views/print/ListMarkdown.h"

#include "model/text/MarkdownText.h"
#include "views/print/PrintedSections.h"
#include "views/tasklist/TaskListModel.h"

using namespace Qt::StringLiterals;
using MarkdownText::escaped;

namespace {

QString itemOf(const TaskListRow &row, const TaskListModel &list)
{
    const KWTaskListItemModel &task = row.task;
    QString item(row.depth * 2, u' ');
    const QString title = printedName(task);
    if (task.taskKind == KWTaskKindNote || task.isEvent())
        item += u"- "_s + escaped(title);
    else
        item += MarkdownText::taskItem(title, task.isClosed(), task.status == KWTaskStatusAbandoned);
    if (const QString date = list.dateTextOf(row).text; !date.isEmpty()) item += u" · "_s + escaped(date);
    for (const QString &tag : task.tags)
        item += u" \\#"_s + escaped(list.tagLabel(tag));
    return item + u'\n';
}

} // namespace

QString listMarkdown(const QString &title, const TaskListModel &list)
{
    QString text = u"# "_s + escaped(title) + u"\n\n"_s;
    const QSet<QString> collapsed = collapsedSectionNames(list);
    for (const TaskListRow &row : list.rows())
        switch (row.kind) {
        case TaskListRow::Kind::Section:
            if (!text.endsWith(u"\n\n")) text += u'\n';
            text += u"## "_s + escaped(printedTitle(row, collapsed)) + u"\n\n"_s;
            break;
        case TaskListRow::Kind::Task:
            text += itemOf(row, list);
            break;
        case TaskListRow::Kind::LoadMore:
            break;
        }
    return text;
}
