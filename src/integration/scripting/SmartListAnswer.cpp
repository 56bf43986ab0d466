#include "integration/scripting/SmartListAnswer.h"

#include "integration/scripting/ScriptJson.h"
#include "model/OrvaneKit.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/FindAll.h"

using namespace Qt::StringLiterals;

namespace {

// All at once: a query for each section would take longer.
QHash<QString, QString> tasksOf(const QList<SmartListSection> &sections, ObjectContext &context)
{
    QStringList ids;
    for (const SmartListSection &each : sections)
        ids += each.taskIDs;
    QHash<QString, QString> tasks;
    for (const KWTaskModel &each : context.models<KWTask>(
             {.where = "isDeleted = 0 AND sid IN (SELECT value FROM json_each(?))", .values = {idList(ids)}}))
        tasks.insert(each.sid, cx_JSONString(each));
    return tasks;
}

QString jsonOf(const QList<SmartListSection> &sections, ObjectContext &context)
{
    const QHash<QString, QString> tasks = tasksOf(sections, context);
    QStringList objects;
    for (const SmartListSection &each : sections) {
        QStringList tasksOfSection;
        for (const QString &id : each.taskIDs)
            if (const auto found = tasks.constFind(id); found != tasks.constEnd())
                tasksOfSection.append(*found);
        if (tasksOfSection.isEmpty()) continue;
        const QString id = each.isOfNotes ? u"note"_s : u"date"_s;
        objects.append(u"{\"id\":"_s + cx_JSONString(QJsonValue{id}) + u",\"name\":"_s +
                       cx_JSONString(QJsonValue{each.title}) + u",\"tasks\":["_s + tasksOfSection.join(u',') +
                       u"]}"_s);
    }
    return u'[' + objects.join(u',') + u']';
}

} // namespace

Result<QString> smartListAnswer(const KWSmartProject &list, const ScriptSurroundings &with)
{
    QString answer;
    const Result<void> read =
        KWCoreDataService{with.kit.manager()}.sync_perform([&](ObjectContext &context) -> Result<void> {
            const auto sections = with.lists.sections(KWListIdentifier::smartProject(list.identifier()),
                                                      with.kit.account().currentUserID(), context);
            if (!sections) return sections.error();
            answer = jsonOf(*sections, context);
            return {};
        });
    if (!read) return read.error();
    return answer;
}
