#include "views/addfield/KWTagCandidateTextField.h"

#include "model/records/OneLine.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double wordSpacing = 3; // what a pill stands out by comes from the spaces between words
constexpr double pillOutset = 2.5;

QColor pieceSoftColor(const RecognizedPiece &piece)
{
    const Theme &theme = Theme::current();
    return piece.type == RecognizedPieceType::Priority
               ? theme.priority(KWTaskPriority(piece.value.toInt())).soft
               : theme.softAccent;
}

QColor pieceTextColor(const RecognizedPiece &piece)
{
    const Theme &theme = Theme::current();
    return piece.type == RecognizedPieceType::Priority
               ? theme.priority(KWTaskPriority(piece.value.toInt())).text
               : theme.accentText;
}

} // namespace

KWTagCandidateTextField::KWTagCandidateTextField(QWidget *parent) : QTextEdit(parent)
{
    setAcceptRichText(false);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    document()->setDocumentMargin(documentMargin);
    connect(document(), &QTextDocument::contentsChange, this, &KWTagCandidateTextField::moveMarks);
    connect(this, &QTextEdit::textChanged, this, &KWTagCandidateTextField::announceText);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this,
            &KWTagCandidateTextField::dress);
    dress();
}

void KWTagCandidateTextField::dress()
{
    QFont font = Fonts::font(Fonts::Role::Body);
    font.setWordSpacing(wordSpacing);
    setFont(font);
    showPieceColors();
}

QString KWTagCandidateTextField::text() const
{
    // Not toPlainText(), which turns non-breaking spaces into plain ones.
    return lineBreaksAsSpaces(document()->toRawText());
}

void KWTagCandidateTextField::setText(const QString &text)
{
    m_pieces.clear();
    setPlainText(lineBreaksAsSpaces(text));
    moveCursor(QTextCursor::End);
}

void KWTagCandidateTextField::replace(TextRange range, const QString &with)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.setPosition(int(range.location));
    cursor.setPosition(int(range.end()), QTextCursor::KeepAnchor);
    cursor.insertText(with);
    cursor.endEditBlock();
    setTextCursor(cursor);
}

void KWTagCandidateTextField::remove(TextRange range, const QString &expected)
{
    if (text().mid(range.location, range.length) != expected) return;
    QTextCursor cursor{document()};
    cursor.beginEditBlock();
    cursor.setPosition(int(range.location));
    cursor.setPosition(int(range.end()), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.endEditBlock();
}

void KWTagCandidateTextField::setPieces(QList<RecognizedPiece> pieces)
{
    const qsizetype length = text().size();
    pieces.removeIf([length](const RecognizedPiece &piece) {
        return piece.location < 0 || piece.length <= 0 || piece.location + piece.length > length;
    });
    if (pieces == m_pieces) return;
    m_pieces = std::move(pieces);
    showPieceColors();
}

QRect KWTagCandidateTextField::globalBoundsOf(const RecognizedPiece &piece) const
{
    const QRect bounds = pieceBounds(piece).toAlignedRect();
    return {viewport()->mapToGlobal(bounds.topLeft()), bounds.size()};
}

void KWTagCandidateTextField::moveMarks(int position, int removed, int added)
{
    const auto isTouched = [=](const RecognizedPiece &piece) {
        return piece.location < position + removed && piece.location + piece.length > position;
    };
    m_pieces.removeIf(isTouched);
    for (RecognizedPiece &piece : m_pieces)
        if (piece.location >= position + removed) piece.location += added - removed;
}

void KWTagCandidateTextField::announceText()
{
    QString now = text();
    if (now == m_announcedText) return;
    m_announcedText = now;
    showPieceColors();
    Q_EMIT textEdited(now);
}

void KWTagCandidateTextField::showPieceColors()
{
    QList<ExtraSelection> selections;
    for (const RecognizedPiece &piece : std::as_const(m_pieces)) {
        ExtraSelection selection;
        selection.cursor = QTextCursor{document()};
        selection.cursor.setPosition(int(piece.location));
        selection.cursor.setPosition(int(piece.location + piece.length), QTextCursor::KeepAnchor);
        selection.format.setForeground(pieceTextColor(piece));
        selections.append(selection);
    }
    setExtraSelections(selections);
    viewport()->update();
}

// Undo takes it back alone, without what was typed around it.
void KWTagCandidateTextField::insertAsOneStep(const QString &text)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.insertText(text);
    cursor.endEditBlock();
    setTextCursor(cursor);
}

void KWTagCandidateTextField::keyPressEvent(QKeyEvent *event)
{
    // Undo goes by words.
    if (event->key() == Qt::Key_Space && event->text() == u" "_s)
        insertAsOneStep(event->text());
    else
        QTextEdit::keyPressEvent(event);
}

QRectF KWTagCandidateTextField::pieceBounds(const RecognizedPiece &piece) const
{
    QTextCursor cursor{document()};
    cursor.setPosition(int(piece.location));
    const QRect start = cursorRect(cursor);
    cursor.setPosition(int(piece.location + piece.length));
    const QRect end = cursorRect(cursor);
    const int left = std::min(start.left(), end.left());
    const int right = std::max(start.left(), end.left());
    return QRectF(left, start.top(), right - left, start.height()).adjusted(-pillOutset, -1, pillOutset, 1);
}

std::optional<RecognizedPiece> KWTagCandidateTextField::pieceAt(const QPoint &position) const
{
    for (const RecognizedPiece &piece : m_pieces)
        if (pieceBounds(piece).contains(position)) return piece;
    return std::nullopt;
}

void KWTagCandidateTextField::mousePressEvent(QMouseEvent *event)
{
    m_pressPosition = event->position().toPoint();
    m_pressedPiece = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier
                         ? pieceAt(m_pressPosition)
                         : std::nullopt;
    QTextEdit::mousePressEvent(event);
}

void KWTagCandidateTextField::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if ((position - m_pressPosition).manhattanLength() >= QApplication::startDragDistance())
        m_pressedPiece.reset();
    QTextEdit::mouseMoveEvent(event);
    viewport()->setCursor(pieceAt(position) ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void KWTagCandidateTextField::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (const auto piece = std::exchange(m_pressedPiece, std::nullopt)) Q_EMIT pieceClicked(*piece);
}

bool KWTagCandidateTextField::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !explainPiece) return QTextEdit::viewportEvent(event);
    const auto &help = static_cast<const QHelpEvent &>(*event);
    if (const auto piece = pieceAt(help.pos()))
        QToolTip::showText(help.globalPos(), explainPiece(*piece), viewport(),
                           pieceBounds(*piece).toAlignedRect());
    else
        QToolTip::hideText();
    return true;
}

void KWTagCandidateTextField::paintEvent(QPaintEvent *event)
{
    QPainter painter{viewport()};
    for (const RecognizedPiece &piece : std::as_const(m_pieces)) {
        const QRectF bounds = pieceBounds(piece);
        if (bounds.intersects(event->rect()))
            Painting::roundedBox(painter, bounds, Metrics::pillRadius, pieceSoftColor(piece));
    }
    painter.end();
    QTextEdit::paintEvent(event);
}
