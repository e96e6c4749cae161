#include "WavSynth.h"

#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr double kPi = 3.14159265358979323846;

// The major pentatonic scale: any two of its notes sound well together, so a
// random walk over it always gives a pleasant tune.
constexpr int kPentatonic[] = {0, 2, 4, 7, 9};
constexpr int kScaleLength = 5;
constexpr int kHighestDegree = 2 * kScaleLength - 1;  // two octaves

constexpr double kMelodyLevel = 0.45;
constexpr double kBassLevel = 0.2;

double midiToHz(int note) { return 440.0 * std::pow(2.0, (note - 69) / 12.0); }

int semitonesOf(int degree)
{
    return 12 * (degree / kScaleLength) + kPentatonic[degree % kScaleLength];
}

void appendLe16(QByteArray& out, quint16 value)
{
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}

void appendLe32(QByteArray& out, quint32 value)
{
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

}  // namespace

WavSynth::WavSynth(int sampleRate) : m_sampleRate(sampleRate) {}

qint64 WavSynth::pcmBytesFor(int seconds) const
{
    return seconds <= 0 ? 0 : qint64(seconds) * m_sampleRate * kChannels * kBytesPerSample;
}

QByteArray WavSynth::melody(quint32 seed, int seconds) const
{
    if (seconds <= 0 || m_sampleRate <= 0)
        return QByteArray();
    const qint64 total = qint64(seconds) * m_sampleRate;
    std::vector<double> mix(static_cast<size_t>(total), 0.0);

    // minstd_rand's sequence is fixed by the C++ standard, unlike the
    // distributions, so only its raw output is used.
    std::minstd_rand random(seed);
    const int rootNote = 55 + int(random() % 10);           // G3 .. E4
    const qint64 beat = m_sampleRate * (220 + int(random() % 5) * 40) / 1000;
    // The last beat and a half are left for the closing root note and the fade.
    const qint64 melodyEnd = total - beat * 3 / 2;

    int degree = int(random() % kScaleLength);
    qint64 position = 0;
    while (position < melodyEnd) {
        const qint64 length = std::min<qint64>((random() % 4 == 0 ? 2 : 1) * beat, melodyEnd - position);
        addNote(mix, position, length, midiToHz(rootNote + semitonesOf(degree)), kMelodyLevel);
        position += length;
        degree = std::clamp(degree + int(random() % 5) - 2, 0, kHighestDegree);
    }
    // A bass note at every bar of four beats, root and fifth in turn, an octave down.
    const qint64 bar = 4 * beat;
    for (qint64 barStart = 0, index = 0; barStart < total; barStart += bar, ++index) {
        const int bassNote = rootNote - 12 + (index % 2 == 0 ? 0 : 7);
        addNote(mix, barStart, std::min(bar, total - barStart), midiToHz(bassNote), kBassLevel);
    }
    addNote(mix, position, total - position, midiToHz(rootNote), kMelodyLevel);
    applyFades(mix);
    return toPcm16(mix);
}

QByteArray WavSynth::tone(int frequency, int seconds) const
{
    if (seconds <= 0 || m_sampleRate <= 0)
        return QByteArray();
    std::vector<double> mix(size_t(qint64(seconds) * m_sampleRate));
    const double step = 2.0 * kPi * frequency / m_sampleRate;
    const qint64 fade = std::max<qint64>(1, m_sampleRate * 20 / 1000);
    const qint64 total = qint64(mix.size());
    for (qint64 i = 0; i < total; ++i) {
        const double envelope = std::min({1.0, double(i) / double(fade), double(total - 1 - i) / double(fade)});
        mix[size_t(i)] = 0.5 * envelope * std::sin(step * double(i));
    }
    return toPcm16(mix);
}

void WavSynth::addNote(std::vector<double>& mix, qint64 start, qint64 length, double frequency,
                       double amplitude) const
{
    if (length <= 0)
        return;
    const qint64 attack = std::max<qint64>(1, m_sampleRate * 8 / 1000);
    const qint64 release = std::min<qint64>(length / 2, m_sampleRate * 20 / 1000);
    const double step = 2.0 * kPi * frequency / m_sampleRate;
    for (qint64 i = 0; i < length; ++i) {
        double envelope = std::exp(-2.5 * double(i) / double(length));
        if (i < attack)
            envelope *= double(i) / double(attack);
        if (i >= length - release && release > 0)
            envelope *= double(length - i) / double(release);
        // A few soft overtones make it sound like a plucked string, not a test tone.
        const double phase = step * double(i);
        const double tone = (std::sin(phase) + 0.35 * std::sin(2 * phase) + 0.12 * std::sin(3 * phase)) / 1.47;
        mix[size_t(start + i)] += amplitude * envelope * tone;
    }
}

void WavSynth::applyFades(std::vector<double>& mix) const
{
    const qint64 total = qint64(mix.size());
    const qint64 fadeIn = std::min<qint64>(total / 2, m_sampleRate * 20 / 1000);
    const qint64 fadeOut = std::min<qint64>(total / 2, m_sampleRate * 250 / 1000);
    for (qint64 i = 0; i < fadeIn; ++i)
        mix[size_t(i)] *= double(i) / double(fadeIn);
    for (qint64 i = 0; i < fadeOut; ++i)
        mix[size_t(total - 1 - i)] *= double(i) / double(fadeOut);
}

QByteArray WavSynth::toPcm16(const std::vector<double>& mix)
{
    QByteArray pcm;
    pcm.reserve(int(mix.size()) * kBytesPerSample);
    for (const double value : mix) {
        const long sample = std::lround(std::clamp(value, -1.0, 1.0) * 32767.0);
        appendLe16(pcm, quint16(qint16(sample)));
    }
    return pcm;
}

QByteArray WavSynth::wavFile(const QByteArray& pcm) const
{
    const quint32 dataSize = quint32(pcm.size());
    const bool padded = dataSize % 2 != 0;
    QByteArray wav;
    wav.reserve(kHeaderSize + pcm.size() + 1);
    wav.append("RIFF", 4);
    appendLe32(wav, 36 + dataSize + (padded ? 1 : 0));
    wav.append("WAVE", 4);
    wav.append("fmt ", 4);
    appendLe32(wav, 16);
    appendLe16(wav, 1);  // integer PCM
    appendLe16(wav, kChannels);
    appendLe32(wav, quint32(m_sampleRate));
    appendLe32(wav, quint32(m_sampleRate * kChannels * kBytesPerSample));
    appendLe16(wav, kChannels * kBytesPerSample);
    appendLe16(wav, kBitsPerSample);
    wav.append("data", 4);
    appendLe32(wav, dataSize);
    wav.append(pcm);
    if (padded)
        wav.append('\0');
    return wav;
}
