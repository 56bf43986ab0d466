#include "views/addfield/KWTagCandidateTextField.h"

#include "capture/RecognitionLink.h"
#include "model/records/OneLine.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double wordSpacing = 3; // what a pill stands out by comes from the spaces between words
constexpr double pillOutset = 2.5;
constexpr qsizetype fewPieces = 64; // all are shown, wherever they stand

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
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (m_pieces.size() > fewPieces) showPieceColors();
    });
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

void KWTagCandidateTextField::remove(const QList<TextRange> &ranges)
{
    QTextCursor cursor{document()};
    cursor.joinPreviousEditBlock();
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
        cursor.setPosition(int(range->location));
        cursor.setPosition(int(range->end()), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
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
    for (const RecognizedPiece &piece : piecesInView()) {
        ExtraSelection selection;
        selection.cursor = QTextCursor{document()};
        selection.cursor.setPosition(int(piece.location));
        selection.cursor.setPosition(int(piece.location + piece.length), QTextCursor::KeepAnchor);
        selection.format.setForeground(pieceTextColor(piece));
        selection.format.setAnchorHref(recognitionLink(piece));
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

std::span<const RecognizedPiece> KWTagCandidateTextField::piecesInView() const
{
    if (m_pieces.size() <= fewPieces) return m_pieces;
    // As far again to either side, for text of both directions.
    const QRect view = viewport()->rect();
    const auto positionAt = [&](int x) { return cursorForPosition({x, view.center().y()}).position(); };
    const auto [first, last] = std::minmax({positionAt(view.left()), positionAt(view.right())});
    const auto begin =
        std::ranges::lower_bound(m_pieces, first - view.width(), {}, &RecognizedPiece::location);
    const auto end = std::ranges::upper_bound(m_pieces, last + view.width(), {}, &RecognizedPiece::location);
    return {begin, end};
}

QRectF KWTagCandidateTextField::pieceBounds(const RecognizedPiece &piece) const
{
    return boundsBetween(int(piece.location), int(piece.location + piece.length));
}

QRectF KWTagCandidateTextField::boundsBetween(int begin, int end) const
{
    QTextCursor cursor{document()};
    cursor.setPosition(begin);
    const QRect first = cursorRect(cursor);
    cursor.setPosition(end);
    const QRect last = cursorRect(cursor);
    const int left = std::min(first.left(), last.left());
    const int right = std::max(first.left(), last.left());
    return QRectF(left, first.top(), right - left, first.height()).adjusted(-pillOutset, -1, pillOutset, 1);
}

std::optional<RecognizedPiece> KWTagCandidateTextField::pieceAt(const QPoint &position) const
{
    for (const RecognizedPiece &piece : piecesInView())
        if (pieceBounds(piece).contains(position)) return piece;
    return std::nullopt;
}

QString KWTagCandidateTextField::linkAt(const QPoint &position) const
{
    for (const ExtraSelection &mark : extraSelections())
        if (boundsBetween(mark.cursor.selectionStart(), mark.cursor.selectionEnd()).contains(position))
            return mark.format.anchorHref();
    return {};
}

void KWTagCandidateTextField::mousePressEvent(QMouseEvent *event)
{
    m_pressPosition = event->position().toPoint();
    m_pressedLink = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier
                        ? linkAt(m_pressPosition)
                        : QString{};
    QTextEdit::mousePressEvent(event);
}

void KWTagCandidateTextField::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if ((position - m_pressPosition).manhattanLength() >= QApplication::startDragDistance())
        m_pressedLink.clear();
    QTextEdit::mouseMoveEvent(event);
    viewport()->setCursor(linkAt(position).isEmpty() ? Qt::IBeamCursor : Qt::PointingHandCursor);
}

void KWTagCandidateTextField::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (const QString link = std::exchange(m_pressedLink, {}); !link.isEmpty()) Q_EMIT linkClicked(link);
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
    for (const RecognizedPiece &piece : piecesInView()) {
        const QRectF bounds = pieceBounds(piece);
        if (bounds.intersects(event->rect()))
            Painting::roundedBox(painter, bounds, Metrics::pillRadius, pieceSoftColor(piece));
    }
    painter.end();
    QTextEdit::paintEvent(event);
}
