#include "views/alerts/NotificationWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/alerts/NotificationCard.h"
#include "views/controls/ScrollColumn.h"
#include "views/controls/TextButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

constexpr int panelWidth = 360;
constexpr int panelEdge = 1;

} // namespace

NotificationWindow::NotificationWindow()
    : PopupFrame(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint), m_head(new QWidget), m_count(new QLabel)
{
    setObjectName(u"notificationPanel"_s);
    setWindowTitle(KWLocalizedString("Reminders"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);

    auto *dismissAll = new TextButton{KWLocalizedString("Dismiss All")};
    dismissAll->setObjectName(u"notification.dismissAll"_s);
    connect(dismissAll, &QAbstractButton::clicked, this, &NotificationWindow::allDismissed);
    m_count->setFont(Fonts::font(Fonts::Role::Secondary));
    m_count->setForegroundRole(QPalette::PlaceholderText);
    auto *head = new QHBoxLayout{m_head};
    head->setContentsMargins(Metrics::gap + Metrics::grid, Metrics::grid * 2, Metrics::gap, 0);
    head->addWidget(m_count, 1);
    head->addWidget(dismissAll);

    auto *content = new QWidget;
    m_cards = new QVBoxLayout{content};
    m_cards->setContentsMargins({});
    m_cards->setSpacing(0);
    m_area = new ScrollColumn{content};

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(panelEdge, panelEdge, panelEdge, Metrics::grid);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_area, 1);
}

void NotificationWindow::add(NotificationCard *card)
{
    m_cards->addWidget(card);
    card->show(); // now, so that it counts when the window is sized
    place();
    // What somebody is about to press stays where it is.
    if (!underMouse()) m_area->ensureWidgetVisible(card, 0, 0);
}

void NotificationWindow::remove(NotificationCard *card)
{
    m_cards->removeWidget(card);
    card->setParent(nullptr);
    card->deleteLater();
    place();
}

void NotificationWindow::place()
{
    const int count = m_cards->count();
    m_head->setVisible(count > 1);
    m_count->setText(KWLocalizedString("%1 reminders").arg(count));
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int width = std::min(Metrics::scaled(panelWidth), screen.width());
    m_cards->activate();
    const int around = (count > 1 ? m_head->sizeHint().height() : 0) + panelEdge + Metrics::grid;
    const int wanted = m_cards->totalHeightForWidth(width - 2 * panelEdge) + around;
    setFixedWidth(width);
    resize(width, std::min(wanted, screen.height() - 2 * Metrics::margin));
    move(std::max(screen.left(), screen.right() - width - Metrics::margin), screen.top() + Metrics::margin);
    layout()->activate();
}
