// What a play list costs over the whole library of --songs N songs (100,000
// without): building it (count, backup, shuffle order) at 1,000, 10,000 and
// N songs; walking N songs in list order, with the number of database
// searches and the most entries the list ever holds; one step near the
// start, the middle and the end of the list; a step in shuffle-songs mode;
// and the whole road of a change under the playing list.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>

#include "bench/BenchLibrarySize.h"
#include "bench/SyntheticLibrary.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "platform/TraceLog.h"

namespace {

// Times every event the event loop delivers: how long the loop is blocked.
class TimedApplication : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        if (m_depth > 0)
            return QCoreApplication::notify(receiver, event);
        ++m_depth;
        QElapsedTimer timer;
        timer.start();
        const bool isHandled = QCoreApplication::notify(receiver, event);
        const qint64 spent = timer.nsecsElapsed();
        --m_depth;
        m_longestNs = std::max(m_longestNs, spent);
        m_busyNs += spent;
        return isHandled;
    }
    void resetTimes() { m_longestNs = m_busyNs = 0; }
    qint64 longestNs() const { return m_longestNs; }
    qint64 busyNs() const { return m_busyNs; }

private:
    int m_depth = 0;
    qint64 m_longestNs = 0;
    qint64 m_busyNs = 0;
};

TimedApplication* g_application = nullptr;
int g_songs = BenchLibrarySize::kDefault;

std::map<int, std::unique_ptr<QTemporaryDir>> g_libraries;  // songs -> data folder

// Points the process's database handle at the library of that size.
void useLibrary(int songs)
{
    qputenv("MP_DATA_DIR", QFile::encodeName(g_libraries.at(songs)->path()));
}

void setModes(int shuffle)
{
    MP_AufContext::shuffle = MP_AufContext::shuffleSetting = shuffle;
    MP_AufContext::isRepeat = false;
}

void BM_BuildWholeLibraryList(benchmark::State& state)
{
    const int songs = state.range(0) == 0 ? g_songs : int(state.range(0));   // 0: the --songs size
    useLibrary(songs);
    setModes(MP_AufList::ShuffleSongs);
    for (auto _ : state) {
        MP_AufList list;
        benchmark::DoNotOptimize(list.count());
    }
    state.SetComplexityN(songs);
}
BENCHMARK(BM_BuildWholeLibraryList)
    ->Arg(1000)->Arg(10000)->Arg(0)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// Walks every song once through skipSteps(1), as the engine does at the end of each song.
void BM_WalkWholeLibraryInOrder(benchmark::State& state)
{
    useLibrary(g_songs);
    setModes(MP_AufList::ShuffleOff);
    for (auto _ : state) {
        MP_AufList list;
        int searches = 0;
        int mostHeld = list.cacheBottom() - list.cacheTop();
        int windowTop = list.cacheTop();
        const int steps = int(list.count()) - 1;
        for (int step = 0; step < steps; ++step) {
            list.skipSteps(1);
            if (list.cacheTop() != windowTop) {
                ++searches;
                windowTop = list.cacheTop();
            }
            mostHeld = std::max(mostHeld, list.cacheBottom() - list.cacheTop());
        }
        state.counters["songs"] = steps + 1;
        state.counters["searches"] = searches;
        state.counters["songs_per_search"] = double(steps) / std::max(searches, 1);
        state.counters["most_entries_held"] = mostHeld;
    }
}
BENCHMARK(BM_WalkWholeLibraryInOrder)->Iterations(1)->Unit(benchmark::kMillisecond);

// One step near a position: flat from the start to the end of the list.
void BM_StepNear(benchmark::State& state)
{
    useLibrary(g_songs);
    setModes(MP_AufList::ShuffleOff);
    // Argument 0, 1, 2: near the start, the middle, the end.
    const int start = state.range(0) == 0 ? 0 : state.range(0) == 1 ? g_songs / 2 : g_songs - 20;
    MP_AufList list;
    list.moveTo(start);
    for (auto _ : state) {
        list.skipSteps(1);
        if (list.getCurrentIndex() >= start + 10) {
            state.PauseTiming();
            list.moveTo(start);
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_StepNear)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

// Shuffled play fetches one entry per step and holds no more. At the last
// song the list starts again, untimed: a step past it draws a new order of
// the whole library, which is not what a step costs.
void BM_ShuffledStep(benchmark::State& state)
{
    useLibrary(g_songs);
    setModes(MP_AufList::ShuffleSongs);
    auto list = std::make_unique<MP_AufList>();
    int mostHeld = 0;
    for (auto _ : state) {
        list->skipSteps(1);
        mostHeld = std::max(mostHeld, list->cacheBottom() - list->cacheTop());
        if (!list->hasNext()) {
            state.PauseTiming();
            list = std::make_unique<MP_AufList>();
            state.ResumeTiming();
        }
    }
    state.counters["most_entries_held"] = mostHeld;
}
BENCHMARK(BM_ShuffledStep)->Unit(benchmark::kMicrosecond);

// The process's resident memory now, from /proc/self/statm (in pages).
double residentMegabytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024 * 1024) : 0;
}

// The whole road of a change under a playing list: another program commits
// 1,000 new songs at once; the list hears of it (the change log is looked at
// every 200 ms), handles it, and tells the engine. Timed from the commit to
// the telling, most of it waiting for the next look; the counters give the
// longest the event loop was blocked in one go, and how long in all.
void BM_BatchUnderPlayingList(benchmark::State& state)
{
    useLibrary(g_songs);
    setModes(MP_AufList::ShuffleOff);
    MP_AufList list;
    list.moveTo(g_songs / 2);
    bool isTold = false;
    QObject::connect(&list, &MP_AufList::signalListUpdate, [&isTold] { isTold = true; });
    QObject::connect(&list, &MP_AufList::signalCurrentChanged, [&isTold] { isTold = true; });
    const std::unique_ptr<MediaDatabase> writer = MediaDatabase::open(MediaDatabase::defaultFile());
    int added = 0;
    qint64 longestNs = 0;
    qint64 busyNs = 0;
    for (auto _ : state) {
        {
            const std::unique_ptr<SqliteTransaction> transaction = writer->beginTransaction();
            for (int i = 0; i < 1000; ++i, ++added) {
                MediaRecord song;
                song.path = QStringLiteral("/music/batch/%1.mp3").arg(added);
                song.title = QStringLiteral("Batch %1").arg(added * 7919 % 100003);
                song.album = QStringLiteral("Batch album %1").arg(added / SyntheticLibrary::kSongsPerAlbum);
                writer->addMedia(song);
            }
            transaction->commit();
        }
        QElapsedTimer road;
        road.start();
        isTold = false;
        g_application->resetTimes();
        while (!isTold)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        state.SetIterationTime(double(road.nsecsElapsed()) / 1e9);
        longestNs = std::max(longestNs, g_application->longestNs());
        busyNs += g_application->busyNs();
    }
    state.counters["longest_blocked_ms"] = double(longestNs) / 1e6;
    state.counters["resident_mb"] = residentMegabytes();
    state.counters["busy_ms_per_batch"] = double(busyNs) / 1e6 / double(state.iterations());
}
BENCHMARK(BM_BatchUnderPlayingList)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    TimedApplication application(argc, argv);
    g_application = &application;
    if (!BenchLibrarySize::take(&argc, argv))
        return 64;
    g_songs = BenchLibrarySize::songs();
    benchmark::Initialize(&argc, argv);
    // The list's trace lines and the host's notes would drown the table.
    FILE* quiet = std::fopen("/dev/null", "w");
    LOG_SetStream(quiet);
    QLoggingCategory::setFilterRules(QStringLiteral("mp.host.*=false"));
    for (const int songs : {1000, 10000, g_songs}) {
        if (g_libraries.count(songs))
            continue;
        auto folder = std::make_unique<QTemporaryDir>();
        const std::unique_ptr<MediaDatabase> database =
            folder->isValid() ? MediaDatabase::open(folder->filePath(QStringLiteral("metadata.db"))) : nullptr;
        if (!database || !SyntheticLibrary::build(*database, songs)) {
            std::fprintf(stderr, "cannot build the library of %d songs\n", songs);
            return 1;
        }
        g_libraries[songs] = std::move(folder);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    LOG_SetStream(nullptr);
    if (quiet)
        std::fclose(quiet);
    return 0;
}
