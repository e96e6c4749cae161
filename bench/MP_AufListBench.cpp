// What a play list costs over the whole library: building it (count, backup,
// shuffle order) at 1,000, 10,000 and 100,000 songs; walking 100,000 songs
// in list order, with the number of database searches and the most entries
// the list ever holds; one step near the start, the middle and the end of
// the list; and a step in shuffle-songs mode.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>

#include "bench/SyntheticLibrary.h"
#include "host/platform/media/MediaDatabase.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "platform/TraceLog.h"

namespace {

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
    useLibrary(int(state.range(0)));
    setModes(MP_AufList::ShuffleSongs);
    for (auto _ : state) {
        MP_AufList list;
        benchmark::DoNotOptimize(list.count());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_BuildWholeLibraryList)
    ->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// Walks every song once through skipSteps(1), as the engine does at the end of each song.
void BM_WalkWholeLibraryInOrder(benchmark::State& state)
{
    useLibrary(100000);
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
    useLibrary(100000);
    setModes(MP_AufList::ShuffleOff);
    const int start = int(state.range(0));
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
BENCHMARK(BM_StepNear)->Arg(0)->Arg(50000)->Arg(99980)->Unit(benchmark::kMicrosecond);

// Shuffled play fetches one entry per step and holds no more.
void BM_ShuffledStep(benchmark::State& state)
{
    useLibrary(100000);
    setModes(MP_AufList::ShuffleSongs);
    MP_AufList list;
    int mostHeld = 0;
    for (auto _ : state) {
        list.skipSteps(1);
        mostHeld = std::max(mostHeld, list.cacheBottom() - list.cacheTop());
    }
    state.counters["most_entries_held"] = mostHeld;
}
BENCHMARK(BM_ShuffledStep)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    // The list's trace lines and the host's notes would drown the table.
    FILE* quiet = std::fopen("/dev/null", "w");
    LOG_SetStream(quiet);
    QLoggingCategory::setFilterRules(QStringLiteral("mp.host.*=false"));
    for (const int songs : {1000, 10000, 100000}) {
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
