#include "cli/DemoAccount.h"

#include "cli/CommandText.h"
#include "cli/DemoContents.h"
#include "cli/DemoFocus.h"
#include "cli/DemoHabits.h"
#include "model/OrvaneKit.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWUser.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class DemoWriter {
public:
    DemoWriter(ObjectContext &context, QString userID)
        : m_context(context), m_userID(std::move(userID)), m_zone(context.clock().zone())
    {
    }

    void write()
    {
        for (const QLatin1StringView name : Demo::tags())
            KWTag::createNewTagWithName(QString{name}, m_userID, TagUniqueness::MayExist, m_context);
        writeTasks(Demo::inboxTasks(), KWProject::inboxIDOfUser(m_userID));
        for (const Demo::List &list : Demo::lists())
            writeTasks(list.tasks, writeList(list));
        for (const Demo::Filter &filter : Demo::filters())
            writeFilter(filter);
    }

private:
    std::int64_t nextOrder() { return m_order += KWSortOrderStep; }

    QString folderNamed(const QString &name)
    {
        if (name.isEmpty()) return KWProjectGroupIDUngrouped;
        if (m_folders.contains(name)) return m_folders.value(name);
        KWProjectGroupModel folder;
        folder.userID = m_userID;
        folder.name = name;
        folder.sortOrder = nextOrder();
        return m_folders[name] = m_context.insert<KWProjectGroup>(std::move(folder)).sid();
    }

    QString writeList(const Demo::List &list)
    {
        KWProjectModel model;
        model.userID = m_userID;
        model.name = list.name;
        model.color = list.color;
        model.groupID = folderNamed(list.folder);
        model.sortOrder = nextOrder();
        return m_context.insert<KWProject>(std::move(model)).sid();
    }

    void writeFilter(const Demo::Filter &filter)
    {
        KWFilterModel model;
        model.userID = m_userID;
        model.name = filter.name;
        model.rule = filter.rule;
        model.sortOrder = nextOrder();
        m_context.insert<KWFilter>(std::move(model));
    }

    void writeTasks(std::span<const Demo::Task> tasks, const QString &projectID)
    {
        QHash<QString, KWTask *> written;
        for (const Demo::Task &each : tasks) {
            KWTask &task = writeTask(each, projectID);
            written.insert(task->title, &task);
            if (KWTask *parent = written.value(each.parent)) putBelow(*parent, task);
        }
    }

    static void putBelow(KWTask &parent, KWTask &child)
    {
        child.set(&KWTaskModel::parentId, parent.sid());
        parent.set(&KWTaskModel::childIds, parent->childIds + QStringList{child.sid()});
    }

    Instant instantOf(int day, std::optional<std::chrono::minutes> time) const
    {
        const Day date = m_context.clock().today() + std::chrono::days{day};
        return time ? m_zone.toInstant(LocalTime{date} + *time) : m_zone.startOfDay(date);
    }

    // Without a time, in the evening.
    Instant completionOf(const Demo::When &when) const
    {
        return std::min(instantOf(when.day, when.from.value_or(std::chrono::minutes{18 * 60 + 30})),
                        m_context.clock().now());
    }

    KWTask &writeTask(const Demo::Task &task, const QString &projectID)
    {
        KWTaskModel model;
        model.userID = m_userID;
        model.projectID = projectID;
        model.title = task.title;
        (task.items.empty() ? model.content : model.desc) = task.content;
        model.priority = task.priority;
        if (!task.tag.isEmpty()) model.tags = {task.tag};
        model.repeatRule = task.repeatRule;
        model.estimatedPomo = task.estimatedPomos;
        model.kind = task.items.empty() ? KWTaskKindText : KWTaskKindChecklist;
        model.sortOrder = nextOrder();
        if (task.when) setDates(model, *task.when);
        if (task.state == Demo::State::Done) {
            model.status = KWTaskStatusCompleted;
            model.completionDate = completionOf(task.when.value_or(Demo::When{0}));
        }
        model.isTrashed = task.state == Demo::State::Trashed;
        KWTask &written = m_context.insert<KWTask>(std::move(model));
        for (const Demo::Item &each : task.items)
            writeItem(each, written.sid());
        return written;
    }

    void setDates(KWTaskModel &model, const Demo::When &when) const
    {
        model.startDate = instantOf(when.day, when.from);
        if (when.until) model.endDate = instantOf(when.day, when.until);
        model.isAllDay = !when.from;
        model.timeZone = m_zone.identifier();
        if (when.from) model.reminders = {u"TRIGGER:PT0S"_s};
    }

    void writeItem(const Demo::Item &item, const QString &taskID)
    {
        KWChecklistItemModel model;
        model.userID = m_userID;
        model.taskID = taskID;
        model.title = item.title;
        model.sortOrder = nextOrder();
        if (item.state == Demo::State::Done) {
            model.status = KWTaskStatusCompleted;
            model.completionDate = m_context.clock().now();
        }
        m_context.insert<KWChecklistItem>(std::move(model));
    }

    ObjectContext &m_context;
    QString m_userID;
    CXTimeZone m_zone;
    QHash<QString, QString> m_folders;
    std::int64_t m_order = 0;
};

bool holdsDemo(const QString &userID, ObjectContext &context)
{
    return std::ranges::all_of(Demo::lists(), [&](const Demo::List &each) {
        return KWProject::findProjectNamed(QString{each.name}, userID, context) != nullptr;
    });
}

} // namespace

Result<void> fillDemoAccount(OrvaneKit &kit)
{
    const QList<KWUserModel> users = kit.context().models<KWUser>({.where = "isDeleted = 0"});
    if (kit.account().isSignedIn() && holdsDemo(kit.account().currentUserID(), kit.context())) return {};
    if (!users.isEmpty())
        return Error{
            commandText("“%1” holds tasks already; the demo fills an empty folder.").arg(kit.folders().data)};
    return kit.account().openLocalAccount(QLocale{},
                                          [](const QString &userID, ObjectContext &context) -> Result<void> {
                                              DemoWriter{context, userID}.write();
                                              writeDemoHabits(userID, context);
                                              writeDemoFocus(userID, context);
                                              return {};
                                          });
}
