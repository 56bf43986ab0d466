#include "views/addfield/KWNewTaskTextField.h"

#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QTextBlock>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int documentMargin = 4; // room for a pill at either end of the text
constexpr int padding = 12;       // from the outline to the text
constexpr double wordSpacing = 3; // what a pill stands out by comes from the spaces between words
constexpr double pillOutset = 2.5;

bool hasLineBreak(const QString &text) { return lineBreaksAsSpaces(text) != text; }

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

int hintWidth()
{
    return Fonts::width(Fonts::Role::Secondary, KWLocalizedString("add")) + Metrics::scaled(Metrics::icon) +
           Metrics::grid;
}

} // namespace

KWNewTaskTextField::KWNewTaskTextField(QWidget *parent) : QTextEdit(parent)
{
    setObjectName(u"addField"_s);
    setAccessibleName(KWLocalizedString("Add a task"));
    setAcceptRichText(false);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    document()->setDocumentMargin(documentMargin);
    connect(document(), &QTextDocument::contentsChange, this, &KWNewTaskTextField::moveMarks);
    connect(this, &QTextEdit::textChanged, this, &KWNewTaskTextField::announceText);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &KWNewTaskTextField::dress);
    dress();
}

void KWNewTaskTextField::dress()
{
    QFont font = Fonts::font(Fonts::Role::Body);
    font.setWordSpacing(wordSpacing);
    setFont(font);
    updateGeometry();
    placeViewport();
    showPieceColors();
}

QString KWNewTaskTextField::text() const
{
    // Not toPlainText(), which turns non-breaking spaces into plain ones.
    return lineBreaksAsSpaces(document()->toRawText());
}

void KWNewTaskTextField::setText(const QString &text)
{
    m_pieces.clear();
    setPlainText(lineBreaksAsSpaces(text));
    moveCursor(QTextCursor::End);
}

void KWNewTaskTextField::setPieces(QList<RecognizedPiece> pieces)
{
    const qsizetype length = text().size();
    pieces.removeIf([length](const RecognizedPiece &piece) {
        return piece.location < 0 || piece.length <= 0 || piece.location + piece.length > length;
    });
    if (pieces == m_pieces) return;
    m_pieces = std::move(pieces);
    showPieceColors();
}

void KWNewTaskTextField::setPlaceholder(const QString &placeholder)
{
    m_placeholder = placeholder;
    showPlaceholder();
}

void KWNewTaskTextField::setPassingPlaceholder(const QString &placeholder)
{
    m_passingPlaceholder = placeholder;
    showPlaceholder();
}

void KWNewTaskTextField::showPlaceholder()
{
    setAccessibleDescription(placeholder());
    viewport()->update();
}

QSize KWNewTaskTextField::minimumSizeHint() const
{
    return {Metrics::scaled(160), Metrics::scaled(Metrics::addField) + 2 * ring};
}

QSize KWNewTaskTextField::sizeHint() const { return minimumSizeHint() + QSize{240, 0}; }

void KWNewTaskTextField::moveMarks(int position, int removed, int added)
{
    const auto isTouched = [=](const RecognizedPiece &piece) {
        return piece.location < position + removed && piece.location + piece.length > position;
    };
    m_pieces.removeIf(isTouched);
    for (RecognizedPiece &piece : m_pieces)
        if (piece.location >= position + removed) piece.location += added - removed;
}

void KWNewTaskTextField::announceText()
{
    QString now = text();
    if (now == m_announcedText) return;
    m_announcedText = now;
    showPieceColors();
    Q_EMIT textEdited(now);
}

void KWNewTaskTextField::showPieceColors()
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

bool KWNewTaskTextField::canInsertFromMimeData(const QMimeData *source) const { return source->hasText(); }

void KWNewTaskTextField::insertFromMimeData(const QMimeData *source)
{
    const QString pasted = source->text();
    if (hasLineBreak(pasted))
        appendLines(pasted);
    else
        textCursor().insertText(pasted);
    ensureCursorVisible();
}

void KWNewTaskTextField::appendLines(const QString &lines)
{
    QTextCursor cursor{document()};
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(lineBreaksAsSpaces(lines));
    setTextCursor(cursor);
}

void KWNewTaskTextField::inputMethodEvent(QInputMethodEvent *event)
{
    if (!hasLineBreak(event->commitString())) {
        QTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent withoutText;
    QTextEdit::inputMethodEvent(&withoutText);
    appendLines(event->commitString());
}

void KWNewTaskTextField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT submitted(text());
        return;
    case Qt::Key_Escape:
        Q_EMIT left();
        return;
    case Qt::Key_Down:
        Q_EMIT steppedDown();
        return;
    case Qt::Key_Up:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        event->ignore();
        return;
    default:
        QTextEdit::keyPressEvent(event);
    }
}

QRectF KWNewTaskTextField::pieceBounds(const RecognizedPiece &piece) const
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

std::optional<RecognizedPiece> KWNewTaskTextField::pieceAt(const QPoint &position) const
{
    for (const RecognizedPiece &piece : m_pieces)
        if (pieceBounds(piece).contains(position)) return piece;
    return std::nullopt;
}

void KWNewTaskTextField::mousePressEvent(QMouseEvent *event)
{
    m_pressPosition = event->position().toPoint();
    m_pressedPiece = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier
                         ? pieceAt(m_pressPosition)
                         : std::nullopt;
    QTextEdit::mousePressEvent(event);
}

void KWNewTaskTextField::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if ((position - m_pressPosition).manhattanLength() >= QApplication::startDragDistance())
        m_pressedPiece.reset();
    QTextEdit::mouseMoveEvent(event);
    viewport()->setCursor(pieceAt(position) ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void KWNewTaskTextField::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (const auto piece = std::exchange(m_pressedPiece, std::nullopt)) Q_EMIT pieceClicked(*piece);
}

// One line has nothing to scroll; the list below may have.
void KWNewTaskTextField::wheelEvent(QWheelEvent *event) { event->ignore(); }

bool KWNewTaskTextField::event(QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        paintFrame();
        return true;
    }
    const bool handled = QTextEdit::event(event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    return handled;
}

void KWNewTaskTextField::paintFrame()
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (hasFocus()) Painting::roundedBox(painter, rect(), Metrics::fieldRadius + ring, theme.softAccent);
    const QRect box = rect().adjusted(ring, ring, -ring, -ring);
    Painting::roundedBox(painter, box, Metrics::fieldRadius, theme.window,
                         hasFocus() ? theme.accent : theme.control);
    if (document()->isEmpty()) return;

    const int icon = Metrics::scaled(Metrics::icon) - 2;
    const int start = box.right() + 1 - padding - hintWidth();
    const auto visual = [&](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    Icons::paint(painter, visual({start, box.top(), icon, box.height()}), Icon::Enter, icon, theme.faintText);
    painter.setFont(Fonts::font(Fonts::Role::Secondary));
    painter.setPen(theme.faintText);
    painter.drawText(visual({start + icon + Metrics::grid, box.top(), hintWidth(), box.height()}),
                     int(Qt::AlignLeft | Qt::AlignVCenter), KWLocalizedString("add"));
}

void KWNewTaskTextField::paintEvent(QPaintEvent *event)
{
    QPainter painter{viewport()};
    for (const RecognizedPiece &piece : std::as_const(m_pieces)) {
        const QRectF bounds = pieceBounds(piece);
        if (bounds.intersects(event->rect()))
            Painting::roundedBox(painter, bounds, Metrics::pillRadius, pieceSoftColor(piece));
    }
    if (document()->isEmpty() && document()->firstBlock().layout()->preeditAreaText().isEmpty())
        paintPlaceholder(painter);
    painter.end();
    QTextEdit::paintEvent(event);
}

// Not the one of QTextEdit, which would break into lines and space its words as the text does.
void KWNewTaskTextField::paintPlaceholder(QPainter &painter) const
{
    QFont plain = font();
    plain.setWordSpacing(0);
    painter.setFont(plain);
    painter.setPen(Theme::current().faintText);
    const QRect bounds = viewport()->rect().adjusted(documentMargin, 0, -documentMargin, 0);
    const QString shown = painter.fontMetrics().elidedText(placeholder(), Qt::ElideRight, bounds.width());
    painter.drawText(bounds, int(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine), shown);
}

void KWNewTaskTextField::resizeEvent(QResizeEvent *event)
{
    QTextEdit::resizeEvent(event);
    placeViewport();
}

// The line stands in the middle of the field, the hint behind it.
void KWNewTaskTextField::placeViewport()
{
    const int line = fontMetrics().height() + 2 * documentMargin;
    const int above = std::max(0, (height() - line) / 2);
    const int before = ring + padding - documentMargin;
    const int behind = before + hintWidth() + padding;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QMargins margins{isMirrored ? behind : before, above, isMirrored ? before : behind,
                           std::max(0, height() - line - above)};
    if (margins != viewportMargins()) setViewportMargins(margins);
}
