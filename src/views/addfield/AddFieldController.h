#pragma once

#include "capture/NewTaskContext.h"
#include "capture/RecognizedPiece.h"
#include "model/records/KWListIdentifier.h"

#include <QObject>

class CXClock;
class KWNewTaskTextField;
class NewTaskService;

/// Joins an add field with recognition and saving: marks the pieces while one types, takes a recognition
/// back when its mark is clicked, and saves on Enter. The text leaves the field only once it is saved.
/// Main thread.
class AddFieldController : public QObject {
    Q_OBJECT

public:
    AddFieldController(KWNewTaskTextField &field, NewTaskService &service, CXClock &clock);

    /// The list in which the field stands.
    void setList(const KWListIdentifier &list) { m_list = list; }

Q_SIGNALS:
    void added(const QString &taskID);
    void failed(const QString &sentence);

private:
    void recognize(const QString &text);
    void undo(const RecognizedPiece &piece);
    void submit(const QString &text);

    KWNewTaskTextField &m_field;
    NewTaskService &m_service;
    CXClock &m_clock;
    KWListIdentifier m_list;
    RecognitionOptions m_options; // until the field is empty again
};
