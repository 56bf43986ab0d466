#include "model/store/schemas/Schemas.h"

namespace {

// A rowid of its own keeps the indexes small. Tags stand in the task as a list and once more in
// taskTags, kept by triggers, where they are searched.
constexpr const char *firstSchema = R"sql(
CREATE TABLE users (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    userServerID INTEGER NOT NULL, name TEXT NOT NULL, avatar TEXT NOT NULL, isTeamUser INTEGER NOT NULL,
    isSignedIn INTEGER NOT NULL);

CREATE TABLE userSettings (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    firstWeekday INTEGER NOT NULL, showCompleted INTEGER NOT NULL, defaultListID TEXT NOT NULL,
    defaultReminderRules TEXT NOT NULL, allDayReminders TEXT NOT NULL, smartTimeForMorning INTEGER NOT NULL,
    smartTimeForAfternoon INTEGER NOT NULL, smartTimeForEvening INTEGER NOT NULL,
    smartTimeForNight INTEGER NOT NULL, isTimeZoneOptionEnabled INTEGER NOT NULL,
    showsInCalendar INTEGER NOT NULL, showsInToday INTEGER NOT NULL);

CREATE TABLE projectGroups (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    name TEXT NOT NULL, sortType TEXT NOT NULL);

CREATE TABLE projects (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    name TEXT NOT NULL, color TEXT NOT NULL, groupID TEXT NOT NULL, kind TEXT NOT NULL, sortType TEXT NOT NULL,
    closed INTEGER NOT NULL, isInbox INTEGER NOT NULL, isShared INTEGER NOT NULL, userCount INTEGER NOT NULL,
    isOwner INTEGER NOT NULL, permission TEXT NOT NULL, teamID TEXT NOT NULL, isMuted INTEGER NOT NULL,
    showsInSmartList INTEGER NOT NULL, viewMode TEXT NOT NULL);
CREATE INDEX projectsByOrder ON projects (userID, sortOrder);

CREATE TABLE tags (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    name TEXT NOT NULL, label TEXT NOT NULL, color TEXT NOT NULL, sortType TEXT NOT NULL, parent TEXT NOT NULL);
CREATE UNIQUE INDEX tagsByName ON tags (userID, name) WHERE isDeleted = 0;

CREATE TABLE tasks (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    title TEXT NOT NULL, content TEXT NOT NULL, "desc" TEXT NOT NULL, kind TEXT NOT NULL, status INTEGER NOT NULL,
    priority INTEGER NOT NULL, progress INTEGER NOT NULL,
    projectID TEXT NOT NULL REFERENCES projects (sid) DEFERRABLE INITIALLY DEFERRED,
    columnID TEXT NOT NULL, parentId TEXT NOT NULL, childIds TEXT NOT NULL, tags TEXT NOT NULL,
    startDate INTEGER, endDate INTEGER, isAllDay INTEGER NOT NULL, serverStartDate INTEGER, serverEndDate INTEGER,
    timeZone TEXT NOT NULL, isFloating INTEGER NOT NULL, repeatRule TEXT NOT NULL, repeatFrom TEXT NOT NULL,
    exDates TEXT NOT NULL, reminders TEXT NOT NULL, remindTime INTEGER, snoozedRemindDate INTEGER,
    completionDate INTEGER, assignee INTEGER NOT NULL, pinnedDate INTEGER, estimatedPomo INTEGER NOT NULL,
    estimatedDuration INTEGER NOT NULL, isTrashed INTEGER NOT NULL);
CREATE INDEX openTasksByList ON tasks (projectID, sortOrder) WHERE status = 0 AND isDeleted = 0 AND isTrashed = 0;
CREATE INDEX openTasksByDate ON tasks (startDate, projectID, priority DESC, sortOrder, endDate)
    WHERE status = 0 AND isDeleted = 0 AND isTrashed = 0 AND startDate IS NOT NULL;
CREATE INDEX closedTasksByCompletion ON tasks (completionDate) WHERE status <> 0 AND isDeleted = 0 AND isTrashed = 0;
CREATE INDEX tasksByList ON tasks (projectID, sortOrder);

CREATE TABLE taskTags (
    name TEXT NOT NULL, task INTEGER NOT NULL REFERENCES tasks (id) ON DELETE CASCADE, PRIMARY KEY (name, task)
) WITHOUT ROWID;
CREATE INDEX taskTagsByTask ON taskTags (task);
CREATE TRIGGER taskTagsInserted AFTER INSERT ON tasks WHEN NEW.tags <> '[]' BEGIN
    INSERT OR IGNORE INTO taskTags (name, task) SELECT value, NEW.id FROM json_each(NEW.tags);
END;
CREATE TRIGGER taskTagsUpdated AFTER UPDATE OF tags ON tasks WHEN NEW.tags <> OLD.tags BEGIN
    DELETE FROM taskTags WHERE task = NEW.id;
    INSERT OR IGNORE INTO taskTags (name, task) SELECT value, NEW.id FROM json_each(NEW.tags);
END;

CREATE TABLE checklistItems (
    id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL,
    sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT NULL,
    pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL,
    taskID TEXT NOT NULL REFERENCES tasks (sid) ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED,
    title TEXT NOT NULL, status INTEGER NOT NULL, startDate INTEGER, isAllDay INTEGER NOT NULL,
    snoozedRemindDate INTEGER, completionDate INTEGER);
CREATE INDEX checklistItemsByTask ON checklistItems (taskID, sortOrder);
)sql";

} // namespace

std::string schemas::accountsListsAndTasks() { return firstSchema; }
