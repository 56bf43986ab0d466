#include "integration/scripting/SmartListAnswer.h"

#include "integration/scripting/ScriptJson.h"
#include "model/OrvaneKit.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/FindAll.h"

using namespace Qt::StringLiterals;

namespace {

// All at once: a query for each section would take longer.
QHash<QString, QJsonObject> tasksOf(const QList<SmartListSection> &sections, ObjectContext &context)
{
    QStringList ids;
    for (const SmartListSection &each : sections)
        ids += each.taskIDs;
    QHash<QString, QJsonObject> tasks;
    for (const KWTaskModel &each : cx_MTL_modelsFromManagedObjects(findAll<KWTask>(ids, context)))
        tasks.insert(each.sid, cx_MTL_JSONDictionaryFromModel(each));
    return tasks;
}

QJsonArray jsonOf(const QList<SmartListSection> &sections, ObjectContext &context)
{
    const QHash<QString, QJsonObject> tasks = tasksOf(sections, context);
    QJsonArray array;
    for (const SmartListSection &each : sections) {
        QJsonArray tasksOfSection;
        for (const QString &id : each.taskIDs)
            if (const auto found = tasks.constFind(id); found != tasks.constEnd())
                tasksOfSection.append(*found);
        if (tasksOfSection.isEmpty()) continue;
        array.append(QJsonObject{{u"id"_s, each.isOfNotes ? u"note"_s : u"date"_s},
                                 {u"name"_s, each.title},
                                 {u"tasks"_s, tasksOfSection}});
    }
    return array;
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
            answer = cx_JSONString(jsonOf(*sections, context));
            return {};
        });
    if (!read) return read.error();
    return answer;
}
