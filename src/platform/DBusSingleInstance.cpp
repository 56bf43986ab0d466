#include "platform/DBusSingleInstance.h"

#include "corvexkit/log/CXLog.h"

#include <QCryptographicHash>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QEventLoop>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger instanceLog{u"launch"};

// One folder may have several names.
QString canonicalName(const QString &folder)
{
    const QString canonical = QDir{folder}.canonicalPath();
    return canonical.isEmpty() ? folder : canonical;
}

QString hashOf(const QString &name)
{
    const QByteArray hash = QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(16));
}

// An answer, awaited with the event loop running.
QDBusError answerTo(const QDBusMessage &message, const QDBusConnection &bus)
{
    QDBusPendingCallWatcher call{bus.asyncCall(message, int(DBusSingleInstance::answerWithin.count()))};
    QEventLoop loop;
    QObject::connect(&call, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!call.isFinished()) loop.exec();
    return call.error();
}

bool isNobodyThere(const QDBusError &error)
{
    // The answer of the bus to a call that must not start a service; QDBusError has no type for it.
    return error.type() == QDBusError::ServiceUnknown ||
           error.name() == u"org.freedesktop.DBus.Error.NameHasNoOwner"_s;
}

} // namespace

QString DBusSingleInstance::busName(const DataFolders &folders)
{
    const QString name = u"org.orvane.Orvane"_s;
    const QString folder = canonicalName(folders.data);
    return folder == canonicalName(DataFolders::standard().data) ? name : name + u".h"_s + hashOf(folder);
}

QString DBusSingleInstance::objectPath(const QString &busName)
{
    return u'/' + QString{busName}.replace(u'.', u'/');
}

DBusSingleInstance::DBusSingleInstance(const DataFolders &folders, CXClock &clock, BusConnector connector)
    : m_name(busName(folders)), m_path(objectPath(m_name)), m_clock(clock), m_connector(std::move(connector))
{
}

void DBusSingleInstance::listen(Handler handler)
{
    QDBusConnection bus = m_connector();
    if (!bus.isConnected()) return instanceLog.info(u"No session bus: later starts are not heard."_s);

    m_object.setHandler(std::move(handler));
    // The object first, so that nobody who finds the name finds nothing behind it.
    bus.registerObject(m_path, &m_object,
                       QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportAdaptors);
    m_isListening = bus.registerService(m_name);
    if (!m_isListening) instanceLog.warning(u"Later starts are not heard: "_s + bus.lastError().message());
}

void DBusSingleInstance::stopListening()
{
    if (!std::exchange(m_isListening, false)) return;
    QDBusConnection bus = m_connector();
    bus.unregisterService(m_name);
    bus.unregisterObject(m_path);
}

bool DBusSingleInstance::handOver(const LaunchRequest &request)
{
    const QDBusConnection bus = m_connector();
    if (!bus.isConnected()) return false;

    // Watched before the call, so that a name which comes in between is not missed.
    QDBusServiceWatcher watcher{m_name, bus, QDBusServiceWatcher::WatchForRegistration};
    QEventLoop loop;
    bool hasCome = false;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &loop, [&loop, &hasCome] {
        hasCome = true;
        loop.quit();
    });

    QDBusError error = answerTo(callFor(request), bus);
    if (isNobodyThere(error)) {
        const ClockCall enough = m_clock.callAfter(patience, [&loop] { loop.quit(); });
        if (!hasCome) loop.exec();
        error = answerTo(callFor(request), bus);
    }
    if (error.isValid()) instanceLog.warning(u"The request was not handed over: "_s + error.message());
    return !error.isValid();
}

QDBusMessage DBusSingleInstance::callFor(const LaunchRequest &request) const
{
    const auto call = [this](const QString &method, const QVariantList &arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(m_name, m_path, u"org.freedesktop.Application"_s, method);
        message.setAutoStartService(false);
        message.setArguments(arguments);
        return message;
    };
    const QVariantMap platformData = ApplicationObject::platformDataOf(request);
    if (!request.links.isEmpty()) return call(u"Open"_s, {request.links, platformData});
    const auto callAction = [&](QLatin1StringView name, const QVariantList &parameter = {}) {
        return call(u"ActivateAction"_s, {QString{name}, parameter, platformData});
    };
    if (request.cause == LaunchCause::LoginItem) return callAction(ApplicationObject::loginItemAction);
    if (request.cause == LaunchCause::Diagnostics) return callAction(ApplicationObject::diagnosticsAction);
    if (request.cause == LaunchCause::AddTask)
        return callAction(ApplicationObject::addTaskAction, {request.title});
    return call(u"Activate"_s, {platformData});
}
