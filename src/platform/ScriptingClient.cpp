#include "platform/ScriptingClient.h"

#include "corvexkit/log/CXLog.h"
#include "model/settings/KWLocalizedString.h"
#include "platform/DBusSingleInstance.h"
#include "platform/ScriptingObject.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger callLog{u"script"};

} // namespace

Result<QString> callScripting(const QString &command, const QVariantList &arguments, const QString &from,
                              const DataFolders &folders, const BusConnector &connector)
{
    const QDBusConnection bus = connector();
    if (!bus.isConnected()) return Error{KWLocalizedString("There is no session bus to reach Orvane on.")};
    QDBusMessage call = QDBusMessage::createMethodCall(
        DBusSingleInstance::busName(folders), ScriptingObject::path, ScriptingObject::interface, command);
    QVariantMap options;
    if (!from.isEmpty()) options.insert(u"from"_s, from);
    call.setArguments(arguments + QVariantList{options});
    const QDBusMessage answer = bus.call(call);
    if (answer.type() == QDBusMessage::ReplyMessage) return answer.arguments().value(0).toString();
    callLog.warning(answer.errorMessage());
    return Error{KWLocalizedString("Orvane is not open, or does not answer.")};
}
