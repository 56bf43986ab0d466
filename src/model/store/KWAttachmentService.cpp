#include "model/store/KWAttachmentService.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWTask.h"
#include "model/store/FileCopy.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskPermissions.h"

#include <QDir>
#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace {

constexpr auto folderName = "attachments"_L1;
constexpr std::chrono::days keptUnused{7};

struct Copy {
    QString source;
    KWAttachmentModel attachment; // of the copy that is to be made
};

Error noSuchAttachment() { return {storeText("There is no such attachment any more.")}; }

Result<QList<Copy>> planned(const QStringList &files, Instant now)
{
    QList<Copy> copies;
    for (const QString &each : files) {
        const Result<qint64> size = checkedFile(each, KWAttachmentService::maximumSize);
        if (!size) return size.error();
        Copy copy{.source = each, .attachment = {}};
        copy.attachment.sid = newRecordIdentifier(now);
        copy.attachment.fileName = QFileInfo{each}.fileName();
        copy.attachment.path = folderName + u'/' + copy.attachment.sid + u'/' + copy.attachment.fileName;
        copy.attachment.mimeType = QMimeDatabase{}.mimeTypeForFile(each).name();
        copy.attachment.size = *size;
        copies.append(copy);
    }
    return copies;
}

void removeCopies(const QList<Copy> &copies, const QString &dataFolder)
{
    for (const Copy &each : copies)
        QDir{QFileInfo{dataFolder + u'/' + each.attachment.path}.path()}.removeRecursively();
}

Result<void> makeCopies(const QList<Copy> &copies, const QString &dataFolder)
{
    Result<void> made;
    for (const Copy &each : copies) {
        const QString target = dataFolder + u'/' + each.attachment.path;
        QDir{}.mkpath(QFileInfo{target}.path());
        if (made) made = copyFile(each.source, target);
    }
    if (!made) removeCopies(copies, dataFolder);
    return made;
}

Result<UndoToken> attachCopies(const QString &taskID, const QList<Copy> &copies, KWCoreDataManager &manager)
{
    UndoToken token;
    const Result<void> saved =
        KWCoreDataService{manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            const KWTask *task = context.find<KWTask>(taskID);
            if (const Result<void> allowed = mayChangeOutsideTrash(task); !allowed) return allowed;
            for (const Copy &each : copies) {
                KWAttachmentModel attachment = each.attachment;
                attachment.userID = (*task)->userID;
                attachment.taskID = taskID;
                context.insert<KWAttachment>(std::move(attachment));
            }
            token = UndoToken::of(context);
            return {};
        });
    if (!saved) return saved.error();
    return token;
}

} // namespace

KWAttachmentService::KWAttachmentService(KWCoreDataManager &manager, QString dataFolder)
    : m_manager(manager), m_dataFolder(std::move(dataFolder))
{
}

void KWAttachmentService::attach(const QString &taskID, const QStringList &files, Attached attached)
{
    const auto copies = planned(files, m_manager.MR_defaultContext().clock().now());
    if (!copies) return attached(copies.error());
    const auto finish = [&manager = m_manager, folder = m_dataFolder, taskID, copies = *copies,
                         attached = std::move(attached)](const Result<void> &copied) {
        if (!copied) return attached(copied.error());
        const Result<UndoToken> saved = attachCopies(taskID, copies, manager);
        if (!saved) removeCopies(copies, folder);
        attached(saved);
    };
    KWCoreDataService{m_manager}.async_perform(
        [folder = m_dataFolder, copies = *copies](ObjectContext &) { return makeCopies(copies, folder); },
        finish);
}

Result<UndoToken> KWAttachmentService::remove(const QString &attachmentID)
{
    UndoToken token;
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWAttachment *attachment = context.find<KWAttachment>(attachmentID);
            if (!attachment || attachment->isDeleted()) return noSuchAttachment();
            const KWTask *task = context.find<KWTask>((*attachment)->taskID);
            if (const Result<void> allowed = mayChange(task); !allowed) return allowed;
            attachment->markDelete();
            token = UndoToken::of(context);
            return {};
        });
    if (!saved) return saved.error();
    return token;
}

Result<QString> KWAttachmentService::fileOf(const QString &attachmentID) const
{
    const KWAttachment *attachment = m_manager.MR_defaultContext().find<KWAttachment>(attachmentID);
    if (!attachment || attachment->isDeleted()) return noSuchAttachment();
    const QString folder = QDir{m_dataFolder + u'/' + folderName}.canonicalPath();
    const QFileInfo file{m_dataFolder + u'/' + (*attachment)->path};
    // A store that came from elsewhere may name any path.
    if (!file.isFile() || !file.canonicalFilePath().startsWith(folder + u'/'))
        return Error{storeText("The file “%1” is not on this computer.").arg((*attachment)->fileName)};
    return file.canonicalFilePath();
}

Result<void> KWAttachmentService::saveAs(const QString &attachmentID, const QString &path) const
{
    const Result<QString> file = fileOf(attachmentID);
    if (!file) return file.error();
    return copyFile(*file, path);
}

void KWAttachmentService::removeUnused()
{
    if (!QDir{m_dataFolder + u'/' + folderName}.exists()) return;
    KWCoreDataService::Block remove = [folder = m_dataFolder](ObjectContext &context) -> Result<void> {
        const Instant now = context.clock().now();
        QSet<QString> used;
        for (const KWAttachmentModel &each : context.models<KWAttachment>(
                 {.where = "isDeleted = 0 OR modifiedTime > ?", .values = {storedInstant(now - keptUnused)}}))
            used.insert(each.path.section(u'/', 1, 1));
        if (const Result<void> read = context.readResult(); !read) return read;
        const QDir copies{folder + u'/' + folderName};
        for (const QFileInfo &each : copies.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const Instant changed{std::chrono::milliseconds{each.lastModified().toMSecsSinceEpoch()}};
            if (!used.contains(each.fileName()) && changed < now - keptUnused)
                QDir{each.filePath()}.removeRecursively();
        }
        return {};
    };
    KWCoreDataService{m_manager}.async_perform(std::move(remove), [](const Result<void> &) {});
}
