#include "platform/ScriptingObject.h"

#include "integration/scripting/ScriptingRoom.h"
#include "model/settings/KWLocalizedString.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QFile>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

// A resource of a static library is registered by name, outside every namespace.
static void registerScriptingDefinition() { Q_INIT_RESOURCE(scripting); }

namespace {

using Tool = Result<QString> (ScriptTools::*)(const ScriptCommandDescription &) const;

Tool toolNamed(QStringView member)
{
    if (member == u"Add") return &ScriptTools::add;
    if (member == u"Complete") return &ScriptTools::complete;
    if (member == u"List") return &ScriptTools::list;
    return nullptr;
}

struct BusCommand {
    QLatin1StringView member;
    QLatin1StringView name;
    bool takesParameter = false;
};

constexpr std::array busCommands{
    BusCommand{"Today"_L1, "today"_L1}, BusCommand{"Next7Days"_L1, "next7days"_L1},
    BusCommand{"Search"_L1, "search"_L1, true}, BusCommand{"Projects"_L1, "projects"_L1},
    BusCommand{"Pomo"_L1, "pomo"_L1, true}};

bool isMap(const QVariant &value)
{
    if (value.userType() != qMetaTypeId<QDBusArgument>()) return value.userType() == QMetaType::QVariantMap;
    return qvariant_cast<QDBusArgument>(value).currentSignature() == u"a{sv}"_s;
}

// The direct parameter and the options; nothing for arguments of another shape.
std::optional<ScriptCommandDescription> descriptionOf(const QDBusMessage &call, bool takesParameter)
{
    const QVariantList arguments = call.arguments();
    const int parameters = takesParameter ? 1 : 0;
    const bool hasOptions = !arguments.isEmpty() && isMap(arguments.last());
    if (arguments.size() != parameters + (hasOptions ? 1 : 0)) return std::nullopt;
    ScriptCommandDescription description;
    if (takesParameter) description.directParameter = arguments.first();
    if (hasOptions) description.arguments = qdbus_cast<QVariantMap>(arguments.last());
    return description;
}

QString answerOf(const BusCommand &command, const QDBusMessage &call, const ScriptingRoom *room)
{
    auto description = descriptionOf(call, command.takesParameter);
    if (!room || !description) return {};
    return performScriptCommand(QString{command.name}, room->with(), std::move(*description))
        .value_or(QString{});
}

} // namespace

QString ScriptingObject::introspection()
{
    static const bool registered = (registerScriptingDefinition(), true);
    Q_UNUSED(registered)
    QFile file{u":/dbus/org.orvane.Scripting1.xml"_s};
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString{};
}

bool ScriptingObject::handleMessage(const QDBusMessage &call, const QDBusConnection &bus)
{
    const auto answer = [&](const QDBusMessage &reply) {
        if (call.isReplyRequired()) bus.send(reply);
        return true;
    };
    const QString member = call.member();
    if (call.interface() == u"org.freedesktop.DBus.Introspectable"_s && member == u"Introspect")
        return answer(call.createReply(introspection()));
    if (call.interface() == u"org.freedesktop.DBus.Properties"_s && member == u"GetAll" &&
        call.arguments() == QVariantList{QString{interface}})
        return answer(call.createReply(QVariantMap{})); // it has none
    if (!call.interface().isEmpty() && call.interface() != interface) return false;
    if (toolNamed(member)) return answer(tool(member, call));
    const auto found =
        std::ranges::find_if(busCommands, [&](const BusCommand &each) { return each.member == member; });
    if (found == busCommands.end())
        return answer(call.createErrorReply(QDBusError::UnknownMethod,
                                            KWLocalizedString("There is no method “%1”.").arg(member)));
    return answer(call.createReply(answerOf(*found, call, m_room)));
}

QDBusMessage ScriptingObject::tool(const QString &name, const QDBusMessage &call) const
{
    const auto description = descriptionOf(call, true);
    if (!description || description->directParameter.userType() != QMetaType::QString)
        return call.createErrorReply(QDBusError::InvalidArgs,
                                     KWLocalizedString("“%1” takes a text and options: “sa{sv}”.").arg(name));
    const Result<QString> answer = m_room ? (m_room->tools().*toolNamed(name))(*description)
                                          : Error{KWLocalizedString("Orvane is still starting.")};
    return answer ? call.createReply(*answer) : call.createErrorReply(errorName, answer.error().sentence);
}
