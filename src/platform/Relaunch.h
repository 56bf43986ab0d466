#pragma once

#include "app/ports/RelaunchPort.h"

#include <QStringList>

#include <functional>
#include <optional>

/// Starts the program again as a process of its own, when it was asked for, once this one has let
/// everything go. Main thread.
class Relaunch final : public RelaunchPort {
public:
    using Arguments = std::function<QStringList()>;
    /// `arguments` is asked when the new start is, while the windows are still open.
    Relaunch(QString program, Arguments arguments);

    /// Also ends the event loop; whoever runs the program calls startIfWanted() as its last act.
    void cx_relunch() override;
    /// The person would not have the program end.
    void forget() { m_wanted.reset(); }
    /// The program is to end for good, whatever is asked for later: the session of the desktop ends.
    void forbid() { m_isForbidden = true; }
    /// In the present working folder and environment. Whether nothing was wanted or it could be started.
    [[nodiscard]] bool startIfWanted() const;

private:
    QString m_program;
    Arguments m_arguments;
    std::optional<QStringList> m_wanted; // the arguments
    bool m_isForbidden = false;
};
