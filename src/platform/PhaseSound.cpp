#include "platform/PhaseSound.h"

#include "model/settings/KWUserDefaults.h"
#include "platform/PhaseSoundPlayer.h"
#include "platform/Plugins.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QTemporaryFile> fileOfTones()
{
    auto file = std::make_unique<QTemporaryFile>(QDir::tempPath() + u"/orvane-XXXXXX.wav"_s);
    if (!file->open()) return nullptr;
    file->write(phaseTones());
    return file->flush() ? std::move(file) : nullptr;
}

} // namespace

PhaseSound::PhaseSound(const KWUserDefaults &defaults) : m_defaults(defaults) {}

PhaseSound::~PhaseSound() = default;

PhaseSoundPlayer *PhaseSound::player() const
{
    if (!m_player) m_player = Plugins::load<PhaseSoundPlayer>(u"sound"_s);
    return *m_player;
}

void PhaseSound::play()
{
    if (!m_defaults.value(Settings::notificationSound) || !player()) return;
    if (!m_tones) m_tones = fileOfTones();
    if (m_tones) player()->play(m_tones->fileName());
}
