// The cost of the searches a play list makes on a library of 100,000 songs:
// windows of 10 entries at the start and at the end of the result, single
// entries at random places (shuffle), the counts of songs and of albums, and
// as the floor, the same 10 rows read straight from SQLite by primary key.
//
// The library is built once, directly in a temporary data folder, through
// MediaDatabase's insert path in one transaction.

#include <benchmark/benchmark.h>

#include <sqlite3.h>

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench/SyntheticLibrary.h"
#include "host/platform/media/MediaDatabase.h"
#include "platform/Metadata.h"

namespace {

constexpr int kSongs = 100000;
constexpr int kWindow = 10;

unsigned int g_handle = 0;
sqlite3* g_direct = nullptr;  // a second, plain connection: the floor and the outside writer

// The request a list sends for its items: the whole library by title, ids and paths.
struct LibraryRequest {
    MetadataListType list[1] = {METADATA_LIST_MUSIC};
    MetadataSearchFilter filters[2] = {{METADATA_FILTER_FILE_PATH, METADATA_OPERATOR_ANY, 0, nullptr},
                                       {METADATA_FILTER_ALBUM, METADATA_OPERATOR_ANY, 0, nullptr}};
    MetadataSortEntry titleSort[1] = {{METADATA_SORT_TITLE, METADATA_SORT_ASCENDING}};
    MetadataSortEntry albumSort[1] = {{METADATA_SORT_ALBUM, METADATA_SORT_ASCENDING}};
    MetadataSearchCandidateType items[2] = {METADATA_CANDIDATE_OBJECT_ID, METADATA_CANDIDATE_FULL_PATH};
    MetadataSearchCandidateType albums[1] = {METADATA_CANDIDATE_ALBUM};

    MetadataSearchMediaRequest window(int start, int count) const
    {
        return {1, list, 1, filters, 1, titleSort, 2, 0, 0, 2, items, count, start, 1};
    }
    MetadataSearchMediaRequest albumCount() const
    {
        return {1, list, 2, filters, 1, albumSort, 2, 0, 1, 1, albums, 0, 0, 1};
    }
};

struct Delivered {
    uint32_t count = 0;
    std::vector<uint32_t> ids;
    std::vector<std::string> paths;
};

void keep(void* userData, MetadataSearchMediaResponse* response)
{
    Delivered& delivered = *static_cast<Delivered*>(userData);
    delivered.count = response->count;
    delivered.ids.clear();
    delivered.paths.clear();
    for (uint32_t i = 0; i < response->actualNum; ++i) {
        const MetadataMediaInfo& info = response->mediaInfo[i];
        delivered.ids.push_back(info.fields[0].value.number);
        delivered.paths.emplace_back(info.fields[1].value.text);
    }
}

Delivered search(const MetadataSearchMediaRequest& request)
{
    Delivered delivered;
    if (metadataSearchMedia(g_handle, &request, keep, &delivered) != 0)
        std::fprintf(stderr, "search failed\n");
    return delivered;
}

// A change committed by another connection, as the scanner would make it.
void changeFromOutside()
{
    sqlite3_exec(g_direct, "UPDATE media SET buy = 1 - buy WHERE id = 1", nullptr, nullptr, nullptr);
}

void BM_WindowThroughSearch(benchmark::State& state)
{
    const LibraryRequest library;
    const MetadataSearchMediaRequest request = library.window(int(state.range(0)), kWindow);
    for (auto _ : state)
        benchmark::DoNotOptimize(search(request));
}
BENCHMARK(BM_WindowThroughSearch)->Arg(0)->Arg(kSongs / 2)->Arg(kSongs - kWindow);

void BM_SameRowsByPrimaryKey(benchmark::State& state)
{
    const LibraryRequest library;
    const std::vector<uint32_t> ids = search(library.window(int(state.range(0)), kWindow)).ids;
    // The cheapest way there is: prepared statements, and one read
    // transaction for the ten look-ups.
    sqlite3_stmt* statement = nullptr;
    sqlite3_stmt* begin = nullptr;
    sqlite3_stmt* commit = nullptr;
    sqlite3_prepare_v2(g_direct, "SELECT id, path FROM media WHERE id = ?1", -1, &statement, nullptr);
    sqlite3_prepare_v2(g_direct, "BEGIN", -1, &begin, nullptr);
    sqlite3_prepare_v2(g_direct, "COMMIT", -1, &commit, nullptr);
    for (auto _ : state) {
        Delivered rows;
        sqlite3_step(begin);
        sqlite3_reset(begin);
        for (const uint32_t id : ids) {
            sqlite3_bind_int64(statement, 1, id);
            if (sqlite3_step(statement) == SQLITE_ROW) {
                rows.ids.push_back(uint32_t(sqlite3_column_int64(statement, 0)));
                rows.paths.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)));
            }
            sqlite3_reset(statement);
        }
        sqlite3_step(commit);
        sqlite3_reset(commit);
        benchmark::DoNotOptimize(rows);
    }
    sqlite3_finalize(commit);
    sqlite3_finalize(begin);
    sqlite3_finalize(statement);
}
BENCHMARK(BM_SameRowsByPrimaryKey)->Arg(0)->Arg(kSongs - kWindow);

void BM_SingleEntryAtRandomPlaces(benchmark::State& state)
{
    const LibraryRequest library;
    QRandomGenerator random(7);
    for (auto _ : state)
        benchmark::DoNotOptimize(search(library.window(int(random.bounded(kSongs)), 1)));
}
BENCHMARK(BM_SingleEntryAtRandomPlaces);

void BM_CountLibrary(benchmark::State& state)
{
    const LibraryRequest library;
    for (auto _ : state)
        benchmark::DoNotOptimize(search(library.window(0, 0)));
}
BENCHMARK(BM_CountLibrary);

void BM_CountAlbums(benchmark::State& state)
{
    const LibraryRequest library;
    for (auto _ : state)
        benchmark::DoNotOptimize(search(library.albumCount()));
}
BENCHMARK(BM_CountAlbums);

// The first search after the database changed reads the ordered result anew.
void BM_CountLibraryAfterAChange(benchmark::State& state)
{
    const LibraryRequest library;
    for (auto _ : state) {
        state.PauseTiming();
        changeFromOutside();
        state.ResumeTiming();
        benchmark::DoNotOptimize(search(library.window(0, 0)));
    }
}
BENCHMARK(BM_CountLibraryAfterAChange)->Unit(benchmark::kMillisecond);

void BM_CountAlbumsAfterAChange(benchmark::State& state)
{
    const LibraryRequest library;
    for (auto _ : state) {
        state.PauseTiming();
        changeFromOutside();
        state.ResumeTiming();
        benchmark::DoNotOptimize(search(library.albumCount()));
    }
}
BENCHMARK(BM_CountAlbumsAfterAChange)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    QTemporaryDir dataDir;
    if (!dataDir.isValid())
        return 1;
    qputenv("MP_DATA_DIR", QFile::encodeName(dataDir.path()));
    {
        const std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        if (!database || !SyntheticLibrary::build(*database, kSongs)) {
            std::fprintf(stderr, "cannot build the library\n");
            return 1;
        }
    }
    int status = -1;
    g_handle = metadataCreateClient(&status);
    if (sqlite3_open(QFile::encodeName(MediaDatabase::defaultFile()).constData(), &g_direct) != SQLITE_OK
        || g_handle == 0)
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    metadataDestroyClient(g_handle);
    sqlite3_close(g_direct);
    return 0;
}
