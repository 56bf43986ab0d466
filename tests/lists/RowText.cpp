#include "RowText.h"

#include "model/records/KWSmartProject.h"
#include "support/ManualClock.h"

using namespace Qt::StringLiterals;

namespace {

Instant day(const QString &text) { return at(qUtf8Printable(u"2030-%1 00:00"_s.arg(text))); }

Instant timeOfDay(const QString &text, Instant begin)
{
    return begin + (at(qUtf8Printable(u"2030-01-01 "_s + text)) - at("2030-01-01 00:00"));
}

void give(const QString &word, KWTaskListItemModel &row)
{
    const QString value = word.sliced(1);
    switch (word.at(0).unicode()) {
    case u'!':
        row.priority = KWTaskPriority(value.toInt());
        return;
    case u'#':
        row.tags.append(value);
        return;
    case u'@':
        row.projectID = value;
        return;
    case u'/':
        row.columnID = value;
        return;
    case u'=':
        row.assignee = value.toLongLong();
        return;
    case u'^':
        row.parentId = value;
        return;
    case u'+':
        row.createdTime = day(value);
        return;
    case u'.':
        row.endDate = day(value.sliced(1)) + std::chrono::days{1};
        return;
    case u'*':
        row.pinnedDate = row.createdTime;
        return;
    case u'%':
        row.taskKind = KWTaskKindNote;
        return;
    case u'&':
        row.kind = KWTaskListItemModel::Kind::Habit;
        return;
    case u'$':
        row.kind = KWTaskListItemModel::Kind::CalendarEvent;
        return;
    case u'>':
        row.kind = KWTaskListItemModel::Kind::ChecklistItem;
        row.ownerID = value;
        return;
    case u'~':
        row.status = KWTaskStatusCompleted;
        row.completionDate = row.createdTime;
        return;
    }
    if (word.contains(u':'))
        row.startDate = timeOfDay(word, *row.startDate);
    else
        row.startDate = day(word);
}

} // namespace

QList<KWTaskListItemModel> RowText::rows(const QString &text)
{
    QList<KWTaskListItemModel> rows;
    for (const QString &each : text.split(u", "_s)) {
        QStringList words = each.split(u' ');
        KWTaskListItemModel row;
        row.sid = row.title = words.takeFirst();
        row.rowID = rows.size();
        row.createdTime = row.modifiedTime = at("2030-05-01 08:00") + std::chrono::minutes{row.rowID};
        for (const QString &word : std::as_const(words))
            give(word, row);
        rows.append(row);
    }
    return rows;
}

ShownList RowText::shown(const QString &text)
{
    const QStringList words = text.split(u' ');
    ShownList shown;
    shown.isSortable = true;
    shown.today = CXTimeZone{}.dayOf(day(u"05-01"_s));
    shown.clientID = 7;
    shown.locale = QLocale{u"en_US"_s};
    shown.menu.selectedType = *valueOf<KWTaskSortType>(words.first());
    if (words.contains(u"tomorrow"_s))
        shown.list = KWListIdentifier::smartProject(KWSmartProject::tomorrow().identifier());
    const auto groups = [&shown](const QStringList &ids) {
        for (const QString &each : ids)
            shown.groups.append({each, each.toUpper()});
    };
    switch (shown.sortType()) {
    case KWTaskSortTypeProject:
        groups({u"home"_s, u"work"_s});
        break;
    case KWTaskSortTypeTag:
        groups({u"errand"_s, u"food"_s});
        break;
    case KWTaskSortTypeAssignee:
        groups({u"8"_s, u"7"_s});
        break;
    default:
        if (!words.contains(u"plain"_s)) groups({u"next"_s, u"doing"_s});
    }
    return shown;
}

QString RowText::textOf(const QList<TaskListRow> &rows)
{
    QStringList texts;
    for (const TaskListRow &each : rows) {
        const QString fold = each.isFolded ? u"+"_s : QString{};
        if (each.kind == TaskListRow::Kind::Section)
            texts << u"[%1 %2]%3"_s.arg(each.title).arg(each.count).arg(fold);
        else if (each.kind == TaskListRow::Kind::LoadMore)
            texts << u"…"_s;
        else
            texts << QString{each.depth, u'.'} + each.task.title + fold;
    }
    return texts.join(u' ');
}
