#pragma once

#include "focus/FocusPorts.h"

#include <QTemporaryFile>

#include <memory>
#include <optional>

class KWUserDefaults;
class PhaseSoundPlayer;

/// Two soft tones at the end of a Pomo or break, played by the plugin `sound`, which is loaded for the first
/// of them. A program that has none is silent: then the desktop's server of messages is asked for a sound.
/// So it is when the preferences want none. Main thread.
class PhaseSound : public FocusSoundPort {
public:
    /// The defaults outlive it.
    explicit PhaseSound(const KWUserDefaults &defaults);
    ~PhaseSound() override;

    bool isPresent() const override { return player() != nullptr; }
    void play() override;

private:
    PhaseSoundPlayer *player() const;

    const KWUserDefaults &m_defaults;
    mutable std::optional<PhaseSoundPlayer *> m_player; // none before it was looked for
    std::unique_ptr<QTemporaryFile> m_tones;            // none before the first time
};

/// The tones as a WAVE file: PCM, 16 bits, one channel.
QByteArray phaseTones();
