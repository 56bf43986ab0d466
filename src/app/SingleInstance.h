#pragma once

#include "app/FolderLock.h"
#include "app/LaunchRequest.h"
#include "corvexkit/Result.h"
#include "model/settings/DataFolders.h"

#include <functional>

/// The way from one process of a data folder to the one that holds it.
class InstanceChannel {
public:
    using Handler = std::function<void(const LaunchRequest &)>;

    virtual ~InstanceChannel() = default;

    /// Requests of later starts reach `handler` from now on, on this thread, from the event loop. Where
    /// there is no channel nothing comes.
    virtual void listen(Handler handler) = 0;
    virtual void stopListening() = 0;
    /// Gives the request to the process that listens; whether it has taken it. May wait a few seconds for
    /// a process that is just starting.
    [[nodiscard]] virtual bool handOver(const LaunchRequest &request) = 0;
};

/// One process per data folder: the first holds it until it ends, later ones hand over what they were
/// started for and end at once. Main thread.
class SingleInstance {
public:
    enum class Role {
        First,      ///< this process holds the folder; go on
        HandedOver, ///< another one does the rest; exit 0
    };

    SingleInstance(const DataFolders &folders, InstanceChannel &channel);
    ~SingleInstance() { release(); }

    /// Call before the store is opened and before KWBootingProtection. An error is the sentence for the
    /// person: the folder cannot be written, or who holds it does not answer; exit 1.
    Result<Role> start(const LaunchRequest &request, InstanceChannel::Handler onLaterStart);

    /// Lets the folder go, for a program that starts itself again.
    void release();

private:
    FolderLock m_lock;
    QString m_folder;
    InstanceChannel &m_channel;
};
