#include "platform/ScriptingFixture.h"

#include "views/theme/ThemeConfigurator.h"

using namespace Qt::StringLiterals;

namespace {

QDBusConnection connectionNamed(const QString &party)
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, party);
}

QDBusConnection ofTheClient() { return connectionNamed(u"client"_s); }

} // namespace

ScriptingFixture::ScriptingFixture()
    : m_bus(ofTheClient), m_channel(store.kit().folders(), store.clock, ofTheClient)
{
    static const bool isDressed = (ThemeConfigurator::shared().apply(), true);
    Q_UNUSED(isDressed)
    if (!caller().isConnected()) qFatal("run it on a bus");
    m_bus.appear();
    m_channel.listen([](const LaunchRequest &) {});
    m_rooms = std::make_unique<DesktopRooms>(kit(), store.clock);
    m_rooms->application().handleFinishLaunching({});
    m_scripting = std::make_unique<ScriptingRooms>(kit(), store.clock, *m_rooms, m_bus);
}

ScriptingFixture::~ScriptingFixture() = default;

QDBusConnection ScriptingFixture::caller() { return connectionNamed(u"caller"_s); }

QDBusMessage ScriptingFixture::call(const QString &path, const QString &interface, const QString &member,
                                    const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(busName(), path, interface, member);
    message.setArguments(arguments);
    return caller().call(message, QDBus::BlockWithGui);
}

QDBusMessage ScriptingFixture::scripting(const char *member, const QVariantList &arguments)
{
    return call(ScriptingObject::path, ScriptingObject::interface, QString::fromLatin1(member), arguments);
}

QString ScriptingFixture::answer(const char *member, const QVariantList &arguments)
{
    const QDBusMessage reply = scripting(member, arguments);
    if (reply.type() != QDBusMessage::ReplyMessage)
        qFatal("%s failed: %s", member, qUtf8Printable(reply.errorMessage()));
    return reply.arguments().value(0).toString();
}
