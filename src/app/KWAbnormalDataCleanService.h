#pragma once

#include "app/ports/AlertPort.h"
#include "app/ports/DiagnosticsPorts.h"
#include "corvexkit/Result.h"
#include "model/settings/DataFolders.h"

class CXClock;

/// Packs diagnostic data and hands it to the person's mail and file manager: the command "clear_data" of
/// the menus, and a choice of the alert after crashes. Needs no open store. Main thread.
class KWAbnormalDataCleanService {
public:
    struct Collaborators {
        DataFolders folders;
        const CXClock &clock;
        AlertPort &alerts;
        FileManagerPort &fileManager;
        MailPort &mail;
        std::function<void()> terminate; ///< ends the program as the person would
    };

    explicit KWAbnormalDataCleanService(Collaborators all) : m_all(std::move(all)) {}

    /// Says what is about to happen; on “OK” sends, and the program terminates. What failed is said
    /// instead, and the program goes on.
    void run();

    /// What the person is told first; the first button goes on.
    AlertText announcement() const;
    /// Packs the data, shows it in the file manager and attaches it to a new e-mail. Where there is no file
    /// manager, the sentence says which file to send.
    Result<void> send();

private:
    void sendAndTerminate();

    Collaborators m_all;
};
