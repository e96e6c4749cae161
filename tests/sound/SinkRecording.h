#pragma once
// Records what a PulseAudio sink plays (its monitor, through parec) as 16-bit
// mono samples at kRate, and reads the recording: its stretches of sound and
// silence, and which pitch dominates a stretch of it.

#include <QByteArray>
#include <QProcess>
#include <QString>

#include <vector>

class SinkRecording {
public:
    static constexpr int kRate = 8000;

    /** A run of sounding or of silent 10 ms blocks: samples [from, to). */
    struct Stretch {
        bool sounds;
        int from;
        int to;
        int ms() const { return (to - from) * 1000 / kRate; }
    };

    /** Starts recording the monitor of @p sink on the server at @p address. */
    SinkRecording(const QByteArray& address, const QString& sink);
    SinkRecording(const SinkRecording&) = delete;
    SinkRecording& operator=(const SinkRecording&) = delete;
    ~SinkRecording();

    /** Samples recorded so far (the event loop must run for more to come). */
    int sampleCount() const { return int(m_bytes.size() / 2); }
    bool hasFailed() const { return m_process.state() == QProcess::NotRunning; }

    /** The stretches of the recording, from its first sounding block on. */
    std::vector<Stretch> stretches() const;
    /** The frequency (Hz, in 5 Hz steps from 100 to 2000) of most energy in
     *  the samples [@p from, @p to). */
    int dominantFrequency(int from, int to) const;

private:
    qint16 sample(int index) const;
    bool blockSounds(int firstSample) const;

    QProcess m_process;
    QByteArray m_bytes;
};
