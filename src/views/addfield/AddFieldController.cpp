#include "views/addfield/AddFieldController.h"

#include "capture/NewTaskService.h"
#include "views/addfield/KWNewTaskTextField.h"

#include <QFocusEvent>

AddFieldController::AddFieldController(KWNewTaskTextField &field, NewTaskService &service)
    : m_field(field), m_service(service)
{
    m_field.installEventFilter(this);
    m_settingsChanged = m_service.observeSettings([this] { recognize(m_field.text()); });
    connect(&m_field, &KWNewTaskTextField::textEdited, this, &AddFieldController::recognize);
    connect(&m_field, &KWNewTaskTextField::pieceClicked, this, &AddFieldController::undo);
    connect(&m_field, &KWNewTaskTextField::submitted, this, &AddFieldController::submit);
}

void AddFieldController::setList(const KWListIdentifier &list)
{
    if (list == m_list) return; // told again when the sidebar has changed
    endPreset();
    m_list = list;
}

NewTaskContext AddFieldController::contextOfList() const { return m_service.contextOf(m_list); }

void AddFieldController::setPreset(const NewTaskContext &preset, const QString &placeholder)
{
    endPreset();
    m_preset = preset;
    m_field.setPassingPlaceholder(placeholder);
}

void AddFieldController::endPreset()
{
    if (!m_preset) return;
    m_preset.reset();
    m_field.setPassingPlaceholder({});
}

NewTaskContext AddFieldController::context() const
{
    NewTaskContext context = m_preset ? *m_preset : contextOfList();
    context.recognition = m_options;
    return context;
}

bool AddFieldController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut && m_field.text().isEmpty()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) endPreset();
    }
    return QObject::eventFilter(watched, event);
}

void AddFieldController::recognize(const QString &text)
{
    if (text.isEmpty()) m_options = {};
    m_field.setPieces(text.isEmpty() ? QList<RecognizedPiece>{}
                                     : m_service.recognize(text, context()).pieces);
}

void AddFieldController::undo(const RecognizedPiece &piece)
{
    switch (piece.type) {
    case RecognizedPieceType::Date:
        m_options.donotParseDate = true;
        break;
    case RecognizedPieceType::Assignee:
        m_options.donotParseAssignee = true;
        break;
    case RecognizedPieceType::List:
        m_options.blockedProjects.insert(piece.value);
        break;
    case RecognizedPieceType::Priority:
        m_options.blockedPriorities.insert(KWTaskPriority(piece.value.toInt()));
        break;
    case RecognizedPieceType::Tag:
        return;
    }
    recognize(m_field.text());
}

void AddFieldController::submit(const QString &text)
{
    const Result<KWTaskModel> task = m_service.add(text, context());
    if (!task) {
        Q_EMIT failed(task.error().sentence);
        return;
    }
    m_field.setText({});
    Q_EMIT added(task->sid);
}
