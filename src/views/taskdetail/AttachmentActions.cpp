#include "views/taskdetail/AttachmentActions.h"

#include "model/OrvaneKit.h"
#include "views/taskdetail/AttachmentList.h"
#include "views/taskdetail/TaskDetailView.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QUrl>

AttachmentActions::AttachmentActions(TaskDetailView &view, OrvaneKit &kit)
    : m_view(view)
    , m_kit(kit)
    , m_service(kit.manager(), kit.folders().data)
    , m_self(std::make_shared<AttachmentActions *>(this))
{
    AttachmentList &list = view.attachments();
    connect(&view, &TaskDetailView::filesDropped, this, &AttachmentActions::attach);
    connect(&list, &AttachmentList::opened, this, &AttachmentActions::open);
    connect(&list, &AttachmentList::savingRequested, this, &AttachmentActions::saveAs);
    connect(&list, &AttachmentList::removed, this,
            [this](const QString &attachmentID) { report(m_service.remove(attachmentID), tr("Removed")); });
}

void AttachmentActions::report(const Result<UndoToken> &done, const QString &message)
{
    if (!done) return Q_EMIT failed(done.error().sentence);
    Q_EMIT saved();
    Q_EMIT changed(message, [this, undo = *done] {
        if (const Result<void> undone = undo.undo(m_kit.manager()); !undone)
            Q_EMIT failed(undone.error().sentence);
    });
}

void AttachmentActions::attach(const QStringList &files)
{
    if (files.isEmpty() || m_taskID.isEmpty()) return;
    const std::weak_ptr<AttachmentActions *> self = m_self;
    m_service.attach(m_taskID, files, [self](const Result<UndoToken> &attached) {
        if (const auto still = self.lock()) (*still)->report(attached, tr("Attached"));
    });
}

void AttachmentActions::chooseFiles()
{
    attach(QFileDialog::getOpenFileNames(m_view.window(), tr("Attach Files")));
}

void AttachmentActions::open(const QString &attachmentID)
{
    const Result<QString> file = m_service.fileOf(attachmentID);
    if (!file) return Q_EMIT failed(file.error().sentence);
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(*file)))
        Q_EMIT failed(tr("No program opens the file “%1”.").arg(QFileInfo{*file}.fileName()));
}

void AttachmentActions::saveAs(const QString &attachmentID, const QString &fileName)
{
    const QString path =
        QFileDialog::getSaveFileName(m_view.window(), tr("Save As"), QDir::home().filePath(fileName));
    if (path.isEmpty()) return;
    const Result<void> written = m_service.saveAs(attachmentID, path);
    if (written)
        Q_EMIT saved();
    else
        Q_EMIT failed(written.error().sentence);
}
