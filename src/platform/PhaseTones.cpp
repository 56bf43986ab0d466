#include "platform/PhaseSound.h"

#include <QtEndian>

#include <cmath>
#include <numbers>

namespace {

constexpr int samplesOfSecond = 44100;
constexpr double loudness = 0.25;
constexpr double fading = 4; // how fast a tone dies away

struct Tone {
    double hertz;
    double seconds;
};
constexpr Tone tones[] = {{659.25, 0.35}, {880.0, 0.75}};

template <class Number>
void append(QByteArray &bytes, Number number)
{
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

void append(QByteArray &samples, const Tone &tone)
{
    const int count = int(tone.seconds * samplesOfSecond);
    for (int each = 0; each < count; ++each) {
        const double time = double(each) / samplesOfSecond;
        // Neither its beginning nor its end clicks.
        const double rise = std::min(1.0, time / 0.01), fall = std::min(1.0, (tone.seconds - time) / 0.05);
        const double wave = std::sin(2 * std::numbers::pi * tone.hertz * time);
        append(samples,
               qint16(std::lround(32767 * loudness * rise * fall * std::exp(-fading * time) * wave)));
    }
}

} // namespace

// RIFF WAVE, with the chunks "fmt " and "data".
QByteArray phaseTones()
{
    QByteArray samples;
    for (const Tone &each : tones)
        append(samples, each);
    QByteArray file{"RIFF"};
    append(file, quint32(36 + samples.size()));
    file += "WAVEfmt ";
    append(file, quint32(16));
    append(file, quint16(1)); // PCM
    append(file, quint16(1)); // channels
    append(file, quint32(samplesOfSecond));
    append(file, quint32(samplesOfSecond * 2));
    append(file, quint16(2));
    append(file, quint16(16));
    file += "data";
    append(file, quint32(samples.size()));
    return file + samples;
}
