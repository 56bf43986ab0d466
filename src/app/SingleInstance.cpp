#include "app/SingleInstance.h"

#include "model/settings/KWLocalizedString.h"

#include <QDir>

SingleInstance::SingleInstance(const DataFolders &folders, InstanceChannel &channel)
    : m_lock(folders.lock()), m_folder(folders.data), m_channel(channel)
{
}

Result<SingleInstance::Role> SingleInstance::start(const LaunchRequest &request,
                                                   InstanceChannel::Handler onLaterStart)
{
    FolderLock::Outcome outcome = m_lock.tryLock();
    if (outcome == FolderLock::Outcome::HeldByAnother) {
        if (m_channel.handOver(request)) return Role::HandedOver;
        // It may have been on its way out.
        outcome = m_lock.tryLock();
    }
    switch (outcome) {
    case FolderLock::Outcome::Taken:
        m_channel.listen(std::move(onLaterStart));
        return Role::First;
    case FolderLock::Outcome::HeldByAnother:
        return Error{KWLocalizedString("Orvane is already open with this data folder.")};
    case FolderLock::Outcome::CannotWrite:
        break;
    }
    return Error{
        KWLocalizedString("Orvane cannot write its data in “%1”.").arg(QDir::toNativeSeparators(m_folder))};
}

void SingleInstance::release()
{
    m_channel.stopListening();
    m_lock.unlock();
}
