#include "client/FocusNotifications.h"

#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString identifier = u"focus"_s;
const QString click = u"default"_s;

// The desktop reads files. None where it cannot be written: the message comes without it.
QString picture()
{
    const QDir cache{QStandardPaths::writableLocation(QStandardPaths::CacheLocation)};
    const QString path = cache.filePath(u"pomo_notification.svg"_s);
    QFile drawn{u":/orvane/icons/pomo_notification.svg"_s};
    if (QFileInfo{path}.size() == drawn.size()) return path;
    QSaveFile file{path};
    const bool isWritten = drawn.open(QIODevice::ReadOnly) && cache.mkpath(u"."_s) &&
                           file.open(QIODevice::WriteOnly) && file.write(drawn.readAll()) >= 0 &&
                           file.commit();
    return isWritten ? path : QString{};
}

} // namespace

FocusNotifications::FocusNotifications(UserNotificationCenterPort &center, FocusSoundPort &sound,
                                       std::function<void(const QString &)> openWindow)
    : m_center(center), m_sound(sound)
{
    m_center.onResponse = [this, openWindow = std::move(openWindow)](const auto &response) {
        m_isShown = false;
        if (response.action == click)
            openWindow(response.activationToken);
        else if (onAction)
            onAction(response.action);
    };
    m_center.onClosed = [this](const QString &) { m_isShown = false; };
}

void FocusNotifications::show(const FocusMessage &message)
{
    QList<UserNotification::Action> actions{{.key = click, .label = {}}};
    for (const FocusMessage::Action &each : message.actions)
        actions.append({.key = each.key, .label = each.label});
    m_isShown = true;
    m_center.show(
        {.identifier = identifier,
         .title = message.title,
         .body = message.subtitle,
         .actions = actions,
         // Heard once, not from the desktop as well.
         .sound = m_sound.isPresent() ? UserNotification::Sound::None : UserNotification::Sound::AsUsual,
         .imagePath = picture()});
    m_sound.play();
}

void FocusNotifications::remove()
{
    if (!m_isShown) return;
    m_isShown = false;
    m_center.withdraw(identifier);
}
