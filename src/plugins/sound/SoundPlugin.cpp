#include "platform/PhaseSoundPlayer.h"

#include <QSoundEffect>
#include <QUrl>

class SoundPlugin : public QObject, public PhaseSoundPlayer {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.orvane.PhaseSoundPlayer/1")
    Q_INTERFACES(PhaseSoundPlayer)

public:
    void play(const QString &waveFile) override
    {
        m_effect.setSource(QUrl::fromLocalFile(waveFile));
        m_effect.play();
    }

private:
    QSoundEffect m_effect;
};

#include "SoundPlugin.moc"
