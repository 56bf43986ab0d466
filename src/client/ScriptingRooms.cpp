#include "client/ScriptingRooms.h"

#include "cli/NamedList.h"
#include "client/DesktopRooms.h"
#include "model/OrvaneKit.h"
#include "model/records/KWPomoSettings.h"
#include "platform/ScriptingBus.h"

ScriptingRooms::ScriptingRooms(OrvaneKit &kit, CXClock &clock, DesktopRooms &rooms, ScriptingBus &bus)
    : m_bus(bus)
    , m_lists([&rooms] { return rooms.deletes().delayDeletedTaskSet(); })
    , m_focus(kit, rooms)
    , m_tasks(kit, rooms)
    , m_windows(rooms)
    , m_room({kit, m_lists, m_focus, m_usage}, m_tasks, m_windows)
{
    m_bus.open(m_room, kit, clock);
}

ScriptingRooms::~ScriptingRooms() { m_bus.close(); }

bool ScriptingRooms::Focus::isPomoEnabled() const
{
    return KWPomoSettings::isFocusEnabled(m_kit.account().currentUserID(), m_kit.context());
}

bool ScriptingRooms::Focus::isPomoRunning() const { return m_rooms.focus().manager().isPomoRunning(); }

bool ScriptingRooms::Focus::isStopWatchRunning() const
{
    return m_rooms.focus().manager().isStopWatchRunning();
}

void ScriptingRooms::Focus::startPomo(std::int64_t seconds) { m_rooms.focus().pomo().startFocus(seconds); }

Result<KWTaskModel> ScriptingRooms::Tasks::addTask(const QString &text, const QString &list)
{
    const Result<NewTaskContext> context = newTaskContextOfListNamed(list, m_kit);
    if (!context) return context.error();
    return m_rooms.newTasks().add(text, *context);
}

Result<QStringList> ScriptingRooms::Tasks::tasksOfList(const QString &list, qsizetype limit)
{
    const Result<QList<KWTaskListItemModel>> tasks = tasksOfListNamed(list, m_kit, limit);
    if (!tasks) return tasks.error();
    QStringList ids;
    for (const KWTaskListItemModel &each : *tasks)
        ids.append(each.sid);
    return ids;
}

void ScriptingRooms::Windows::openTask(const QString &taskID, const QString &activationToken)
{
    m_rooms.application().open(
        {.links = {OrvaneLink{OrvaneLink::Kind::Task, taskID}.text()}, .activationToken = activationToken});
}

void ScriptingRooms::Windows::openSearch(const QString &text)
{
    m_rooms.application().session().showWindow({});
    if (m_rooms.application().session().isSignedIn()) m_rooms.mainWindow().showSearch(text);
}
