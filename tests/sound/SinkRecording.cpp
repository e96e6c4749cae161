#include "tests/sound/SinkRecording.h"

#include <QtEndian>

#include <cmath>

namespace {

// A tone at a tenth of full scale sounds; the silence of a paused or idle
// sink is exact zeros, with at most a little resampling noise.
constexpr double kSoundingRms = 300.0;
constexpr int kBlock = SinkRecording::kRate / 100;

} // namespace

SinkRecording::SinkRecording(const QByteArray& address, const QString& sink)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PULSE_SERVER"), QString::fromLocal8Bit(address));
    m_process.setProcessEnvironment(environment);
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput,
                     [this] { m_bytes += m_process.readAllStandardOutput(); });
    // Small fragments, so that what plays reaches the recording at once.
    m_process.start(QStringLiteral("parec"),
                    {QStringLiteral("--device=") + sink + QStringLiteral(".monitor"), QStringLiteral("--raw"),
                     QStringLiteral("--format=s16le"), QStringLiteral("--channels=1"),
                     QStringLiteral("--rate=%1").arg(kRate), QStringLiteral("--latency-msec=20")});
}

SinkRecording::~SinkRecording()
{
    m_process.kill();
    m_process.waitForFinished(5000);
}

qint16 SinkRecording::sample(int index) const
{
    return qFromLittleEndian<qint16>(m_bytes.constData() + 2 * index);
}

bool SinkRecording::blockSounds(int firstSample) const
{
    double sum = 0;
    for (int i = firstSample; i < firstSample + kBlock; ++i)
        sum += double(sample(i)) * sample(i);
    return std::sqrt(sum / kBlock) > kSoundingRms;
}

std::vector<SinkRecording::Stretch> SinkRecording::stretches() const
{
    std::vector<Stretch> runs;
    for (int first = 0; first + kBlock <= sampleCount(); first += kBlock) {
        const bool sounds = blockSounds(first);
        if (runs.empty() && !sounds)
            continue;
        if (runs.empty() || runs.back().sounds != sounds)
            runs.push_back({sounds, first, first});
        runs.back().to = first + kBlock;
    }
    return runs;
}

// Goertzel's filter at each candidate frequency: the energy there, without a
// whole Fourier transform.
int SinkRecording::dominantFrequency(int from, int to) const
{
    int best = 0;
    double bestPower = -1;
    for (int frequency = 100; frequency <= 2000; frequency += 5) {
        const double coefficient = 2.0 * std::cos(2.0 * M_PI * frequency / kRate);
        double previous = 0;
        double beforePrevious = 0;
        for (int i = from; i < to; ++i) {
            const double current = sample(i) + coefficient * previous - beforePrevious;
            beforePrevious = previous;
            previous = current;
        }
        const double power = previous * previous + beforePrevious * beforePrevious
            - coefficient * previous * beforePrevious;
        if (power > bestPower) {
            bestPower = power;
            best = frequency;
        }
    }
    return best;
}
