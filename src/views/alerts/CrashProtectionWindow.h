#pragma once

#include "app/CrashProtectionAlert.h"

/// The alert after several starts that ended at once: start normally, or quit.
class CrashProtectionWindow : public CrashProtectionAlert {
public:
    void runModal(const QString &title, const QString &message, std::function<void()> continuation) override;
};
