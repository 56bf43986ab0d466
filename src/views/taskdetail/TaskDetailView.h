#pragma once

#include "corvexkit/time/CXClock.h"
#include "views/controls/UnsavedTexts.h"
#include "views/taskdetail/ChecklistView.h"
#include "views/taskdetail/TaskDetailData.h"

#include <QHash>
#include <QWidget>
#include <QWidgetList>

#include <functional>
#include <optional>

class AttachmentList;
class CommittingTextEdit;
class DetailFooter;
class DetailHeader;
class MarkdownEdit;
class SubtaskList;
class TextButton;

/// The right column: everything about one task. What is typed is handed over when it rests and is never
/// lost; an update from outside leaves alone what is being typed. Without a task it is empty.
class TaskDetailView : public QWidget, public UnsavedTextHolder {
    Q_OBJECT

public:
    explicit TaskDetailView(CXClock &clock, QWidget *parent = nullptr);
    /// Hands over what is typed, while there still is a view to hear from.
    ~TaskDetailView() override;

    /// Shows the task as it is now, or none. Call commitEdits() before showing another one.
    void setTask(const std::optional<TaskDetailData> &shown);
    /// Hands over what is typed and not handed over yet.
    void commitEdits();
    /// As if it were typed where the caret stands, in lines of its own; Ctrl+Z takes it back.
    void insertIntoContent(const QString &text);
    /// The title or the text that was handed over last could not be stored. As with items of the checklist
    /// and a subtask, it stays in its field and is handed over again; when another task is shown first, once
    /// this one comes back.
    void keepUnsavedTitle();
    void keepUnsavedContent();
    QStringList unsavedTexts() override;

    struct Unsaved {
        std::optional<QString> title{};
        std::optional<QString> content{};
        QList<ChecklistView::UnsavedItem> items{};
        QString subtask{};

        bool isNothing() const { return !title && !content && items.isEmpty() && subtask.isEmpty(); }
        QStringList texts() const;
    };
    /// Stores what a task that is not shown any more has unsaved; answers what is left of it.
    std::function<Unsaved(const QString &taskID, Unsaved unsaved)> storeUnsaved;

    DetailHeader &header() { return *m_header; }
    ChecklistView &checklist() { return *m_checklist; }
    SubtaskList &subtasks() { return *m_subtasks; }
    AttachmentList &attachments() { return *m_attachments; }
    DetailFooter &footer() { return *m_footer; }

Q_SIGNALS:
    void titleEdited(const QString &title);
    void contentEdited(const QString &content);
    void linkOpened(const QString &address);
    void itemToggled(const QString &sid);
    void itemTitleEdited(const QString &sid, const QString &title);
    /// A new item behind that one; an empty id is the place before the first.
    void itemAdded(const QString &afterSid, const QString &title);
    void itemRemoved(const QString &sid);
    void parentOpened();
    /// Files were dragged onto the task, by their paths.
    void filesDropped(const QStringList &files);

protected:
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *makeScrolledPart();
    void connectParts();
    void dress();
    void startWith(const TaskDetailData &shown);
    void follow(const TaskDetailData &shown);
    void showParts(const TaskDetailData &shown);

    Unsaved unsavedOfShown() const;
    void keepUnsaved();

    QString m_sid;                     // of the task shown
    QHash<QString, Unsaved> m_unsaved; // by task, of those that are not shown
    bool m_isClosed = false;
    QWidgetList m_controls; // in the order of Tab
    QWidget *m_page;
    DetailHeader *m_header;
    TextButton *m_parent;
    CommittingTextEdit *m_title;
    MarkdownEdit *m_content;
    ChecklistView *m_checklist;
    SubtaskList *m_subtasks;
    AttachmentList *m_attachments;
    DetailFooter *m_footer;
};
