#include "views/addfield/TakenBackMarks.h"

#include <utility>

bool TakenBackMarks::takeBack(const RecognizedPiece &piece, By by, const QString &text)
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
        return false;
    }
    m_last = {piece, by, text};
    return true;
}

void TakenBackMarks::allowLast()
{
    const RecognizedPiece piece = std::exchange(m_last, std::nullopt)->piece;
    if (piece.type == RecognizedPieceType::Date) m_options.donotParseDate = false;
    if (piece.type == RecognizedPieceType::Assignee) m_options.donotParseAssignee = false;
    if (piece.type == RecognizedPieceType::List) m_options.blockedProjects.remove(piece.value);
    if (piece.type == RecognizedPieceType::Priority)
        m_options.blockedPriorities.remove(KWTaskPriority(piece.value.toInt()));
}

bool TakenBackMarks::restoreLast(const QString &text)
{
    if (!m_last || m_last->text != text) return false;
    allowLast();
    return true;
}

void TakenBackMarks::follow(const QString &text)
{
    if (text.isEmpty()) {
        m_options = {};
        m_last.reset();
    }
    // Backspace was a correction after all where the words it was pressed behind are changed next.
    if (m_last && m_last->by == By::Backspace && !text.contains(m_last->piece.text)) allowLast();
}
