// What real playback costs, measured on the host application as a person runs
// it: mediaplayer plays an album of the sample library through the media
// output into a PulseAudio server of this program's own (a null sink), whose
// monitor is recorded.
//   - BM_LaunchToFirstSound: from starting `mediaplayer --action ...` to the
//     first sounding 10 ms of the recording;
//   - BM_AlbumPlayed: the player's CPU time per minute played (as a share of
//     one core) and its resident memory when the first song is heard and at
//     the album's end; /0 from the sample library's WAV files, /1 from MP3
//     copies of them (Mp3Copy), scanned into a database of their own.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <vector>

#include <sys/resource.h>

#include "bench/Mp3Copy.h"
#include "tests/sound/PulseServer.h"
#include "tests/sound/SinkRecording.h"

namespace {

const int kTimeoutMs = 60000;
// Northern Lights: four songs, 26 s.
const QStringList kAlbumAction{"--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=0",
                               "Album=Northern Lights", "isAllGenre=1", "isAllComposer=1", "FirstIndex=0",
                               "StorageLocation=2"};
constexpr double kAlbumSeconds = 26.0;

PulseServer* g_server = nullptr;
QTemporaryDir* g_work = nullptr;

bool runTool(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(MP_BIN_DIR "/") + tool, arguments);
    return process.waitForFinished(kTimeoutMs) && process.exitCode() == 0;
}

enum class SongFormat { Wav, Mp3 };

QString dataFolder(SongFormat format)
{
    return g_work->filePath(format == SongFormat::Wav ? QStringLiteral("data") : QStringLiteral("data-mp3"));
}

bool scan(const QString& library, SongFormat format)
{
    return runTool(QStringLiteral("mp-scan"), {QStringLiteral("--data-dir"), dataFolder(format), library});
}

bool prepareLibraries()
{
    const QString library = g_work->filePath(QStringLiteral("library"));
    const QString mp3Library = g_work->filePath(QStringLiteral("library-mp3"));
    return runTool(QStringLiteral("mp-samplegen"), {library}) && scan(library, SongFormat::Wav)
        && Mp3Copy::copyFolder(library, mp3Library) && scan(mp3Library, SongFormat::Mp3);
}

void startPlayer(QProcess& player, SongFormat format = SongFormat::Wav)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PULSE_SERVER"), QString::fromLocal8Bit(g_server->address()));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    player.setProcessEnvironment(environment);
    player.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    player.start(QStringLiteral(MP_BIN_DIR "/mediaplayer"),
                 QStringList{"--data-dir", dataFolder(format), "--quiet", "--output", "media"}
                     + kAlbumAction);
}

bool waitFor(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(kTimeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
    }
    return true;
}

// Whether the recording sounds anywhere past its first @p firstSample samples.
bool soundsFrom(const SinkRecording& recording, int firstSample)
{
    const std::vector<SinkRecording::Stretch> stretches = recording.stretches();
    return std::any_of(stretches.begin(), stretches.end(), [firstSample](const SinkRecording::Stretch& stretch) {
        return stretch.sounds && stretch.to > firstSample;
    });
}

double residentMegabytes(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    }
    return 0;
}

double childCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

void BM_LaunchToFirstSound(benchmark::State& state)
{
    SinkRecording recording(g_server->address(), QString::fromLatin1(PulseServer::kSink));
    if (!waitFor([&] { return recording.sampleCount() > 0 || recording.hasFailed(); }) || recording.hasFailed()) {
        state.SkipWithError("cannot record the sink");
        return;
    }
    for (auto _ : state) {
        const int fromSample = recording.sampleCount();
        QElapsedTimer clock;
        clock.start();
        QProcess player;
        startPlayer(player);
        if (!waitFor([&] { return soundsFrom(recording, fromSample); })) {
            state.SkipWithError("no sound came");
            return;
        }
        state.SetIterationTime(double(clock.nsecsElapsed()) / 1e9);
        player.kill();
        player.waitForFinished(kTimeoutMs);
    }
}
BENCHMARK(BM_LaunchToFirstSound)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_AlbumPlayed(benchmark::State& state)
{
    const SongFormat format = state.range(0) == 0 ? SongFormat::Wav : SongFormat::Mp3;
    state.SetLabel(format == SongFormat::Wav ? "WAV" : "MP3");
    SinkRecording recording(g_server->address(), QString::fromLatin1(PulseServer::kSink));
    if (!waitFor([&] { return recording.sampleCount() > 0 || recording.hasFailed(); }) || recording.hasFailed()) {
        state.SkipWithError("cannot record the sink");
        return;
    }
    for (auto _ : state) {
        const double cpuBefore = childCpuSeconds();
        const int fromSample = recording.sampleCount();
        QProcess player;
        startPlayer(player, format);
        player.waitForStarted(kTimeoutMs);
        const qint64 pid = player.processId();
        // Memory once the first song is heard, and last before the player ends.
        double startMb = 0;
        double endMb = 0;
        waitFor([&] {
            const double now = residentMegabytes(pid);
            if (startMb == 0 && soundsFrom(recording, fromSample))
                startMb = now;
            if (now > 0)
                endMb = now;
            return player.state() == QProcess::NotRunning;
        });
        const double cpu = childCpuSeconds() - cpuBefore;
        state.counters["cpu_percent_of_a_core"] = 100.0 * cpu / kAlbumSeconds;
        state.counters["cpu_s_per_minute_played"] = 60.0 * cpu / kAlbumSeconds;
        state.counters["rss_first_sound_MB"] = startMb;
        state.counters["rss_end_MB"] = endMb;
        state.counters["rss_growth_MB"] = endMb - startMb;
    }
}
BENCHMARK(BM_AlbumPlayed)->Arg(0)->Arg(1)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    QCoreApplication app(argc, argv);
    PulseServer pulse;
    QTemporaryDir work;
    if (!pulse.isRunning()) {
        std::fprintf(stderr, "mp_bench_playback: %s\n", qPrintable(pulse.error()));
        return 1;
    }
    g_server = &pulse;
    g_work = &work;
    if (!prepareLibraries()) {
        std::fprintf(stderr, "mp_bench_playback: cannot make the sample library\n");
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
