#pragma once
// Records what a PulseAudio sink plays (its monitor, through parec) as 16-bit
// mono samples at kRate, and reads the recording: where it sounds, where it
// is silent, and which pitch dominates a stretch of it.

#include <QByteArray>
#include <QProcess>
#include <QString>

#include <vector>

class SinkRecording {
public:
    static constexpr int kRate = 8000;
    /** Samples in one block of the silence test: 10 ms. */
    static constexpr int kBlock = kRate / 100;

    /** Starts recording the monitor of @p sink on the server at @p address. */
    SinkRecording(const QByteArray& address, const QString& sink);
    SinkRecording(const SinkRecording&) = delete;
    SinkRecording& operator=(const SinkRecording&) = delete;
    ~SinkRecording();

    /** Samples recorded so far (the event loop must run for more to come). */
    int sampleCount() const { return int(m_bytes.size() / 2); }
    qint16 sample(int index) const;
    bool hasFailed() const { return m_process.state() == QProcess::NotRunning; }

    /** Whether the 10 ms block at @p block sounds (its RMS above a whisper). */
    bool blockSounds(int block) const;
    /** Number of whole blocks recorded. */
    int blockCount() const { return sampleCount() / kBlock; }
    /** The frequency (Hz, in 5 Hz steps from 100 to 2000) of most energy in
     *  the samples [@p from, @p to). */
    int dominantFrequency(int from, int to) const;

private:
    QProcess m_process;
    QByteArray m_bytes;
};
