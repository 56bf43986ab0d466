#pragma once

#include "model/records/KWConstants.h"

/// What the engine of Pomos asks of the coordinator. Main thread.
class FocusModePort {
public:
    virtual ~FocusModePort() = default;
    virtual void setFocusType(KWFocusType type) = 0;
    /// The stopwatch runs or is paused, whichever type is the current one.
    virtual bool isStopwatchBusy() const = 0;
};
