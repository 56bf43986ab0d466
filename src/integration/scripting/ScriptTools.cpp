#include "integration/scripting/ScriptTools.h"

#include "integration/scripting/KWScriptCommandUtil.h"
#include "integration/scripting/ScriptJson.h"
#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FindAll.h"
#include "model/store/KWTaskTicker.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// The direct parameter, when the tool may run.
Result<QString> ScriptTools::textOf(QLatin1StringView tool, const ScriptCommandDescription &description) const
{
    const QString text = description.directParameter.toString();
    if (text.size() > longestText)
        return Error{KWLocalizedString("The text is longer than %1 characters.").arg(longestText)};
    if (KWScriptCommandUtil::begin(tool, description, m_with)) return text;
    return Error{m_with.kit.manager().needsMigration()
                     ? KWLocalizedString(
                           "A newer version of Orvane has changed the tasks; this one leaves them untouched.")
                     : KWLocalizedString("Nobody is signed in.")};
}

Result<QString> ScriptTools::add(const ScriptCommandDescription &description) const
{
    const Result<QString> text = textOf("add"_L1, description);
    if (!text) return text.error();
    const QVariant list = description.arguments.value(u"list"_s, QString{});
    if (list.userType() != QMetaType::QString) return Error{KWLocalizedString("The list is no text.")};
    const Result<KWTaskModel> task = m_tasks.addTask(*text, list.toString());
    if (!task) return task.error();
    // Saving has worked out more of it: when it alerts.
    const KWTask *saved = m_with.kit.context().find<KWTask>(task->sid);
    return cx_JSONString(saved ? saved->model() : *task);
}

Result<QString> ScriptTools::complete(const ScriptCommandDescription &description) const
{
    const Result<QString> id = textOf("complete"_L1, description);
    if (!id) return id.error();
    const auto find = [&]() -> const KWTask * {
        const KWTask *task = m_with.kit.context().find<KWTask>(*id);
        const bool isThere = task && task->isNotDeleted() && !task->model().isTrashed &&
                             task->model().userID == m_with.kit.account().currentUserID();
        return isThere && !m_with.lists.isHidden(*id) ? task : nullptr;
    };
    if (!find()) return Error{KWLocalizedString("There is no task “%1”.").arg(id->left(60))};
    const auto ticked = KWTaskTicker{m_with.kit.manager()}.updateStatus(KWTaskStatusCompleted, {*id});
    if (!ticked) return ticked.error();
    const KWTask *task = find();
    return task ? cx_JSONString(task->model()) : QString{};
}

Result<QString> ScriptTools::list(const ScriptCommandDescription &description) const
{
    const Result<QString> name = textOf("list"_L1, description);
    if (!name) return name.error();
    Result<QStringList> ids = m_tasks.tasksOfList(*name, mostTasks);
    if (!ids) return ids.error();
    ids->removeIf([this](const QString &each) { return m_with.lists.isHidden(each); });
    ids->resize(std::min(ids->size(), mostTasks));
    QString tasks;
    const Result<void> read =
        KWCoreDataService{m_with.kit.manager()}.sync_perform([&](ObjectContext &context) -> Result<void> {
            tasks =
                cx_MTL_JSONArrayFromModels(cx_MTL_modelsFromManagedObjects(findAll<KWTask>(*ids, context)));
            return {};
        });
    if (!read) return read.error();
    return tasks;
}
