#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A comment on a task, as a plain value.
struct KWCommentModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Comment;
    static constexpr const char *tableName = "comments";

    QString taskID;
    std::int64_t userServerID = 0; ///< who wrote it; 0 the person of this account
    QString content;

    bool operator==(const KWCommentModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWCommentModel> =
    synchronized(field("taskID", &KWCommentModel::taskID, Json{"taskId"}),
                 field("userServerID", &KWCommentModel::userServerID, Json{"userServerId"}),
                 field("content", &KWCommentModel::content, Change::Content));
