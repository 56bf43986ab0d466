#pragma once

#include "cli/Invocation.h"
#include "client/DesktopRooms.h"
#include "model/OrvaneKit.h"
#include "platform/LogindSleepMonitor.h"
#include "platform/OutsideChangeWatcher.h"

#include <memory>

class FontWarmUp;
class SystemClock;

/// The client on an open data folder: the core library, the desktop services and the rooms.
class OpenClient {
public:
    /// Opens the folder, asking the person what to do where that cannot be done. None when the answer is
    /// to quit, or when it still cannot be done; standard error has the sentence then.
    static std::unique_ptr<OpenClient> open(const DataFolders &folders, const Invocation &invocation,
                                            SystemClock &clock, FontWarmUp &fonts);

    DesktopRooms &rooms() { return m_rooms; }

private:
    OpenClient(std::unique_ptr<OrvaneKit> kit, SystemClock &clock);

    std::unique_ptr<OrvaneKit> m_kit;
    OutsideChangeWatcher m_outsideChanges;
    LogindSleepMonitor m_sleepMonitor;
    DesktopRooms m_rooms;
};
