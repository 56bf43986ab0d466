#include "app/FolderLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

FolderLock::FolderLock(QString path) : m_path(std::move(path)) {}

FolderLock::Outcome FolderLock::tryLock()
{
    if (m_descriptor >= 0) return Outcome::Taken;
    QDir{}.mkpath(QFileInfo{m_path}.path());
    m_descriptor = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_descriptor < 0) return Outcome::CannotWrite;
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0) return Outcome::Taken;

    const bool isHeld = errno == EWOULDBLOCK;
    unlock();
    return isHeld ? Outcome::HeldByAnother : Outcome::CannotWrite;
}

void FolderLock::unlock()
{
    // The file stays: were it removed, two processes could hold two files of one name.
    if (m_descriptor >= 0) ::close(m_descriptor);
    m_descriptor = -1;
}
