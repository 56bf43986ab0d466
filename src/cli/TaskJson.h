#pragma once

#include "cli/TaskLine.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"

#include <QJsonArray>
#include <QJsonObject>

/// The name of a list; empty when it is gone.
inline QString listNameOf(const QString &projectID, OrvaneKit &kit)
{
    const KWProject *project = kit.context().find<KWProject>(projectID);
    return project ? project->model().name : QString{};
}

/// As localDateText(); null without a date.
inline QJsonValue dateJson(const std::optional<Instant> &date, bool isAllDay, const CXTimeZone &zone)
{
    return date ? QJsonValue{localDateText(date, isAllDay, zone)} : QJsonValue{};
}

/// A task, or a row of a list, as every command with `--json` answers it.
template <class Task>
QJsonObject taskJson(const Task &task, OrvaneKit &kit)
{
    return {{QStringLiteral("id"), task.sid},
            {QStringLiteral("title"), task.title},
            {QStringLiteral("list"), listNameOf(task.projectID, kit)},
            {QStringLiteral("tags"), QJsonArray::fromStringList(task.tags)},
            {QStringLiteral("priority"), int(task.priority)},
            {QStringLiteral("start"), dateJson(task.startDate, task.isAllDay, kit.clock().zone())},
            {QStringLiteral("isAllDay"), task.isAllDay}};
}
