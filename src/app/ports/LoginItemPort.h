#pragma once

#include "corvexkit/Result.h"

/// Whether the program starts with the session of the desktop.
enum class LoginStart {
    Off,
    InBackground, ///< without a window
    WithWindow,
};

/// The base is the desktop that has no such thing. Main thread.
class LoginItemPort {
public:
    virtual ~LoginItemPort() = default;
    virtual bool isAvailable() const { return false; }
    virtual LoginStart start() const { return LoginStart::Off; }
    virtual Result<void> setStart(LoginStart /*start*/) { return {}; }
};
