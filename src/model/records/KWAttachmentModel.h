#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A file attached to a task, as a plain value. The file itself is a copy in the data folder.
struct KWAttachmentModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Attachment;
    static constexpr const char *tableName = "attachments";

    QString taskID;
    QString fileName; ///< as the person knows it
    QString path;     ///< of the copy, relative to the data folder
    QString mimeType;
    std::int64_t size = 0; ///< bytes

    bool operator==(const KWAttachmentModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWAttachmentModel> =
    synchronized(field("taskID", &KWAttachmentModel::taskID, Json{"taskId"}),
                 field("fileName", &KWAttachmentModel::fileName), field("path", &KWAttachmentModel::path),
                 field("mimeType", &KWAttachmentModel::mimeType), field("size", &KWAttachmentModel::size));
