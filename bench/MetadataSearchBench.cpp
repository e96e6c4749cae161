// The cost of the searches a play list makes on a library of --songs N songs
// (100,000 without): windows of 10 entries at the start, the middle and the
// end of the result, single entries at random places (shuffle), the counts
// of songs and of albums, and as the floor, the same 10 rows read straight
// from SQLite by primary key. Then the first count and the first album count
// after a change (an insertion, a deletion, a new title, a move to another
// album), made by the searching connection or by another one, and after
// batches of insertions by another one.
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

#include "bench/BenchLibrarySize.h"
#include "bench/SyntheticLibrary.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/MediaSearchPlan.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "platform/Metadata.h"

namespace {

constexpr int kWindow = 10;
int g_songs = BenchLibrarySize::kDefault;

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

// Argument 0, 1, 2: the start, the middle, the end of the library.
int positionOf(int64_t place)
{
    return place == 0 ? 0 : place == 1 ? g_songs / 2 : g_songs - kWindow;
}

void BM_WindowThroughSearch(benchmark::State& state)
{
    const LibraryRequest library;
    const MetadataSearchMediaRequest request = library.window(positionOf(state.range(0)), kWindow);
    for (auto _ : state)
        benchmark::DoNotOptimize(search(request));
}
BENCHMARK(BM_WindowThroughSearch)->Arg(0)->Arg(1)->Arg(2);

void BM_SameRowsByPrimaryKey(benchmark::State& state)
{
    const LibraryRequest library;
    const std::vector<uint32_t> ids = search(library.window(positionOf(state.range(0)), kWindow)).ids;
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
BENCHMARK(BM_SameRowsByPrimaryKey)->Arg(0)->Arg(2);

void BM_SingleEntryAtRandomPlaces(benchmark::State& state)
{
    const LibraryRequest library;
    QRandomGenerator random(7);
    for (auto _ : state)
        benchmark::DoNotOptimize(search(library.window(int(random.bounded(g_songs)), 1)));
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

// The changes: by the connection that searches, or by another program.
enum Writer { kOwnConnection, kOtherConnection };
enum Change { kInsertion, kDeletion, kNewTitle, kOtherAlbum };

std::unique_ptr<MediaDatabase> g_searcher;   // searches, and makes its own changes
std::unique_ptr<MediaDatabase> g_other;
quint32 g_nextDeleted = 1;                   // deletions take the oldest songs
int g_nextAdded = 0;

MediaSearchPlan planOf(const MetadataSearchMediaRequest& request)
{
    QString error;
    const std::optional<MediaSearchPlan> plan = MediaSearchPlan::read(request, 2, &error);
    if (!plan)
        std::fprintf(stderr, "bad request: %s\n", qPrintable(error));
    return *plan;
}

MediaRecord newSong(QRandomGenerator& random)
{
    const int number = g_nextAdded++;
    MediaRecord song;
    song.path = QStringLiteral("/music/added/%1.mp3").arg(number);
    song.title = QStringLiteral("Added %1 %2").arg(random.bounded(1000)).arg(number);
    song.album = QStringLiteral("Added album %1").arg(number / SyntheticLibrary::kSongsPerAlbum);
    return song;
}

// A song that no deletion has taken: from the newer half of the library.
MediaRecord someSong(MediaDatabase& database, QRandomGenerator& random)
{
    return *database.mediaById(quint32(g_songs / 2 + int(random.bounded(g_songs / 2)) + 1));
}

void makeChange(MediaDatabase& writer, int change, QRandomGenerator& random)
{
    switch (change) {
    case kInsertion:
        writer.addMedia(newSong(random));
        return;
    case kDeletion:
        writer.removeMedia(g_nextDeleted++);
        return;
    case kNewTitle: {
        MediaRecord song = someSong(writer, random);
        song.title = QStringLiteral("Retitled %1").arg(random.generate());
        writer.updateMedia(song);
        return;
    }
    default: {
        MediaRecord song = someSong(writer, random);
        song.album = someSong(writer, random).album;
        writer.updateMedia(song);
        return;
    }
    }
}

void measureAfterChanges(benchmark::State& state, const MetadataSearchMediaRequest& request)
{
    const MediaSearchPlan plan = planOf(request);
    const int change = int(state.range(0));
    MediaDatabase& writer = state.range(1) == kOwnConnection ? *g_searcher : *g_other;
    QRandomGenerator random(11);
    benchmark::DoNotOptimize(g_searcher->search(plan));
    for (auto _ : state) {
        state.PauseTiming();
        makeChange(writer, change, random);
        state.ResumeTiming();
        benchmark::DoNotOptimize(g_searcher->search(plan));
    }
}

// The first count after a change brings the kept result up to date.
void BM_CountAfterAChange(benchmark::State& state)
{
    measureAfterChanges(state, LibraryRequest().window(0, 0));
}
BENCHMARK(BM_CountAfterAChange)
    ->ArgsProduct({{kInsertion, kDeletion, kNewTitle, kOtherAlbum}, {kOwnConnection, kOtherConnection}})
    ->ArgNames({"change", "writer"})->Unit(benchmark::kMillisecond);

void BM_AlbumCountAfterAChange(benchmark::State& state)
{
    measureAfterChanges(state, LibraryRequest().albumCount());
}
BENCHMARK(BM_AlbumCountAfterAChange)
    ->ArgsProduct({{kInsertion, kDeletion, kNewTitle, kOtherAlbum}, {kOwnConnection, kOtherConnection}})
    ->ArgNames({"change", "writer"})->Unit(benchmark::kMillisecond);

// A batch of insertions committed at once by another program, as a scan
// does: followed in place up to a size, read anew beyond it.
void BM_CountAfterABatch(benchmark::State& state)
{
    const MediaSearchPlan plan = planOf(LibraryRequest().window(0, 0));
    QRandomGenerator random(13);
    benchmark::DoNotOptimize(g_searcher->search(plan));
    for (auto _ : state) {
        state.PauseTiming();
        {
            const std::unique_ptr<SqliteTransaction> transaction = g_other->beginTransaction();
            for (int i = 0; i < state.range(0); ++i)
                g_other->addMedia(newSong(random));
            transaction->commit();
        }
        state.ResumeTiming();
        benchmark::DoNotOptimize(g_searcher->search(plan));
    }
}
BENCHMARK(BM_CountAfterABatch)->Arg(10)->Arg(100)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);


// What a connection keeps for an ordered result, per song of the library: the
// whole library's object ids, and its album names with their sort keys.
void BM_KeptBytesPerSong(benchmark::State& state)
{
    const std::shared_ptr<const MediaOrderedResult> ids = g_searcher->orderedResult(planOf(LibraryRequest().window(0, 0)));
    const std::shared_ptr<const MediaOrderedResult> albums = g_searcher->orderedResult(planOf(LibraryRequest().albumCount()));
    if (!ids || !albums) {
        state.SkipWithError("no result");
        return;
    }
    const size_t albumBytes = albums->albums.bytesHeld();
    for (auto _ : state)
        benchmark::DoNotOptimize(ids->ids.data());
    const double songs = double(ids->ids.size());
    state.counters["songs"] = songs;
    state.counters["id_result_bytes_per_song"] = double(ids->ids.capacity() * sizeof(quint32)) / songs;
    state.counters["albums"] = double(albums->albums.size());
    state.counters["album_result_bytes_per_song"] = double(albumBytes) / songs;
}
BENCHMARK(BM_KeptBytesPerSong)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (!BenchLibrarySize::take(&argc, argv))
        return 64;
    g_songs = BenchLibrarySize::songs();
    benchmark::Initialize(&argc, argv);
    QTemporaryDir dataDir;
    if (!dataDir.isValid())
        return 1;
    qputenv("MP_DATA_DIR", QFile::encodeName(dataDir.path()));
    {
        const std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        if (!database || !SyntheticLibrary::build(*database, g_songs)) {
            std::fprintf(stderr, "cannot build the library\n");
            return 1;
        }
    }
    int status = -1;
    g_handle = metadataCreateClient(&status);
    g_searcher = MediaDatabase::open(MediaDatabase::defaultFile());
    g_other = MediaDatabase::open(MediaDatabase::defaultFile());
    if (!g_searcher || !g_other)
        return 1;
    if (sqlite3_open(QFile::encodeName(MediaDatabase::defaultFile()).constData(), &g_direct) != SQLITE_OK
        || g_handle == 0)
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    g_searcher.reset();
    g_other.reset();
    metadataDestroyClient(g_handle);
    sqlite3_close(g_direct);
    return 0;
}
