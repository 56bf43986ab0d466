#pragma once

#include "focus/FocusPageContent.h"
#include "model/records/KWAttachmentModel.h"
#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWTaskModel.h"

#include <QHash>
#include <QList>

/// What the detail shows of a task.
struct TaskDetailData {
    struct Member {
        std::int64_t userServerID = 0;
        QString name;
        bool operator==(const Member &) const = default;
    };

    KWTaskModel task;
    bool mayChange = true;             ///< its list may be written
    QList<KWChecklistItemModel> items; ///< in their order
    QList<KWTaskModel> subtasks;       ///< in their order
    QList<KWAttachmentModel> attachments;
    QString parentTitle; ///< empty for a task of its own
    QString listName;
    QString listColor;                 ///< "#rrggbb", empty for none
    QList<Member> members;             ///< of a shared list, by name
    QHash<QString, QString> tagLabels; ///< by name; a tag without one shows its name
    QStringList tagChoices;            ///< labels of the tags that it can be given
    FocusOfTask focus{};

    /// Items, subtasks and tags can be added, changed and taken away.
    bool takesMore() const { return mayChange && !task.isTrashed; }
    bool operator==(const TaskDetailData &) const = default;
};
