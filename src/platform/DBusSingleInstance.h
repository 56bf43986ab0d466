#pragma once

#include "app/SingleInstance.h"
#include "corvexkit/time/CXClock.h"
#include "platform/ApplicationObject.h"
#include "platform/Bus.h"
#include "platform/QuickAddInterface.h"

#include <QDBusMessage>

/// Processes of one data folder reach each other on the session bus, by the interface
/// org.freedesktop.Application (freedesktop.org, Desktop Entry 1.5, section D-Bus Activation). The name on
/// the bus tells the folder. The object has QuickAddInterface as well. Main thread.
class DBusSingleInstance final : public InstanceChannel {
public:
    /// How long a later start waits for a first one that is not on the bus yet.
    static constexpr std::chrono::milliseconds patience{3000};
    /// How long it waits for the answer.
    static constexpr std::chrono::milliseconds answerWithin{5000};

    /// `connector` connects to the bus when it is needed; the session bus without one.
    DBusSingleInstance(const DataFolders &folders, CXClock &clock,
                       BusConnector connector = QDBusConnection::sessionBus);
    ~DBusSingleInstance() override { stopListening(); }

    void listen(Handler handler) override;
    void stopListening() override;
    bool handOver(const LaunchRequest &request) override;

    /// "org.orvane.Orvane" for the folder of the desktop, "org.orvane.Orvane.h" and sixteen hexadecimal
    /// digits for another.
    static QString busName(const DataFolders &folders);
    /// The name with slashes: "/org/orvane/Orvane".
    static QString objectPath(const QString &busName);

private:
    QDBusMessage callFor(const LaunchRequest &request) const;

    QString m_name;
    QString m_path;
    CXClock &m_clock;
    BusConnector m_connector;
    ApplicationObject m_object;
    QuickAddInterface *m_quickAdd = new QuickAddInterface{m_object};
    bool m_isListening = false;
};
