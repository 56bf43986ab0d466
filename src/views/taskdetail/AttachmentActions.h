#pragma once

#include "model/store/KWAttachmentService.h"

#include <QObject>

class OrvaneKit;
class TaskDetailView;

/// Attaches files to the task of the detail, by choice or by drag, opens, saves and removes them. Main
/// thread.
class AttachmentActions : public QObject {
    Q_OBJECT

public:
    AttachmentActions(TaskDetailView &view, OrvaneKit &kit);

    /// Empty for no task.
    void setTask(const QString &taskID) { m_taskID = taskID; }
    /// Asks for files, and attaches them.
    void chooseFiles();

Q_SIGNALS:
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);
    void saved();

private:
    void attach(const QStringList &files);
    void open(const QString &attachmentID);
    void saveAs(const QString &attachmentID, const QString &fileName);
    void report(const Result<UndoToken> &done, const QString &message);

    TaskDetailView &m_view;
    OrvaneKit &m_kit;
    KWAttachmentService m_service;
    QString m_taskID;
    std::shared_ptr<AttachmentActions *> m_self; // copying may end after this has gone
};
