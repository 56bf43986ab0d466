#pragma once

#include "app/ports/RelaunchPort.h"

#include <QStringList>

/// Starts the program again as a process of its own, when it was asked for, once this one has let
/// everything go. Main thread.
class Relaunch final : public RelaunchPort {
public:
    Relaunch(QString program, QStringList arguments);

    /// Also ends the event loop; whoever runs the program calls startIfWanted() as its last act.
    void cx_relunch() override;
    /// The program is to end for good, whatever is asked for later: the session of the desktop ends.
    void forbid() { m_isForbidden = true; }
    /// In the present working folder and environment. Whether nothing was wanted or it could be started.
    [[nodiscard]] bool startIfWanted() const;

private:
    QString m_program;
    QStringList m_arguments;
    bool m_isWanted = false;
    bool m_isForbidden = false;
};
