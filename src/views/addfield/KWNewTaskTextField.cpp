#include "views/addfield/KWNewTaskTextField.h"

#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"
#include "views/addfield/FieldPickers.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 12; // from the outline to the text
constexpr int shortestText = 160;
constexpr int narrowField = 320; // has no room for the hint

bool hasLineBreak(const QString &text) { return lineBreaksAsSpaces(text) != text; }

int hintWidth()
{
    return Fonts::width(Fonts::Role::Secondary, KWLocalizedString("add")) + Metrics::scaled(Metrics::icon) +
           Metrics::grid;
}

} // namespace

KWNewTaskTextField::KWNewTaskTextField(QWidget *parent)
    : KWTagCandidateTextField(parent), m_pickers(new FieldPickers{this})
{
    setObjectName(u"addField"_s);
    setAccessibleName(KWLocalizedString("Add a task"));
    setFrameShape(NoFrame);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    connect(this, &KWTagCandidateTextField::textEdited, this, &KWNewTaskTextField::arrange);
    connect(m_pickers, &FieldPickers::widthChanged, this, &KWNewTaskTextField::arrange);
    connect(qApp, &QApplication::focusChanged, this, &KWNewTaskTextField::arrange);
    dress();
}

// The focus leaves when it is no field any more.
KWNewTaskTextField::~KWNewTaskTextField() { disconnect(qApp, nullptr, this, nullptr); }

void KWNewTaskTextField::dress()
{
    KWTagCandidateTextField::dress();
    updateGeometry();
    arrange();
}

void KWNewTaskTextField::setPresetContent(const QString &content)
{
    m_presetContent = lineBreaksAsSpaces(content);
    setText(m_presetContent);
}

void KWNewTaskTextField::setPlaceholder(const QString &placeholder)
{
    m_placeholder = placeholder;
    describe();
}

void KWNewTaskTextField::setPassingPlaceholder(const QString &placeholder)
{
    m_passingPlaceholder = placeholder;
    describe();
}

void KWNewTaskTextField::setDetailedPlaceholder(bool isDetailed)
{
    m_isDetailedPlaceholder = isDetailed;
    viewport()->update();
}

void KWNewTaskTextField::setLesson(const QString &example)
{
    m_lesson = example;
    viewport()->update();
}

void KWNewTaskTextField::setUnderstood(const QString &words)
{
    m_understood = words;
    describe();
}

void KWNewTaskTextField::describe()
{
    setAccessibleDescription(m_understood.isEmpty() ? placeholder() : m_understood);
    viewport()->update();
}

QSize KWNewTaskTextField::minimumSizeHint() const
{
    return {Metrics::scaled(160), Metrics::scaled(Metrics::addField) + 2 * ring};
}

QSize KWNewTaskTextField::sizeHint() const { return minimumSizeHint() + QSize{240, 0}; }

bool KWNewTaskTextField::canInsertFromMimeData(const QMimeData *source) const { return source->hasText(); }

void KWNewTaskTextField::insertFromMimeData(const QMimeData *source)
{
    const QString pasted = source->text();
    if (hasLineBreak(pasted)) {
        const bool isOfClipboard = pasted == QApplication::clipboard()->text();
        if (isOfClipboard && shouldCreateMultiTasks && shouldCreateMultiTasks(pasted)) return;
        appendLines(pasted);
    } else {
        insertAsOneStep(pasted);
    }
    ensureCursorVisible();
}

void KWNewTaskTextField::appendLines(const QString &lines)
{
    moveCursor(QTextCursor::End);
    insertAsOneStep(lineBreaksAsSpaces(lines));
}

void KWNewTaskTextField::inputMethodEvent(QInputMethodEvent *event)
{
    if (!hasLineBreak(event->commitString())) {
        KWTagCandidateTextField::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent withoutText;
    KWTagCandidateTextField::inputMethodEvent(&withoutText);
    appendLines(event->commitString());
}

void KWNewTaskTextField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (canBeEmpty || !text().isEmpty()) Q_EMIT submitted(text());
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
        KWTagCandidateTextField::keyPressEvent(event);
    }
}

// One line has nothing to scroll; the list below may have.
void KWNewTaskTextField::wheelEvent(QWheelEvent *event) { event->ignore(); }

bool KWNewTaskTextField::event(QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        paintFrame();
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::ToolTip) {
        if (isOnHelp(*event)) return true;
    }
    const bool handled = KWTagCandidateTextField::event(event);
    return handled;
}

// Whether the event is the question mark's, which stands in the frame; the keyboard has it in the main menu.
bool KWNewTaskTextField::isOnHelp(const QEvent &event)
{
    if (event.type() == QEvent::ToolTip) {
        const auto &help = static_cast<const QHelpEvent &>(event);
        if (!document()->isEmpty() || !helpBounds().contains(help.pos())) return false;
        QToolTip::showText(help.globalPos(), KWLocalizedString("What you can type"), this);
    } else {
        const QPoint position = static_cast<const QMouseEvent &>(event).position().toPoint();
        if (!document()->isEmpty() || !helpBounds().contains(position)) return false;
        Q_EMIT helpRequested();
    }
    return true;
}

QRect KWNewTaskTextField::helpBounds() const
{
    const int side = height();
    return QStyle::visualRect(layoutDirection(), rect(), {width() - side, 0, side, side});
}

void KWNewTaskTextField::paintFrame()
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (hasFocus()) Painting::roundedBox(painter, rect(), Metrics::fieldRadius + ring, theme.softAccent);
    const QRect box = rect().adjusted(ring, ring, -ring, -ring);
    Painting::roundedBox(painter, box, Metrics::fieldRadius, theme.window,
                         hasFocus() ? theme.accent : theme.control);
    if (document()->isEmpty())
        return Icons::paint(painter, helpBounds(), Icon::Help, Metrics::scaled(Metrics::icon),
                            theme.faintText);
    if (!showsHint()) return;

    const int icon = Metrics::scaled(Metrics::icon) - 2;
    const int start = box.right() + 1 - padding - hintWidth();
    const auto visual = [&](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    Icons::paint(painter, visual({start, box.top(), icon, box.height()}), Icon::Enter, icon, theme.faintText);
    painter.setFont(Fonts::font(Fonts::Role::Secondary));
    painter.setPen(theme.faintText);
    const int words = start + icon + Metrics::grid;
    painter.drawText(visual({words, box.top(), box.right() + 1 - words, box.height()}),
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter),
                     KWLocalizedString("add"));
}

void KWNewTaskTextField::paintEvent(QPaintEvent *event)
{
    if (document()->isEmpty() && document()->firstBlock().layout()->preeditAreaText().isEmpty())
        paintPlaceholder();
    KWTagCandidateTextField::paintEvent(event);
}

// Not the one of QTextEdit, which would break into lines and space its words as the text does.
void KWNewTaskTextField::paintPlaceholder() const
{
    QPainter painter{viewport()};
    QFont plain = font();
    plain.setWordSpacing(0);
    painter.setFont(plain);
    painter.setPen(Theme::current().faintText);
    const QRect bounds = viewport()->rect().adjusted(documentMargin, 0, -documentMargin, 0);
    painter.drawText(bounds, int(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine),
                     shownPlaceholder(bounds.width()));
}

QString KWNewTaskTextField::shownPlaceholder(int width) const
{
    QFont plain = font();
    plain.setWordSpacing(0);
    const QFontMetrics metrics{plain};
    const QString detailed = KWLocalizedString("%1 – try “%2”").arg(placeholder(), m_lesson);
    const bool teaches = m_isDetailedPlaceholder && m_passingPlaceholder.isEmpty() && !m_lesson.isEmpty();
    if (teaches && metrics.horizontalAdvance(detailed) <= width) return detailed;
    return metrics.elidedText(placeholder(), Qt::ElideRight, width);
}

void KWNewTaskTextField::resizeEvent(QResizeEvent *event)
{
    KWTagCandidateTextField::resizeEvent(event);
    arrange();
}

bool KWNewTaskTextField::isInUse() const
{
    const QWidget *focused = window()->focusWidget();
    const bool hasKeyboard = focused == this || isAncestorOf(focused);
    const bool isActive = isActiveWindow() || QApplication::activePopupWidget();
    return !document()->isEmpty() || m_pickers->haveChoice() || (hasKeyboard && isActive);
}

// In its place the empty field has its question mark.
bool KWNewTaskTextField::showsHint() const
{
    return document()->isEmpty() || width() >= Metrics::scaled(narrowField);
}

// The line stands in the middle of the field, behind it the buttons and the hint.
void KWNewTaskTextField::arrange()
{
    const int line = fontMetrics().height() + 2 * documentMargin;
    const int above = std::max(0, (height() - line) / 2);
    const int before = ring + padding - documentMargin;
    int behind = showsHint() ? before + hintWidth() + padding : before;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;

    m_pickers->setVisible(isInUse());
    if (!m_pickers->isHidden()) {
        const int room = width() - before - behind - Metrics::scaled(shortestText);
        const int taken = m_pickers->fitInto(room);
        m_pickers->setGeometry(QStyle::visualRect(
            layoutDirection(), rect(), {width() - behind - taken, ring, taken, height() - 2 * ring}));
        behind += taken;
    }
    const QMargins margins{isMirrored ? behind : before, above, isMirrored ? before : behind,
                           std::max(0, height() - line - above)};
    if (margins != viewportMargins()) setViewportMargins(margins);

    // Also while it is empty, and whatever the direction of what is typed.
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(isMirrored ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft);
    if (option.alignment() != document()->defaultTextOption().alignment())
        document()->setDefaultTextOption(option);
    update();
}
