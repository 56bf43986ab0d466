#pragma once

#include <QtPlugin>

/// What the plugin `sound` does: it plays through Qt Multimedia.
class PhaseSoundPlayer {
public:
    virtual ~PhaseSoundPlayer() = default;

    /// A file of PCM samples that stays where it is. Answers at once.
    virtual void play(const QString &waveFile) = 0;
};

Q_DECLARE_INTERFACE(PhaseSoundPlayer, "org.orvane.PhaseSoundPlayer/1")
