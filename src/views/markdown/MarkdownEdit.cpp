#include "views/markdown/MarkdownEdit.h"

#include "views/markdown/MarkdownHighlighter.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

// The marks that a key puts around what is selected; empty for any other key.
QString markOf(const QKeyEvent &event)
{
    if (event.modifiers() != Qt::ControlModifier) return {};
    return event.key() == Qt::Key_B ? u"**"_s : event.key() == Qt::Key_I ? u"*"_s : QString{};
}

} // namespace

MarkdownEdit::MarkdownEdit(CXClock &clock, QWidget *parent)
    : CommittingTextEdit(clock, Lines::Many, parent), m_highlighter(new MarkdownHighlighter{document()})
{
}

void MarkdownEdit::dress() { m_highlighter->rehighlight(); }

// These keys are typing here, whatever command they have elsewhere.
bool MarkdownEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && !markOf(*static_cast<QKeyEvent *>(event)).isEmpty())
        event->accept();
    return CommittingTextEdit::event(event);
}

void MarkdownEdit::keyPressEvent(QKeyEvent *event)
{
    if (const QString mark = markOf(*event); !mark.isEmpty())
        toggleMark(mark);
    else
        CommittingTextEdit::keyPressEvent(event);
}

void MarkdownEdit::toggleMark(const QString &mark)
{
    QTextCursor caret = textCursor();
    const QString whole = text();
    const int width = int(mark.size());
    const int start = caret.selectionStart();
    const int end = caret.selectionEnd();
    const auto countBefore = [&whole, &mark](int place) {
        int count = 0;
        while (place > count && whole.at(place - count - 1) == mark.front())
            ++count;
        return count;
    };
    // Bold is two of the mark and italic one; three are both.
    const int outside = countBefore(start);
    const bool isMarked = QStringView{whole}.mid(end).startsWith(mark) && (outside == width || outside == 3);
    caret.beginEditBlock();
    caret.setPosition(end);
    isMarked ? caret.setPosition(end + width, QTextCursor::KeepAnchor) : caret.insertText(mark);
    if (isMarked) caret.removeSelectedText();
    caret.setPosition(start);
    isMarked ? caret.setPosition(start - width, QTextCursor::KeepAnchor) : caret.insertText(mark);
    if (isMarked) caret.removeSelectedText();
    caret.endEditBlock();
    const int moved = isMarked ? -width : width;
    caret.setPosition(start + moved);
    caret.setPosition(end + moved, QTextCursor::KeepAnchor);
    setTextCursor(caret);
}

QString MarkdownEdit::linkAt(const QPoint &position) const
{
    const int place = document()->documentLayout()->hitTest(position, Qt::ExactHit);
    const QTextBlock line = place < 0 ? QTextBlock{} : document()->findBlock(place);
    return line.isValid() ? MarkdownHighlighter::linkAt(line.text(), place - line.position()) : QString{};
}

void MarkdownEdit::mousePressEvent(QMouseEvent *event)
{
    m_pressedLink = event->modifiers() & Qt::ControlModifier ? linkAt(event->pos()) : QString{};
    CommittingTextEdit::mousePressEvent(event);
}

void MarkdownEdit::mouseReleaseEvent(QMouseEvent *event)
{
    CommittingTextEdit::mouseReleaseEvent(event);
    const QString pressed = std::exchange(m_pressedLink, {});
    if (!pressed.isEmpty() && linkAt(event->pos()) == pressed) Q_EMIT linkOpened(pressed);
}
