#include "views/addfield/TokenCompletion.h"

#include "views/addfield/KWCandidateViewController.h"
#include "views/addfield/KWNewTaskTextField.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

using Command = KWCandidatePopover::Command;

Command commandOf(const QKeyEvent &key)
{
    const bool isPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isControlled = key.modifiers() == Qt::ControlModifier;
    switch (key.key()) {
    case Qt::Key_Up:
        return isPlain ? Command::MoveUp : Command::Other;
    case Qt::Key_Down:
        return isPlain ? Command::MoveDown : Command::Other;
    case Qt::Key_Home:
        return isControlled ? Command::MoveToBeginningOfDocument : Command::Other;
    case Qt::Key_End:
        return isControlled ? Command::MoveToEndOfDocument : Command::Other;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return isPlain ? Command::InsertNewline : Command::Other;
    case Qt::Key_Escape:
        return isPlain ? Command::CancelOperation : Command::Other;
    default:
        return Command::Other;
    }
}

} // namespace

TokenCompletion::TokenCompletion(KWNewTaskTextField &field, NewTaskCandidates &candidates)
    : m_field(field)
    , m_popovers{std::make_unique<KWTagCandidatePopover>(candidates),
                 std::make_unique<KWPriorityCandidatePopover>(candidates),
                 std::make_unique<KWListCandidatePopover>(candidates),
                 std::make_unique<KWMentionCandidatePopover>(candidates),
                 std::make_unique<KWDateCandidatePopover>(candidates)}
{
    for (const auto &each : m_popovers)
        each->onCommit = [this](const KWCandidateModel &row) { commit(row); };
    m_field.installEventFilter(this);
    connect(&m_field, &QTextEdit::cursorPositionChanged, this, &TokenCompletion::followCaret);
}

TokenCompletion::~TokenCompletion() = default;

KWCandidatePopover *TokenCompletion::popoverOf(TokenKind kind) const
{
    return std::ranges::find(m_popovers, kind, [](const auto &each) { return each->kind(); })->get();
}

void TokenCompletion::update(const RecognitionOptions &options, const QString &projectID)
{
    m_token = tokenToComplete(options);
    m_text = m_field.text();
    if (!m_token) {
        m_leftAlone.reset();
        return dismiss();
    }
    if (m_leftAlone == m_token->range.location) return dismiss();
    m_leftAlone.reset();
    KWCandidatePopover *popover = popoverOf(m_token->kind);
    if (m_shown != popover) dismiss();
    m_shown = popover;
    popover->updateData({projectID, options.blockedProjects, options.blockedPriorities});
    popover->matchCandidatesWith(m_token->keyword);
    if (!m_candidateVC) m_candidateVC = new KWCandidateViewController{&m_field};
    m_field.window()->installEventFilter(this); // the rows do not move with it
    popover->showIn(*m_candidateVC, m_field, m_token->range, positionBelow(m_token->range.location));
}

std::optional<TypedToken> TokenCompletion::tokenToComplete(const RecognitionOptions &options) const
{
    const QTextCursor cursor = m_field.textCursor();
    if (!m_field.hasFocus() || cursor.hasSelection()) return std::nullopt;
    TokenKinds kinds{int(options.parseOption)};
    kinds.setFlag(TokenKind::Assignee, kinds.testFlag(TokenKind::Assignee) && !options.donotParseAssignee);
    kinds.setFlag(TokenKind::Date, kinds.testFlag(TokenKind::Date) && !options.donotParseDate);
    const auto token = TypedToken::find(m_field.text(), cursor.position(), kinds);
    const auto endsBeforeCaret = [&](const RecognizedPiece &piece) {
        return piece.location == token->range.location && piece.location + piece.length < cursor.position();
    };
    if (token && std::ranges::any_of(m_field.pieces(), endsBeforeCaret)) return std::nullopt;
    return token;
}

QPoint TokenCompletion::positionBelow(qsizetype location) const
{
    QTextCursor cursor{m_field.document()};
    cursor.setPosition(int(location));
    const QRect mark = m_field.cursorRect(cursor);
    return m_field.viewport()->mapToGlobal(QPoint{mark.left(), m_field.viewport()->height() + 4});
}

void TokenCompletion::commit(const KWCandidateModel &row)
{
    const TokenKind kind = m_token->kind;
    const TextRange replaced = m_token->rangeReplacedBy(row.title);
    Q_EMIT committed(kind, row);
    m_field.replace(replaced, popoverOf(kind)->prefixSymbal() + row.title + u' ');
}

void TokenCompletion::dismiss()
{
    if (m_shown) m_shown->dismissWithAnimated();
    m_shown = nullptr;
}

// Whether Return has nothing to complete.
bool TokenCompletion::isTypedWhole() const
{
    const int selected = m_candidateVC->selectedIndex();
    if (selected < 0) return true;
    QString title = m_shown->dataSourceArray().at(selected).title;
    title.removeIf([](QChar unit) { return unit.isSpace(); });
    return title.compare(m_token->keyword, Qt::CaseInsensitive) == 0;
}

bool TokenCompletion::obey(Command command)
{
    if (!isShown()) return false;
    const bool goesOn = command == Command::InsertNewline && isTypedWhole();
    if (command == Command::CancelOperation) m_leftAlone = m_token->range.location;
    return m_shown->doCommandBy(command) && !goesOn;
}

void TokenCompletion::followCaret()
{
    if (!m_shown || m_field.text() != m_text) return; // what was typed is told in a moment
    const qsizetype caret = m_field.textCursor().position();
    if (caret <= m_token->range.location || caret > m_token->range.end() + m_token->rest.size()) dismiss();
}

bool TokenCompletion::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOfField = watched == &m_field;
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isOfField && obey(commandOf(*static_cast<QKeyEvent *>(event)))) return true;
        break;
    case QEvent::FocusOut:
        if (isOfField) dismiss();
        break;
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
        dismiss();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
