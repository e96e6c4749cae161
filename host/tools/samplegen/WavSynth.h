#pragma once
// Synthesizes short, gentle melodies as 16-bit mono PCM and wraps them in a
// RIFF/WAVE file. A seed picks key, tempo and notes, so the same seed always
// gives the same bytes.

#include <QByteArray>
#include <vector>

class WavSynth {
public:
    static constexpr int kChannels = 1;
    static constexpr int kBitsPerSample = 16;
    static constexpr int kBytesPerSample = kBitsPerSample / 8;
    static constexpr int kHeaderSize = 44;  // RIFF header + "fmt " chunk + "data" chunk header

    /** A synthesizer for the given sample rate in Hz (expects 8000..48000). */
    explicit WavSynth(int sampleRate);

    int sampleRate() const { return m_sampleRate; }

    /** The PCM data (little-endian 16-bit mono) of a melody exactly `seconds`
     *  long, with notes, key and tempo drawn from `seed`. Empty for seconds <= 0. */
    QByteArray melody(quint32 seed, int seconds) const;

    /** The PCM data of one steady sine tone of `frequency` Hz, exactly
     *  `seconds` long, at half of full scale, faded in and out over 20 ms so
     *  that it starts and stops without a click. Empty for seconds <= 0. */
    QByteArray tone(int frequency, int seconds) const;

    /** A complete RIFF/WAVE file holding `pcm` at this rate: the 44-byte
     *  header followed by the data (padded to an even size). */
    QByteArray wavFile(const QByteArray& pcm) const;

    /** The number of PCM bytes a melody of `seconds` takes at this rate. */
    qint64 pcmBytesFor(int seconds) const;

private:
    // Adds one plucked note: fast attack, exponential decay, short release,
    // so consecutive notes never click.
    void addNote(std::vector<double>& mix, qint64 start, qint64 length, double frequency,
                 double amplitude) const;
    // Fades the whole piece in and out, so playback starts and stops softly.
    void applyFades(std::vector<double>& mix) const;
    static QByteArray toPcm16(const std::vector<double>& mix);

    int m_sampleRate;
};
