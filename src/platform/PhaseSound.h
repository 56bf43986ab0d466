#pragma once

#include "focus/FocusPorts.h"

#include <memory>

class KWUserDefaults;

/// Two soft tones at the end of a Pomo or break, played by Qt Multimedia. A program that was built without it
/// is silent: then the desktop's server of messages is asked for a sound. So it is when the preferences want
/// none. Main thread.
class PhaseSound : public FocusSoundPort {
public:
    /// The defaults outlive it.
    explicit PhaseSound(const KWUserDefaults &defaults);
    ~PhaseSound() override;

    bool isPresent() const override;
    void play() override;

private:
    struct Player;

    const KWUserDefaults &m_defaults;
    std::unique_ptr<Player> m_player; // none before the first time
};

/// The tones as a WAVE file: PCM, 16 bits, one channel.
QByteArray phaseTones();
