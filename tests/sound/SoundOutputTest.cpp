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

#include "clients/MP_PlayerListener.h"
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

class StateWatch : public MP_PlayerListener {
public:
    void updateState(MP_PLAYER_STATE s) override { state = s; }
    void updateTime(int elapsed, int) override { time = elapsed; }
    void updateBuffering(int) override {}
    void updateDownloadProgress(int, int) override {}
    void updateDownloadComplete() override {}
    void updateMetaInfo(const QString&, const QString&, const QString&, QByteArray, bool) override {}
    void updateConnectionStatus(int) override {}

    MP_PLAYER_STATE state = MP_STATE_NONE;
    int time = 0;
};

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

// The runs of sounding and silent 10 ms blocks, from the first sounding one.
struct Stretch {
    bool sounds;
    int firstBlock;
    int blocks;
};

std::vector<Stretch> stretchesOf(const SinkRecording& recording)
{
    std::vector<Stretch> runs;
    for (int block = 0; block < recording.blockCount(); ++block) {
        const bool sounds = recording.blockSounds(block);
        if (runs.empty() && !sounds)
            continue;
        if (runs.empty() || runs.back().sounds != sounds)
            runs.push_back({sounds, block, 0});
        ++runs.back().blocks;
    }
    return runs;
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
        engine->addPlayerListener(&watch);
        list = std::make_unique<PathList>(paths);
        engine->setPlayList(list.get());
        engine->autoPlay(false);
    }

    /** Waits for the list's end, and for what the sink still holds of it and a quarter second of quiet after it. */
    void awaitTheEnd()
    {
        ASSERT_TRUE(waitFor([&] { return watch.state == MP_STATE_FINISHED; })) << "the list never ended";
        const int endedAt = recording.sampleCount();
        ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= endedAt + SinkRecording::kRate / 2; }));
    }

    QTemporaryDir songs;
    SinkRecording recording{server->address(), QString::fromLatin1(PulseServer::kSink)};
    StateWatch watch;
    std::unique_ptr<PathList> list;
    std::unique_ptr<HostEngine> engine;  ///< goes before the list and the listener it holds
};

TEST_F(SoundOutputTest, PlaysTheListPausesSilentlyAndStepsToTheNextTone)
{
    ASSERT_NO_FATAL_FAILURE(play({writeTone(songs, "low.wav", kFirstTone), writeTone(songs, "high.wav", kSecondTone)}));

    // Half way into the first song: pause, for a stretch of recorded time.
    ASSERT_TRUE(waitFor([&] { return watch.time >= 1000; }));
    engine->getPlayerControl()->pause();
    const int pausedAt = recording.sampleCount();
    ASSERT_TRUE(waitFor([&] { return recording.sampleCount() >= pausedAt + kPauseMs * SinkRecording::kRate / 1000; }));
    EXPECT_EQ(watch.state, MP_STATE_PAUSED);
    engine->getPlayerControl()->play();
    ASSERT_NO_FATAL_FAILURE(awaitTheEnd());
    EXPECT_EQ(list->current, 1);

    const std::vector<Stretch> runs = stretchesOf(recording);
    ASSERT_GE(runs.size(), 3u) << "sound, the pause's silence, sound";
    int sounding = 0;
    int longestSilence = 0;
    int gaps = 0;
    std::string stretches;
    for (const Stretch& run : runs) {
        sounding += run.sounds ? run.blocks : 0;
        // A silence after the last sound is the end, not a gap.
        if (!run.sounds && &run != &runs.back()) {
            longestSilence = std::max(longestSilence, run.blocks);
            gaps += run.blocks * 10 > 300 ? 1 : 0;
        }
        stretches += (run.sounds ? " sound " : " silence ") + std::to_string(run.blocks * 10) + " ms";
    }
    // Both songs whole: 4 s of sound within 10%, resumed where it paused.
    EXPECT_NEAR(sounding * 10, 2 * kSongSeconds * 1000, 2 * kSongSeconds * 100);
    // Paused: silent within 100 ms of the pause, until it plays again.
    EXPECT_GE(longestSilence * 10, kPauseMs - 100 - 100);
    // The first song's tone first, the second's last; between them no
    // silence but the pause's.
    const int firstSound = runs.front().firstBlock * SinkRecording::kBlock;
    const Stretch& lastSound = runs.back().sounds ? runs.back() : runs.at(runs.size() - 2);
    const int lastSoundEnd = (lastSound.firstBlock + lastSound.blocks) * SinkRecording::kBlock;
    const int half = SinkRecording::kRate / 2;
    EXPECT_NEAR(recording.dominantFrequency(firstSound + half / 5, firstSound + half), kFirstTone, 5);
    EXPECT_NEAR(recording.dominantFrequency(lastSoundEnd - half, lastSoundEnd - half / 5), kSecondTone, 5);
    EXPECT_EQ(gaps, 1) << "only the pause is silent for more than 300 ms:" << stretches;
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
    ASSERT_TRUE(waitFor([&] { return watch.time >= kSeekAfterMs; }));
    const int seekFrom = watch.time;
    engine->getPlayerControl()->seek(kSeekMs);
    engine->getPlayerControl()->seekFinished();
    ASSERT_NO_FATAL_FAILURE(awaitTheEnd());

    int sounding = 0;
    for (const Stretch& run : stretchesOf(recording))
        sounding += run.sounds ? run.blocks * 10 : 0;
    // Heard: the song less what the seek skipped (within 250 ms).
    EXPECT_NEAR(sounding, kSeconds * 1000 - kSeekMs, 250) << "seek asked at " << seekFrom << " ms";
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
