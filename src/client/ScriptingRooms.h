#pragma once

#include "cli/ListSections.h"
#include "integration/scripting/ScriptingRoom.h"

class CXClock;
class DesktopRooms;
class ScriptingBus;

/// What other programs use of the client, over its rooms: on the bus for as long as it lives. Main thread.
class ScriptingRooms {
public:
    /// All outlive it.
    ScriptingRooms(OrvaneKit &kit, CXClock &clock, DesktopRooms &rooms, ScriptingBus &bus);
    ScriptingRooms(const ScriptingRooms &) = delete;
    ScriptingRooms &operator=(const ScriptingRooms &) = delete;
    ~ScriptingRooms();

private:
    class Focus : public FocusStartPort {
    public:
        Focus(OrvaneKit &kit, DesktopRooms &rooms) : m_kit(kit), m_rooms(rooms) {}
        bool isPomoEnabled() const override;
        bool isPomoRunning() const override;
        bool isStopWatchRunning() const override;
        void startPomo(std::int64_t seconds) override;

    private:
        OrvaneKit &m_kit;
        DesktopRooms &m_rooms;
    };
    class Tasks : public TaskToolsPort {
    public:
        Tasks(OrvaneKit &kit, DesktopRooms &rooms) : m_kit(kit), m_rooms(rooms) {}
        Result<KWTaskModel> addTask(const QString &text, const QString &list) override;
        Result<QStringList> tasksOfList(const QString &list, qsizetype limit) override;

    private:
        OrvaneKit &m_kit;
        DesktopRooms &m_rooms;
    };
    class Windows : public ScriptOpenPort {
    public:
        explicit Windows(DesktopRooms &rooms) : m_rooms(rooms) {}
        void openTask(const QString &taskID, const QString &activationToken) override;
        void openSearch(const QString &text) override;

    private:
        DesktopRooms &m_rooms;
    };

    ScriptingBus &m_bus;
    ListSections m_lists;
    Focus m_focus;
    UsageEventsPort m_usage;
    Tasks m_tasks;
    Windows m_windows;
    ScriptingRoom m_room;
};
