// What the media output makes heard, recorded from a PulseAudio server of the
// test's own: two tone songs played as a list, the first paused in its
// middle, the second sought forward. The recording must hold the first
// song's tone, silence while it is paused, the second song's tone right after
// the first ends, and sound for as long as the songs last less what the seek
// skipped. Skipped (77) without pulseaudio and parec.

#include <QApplication>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

#include "host/engine/HostEngine.h"
#include "host/engine/HostOutputChoice.h"
#include "host/tools/samplegen/WavSynth.h"
#include "tests/sound/PulseServer.h"
#include "tests/sound/SinkRecording.h"
#include "tests/support/PathList.h"
#include "tests/support/TestEnvironment.h"

namespace {

constexpr int kWaitMs = 15000;
constexpr int kFirstTone = 440;
constexpr int kSecondTone = 660;
constexpr int kFirstSeconds = 2;
constexpr int kSecondSeconds = 4;
constexpr int kPauseMs = 600;
constexpr int kSeekMs = 1500;

PulseServer* server = nullptr; // made by main() before Qt reads the sound setup

bool waitFor(const std::function<bool()>& condition)
{
    return waitUntil(condition, kWaitMs);
}

QString writeTone(const QTemporaryDir& folder, const QString& name, int frequency, int seconds)
{
    const WavSynth synth(8000);
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(synth.wavFile(synth.tone(frequency, seconds)));
    return file.fileName();
}

TEST(SoundOutputTest, PausesSilentlyStepsToTheNextToneAndSeeksAhead)
{
    const QTemporaryDir songs;
    SinkRecording recording(server->address(), QString::fromLatin1(PulseServer::kSink));
    ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= SinkRecording::kRate / 10 || recording.hasFailed(); }));
    ASSERT_FALSE(recording.hasFailed()) << "parec could not record the sink";
    HostOutputChoice::setKind(HostOutputKind::Media);
    PathList list({writeTone(songs, "low.wav", kFirstTone, kFirstSeconds),
                   writeTone(songs, "high.wav", kSecondTone, kSecondSeconds)});
    HostEngine engine(true, MP_LAUNCH_TYPE(0));  // goes before the list it holds
    ASSERT_STREQ(engine.output().name(), "media");
    engine.setPlayList(&list);
    engine.autoPlay(false);

    // Half way into the first song: pause, for a stretch of recorded time.
    ASSERT_TRUE(waitFor([&] { return engine.position() >= 1000; }));
    engine.control().pause();
    const int pausedAt = recording.sampleCount();
    ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= pausedAt + kPauseMs * SinkRecording::kRate / 1000; }));
    EXPECT_EQ(engine.control().getState(), MP_STATE_PAUSED);
    engine.control().play();
    // Into the second song: a seek forward, after which the rest must sound
    // to the end, and the end come.
    ASSERT_TRUE(waitFor([&] { return list.current == 1 && engine.position() >= 800; }));
    engine.control().seek(kSeekMs);
    engine.control().seekFinished();
    ASSERT_TRUE(waitFor([&] { return engine.control().getState() == MP_STATE_FINISHED; }))
        << "the list never ended";
    // What the sink still holds of it, and half a second of quiet after it.
    const int endedAt = recording.sampleCount();
    ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= endedAt + SinkRecording::kRate / 2; }));

    const std::vector<SinkRecording::Stretch> runs = recording.stretches();
    ASSERT_GE(runs.size(), 3u) << "sound, the pause's silence, sound";
    // Between the songs no silence but the pause's (a silence after the last
    // sound is the end), and that from within 100 ms of the pause on.
    int sounding = 0;
    std::vector<int> gaps;
    std::string stretches;
    for (const SinkRecording::Stretch& run : runs) {
        sounding += run.sounds ? run.ms() : 0;
        if (!run.sounds && &run != &runs.back() && run.ms() > 300)
            gaps.push_back(run.ms());
        stretches += (run.sounds ? " sound " : " silence ") + std::to_string(run.ms()) + " ms";
    }
    ASSERT_EQ(gaps.size(), 1u) << "only the pause is silent for more than 300 ms:" << stretches;
    EXPECT_GE(gaps.front(), kPauseMs - 100 - 100) << stretches;
    // Both songs, resumed where it paused, less what the seek skipped.
    EXPECT_NEAR(sounding, (kFirstSeconds + kSecondSeconds) * 1000 - kSeekMs, 300) << stretches;
    // The first song's tone first, the second's last.
    const int firstSound = runs.front().from;
    const int lastSoundEnd = (runs.back().sounds ? runs.back() : runs.at(runs.size() - 2)).to;
    const int half = SinkRecording::kRate / 2;
    EXPECT_NEAR(recording.dominantFrequency(firstSound + half / 5, firstSound + half), kFirstTone, 5);
    EXPECT_NEAR(recording.dominantFrequency(lastSoundEnd - half, lastSoundEnd - half / 5), kSecondTone, 5);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    if (QStandardPaths::findExecutable(QStringLiteral("parec")).isEmpty()) {
        std::fprintf(stderr, "skipped: no parec (scripts/install-deps.sh installs pulseaudio-utils)\n");
        return 77;
    }
    PulseServer pulse;
    if (!pulse.isRunning()) {
        std::fprintf(stderr, "skipped: %s\n", qPrintable(pulse.error()));
        return 77;
    }
    server = &pulse;
    // Qt and GStreamer find the server through the environment when they first look.
    qputenv("PULSE_SERVER", pulse.address());
    return RUN_ALL_TESTS();
}
