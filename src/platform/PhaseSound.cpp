#include "platform/PhaseSound.h"

#include "model/settings/KWUserDefaults.h"

#ifdef ORVANE_MULTIMEDIA

#include <QDir>
#include <QSoundEffect>
#include <QTemporaryFile>
#include <QUrl>

struct PhaseSound::Player {
    Player()
    {
        if (!file.open()) return;
        file.write(phaseTones());
        file.flush();
        effect.setSource(QUrl::fromLocalFile(file.fileName()));
    }
    void play() { effect.play(); }

    QTemporaryFile file{QDir::tempPath() + QStringLiteral("/orvane-XXXXXX.wav")};
    QSoundEffect effect;
};

bool PhaseSound::isPresent() const { return true; }

#else

struct PhaseSound::Player {
    void play() {}
};

bool PhaseSound::isPresent() const { return false; }

#endif

PhaseSound::PhaseSound(const KWUserDefaults &defaults) : m_defaults(defaults) {}

PhaseSound::~PhaseSound() = default;

void PhaseSound::play()
{
    if (!m_defaults.value(Settings::notificationSound)) return;
    if (!m_player) m_player = std::make_unique<Player>();
    m_player->play();
}
