#include "views/tasklist/PageHeader.h"

#include "views/controls/TextButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

PageHeader::PageHeader(QWidget *parent)
    : QWidget(parent), m_action(new TextButton{{}, TextButton::Opens::Nothing, this})
{
    setObjectName(QStringLiteral("pageHeader"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_action->setObjectName(QStringLiteral("pageAction"));
    m_action->hide();
    connect(m_action, &TextButton::clicked, this, &PageHeader::actionTriggered);
}

void PageHeader::setAction(const QString &text)
{
    m_action->setText(text);
    m_action->setAccessibleName(text);
    m_action->setVisible(!text.isEmpty());
    placeAction();
    update();
}

void PageHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeAction();
}

void PageHeader::placeAction()
{
    const QSize size = m_action->sizeHint().boundedTo(this->size());
    m_action->setGeometry(QStyle::visualRect(
        layoutDirection(), rect(), {QPoint{width() - size.width(), (height() - size.height()) / 2}, size}));
}

void PageHeader::setTitle(const QString &title)
{
    m_title = title;
    setAccessibleName(title);
    update();
}

void PageHeader::setNote(const QString &note)
{
    if (note == m_note) return;
    m_note = note;
    setAccessibleDescription(note);
    update();
}

QSize PageHeader::sizeHint() const
{
    return {Metrics::scaled(120), QFontMetrics{Fonts::font(Fonts::Role::PageTitle)}.height() + Metrics::grid};
}

void PageHeader::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    const int textWidth = m_action->isVisibleTo(this) ? width() - m_action->width() - Metrics::gap : width();
    const int noteWidth = m_note.isEmpty() ? 0 : Fonts::width(Fonts::Role::Body, m_note) + Metrics::gap;
    const int titleWidth = std::min(Fonts::width(Fonts::Role::PageTitle, m_title), textWidth - noteWidth);

    const auto mirrored = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.setPen(Theme::current().text);
    Fonts::drawLine(painter, Fonts::Role::PageTitle, mirrored({0, 0, titleWidth, height()}), side, m_title);
    painter.setPen(Theme::current().secondaryText);
    // A hair below the title's middle, on its baseline.
    Fonts::drawLine(painter, Fonts::Role::Body, mirrored({titleWidth + Metrics::gap, 2, noteWidth, height()}),
                    side, m_note);
}
