#pragma once

#include "cli/Invocation.h"
#include "model/OrvaneKit.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>

class CXClock;
class QApplication;

/// One run of the client with its window, on one data folder; or the drawing of one page of it.
class DesktopClient {
public:
    explicit DesktopClient(Invocation invocation);

    /// Runs until the person quits, or until the picture is drawn; answers the exit status. A start that
    /// hands over to the process that has the folder open answers 0 at once.
    int run(int &argc, char **argv);

private:
    int runWindow(class SystemClock &clock);
    int drawPicture(class SystemClock &clock);
    Result<void> applyTheme();
    /// Opens the folder, asking what to do where that cannot be done; none when the answer is to quit.
    std::unique_ptr<OrvaneKit> openAsking(const CXClock &clock);

    Invocation m_invocation;
    std::optional<QTemporaryDir> m_throwAway;
    DataFolders m_folders;
};
