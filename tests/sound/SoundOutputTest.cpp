// What the media output makes heard, recorded from a PulseAudio server of the
// test's own: two tone songs played as a list, the first paused in its
// middle. The recording must hold the first song's tone, silence while it is
// paused, the second song's tone right after the first ends, and sound for
// as long as the songs last. Skipped (77) without pulseaudio and parec.

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "host/engine/HostEngine.h"
#include "host/engine/HostOutputChoice.h"
#include "host/tools/samplegen/WavSynth.h"
#include "lists/MP_ListInterface.h"
#include "tests/sound/PulseServer.h"
#include "tests/sound/SinkRecording.h"
#include "tests/support/PathList.h"

namespace {

constexpr int kWaitMs = 15000;
constexpr int kFirstTone = 440;
constexpr int kSecondTone = 660;
constexpr int kSongSeconds = 2;
constexpr int kPauseMs = 600;

PulseServer* server = nullptr; // made by main() before Qt reads the sound setup

bool waitFor(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(kWaitMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

QString writeTone(const QTemporaryDir& folder, const QString& name, int frequency, int seconds = kSongSeconds)
{
    const WavSynth synth(8000);
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(synth.wavFile(synth.tone(frequency, seconds)));
    return file.fileName();
}

int soundingMs(const std::vector<SinkRecording::Stretch>& runs)
{
    int sounding = 0;
    for (const SinkRecording::Stretch& run : runs)
        sounding += run.sounds ? run.ms() : 0;
    return sounding;
}

class SoundOutputTest : public ::testing::Test {
protected:
    /** Plays a list of @p paths through the media output, once the sink's recording has begun. */
    void play(const QStringList& paths)
    {
        ASSERT_TRUE(waitFor([&] {
            return recording.sampleCount() >= SinkRecording::kRate / 10 || recording.hasFailed();
        }));
        ASSERT_FALSE(recording.hasFailed()) << "parec could not record the sink";
        HostOutputChoice::setKind(HostOutputKind::Media);
        engine = std::make_unique<HostEngine>(true, MP_LAUNCH_TYPE(0));
        ASSERT_STREQ(engine->output().name(), "media");
        list = std::make_unique<PathList>(paths);
        engine->setPlayList(list.get());
        engine->autoPlay(false);
    }

    /** Waits for the list's end, and for what the sink still holds of it and a quarter second of quiet after it. */
    void awaitTheEnd()
    {
        ASSERT_TRUE(waitFor([&] { return engine->control().getState() == MP_STATE_FINISHED; }))
            << "the list never ended";
        const int endedAt = recording.sampleCount();
        ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= endedAt + SinkRecording::kRate / 2; }));
    }

    QTemporaryDir songs;
    SinkRecording recording{server->address(), QString::fromLatin1(PulseServer::kSink)};
    std::unique_ptr<PathList> list;
    std::unique_ptr<HostEngine> engine;  ///< goes before the list it holds
};

TEST_F(SoundOutputTest, PlaysTheListPausesSilentlyAndStepsToTheNextTone)
{
    ASSERT_NO_FATAL_FAILURE(play({writeTone(songs, "low.wav", kFirstTone), writeTone(songs, "high.wav", kSecondTone)}));

    // Half way into the first song: pause, for a stretch of recorded time.
    ASSERT_TRUE(waitFor([&] { return engine->position() >= 1000; }));
    engine->getPlayerControl()->pause();
    const int pausedAt = recording.sampleCount();
    ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= pausedAt + kPauseMs * SinkRecording::kRate / 1000; }));
    EXPECT_EQ(engine->control().getState(), MP_STATE_PAUSED);
    engine->getPlayerControl()->play();
    ASSERT_NO_FATAL_FAILURE(awaitTheEnd());
    EXPECT_EQ(list->current, 1);

    const std::vector<SinkRecording::Stretch> runs = recording.stretches();
    ASSERT_GE(runs.size(), 3u) << "sound, the pause's silence, sound";
    // Both songs whole: 4 s of sound within 10%, resumed where it paused.
    EXPECT_NEAR(soundingMs(runs), 2 * kSongSeconds * 1000, 2 * kSongSeconds * 100);
    // Between the songs no silence but the pause's (a silence after the last
    // sound is the end), and that from within 100 ms of the pause on.
    std::vector<int> gaps;
    std::string stretches;
    for (const SinkRecording::Stretch& run : runs) {
        if (!run.sounds && &run != &runs.back() && run.ms() > 300)
            gaps.push_back(run.ms());
        stretches += (run.sounds ? " sound " : " silence ") + std::to_string(run.ms()) + " ms";
    }
    ASSERT_EQ(gaps.size(), 1u) << "only the pause is silent for more than 300 ms:" << stretches;
    EXPECT_GE(gaps.front(), kPauseMs - 100 - 100) << stretches;
    // The first song's tone first, the second's last.
    const int firstSound = runs.front().from;
    const int lastSoundEnd = (runs.back().sounds ? runs.back() : runs.at(runs.size() - 2)).to;
    const int half = SinkRecording::kRate / 2;
    EXPECT_NEAR(recording.dominantFrequency(firstSound + half / 5, firstSound + half), kFirstTone, 5);
    EXPECT_NEAR(recording.dominantFrequency(lastSoundEnd - half, lastSoundEnd - half / 5), kSecondTone, 5);
}

// A seek forward while playing: the song sounds until the seek, then from the
// asked place to its end, and then ends. Sound that stops after the seek, or
// an end that never comes, is the fault this guards against.
TEST_F(SoundOutputTest, SeekSkipsAheadAndTheRestSoundsToTheEnd)
{
    constexpr int kSeconds = 4;
    constexpr int kSeekAfterMs = 800;
    constexpr int kSeekMs = 1500;
    ASSERT_NO_FATAL_FAILURE(play({writeTone(songs, "long.wav", kFirstTone, kSeconds)}));
    ASSERT_TRUE(waitFor([&] { return engine->position() >= kSeekAfterMs; }));
    const int seekFrom = engine->position();
    engine->getPlayerControl()->seek(kSeekMs);
    engine->getPlayerControl()->seekFinished();
    ASSERT_NO_FATAL_FAILURE(awaitTheEnd());

    // Heard: the song less what the seek skipped (within 250 ms).
    EXPECT_NEAR(soundingMs(recording.stretches()), kSeconds * 1000 - kSeekMs, 250)
        << "seek asked at " << seekFrom << " ms";
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
