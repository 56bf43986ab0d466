#include "views/addfield/AddFieldController.h"

#include "app/ports/AlertPort.h"
#include "capture/NewTaskService.h"
#include "capture/RecognitionLink.h"
#include "model/OrvaneKit.h"
#include "views/addfield/FieldHelp.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/MarkMeaning.h"
#include "views/addfield/TaskPlace.h"
#include "views/addfield/TitleLessons.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTextDocument>

#include <algorithm>

namespace {

KWTaskPriority valueOf(const RecognizedPiece &piece) { return KWTaskPriority(piece.value.toInt()); }

} // namespace

AddFieldController::AddFieldController(KWNewTaskTextField &field, Rooms rooms)
    : m_field(field)
    , m_kit(rooms.kit)
    , m_service(rooms.service)
    , m_referees(rooms.kit)
    , m_alerts(rooms.alerts)
    , m_hand({field, rooms.kit, rooms.service.candidates(), rooms.shortcuts, m_referees})
    , m_completion(field, rooms.service.candidates())
    , m_dateTip(field, rooms.clock, rooms.kit.defaults())
{
    teachNext();
    m_field.installEventFilter(this);
    m_meaningChanged = m_service.observeMeaning([this] { refresh(); });
    connect(&m_field, &KWNewTaskTextField::textEdited, this, &AddFieldController::recognize);
    connect(&m_field, &KWNewTaskTextField::linkClicked, this,
            [this](const QString &link) { takeBack(link); });
    m_field.explainPiece = [this](const RecognizedPiece &piece) { return meaningOf(piece, m_draft, m_kit); };
    connect(&m_field, &KWNewTaskTextField::submitted, this, &AddFieldController::submit);
    connect(&m_hand, &HandChoices::changed, this, &AddFieldController::refresh);
    connect(qApp, &QApplication::focusChanged, this, &AddFieldController::followFocus);
    connect(&m_completion, &TokenCompletion::committed, this, &AddFieldController::take);
    m_field.shouldCreateMultiTasks = [this](const QString &pasted) { return shouldCreateMultiTasks(pasted); };
    connect(&m_field, &KWNewTaskTextField::helpRequested, this, [this] { FieldHelp::showBelow(m_field); });
    refresh();
}

void AddFieldController::setList(const KWListIdentifier &list)
{
    if (list == m_list) return; // told again when the sidebar has changed
    m_list = list;
    endPreset();
    refresh();
}

NewTaskContext AddFieldController::contextOfList() const { return m_service.contextOf(m_list); }

void AddFieldController::setPreset(const NewTaskContext &preset, const QString &placeholder)
{
    m_preset = preset;
    m_field.setPassingPlaceholder(placeholder);
    refresh();
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

void AddFieldController::followFocus(const QWidget *before, const QWidget *now)
{
    const auto isInside = [this](const QWidget *each) {
        return each == &m_field || m_field.isAncestorOf(each);
    };
    if (now && now->window() == m_field.window() && isInside(before) && !isInside(now)) leave();
}

// Left without a text, the field begins anew.
void AddFieldController::leave()
{
    if (!m_field.text().isEmpty()) return;
    m_referees.restoreToDefault();
    endPreset();
    refresh();
}

bool AddFieldController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && obey(*static_cast<QKeyEvent *>(event))) return true;
    if (event->type() == QEvent::Hide && !event->spontaneous()) leave();
    return QObject::eventFilter(watched, event);
}

bool AddFieldController::obey(const QKeyEvent &key)
{
    const bool isBackspace = key.key() == Qt::Key_Backspace && key.modifiers() == Qt::NoModifier;
    if (isBackspace) return takeBackBeforeCaret();
    if (!key.matches(QKeySequence::Undo)) return false;
    if (!m_takenBack.restoreLast(m_field.text())) return takeBackAdded();
    recognizeAgain();
    return true;
}

// Its text stands in the field again. What was typed and deleted since comes back first.
bool AddFieldController::takeBackAdded()
{
    if (!m_lastAdded || !m_field.text().isEmpty() || m_field.document()->isUndoAvailable()) return false;
    const Added added = *std::exchange(m_lastAdded, std::nullopt);
    if (const Result<void> undone = added.undo.undo(m_kit.manager()); !undone)
        Q_EMIT failed(undone.error().sentence);
    else
        m_field.setText(added.text);
    return true;
}

void AddFieldController::recognize(const QString &text)
{
    m_takenBack.follow(text);
    refresh();
    keepOnePriority();
    m_completion.update(m_options, m_draft.task.projectID);
    showDateTip();
}

// The text is the same: nothing is being typed that could be completed.
void AddFieldController::recognizeAgain()
{
    refresh();
    keepOnePriority();
    m_completion.dismiss();
    showDateTip();
}

void AddFieldController::refresh()
{
    m_draft = m_service.compose(m_field.text(), context(), m_referees);
    m_field.setPieces(m_draft.recognition.pieces);
    m_field.setUnderstood(m_field.text().isEmpty() ? QString{} : placeOf(m_draft, m_kit));
    m_hand.show(m_draft);
    Q_EMIT recognized();
}

// Several lists and people may have one name.
void AddFieldController::take(TokenKind kind, const KWCandidateModel &row)
{
    if (kind == TokenKind::List) m_options.chosenProject = row.object;
    if (kind == TokenKind::Assignee) m_options.chosenTeamworker = row.object;
}

void AddFieldController::showDateTip()
{
    const QList<RecognizedPiece> &pieces = m_field.pieces();
    const auto date = std::ranges::find(pieces, RecognizedPieceType::Date, &RecognizedPiece::type);
    if (date == pieces.end() || m_completion.isShown()) return m_dateTip.dismissDateParsingTips();
    if (m_dateTip.isDue() && m_field.hasFocus()) m_dateTip.show(m_field.globalBoundsOf(*date));
}

// One thing at a time, the next one when a task was added.
void AddFieldController::teachNext()
{
    QList<TitleLesson> hints = titleLessons();
    hints.removeIf([](const TitleLesson &each) { return !each.isHint; });
    m_field.setLesson(hints.at(m_lesson++ % hints.size()).example);
}

// A title has one priority. Where another one is typed, that is meant, and the token that stood before goes:
// not now, in the middle of the change that brought the new one.
void AddFieldController::keepOnePriority()
{
    QList<RecognizedPiece> priorities = m_field.pieces();
    priorities.removeIf([](const auto &piece) { return piece.type != RecognizedPieceType::Priority; });
    const auto isOther = [this](const auto &piece) { return valueOf(piece) != m_parsedPriorityResult; };
    const auto newest = std::ranges::find_if(priorities.rbegin(), priorities.rend(), isOther);
    if (priorities.isEmpty()) return m_parsedPriorityResult.reset();
    if (newest == priorities.rend()) return;
    m_parsedPriorityResult = valueOf(*newest);
    if (std::ranges::any_of(priorities, isOther))
        QMetaObject::invokeMethod(this, &AddFieldController::removeOtherPriorities, Qt::QueuedConnection);
}

// With the space that ended each.
void AddFieldController::removeOtherPriorities()
{
    QList<TextRange> others;
    const qsizetype length = m_field.text().size();
    for (const RecognizedPiece &each : m_field.pieces())
        if (each.type == RecognizedPieceType::Priority && valueOf(each) != m_parsedPriorityResult)
            others.append(TextRange{each.location, each.length + 1}.within(length));
    if (!others.isEmpty()) m_field.remove(others);
}

bool AddFieldController::takeBack(const QString &link, const QString &words)
{
    if (!m_takenBack.takeBack(link, m_field.text(), words)) return false;
    recognizeAgain();
    return true;
}

bool AddFieldController::takeBackBeforeCaret()
{
    const QTextCursor cursor = m_field.textCursor();
    if (cursor.hasSelection()) return false;
    const auto before = std::ranges::find_if(m_field.pieces(), [&cursor](const RecognizedPiece &piece) {
        return piece.location + piece.length == cursor.position();
    });
    if (before == m_field.pieces().end()) return false;
    return takeBack(recognitionLink(*before), QString{before->text});
}

void AddFieldController::submit(const QString &text)
{
    const auto made = m_service.save(m_service.compose(text, context(), m_referees));
    if (!made) return Q_EMIT failed(made.error().sentence);
    m_lastAdded = {text, made->undo};
    m_referees.restoreToPreset();
    m_field.setPresetContent({});
    teachNext();
    Q_EMIT added(made->tasks.first().sid, made->undo);
}

bool AddFieldController::shouldCreateMultiTasks(const QString &pasted)
{
    if (!m_service.shouldCreateMutilTask(pasted)) return false;
    m_alerts.show({KWLocalizedString("Batch Add Tasks"),
                   KWLocalizedString("Need to add multiple tasks at the same time?"),
                   {KWLocalizedString("Add"), KWLocalizedString("Cancel")}},
                  [field = QPointer{&m_field}, self = QPointer{this}, pasted](int button) {
                      if (!field || !self) return;
                      button == 0 ? self->createMultiTasks(pasted) : field->appendLines(pasted);
                  });
    return true;
}

// What was typed before becomes a task too, and stays.
void AddFieldController::createMultiTasks(const QString &pasted)
{
    const bool holdsOwnText = m_field.text() != m_field.presetContent();
    const auto made = m_service.createMutilTask(holdsOwnText ? pasted + u'\n' + m_field.text() : pasted,
                                                context(), m_referees);
    if (made && m_field.text().isEmpty()) m_referees.restoreToPreset(); // it went with them
    refresh();
    if (!made) return Q_EMIT failed(made.error().sentence);
    m_lastAdded.reset();
    QStringList ids;
    for (const KWTaskModel &each : made->tasks)
        ids.append(each.sid);
    Q_EMIT addedSeveral(ids, made->undo);
}
