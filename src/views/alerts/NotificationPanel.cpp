#include "views/alerts/NotificationPanel.h"

#include "views/alerts/NotificationCard.h"
#include "views/alerts/NotificationWindow.h"

#include <QAccessible>

NotificationPanel::~NotificationPanel() { delete m_window; }

QWidget *NotificationPanel::window() const { return m_window; }

void NotificationPanel::show(const UserNotification &notification)
{
    if (!m_window) {
        m_window = new NotificationWindow;
        connect(m_window, &NotificationWindow::allDismissed, this, [this] {
            const QStringList all = m_cards.keys();
            for (const QString &each : all)
                dismiss(each);
        });
    }
    const QString identifier = notification.identifier;
    if (NotificationCard *before = m_cards.take(identifier)) m_window->remove(before);
    auto *card = new NotificationCard{notification};
    connect(card, &NotificationCard::dismissed, this, [this, identifier] { dismiss(identifier); });
    connect(card, &NotificationCard::chosen, this, [this, identifier](const QString &key) {
        close(identifier);
        if (onResponse) onResponse({identifier, key, {}});
    });
    m_cards.insert(identifier, card);
    m_window->add(card);
    m_window->show();
    QAccessibleEvent announcement{card, QAccessible::Alert};
    QAccessible::updateAccessibility(&announcement);
}

void NotificationPanel::withdraw(const QString &identifier) { close(identifier); }

void NotificationPanel::dismiss(const QString &identifier)
{
    close(identifier);
    if (onClosed) onClosed(identifier);
}

void NotificationPanel::close(const QString &identifier)
{
    NotificationCard *card = m_cards.take(identifier);
    if (!card) return;
    m_window->remove(card);
    if (!m_cards.isEmpty()) return;
    m_window->hide();
    m_window->deleteLater();
    m_window = nullptr;
}
