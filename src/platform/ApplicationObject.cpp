#include "platform/ApplicationObject.h"

#include <QDBusError>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The older key serves desktops on X11 alone.
constexpr auto activationToken = "activation-token"_L1;
constexpr auto startupID = "desktop-startup-id"_L1;

QString tokenOf(const QVariantMap &platformData)
{
    const QString token = platformData.value(activationToken).toString();
    return token.isEmpty() ? platformData.value(startupID).toString() : token;
}

} // namespace

QVariantMap ApplicationObject::platformDataOf(const LaunchRequest &request)
{
    if (request.activationToken.isEmpty()) return {};
    return {{activationToken, request.activationToken}, {startupID, request.activationToken}};
}

void ApplicationObject::Activate(const QVariantMap &platformData)
{
    pass({.activationToken = tokenOf(platformData)});
}

void ApplicationObject::Open(const QStringList &uris, const QVariantMap &platformData)
{
    LaunchRequest request{.activationToken = tokenOf(platformData)};
    std::copy_if(uris.begin(), uris.end(), std::back_inserter(request.links), LaunchRequest::isLink);
    pass(request);
}

void ApplicationObject::ActivateAction(const QString &name, const QVariantList &parameter,
                                       const QVariantMap &platformData)
{
    if (name == addTaskAction) return addTask(parameter, platformData);
    if (name == loginItemAction) return pass({.cause = LaunchCause::LoginItem});
    if (name == diagnosticsAction)
        return pass({.cause = LaunchCause::Diagnostics, .activationToken = tokenOf(platformData)});
    if (calledFromDBus()) sendErrorReply(QDBusError::InvalidArgs, u"There is no action “%1”."_s.arg(name));
}

void ApplicationObject::addTask(const QVariantList &parameter, const QVariantMap &platformData)
{
    const QVariant title = parameter.value(0, QString{});
    if (title.userType() == QMetaType::QString && parameter.size() <= 1)
        return pass({.cause = LaunchCause::AddTask,
                     .title = title.toString(),
                     .activationToken = tokenOf(platformData)});
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs,
                       u"The parameter of “%1” is one text, the title, or nothing."_s.arg(addTaskAction));
}

void ApplicationObject::pass(const LaunchRequest &request)
{
    QMetaObject::invokeMethod(
        this,
        [this, request] {
            if (m_handler) m_handler(request);
        },
        Qt::QueuedConnection);
}
