#pragma once

#include <functional>

/// The place on the desktop for the items of programs that run in the background. It may come later than
/// the program, which starts with the session. The base is the desktop that has none. Main thread.
class StatusAreaPort {
public:
    virtual ~StatusAreaPort() = default;
    virtual bool isThere() const { return false; }
    /// It has come.
    std::function<void()> onAppeared;
};
