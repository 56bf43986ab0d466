#pragma once

#include "capture/NewTaskCandidates.h"
#include "capture/NewTaskContext.h"
#include "capture/NewTaskDraft.h"
#include "capture/NewTaskReferees.h"
#include "capture/TitleRecognizer.h"
#include "corvexkit/Result.h"
#include "model/events/KWEventBus.h"
#include "model/store/UndoToken.h"

class OrvaneKit;
struct KWListIdentifier;
class QJsonObject;

/// Turns typed text into a saved task, for the window and the command line alike. Recognises with the
/// signed-in user's settings and lists, which it keeps at hand and reads again when they change. Main
/// thread only.
class NewTaskService {
public:
    /// The kit must outlive it.
    explicit NewTaskService(OrvaneKit &kit);

    /// What the text says, for showing it while it is typed, in a field that stands where the context says.
    TitleRecognition recognize(const QString &text, const NewTaskContext &context = {});

    /// Calls `changed` when a text may mean another task than before: the settings of recognition or the
    /// defaults are others, or time has gone on.
    QList<KWNotificationCenter::Observation> observeMeaning(const std::function<void()> &changed) const;

    /// What can complete the tokens of the text.
    NewTaskCandidates &candidates() { return m_candidates; }

    /// What a list implies for tasks made in it, see newTaskContextOf().
    NewTaskContext contextOf(const KWListIdentifier &list) const;

    /// The task that the text means there. Every field comes from the hand's choice, else from the text,
    /// else from the view, else from the user's defaults. A task in a list or filter of notes is a note. The
    /// column and the assignee of the view are taken where the list is that of the view. The referees are
    /// told what the text and the view say; only they know what the hand chose.
    NewTaskDraft compose(const QString &text, const NewTaskContext &context, NewTaskReferees &referees);
    /// The same for a text that stands in no field.
    NewTaskDraft compose(const QString &text, const NewTaskContext &context = {});

    struct MadeTasks {
        QList<KWTaskModel> tasks; ///< in the order of the lines
        UndoToken undo;
    };
    /// Saves that task on top of its list, or at its end where the preference says so, with the tags and the
    /// list that are missing, all or nothing. One without a title is refused; so is any without a signed-in
    /// user. Where the list is gone meanwhile, archived or may only be read, the task goes to the inbox.
    Result<MadeTasks> save(const NewTaskDraft &draft);
    /// Composes and saves a text that stands in no field.
    Result<KWTaskModel> add(const QString &text, const NewTaskContext &context = {});

    /// Whether the text is to become several tasks: more than one of its lines is not blank.
    bool shouldCreateMutilTask(const QString &text) const;
    /// Saves a task for every line as save() would, without the marks of list items, in one save, all or
    /// nothing: in the order of the lines, on top of their lists or at their ends. Lines that leave no title
    /// are left out; where none does, or where there are more than 10,000, the text is refused.
    Result<MadeTasks> createMutilTask(const QString &text, const NewTaskContext &context,
                                      NewTaskReferees &referees);

    /// What add() would recognise, as JSON; see dryRunObject().
    QJsonObject dryRun(const QString &text, const NewTaskContext &context = {});

private:
    const TitleRecognizer &recognizer();
    /// Tells the referees what was found, too.
    TitleRecognition recognize(const QString &text, const NewTaskContext &context, NewTaskReferees &referees);
    void decideKindAndPriority(KWTaskModel &task, const NewTaskContext &context,
                               const NewTaskReferees &referees) const;
    Result<MadeTasks> saveAll(const QList<NewTaskDraft> &drafts);

    OrvaneKit &m_kit;
    NewTaskCandidates m_candidates;
    std::optional<TitleRecognizer> m_recognizer; // dropped when what it knows has changed
    KWEventBus::Registration m_recordsChanged;
    QList<KWNotificationCenter::Observation> m_settingsChanged;
};
