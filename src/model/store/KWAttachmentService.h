#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWAttachmentModel.h"
#include "model/store/UndoToken.h"

#include <functional>

class KWCoreDataManager;

/// The files attached to tasks: copies in the data folder, so that the task keeps what the original said.
/// Main thread.
class KWAttachmentService {
public:
    /// The largest file that can be attached: 100 MB.
    static constexpr qint64 maximumSize = 100'000'000;

    /// `dataFolder` holds the store and, in its folder "attachments", a folder for each copy.
    KWAttachmentService(KWCoreDataManager &manager, QString dataFolder);

    using Attached = std::function<void(const Result<UndoToken> &)>;
    /// Copies the files in the background, then attaches the copies in one save: all or none. A folder, a
    /// file that is not there, cannot be read or is too large, and a full disk fail with a sentence.
    void attach(const QString &taskID, const QStringList &files, Attached attached);
    /// The copy stays on the disk for a week: see removeUnused().
    Result<UndoToken> remove(const QString &attachmentID);

    /// Where the copy is, to be opened. An attachment or a copy that is gone fails with a sentence.
    Result<QString> fileOf(const QString &attachmentID) const;
    /// Writes the copy's content to `path`, in place of what is there.
    Result<void> saveAs(const QString &attachmentID, const QString &path) const;

    /// Removes the copies that no attachment uses, of the last seven days neither.
    void removeUnused();

private:
    KWCoreDataManager &m_manager;
    QString m_dataFolder;
};
