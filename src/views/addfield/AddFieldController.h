#pragma once

#include "capture/NewTaskContext.h"
#include "capture/RecognizedPiece.h"
#include "model/events/KWNotificationCenter.h"
#include "model/records/KWListIdentifier.h"

#include <QObject>

class KWNewTaskTextField;
class NewTaskService;

/// Joins an add field with recognition and saving: marks the pieces while one types, takes a recognition
/// back when its mark is clicked, and saves on Enter. The text leaves the field only once it is saved.
/// Main thread.
class AddFieldController : public QObject {
    Q_OBJECT

public:
    AddFieldController(KWNewTaskTextField &field, NewTaskService &service);

    /// The list in which the field stands.
    void setList(const KWListIdentifier &list);
    /// What that list implies for a new task.
    NewTaskContext contextOfList() const;
    /// What tasks are given instead of what the list implies, until the list is another one or the field is
    /// left empty. The field says so with `placeholder` meanwhile.
    void setPreset(const NewTaskContext &preset, const QString &placeholder);
    /// What a task typed now would be made with.
    NewTaskContext context() const;

Q_SIGNALS:
    void added(const QString &taskID);
    void failed(const QString &sentence);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void endPreset();
    void recognize(const QString &text);
    void undo(const RecognizedPiece &piece);
    void submit(const QString &text);

    KWNewTaskTextField &m_field;
    NewTaskService &m_service;
    KWListIdentifier m_list;
    std::optional<NewTaskContext> m_preset;
    RecognitionOptions m_options; // until the field is empty again
    KWNotificationCenter::Observation m_settingsChanged;
};
