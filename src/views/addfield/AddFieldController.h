#pragma once

#include "capture/NewTaskContext.h"
#include "capture/RecognizedPiece.h"
#include "model/events/KWNotificationCenter.h"
#include "model/records/KWListIdentifier.h"
#include "model/store/UndoToken.h"
#include "views/addfield/DateTip.h"
#include "views/addfield/HandChoices.h"
#include "views/addfield/TakenBackMarks.h"
#include "views/addfield/TokenCompletion.h"

#include <QObject>

class AlertPort;
class KWNewTaskTextField;
class NewTaskService;
class QKeyEvent;

/// Joins an add field with recognition and saving: marks the pieces while one types and says what they mean,
/// completes tokens, takes a recognition back when its mark is clicked or Backspace is pressed right behind
/// it, brings it back by Ctrl+Z, and saves on Enter. The text leaves the field only once it is saved. What
/// was chosen by hand goes with it, and when the field is left empty. In the empty field Ctrl+Z takes the
/// task back that was added last, where no menu does so. Main thread.
class AddFieldController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Rooms {
        OrvaneKit &kit;
        CXClock &clock;
        NewTaskService &service;
        AlertPort &alerts;
        const ShortcutConfiguration &shortcuts;
    };
    AddFieldController(KWNewTaskTextField &field, Rooms rooms);

    /// The list in which the field stands.
    void setList(const KWListIdentifier &list);
    /// What that list implies for a new task.
    NewTaskContext contextOfList() const;
    /// What tasks are given instead of what the list implies, until the list is another one or the field is
    /// left empty. The field says so with `placeholder` meanwhile.
    void setPreset(const NewTaskContext &preset, const QString &placeholder);
    /// Understands the text once more, as it stands.
    void refresh();
    /// The task that the text and the hand mean now.
    const NewTaskDraft &draft() const { return m_draft; }

Q_SIGNALS:
    /// The draft may be another one: the text was edited, a recognition was taken back, the day is another.
    void recognized();
    void added(const QString &taskID, const UndoToken &undo);
    /// Pasted lines have become tasks.
    void addedSeveral(const QStringList &taskIDs, const UndoToken &undo);
    void failed(const QString &sentence);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    NewTaskContext context() const;
    void endPreset();
    void leave();
    void followFocus(const QWidget *before, const QWidget *now);
    void recognize(const QString &text);
    void recognizeAgain();
    void take(TokenKind kind, const KWCandidateModel &row);
    void keepOnePriority();
    void showDateTip();
    void teachNext();
    void removeOtherPriorities();
    /// Whether there was anything to take back.
    bool takeBack(const QString &link, const QString &words = {});
    bool takeBackBeforeCaret();
    bool takeBackAdded();
    bool obey(const QKeyEvent &key);
    void submit(const QString &text);
    bool shouldCreateMultiTasks(const QString &pasted);
    void createMultiTasks(const QString &pasted);

    KWNewTaskTextField &m_field;
    OrvaneKit &m_kit;
    NewTaskService &m_service;
    NewTaskReferees m_referees;
    NewTaskDraft m_draft;
    AlertPort &m_alerts;
    HandChoices m_hand;
    TokenCompletion m_completion;
    DateTip m_dateTip;
    qsizetype m_lesson = 0;
    KWListIdentifier m_list;
    std::optional<NewTaskContext> m_preset;
    RecognitionOptions m_options; // until the field is empty again
    TakenBackMarks m_takenBack{m_options};
    QList<KWNotificationCenter::Observation> m_meaningChanged;
    std::optional<KWTaskPriority> m_parsedPriorityResult;
    struct Added {
        QString text;
        UndoToken undo;
    };
    std::optional<Added> m_lastAdded;
};
