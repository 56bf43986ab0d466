#include "app/RunMarker.h"

#include <QFile>

LastRun RunMarker::begin()
{
    QFile marker{m_path};
    const LastRun last = marker.exists() ? LastRun::BrokeOff : LastRun::Ended;
    return marker.open(QIODevice::WriteOnly) ? last : LastRun::Ended;
}

void RunMarker::end() { QFile::remove(m_path); }
