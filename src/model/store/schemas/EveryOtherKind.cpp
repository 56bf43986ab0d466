#include "model/store/schemas/RecordTable.h"
#include "model/store/schemas/Schemas.h"

using schemas::table;

namespace {

#define OF_TASK "taskID TEXT NOT NULL REFERENCES tasks (sid) ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED"
#define OF_HABIT                                                                                             \
    "habitID TEXT NOT NULL REFERENCES habits (sid) ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED"

std::string aroundListsAndTasks()
{
    return table("columns",
                 "name TEXT NOT NULL, projectID TEXT NOT NULL REFERENCES projects (sid) ON DELETE CASCADE "
                 "DEFERRABLE INITIALLY DEFERRED") +
           table("filters", "name TEXT NOT NULL, rule TEXT NOT NULL, sortType TEXT NOT NULL") +
           table("smartProjectSettings",
                 "smartProjectID TEXT NOT NULL, sortType TEXT NOT NULL, visibility TEXT NOT NULL") +
           table("listDisplayConfigurations",
                 "listID TEXT NOT NULL, showsCompleted INTEGER NOT NULL, "
                 "showsDetails INTEGER NOT NULL, collapsedGroups TEXT NOT NULL") +
           table("attachments",
                 OF_TASK ", fileName TEXT NOT NULL, path TEXT NOT NULL, mimeType TEXT NOT NULL, "
                         "size INTEGER NOT NULL") +
           table("comments", OF_TASK ", userServerID INTEGER NOT NULL, content TEXT NOT NULL") +
           table("focusSummaries",
                 OF_TASK ", userServerID INTEGER NOT NULL, pomoCount INTEGER NOT NULL, "
                         "pomoDuration INTEGER NOT NULL, stopwatchDuration INTEGER NOT NULL");
}

std::string positions()
{
    return table("taskDueDateSortOrders", "contextID TEXT NOT NULL, " OF_TASK ", dayStamp INTEGER NOT NULL") +
           table("taskPrioritySortOrders",
                 "contextID TEXT NOT NULL, " OF_TASK ", priority INTEGER NOT NULL") +
           table("taskProjectSortOrders", "contextID TEXT NOT NULL, " OF_TASK ", projectID TEXT NOT NULL") +
           table("taskTagSortOrders", "contextID TEXT NOT NULL, " OF_TASK ", tagName TEXT NOT NULL") +
           table("taskPinnedSortOrders", "contextID TEXT NOT NULL, " OF_TASK) +
           table("projectPinnedSortOrders", "listID TEXT NOT NULL");
}

std::string habits()
{
    return table("habitSections", "name TEXT NOT NULL") +
           table(
               "habits",
               "name TEXT NOT NULL, iconRes TEXT NOT NULL, color TEXT NOT NULL, isRealType INTEGER NOT NULL, "
               "goal REAL NOT NULL, step REAL NOT NULL, unit TEXT NOT NULL, sectionID TEXT NOT NULL, "
               "repeatRule TEXT NOT NULL, reminders TEXT NOT NULL, isArchived INTEGER NOT NULL, "
               "currentStreak INTEGER NOT NULL, longestStreak INTEGER NOT NULL") +
           table("habitCheckins",
                 OF_HABIT ", checkinStamp INTEGER NOT NULL, checkinTime INTEGER, value REAL NOT NULL, "
                          "goal REAL NOT NULL, status INTEGER NOT NULL") +
           table("habitRecords", OF_HABIT ", stamp INTEGER NOT NULL, content TEXT NOT NULL") +
           table("habitSkips", OF_HABIT ", stamp INTEGER NOT NULL");
}

std::string focus()
{
    return table("pomoSettings", "pomoDuration INTEGER NOT NULL, shortBreakDuration INTEGER NOT NULL, "
                                 "longBreakDuration INTEGER NOT NULL, longBreakInterval INTEGER NOT NULL, "
                                 "isAutoPomo INTEGER NOT NULL, isAutoBreak INTEGER NOT NULL, "
                                 "autoPomodoroCycle INTEGER NOT NULL, isPomoEnabled INTEGER NOT NULL, "
                                 "dailyPomoGoal INTEGER NOT NULL, dailyFocusGoal INTEGER NOT NULL") +
           table("pomodoros",
                 "pomoStatus INTEGER NOT NULL, type INTEGER NOT NULL, startDate INTEGER, endDate INTEGER, "
                 "pauseDuration INTEGER NOT NULL, taskID TEXT NOT NULL") +
           table("focusSlices",
                 "pomodoroID TEXT NOT NULL REFERENCES pomodoros (sid) ON DELETE CASCADE DEFERRABLE "
                 "INITIALLY DEFERRED, startDate INTEGER, endDate INTEGER, taskID TEXT NOT NULL, "
                 "habitID TEXT NOT NULL, title TEXT NOT NULL, projectName TEXT NOT NULL, "
                 "stringOfTagNames TEXT NOT NULL");
}

std::string occurrences()
{
    return table("repeatInstances",
                 "referenceID TEXT NOT NULL, instanceType INTEGER NOT NULL, startDate INTEGER, "
                 "endDate INTEGER") +
           table("repeatInstanceFetchFlags",
                 "referenceID TEXT NOT NULL, fetchBeginDate INTEGER, fetchEndDate INTEGER, "
                 "hashTag INTEGER NOT NULL");
}

std::string people()
{
    return table("teams", "name TEXT NOT NULL") +
           table("teammates", "teamID TEXT NOT NULL, userServerID INTEGER NOT NULL, name TEXT NOT NULL, "
                              "avatar TEXT NOT NULL") +
           table("teamworkers", "projectID TEXT NOT NULL, userServerID INTEGER NOT NULL, name TEXT NOT NULL, "
                                "avatar TEXT NOT NULL, permission TEXT NOT NULL, isOwner INTEGER NOT NULL");
}

#undef OF_TASK
#undef OF_HABIT

constexpr const char *indices = R"sql(
CREATE INDEX columnsByList ON columns (projectID, sortOrder);
CREATE UNIQUE INDEX smartProjectSettingsByList ON smartProjectSettings (userID, smartProjectID);
CREATE UNIQUE INDEX listDisplayConfigurationsByList ON listDisplayConfigurations (userID, listID);
CREATE INDEX attachmentsByTask ON attachments (taskID);
CREATE INDEX commentsByTask ON comments (taskID);
CREATE INDEX focusSummariesByTask ON focusSummaries (taskID);
CREATE INDEX taskDueDateSortOrdersByGroup ON taskDueDateSortOrders (contextID, dayStamp);
CREATE INDEX taskDueDateSortOrdersByTask ON taskDueDateSortOrders (taskID);
CREATE INDEX taskPrioritySortOrdersByGroup ON taskPrioritySortOrders (contextID, priority);
CREATE INDEX taskPrioritySortOrdersByTask ON taskPrioritySortOrders (taskID);
CREATE INDEX taskProjectSortOrdersByGroup ON taskProjectSortOrders (contextID, projectID);
CREATE INDEX taskProjectSortOrdersByTask ON taskProjectSortOrders (taskID);
CREATE INDEX taskTagSortOrdersByGroup ON taskTagSortOrders (contextID, tagName);
CREATE INDEX taskTagSortOrdersByTask ON taskTagSortOrders (taskID);
CREATE INDEX taskPinnedSortOrdersByGroup ON taskPinnedSortOrders (contextID);
CREATE INDEX taskPinnedSortOrdersByTask ON taskPinnedSortOrders (taskID);
CREATE UNIQUE INDEX habitCheckinsByDay ON habitCheckins (habitID, checkinStamp) WHERE isDeleted = 0;
CREATE INDEX habitRecordsByDay ON habitRecords (habitID, stamp);
CREATE UNIQUE INDEX habitSkipsByDay ON habitSkips (habitID, stamp) WHERE isDeleted = 0;
CREATE INDEX focusSlicesBySession ON focusSlices (pomodoroID);
CREATE INDEX pomodorosByStart ON pomodoros (userID, startDate);
CREATE INDEX repeatInstancesBySource ON repeatInstances (referenceID, startDate);
CREATE INDEX repeatInstancesByStart ON repeatInstances (userID, startDate);
CREATE INDEX repeatInstanceFetchFlagsBySource ON repeatInstanceFetchFlags (userID, referenceID);
CREATE INDEX teamworkersByList ON teamworkers (projectID);
)sql";

} // namespace

std::string schemas::everyOtherKind()
{
    return aroundListsAndTasks() + positions() + habits() + focus() + occurrences() + people() + indices;
}
