#include "views/alerts/NotificationCard.h"

#include "app/ReminderText.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/TextButton.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int cardMargin = 16;
constexpr int actionPadding = 8; // the texts of the buttons stand below the title

QString nameOf(const QString &key) { return u"notification."_s + key; }

} // namespace

NotificationCard::NotificationCard(const UserNotification &notification, QWidget *parent) : QWidget(parent)
{
    setAccessibleName(notification.title);
    setAccessibleDescription(notification.body);
    auto *dismiss = new IconButton{Icon::Close, KWLocalizedString("Dismiss")};
    dismiss->setObjectName(nameOf(u"dismiss"_s));
    connect(dismiss, &QAbstractButton::clicked, this, &NotificationCard::dismissed);

    auto *words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(makePlainLabel(notification.title, Fonts::Role::BodyStrong));
    if (!notification.body.isEmpty())
        words->addWidget(
            makePlainLabel(notification.body, Fonts::Role::Secondary, QPalette::PlaceholderText));
    auto *head = new QHBoxLayout;
    head->setContentsMargins(actionPadding, 0, 0, 0);
    head->addLayout(words, 1);
    head->addWidget(dismiss, 0, Qt::AlignTop);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(cardMargin - actionPadding, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(Metrics::grid);
    column->addLayout(head);
    if (notification.actions.isEmpty()) return;
    auto *row = new QHBoxLayout;
    row->setSpacing(Metrics::grid);
    addActions(notification.actions, *row);
    row->addStretch(1);
    column->addLayout(row);
}

void NotificationCard::addActions(const QList<UserNotification::Action> &actions, QHBoxLayout &row)
{
    QList<UserNotification::Action> snoozes;
    for (const UserNotification::Action &each : actions) {
        if (each.key.startsWith(ReminderText::snoozeAction)) {
            snoozes.append(each);
            continue;
        }
        auto *button = new TextButton{each.label};
        button->setObjectName(nameOf(each.key));
        connect(button, &QAbstractButton::clicked, this, [this, key = each.key] { Q_EMIT chosen(key); });
        row.addWidget(button);
    }
    if (!snoozes.isEmpty()) addSnoozes(snoozes, row);
}

void NotificationCard::addSnoozes(const QList<UserNotification::Action> &snoozes, QHBoxLayout &row)
{
    auto *button = new TextButton{KWLocalizedString("Snooze"), TextButton::Opens::Menu};
    button->setObjectName(nameOf(u"snooze"_s));
    auto *menu = new QMenu{button};
    for (const UserNotification::Action &each : snoozes) {
        QAction *action = menu->addAction(each.label, this, [this, key = each.key] { Q_EMIT chosen(key); });
        action->setObjectName(nameOf(each.key));
    }
    connect(button, &QAbstractButton::clicked, menu, [button, menu] {
        menu->popup(button->mapToGlobal(QPoint{0, button->height()}));
    });
    row.addWidget(button);
}

void NotificationCard::paintEvent(QPaintEvent *)
{
    if (y() == 0) return;
    QPainter painter{this};
    painter.fillRect(cardMargin, 0, width() - 2 * cardMargin, 1, Theme::current().hairline);
}
