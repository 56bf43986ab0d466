#include "views/alerts/NotificationPanel.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int panelWidth = 360;
constexpr int buttonsInARow = 3;

QLabel *makeLabel(const QString &text, Fonts::Role role, QWidget *parent)
{
    auto *label = new QLabel{text, parent};
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(Fonts::font(role));
    return label;
}

} // namespace

NotificationPanel::~NotificationPanel() { delete m_window; }

void NotificationPanel::show(const UserNotification &notification)
{
    if (!m_window) {
        m_window = new QWidget{nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint};
        m_window->setObjectName(u"notificationPanel"_s);
        m_window->setAttribute(Qt::WA_ShowWithoutActivating);
        m_window->setAttribute(Qt::WA_QuitOnClose, false);
        auto *layout = new QVBoxLayout{m_window};
        layout->setSpacing(Metrics::margin);
    }
    delete m_cards.take(notification.identifier);
    QWidget *card = makeCard(notification);
    m_cards.insert(notification.identifier, card);
    m_window->layout()->addWidget(card);
    card->show(); // now, so that it counts when the window is sized
    place();
    m_window->show();
    QAccessibleEvent announcement{card, QAccessible::Alert};
    QAccessible::updateAccessibility(&announcement);
}

QWidget *NotificationPanel::makeCard(const UserNotification &notification)
{
    auto *card = new QWidget{m_window};
    card->setAccessibleName(notification.title);
    auto *layout = new QGridLayout{card};
    layout->setContentsMargins({});
    layout->addWidget(makeLabel(notification.title, Fonts::Role::BodyStrong, card), 0, 0, 1, buttonsInARow);
    layout->addWidget(makeLabel(notification.body, Fonts::Role::Body, card), 1, 0, 1, buttonsInARow);

    int index = 0;
    const auto addButton = [&](const QString &text, const QString &name, auto pressed) {
        auto *button = new QPushButton{text, card};
        button->setObjectName(u"notification."_s + name);
        button->setAccessibleName(text);
        connect(button, &QPushButton::clicked, this, pressed);
        layout->addWidget(button, 2 + index / buttonsInARow, index % buttonsInARow);
        ++index;
    };
    const QString identifier = notification.identifier;
    for (const UserNotification::Action &each : notification.actions)
        addButton(each.label, each.key, [this, identifier, key = each.key] {
            close(identifier);
            if (onResponse) onResponse({identifier, key, {}});
        });
    addButton(KWLocalizedString("Dismiss"), u"dismiss"_s, [this, identifier] {
        close(identifier);
        if (onClosed) onClosed(identifier);
    });
    return card;
}

void NotificationPanel::withdraw(const QString &identifier) { close(identifier); }

void NotificationPanel::close(const QString &identifier)
{
    QWidget *card = m_cards.take(identifier);
    if (!card) return;
    // Its own button may be what closes it.
    card->hide();
    card->deleteLater();
    m_window->layout()->removeWidget(card);
    if (!m_cards.isEmpty()) return place();
    m_window->hide();
    m_window->deleteLater();
    m_window = nullptr;
}

void NotificationPanel::place()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int width = std::min(Metrics::scaled(panelWidth), screen.width());
    m_window->setFixedWidth(width);
    m_window->layout()->activate();
    m_window->resize(width, m_window->layout()->totalHeightForWidth(width));
    m_window->move(screen.right() - width - Metrics::margin, screen.top() + Metrics::margin);
}
