#include "views/controls/CommittingTextEdit.h"

#include "model/records/OneLine.h"
#include "model/text/TextMerge.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextLayout>
#include <QUrl>

#include <algorithm>
#include <cmath>

using namespace std::chrono_literals;

namespace {

constexpr auto pauseBeforeCommit = 1000ms;

// Moves the caret within a paragraph as shown; false when it stood in its first or last line already.
bool canMove(QTextCursor cursor, QTextCursor::MoveOperation operation)
{
    const int before = cursor.position();
    return cursor.movePosition(operation) && cursor.position() != before;
}

} // namespace

CommittingTextEdit::CommittingTextEdit(CXClock &clock, Lines lines, QWidget *parent)
    : QTextEdit(parent), m_clock(clock), m_lines(lines)
{
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &CommittingTextEdit::fitHeight);
    connect(this, &QTextEdit::textChanged, this, &CommittingTextEdit::textTyped);
}

QString CommittingTextEdit::text() const
{
    // Not toPlainText(), which turns non-breaking spaces into plain ones.
    QString raw = document()->toRawText();
    raw.replace(QChar::ParagraphSeparator, u'\n');
    raw.replace(QChar::LineSeparator, u'\n');
    return raw;
}

void CommittingTextEdit::startWith(const QString &text)
{
    m_commitCall.cancel();
    m_echoes.clear();
    setPlainText(text);
    m_committedText = this->text();
    m_storedText = text;
    m_commitCall.cancel();
}

void CommittingTextEdit::setStoredText(const QString &text)
{
    if (text == m_storedText) return;
    const QString before = std::exchange(m_storedText, text);
    if (text == m_committedText || (hasFocus() && m_echoes.contains(text))) return;
    if (hasUncommittedText()) {
        m_committedText = text;
        replaceDifference(mergedText(before, this->text(), text, m_lines == Lines::One ? u' ' : u'\n'));
        return;
    }
    m_committedText = text;
    replaceDifference(text);
    m_committedText = this->text(); // the editor knows one kind of line break
    m_commitCall.cancel();
}

void CommittingTextEdit::replaceDifference(const QString &text)
{
    const QString before = this->text();
    const auto [oldEnd, newEnd] = std::mismatch(before.begin(), before.end(), text.begin(), text.end());
    const qsizetype start = oldEnd - before.begin();
    qsizetype tail = 0;
    while (tail < std::min(before.size(), text.size()) - start &&
           before.at(before.size() - 1 - tail) == text.at(text.size() - 1 - tail))
        ++tail;
    QTextCursor cursor{document()};
    cursor.setPosition(int(start));
    cursor.setPosition(int(before.size() - tail), QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(start, text.size() - tail - start));
    document()->clearUndoRedoStacks(); // it is not for the typist to take back
}

bool CommittingTextEdit::isEmptiedLine() const
{
    return m_lines == Lines::One && text().trimmed().isEmpty() && !m_storedText.isEmpty();
}

void CommittingTextEdit::textTyped()
{
    if (hasUncommittedText() && !isEmptiedLine())
        m_commitCall = m_clock.callAfter(pauseBeforeCommit, [this] { commit(); });
    else
        m_commitCall.cancel();
}

void CommittingTextEdit::commit()
{
    m_commitCall.cancel();
    if (!hasUncommittedText()) return;
    m_committedText = text();
    m_echoes.append(m_lines == Lines::One ? onOneLine(m_committedText) : m_committedText);
    Q_EMIT committed(m_committedText);
}

// Not by itself: what hindered it is likely to be there still.
void CommittingTextEdit::takeBackCommitted()
{
    if (!m_echoes.isEmpty()) m_echoes.removeLast();
    m_committedText = m_storedText;
}

void CommittingTextEdit::retype(const QString &text)
{
    setPlainText(text);
    textTyped();
}

void CommittingTextEdit::forgetCommittedText()
{
    m_committedText.clear();
    textTyped();
}

void CommittingTextEdit::setStruckOut(bool isStruckOut)
{
    QFont struck = font();
    struck.setStrikeOut(isStruckOut);
    setFont(struck);
}

void CommittingTextEdit::setTextColor(const QColor &color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
}

QSize CommittingTextEdit::sizeHint() const
{
    const int line = fontMetrics().height();
    return {200, std::max(line, int(std::ceil(document()->size().height())))};
}

void CommittingTextEdit::fitHeight()
{
    if (height() != sizeHint().height()) setFixedHeight(sizeHint().height());
}

void CommittingTextEdit::keyPressEvent(QKeyEvent *event)
{
    const QTextCursor caret = textCursor();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_lines == Lines::Many) break;
        commit();
        Q_EMIT entered();
        return;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        event->ignore();
        return;
    case Qt::Key_Backspace:
        if (caret.position() > 0 || caret.hasSelection()) break;
        Q_EMIT backspacedAtStart();
        return;
    case Qt::Key_Up:
        if (event->modifiers() || canMove(caret, QTextCursor::Up)) break;
        Q_EMIT leftUpwards();
        return;
    case Qt::Key_Down:
        if (event->modifiers() || canMove(caret, QTextCursor::Down)) break;
        Q_EMIT leftDownwards();
        return;
    default:
        break;
    }
    QTextEdit::keyPressEvent(event);
}

void CommittingTextEdit::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    // The menu of the editor itself takes the focus for a moment only.
    if (event->reason() == Qt::PopupFocusReason) return;
    commit();
    m_echoes.clear();
    if (isEmptiedLine()) startWith(QString{m_storedText}); // the record would not be without it
    Q_EMIT editingFinished();
}

void CommittingTextEdit::hideEvent(QHideEvent *event)
{
    commit();
    QTextEdit::hideEvent(event);
}

// A file is no text, even where the path comes along: who is below may take it.
bool CommittingTextEdit::canInsertFromMimeData(const QMimeData *source) const
{
    const QList<QUrl> urls = source->urls();
    return source->hasText() && std::ranges::none_of(urls, &QUrl::isLocalFile);
}

void CommittingTextEdit::insertFromMimeData(const QMimeData *source)
{
    const QString pasted = source->text();
    textCursor().insertText(m_lines == Lines::One ? lineBreaksAsSpaces(pasted) : pasted);
    ensureCursorVisible();
}

// The editor is as high as its text; what scrolls is the pane around it.
void CommittingTextEdit::wheelEvent(QWheelEvent *event) { event->ignore(); }
