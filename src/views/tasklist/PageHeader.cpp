#include "views/tasklist/PageHeader.h"

#include "views/controls/IconButton.h"
#include "views/controls/TextButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

PageHeader::PageHeader(QWidget *parent)
    : QWidget(parent)
    , m_sort(new TextButton{{}, TextButton::Opens::Menu, this})
    , m_action(new TextButton{{}, TextButton::Opens::Nothing, this})
    , m_menu(new IconButton{Icon::More, tr("More"), this})
{
    setObjectName(QStringLiteral("pageHeader"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_sort->setObjectName(QStringLiteral("sortButton"));
    m_sort->hide();
    m_action->setObjectName(QStringLiteral("pageAction"));
    m_action->hide();
    connect(m_sort, &TextButton::clicked, this, &PageHeader::sortMenuRequested);
    m_menu->setObjectName(QStringLiteral("pageMenuButton"));
    connect(m_action, &TextButton::clicked, this, &PageHeader::actionTriggered);
    connect(m_menu, &IconButton::clicked, this, &PageHeader::menuRequested);
}

void PageHeader::setText(TextButton &button, const QString &text)
{
    button.setText(text);
    button.setAccessibleName(text);
    button.setVisible(!text.isEmpty());
}

void PageHeader::setAction(const QString &text)
{
    setText(*m_action, text);
    placeButtons();
}

void PageHeader::setSorting(const QString &text)
{
    setText(*m_sort, text);
    m_sort->setAccessibleName(tr("Sorting: %1").arg(text));
    placeButtons();
}

QWidget &PageHeader::sortButton() const { return *m_sort; }

QWidget &PageHeader::menuButton() const { return *m_menu; }

void PageHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeButtons();
}

// From the end of the line on.
QList<QAbstractButton *> PageHeader::buttons() const { return {m_menu, m_action, m_sort}; }

int PageHeader::buttonsWidth() const
{
    int taken = 0;
    for (const QAbstractButton *each : buttons())
        if (each->isVisibleTo(this)) taken += each->width() + Metrics::grid;
    return taken;
}

void PageHeader::placeButtons()
{
    int right = width();
    for (QAbstractButton *each : buttons()) {
        if (!each->isVisibleTo(this)) continue;
        const QSize size = each->sizeHint().boundedTo(this->size());
        right -= size.width();
        each->setGeometry(QStyle::visualRect(layoutDirection(), rect(),
                                             {QPoint{right, (height() - size.height()) / 2}, size}));
        right -= Metrics::grid;
    }
    update();
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

void PageHeader::setDot(const std::optional<QString> &color)
{
    m_dot = color;
    update();
}

QSize PageHeader::sizeHint() const
{
    return {Metrics::scaled(120), QFontMetrics{Fonts::font(Fonts::Role::PageTitle)}.height() + Metrics::grid};
}

void PageHeader::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    const int dot = Metrics::scaled(Metrics::dot);
    const int indent = m_dot ? dot + Metrics::gap : 0;
    const int textWidth = width() - buttonsWidth() - indent;
    const int wantedTitle = Fonts::width(Fonts::Role::PageTitle, m_title);
    const int wantedNote = m_note.isEmpty() ? 0 : Fonts::width(Fonts::Role::Body, m_note) + Metrics::gap;
    const bool hasNote = wantedTitle + wantedNote <= textWidth; // the title is what counts
    const int noteWidth = hasNote ? wantedNote : 0;
    const int titleWidth = std::min(wantedTitle, textWidth - noteWidth);

    const auto mirrored = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    if (m_dot)
        Painting::dot(painter, QRectF{mirrored({0, 0, dot, height()})}.center(),
                      ItemColors::edgeOf(*m_dot).name());
    painter.setPen(Theme::current().text);
    Fonts::drawLine(painter, Fonts::Role::PageTitle, mirrored({indent, 0, titleWidth, height()}), side,
                    m_title);
    if (!hasNote) return;
    painter.setPen(Theme::current().secondaryText);
    // A hair below the title's middle, on its baseline.
    Fonts::drawLine(painter, Fonts::Role::Body,
                    mirrored({indent + titleWidth + Metrics::gap, 2, noteWidth, height()}), side, m_note);
}
