#pragma once

#include "cli/Invocation.h"
#include "model/settings/DataFolders.h"

#include <QTemporaryDir>

#include <optional>

class FontWarmUp;
class SystemClock;

/// One run of the client with its window on one data folder, or the drawing of one page of it.
class DesktopClient {
public:
    explicit DesktopClient(Invocation invocation);

    /// Runs until the person quits, or until the picture is drawn; answers the exit status. A start that
    /// hands over to the process that has the folder open answers 0 at once.
    int run(int &argc, char **argv);

private:
    Result<void> applyTheme();
    int runWindow(SystemClock &clock, FontWarmUp &fonts);
    int drawPicture(SystemClock &clock);

    Invocation m_invocation;
    std::optional<QTemporaryDir> m_throwAway;
    DataFolders m_folders;
};
