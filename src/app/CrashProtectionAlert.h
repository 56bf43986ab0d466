#pragma once

#include <QString>

#include <functional>

/// What KWBootingProtection shows in place of a normal launch.
class CrashProtectionAlert {
public:
    virtual ~CrashProtectionAlert() = default;

    /// Shows the alert, modally or not. `continuation` is the normal launch, for the choice to start
    /// after all; it is called at most once.
    virtual void runModal(const QString &title, const QString &message,
                          std::function<void()> continuation) = 0;
};
