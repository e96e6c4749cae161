// How large the database's write-ahead log grows while the player plays
// 10,000 songs of a library of --songs N songs (100,000 without) on the
// engine's manual clock, each written into the play history: the library
// plays, alone; a play list plays, alone and while
// another program (a scanner) commits a song change every N songs: a new
// song, and new tags for a song of the list and for one beside it. None of
// these changes is one the playing list must handle, so the log starts over
// whenever it passes 1 MiB (host/platform/media/metadata/MetadataConnection.h); the
// counter "largest_wal_mb" is the largest the -wal file was after any song.
// The event loop runs after every song, so the list hears of the changes.
//
// Not run: lists that must handle a change before the log can start over
// (the library under a scanner, the play history's own list, whose songs
// move at every song). They hold the log until they have handled it, at the
// next look at the change log (every 200 ms); on the manual clock hundreds
// of songs go by in that time, so their figure would measure this program's
// pace, not the log.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "bench/BenchLibrarySize.h"
#include "clients/MP_MediafinderClient.h"
#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "platform/TraceLog.h"
#include "tests/support/EngineRelease.h"

namespace {

constexpr int kSongsPlayed = 10000;
constexpr int kPlayListSongs = 100;
constexpr int kHistorySongs = 100;
int g_songs = BenchLibrarySize::kDefault;

enum PlayingList { Library = 0, PlayList = 1 };

// The songs of the library, as (empty) files, so that the engine plays them,
// and a database of them with a play list of the first of them and a full
// history; made once, and the database copied for each run.
class LibraryTemplate {
public:
    LibraryTemplate()
    {
        const QString music = m_folder.filePath(QStringLiteral("music"));
        QDir().mkpath(music);
        const std::unique_ptr<MediaDatabase> database = MediaDatabase::open(databaseFile());
        const std::unique_ptr<SqliteTransaction> transaction = database->beginTransaction();
        for (int number = 0; number < g_songs; ++number) {
            const QString path = QStringLiteral("%1/%2.mp3").arg(music).arg(number, 7, 10, QLatin1Char('0'));
            QFile(path).open(QIODevice::WriteOnly);
            MediaRecord song;
            song.path = path;
            song.title = QFileInfo(path).completeBaseName();
            m_ids.append(database->addMedia(song));
        }
        transaction->commit();
        m_playList = database->addGroup(METADATA_GROUP_USER, QStringLiteral("Evening"));
        database->setGroupMembers(m_playList, m_ids.mid(0, kPlayListSongs));
        database->setGroupMembers(METADATA_AUDIO_HISTORY_GROUP_ID, m_ids.mid(kPlayListSongs, kHistorySongs));
    }

    QString databaseFile() const { return m_folder.filePath(QStringLiteral("metadata.db")); }
    quint32 playList() const { return m_playList; }
    quint32 id(int number) const { return m_ids.at(number); }

private:
    QTemporaryDir m_folder;
    QList<quint32> m_ids;
    quint32 m_playList = 0;
};

const LibraryTemplate& libraryTemplate()
{
    static const LibraryTemplate library;
    return library;
}

// A data folder of its own with a copy of the template's database.
class PlayableLibrary {
public:
    PlayableLibrary() : m_template(libraryTemplate())
    {
        qputenv("MP_DATA_DIR", QFile::encodeName(m_folder.path()));
        QFile::copy(m_template.databaseFile(), MediaDatabase::defaultFile());
        m_database = MediaDatabase::open(MediaDatabase::defaultFile());
    }
    ~PlayableLibrary() { qunsetenv("MP_DATA_DIR"); }

    MediaDatabase& database() { return *m_database; }
    quint32 playList() const { return m_template.playList(); }
    quint32 id(int number) const { return m_template.id(number); }
    qint64 logSize() const { return QFileInfo(MediaDatabase::defaultFile() + QStringLiteral("-wal")).size(); }

private:
    const LibraryTemplate& m_template;
    QTemporaryDir m_folder;
    std::unique_ptr<MediaDatabase> m_database;   // the other program's connection
};

std::unique_ptr<MP_AufList> makeList(PlayingList kind, const PlayableLibrary& library)
{
    switch (kind) {
    case Library:
        return std::make_unique<MP_AufList>();
    case PlayList:
        return std::make_unique<MP_AufList>(library.playList(), METADATA_GROUP_USER, 0, 0, QString());
    }
    return nullptr;
}

// One commit of the scanner: a new song, new tags for a song of the play
// list and for one of the library outside it.
void commitSongChange(PlayableLibrary& library, int round)
{
    MediaDatabase& database = library.database();
    const std::unique_ptr<SqliteTransaction> batch = database.beginTransaction();
    MediaRecord added;
    added.path = QStringLiteral("/scanned/%1.mp3").arg(round);
    database.addMedia(added);
    for (const int number : {round % kPlayListSongs, kPlayListSongs + round % (g_songs - kPlayListSongs)}) {
        if (std::optional<MediaRecord> song = database.mediaById(library.id(number))) {
            song->artist = QStringLiteral("Artist %1").arg(round);
            database.updateMedia(*song);
        }
    }
    batch->commit();
}

// Arguments: the playing list (0 library, 1 play list), and
// how many songs between two commits of the other program (0: none).
void BM_LogWhilePlaying(benchmark::State& state)
{
    const auto kind = PlayingList(state.range(0));
    const int every = int(state.range(1));
    for (auto _ : state) {
        state.PauseTiming();
        PlayableLibrary library;
        MP_AufContext::shuffle = MP_AufContext::shuffleSetting = MP_AufList::ShuffleOff;
        MP_AufContext::isRepeat = true;
        qint64 largest = 0;
        int commits = 0;
        {
            // Gone in the main window's order: the client, the engine, the list.
            const std::unique_ptr<MP_AufList> list = makeList(kind, library);
            std::unique_ptr<HostEngine, EngineRelease> engine(
                static_cast<HostEngine*>(MP_CreateCommonPlayer(false, MP_LAUNCH_LIST)));
            MP_MediafinderClient client(engine.get());
            client.setAufList(list.get());
            engine->setPlayList(list.get());
            engine->autoPlay(false);
            state.ResumeTiming();
            for (int played = 0; played < kSongsPlayed; ++played) {
                if (every > 0 && played % every == every - 1)
                    commitSongChange(library, commits++);
                engine->control().next();
                HostEngineClock::advance(1000);  // the time report that writes the song into the history
                QCoreApplication::processEvents();
                largest = std::max(largest, library.logSize());
            }
            state.PauseTiming();
            MP_RecentList::getAudioList()->saveToDB();
        }
        state.counters["largest_wal_mb"] = double(largest) / (1024 * 1024);
        state.counters["final_wal_mb"] = double(library.logSize()) / (1024 * 1024);
        state.counters["history_songs"] = library.database().groupMembers(METADATA_AUDIO_HISTORY_GROUP_ID).size();
        state.counters["other_commits"] = commits;
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kSongsPlayed);
}
BENCHMARK(BM_LogWhilePlaying)
    ->ArgNames({"list", "change_every"})
    ->Args({Library, 0})
    ->Args({PlayList, 0})
    ->Args({PlayList, 1})
    ->Args({PlayList, 10})
    ->Args({PlayList, 100})
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("MP_QCOP_LOCAL", "1");
    QApplication application(argc, argv);
    if (!BenchLibrarySize::take(&argc, argv))
        return 64;
    g_songs = BenchLibrarySize::songs();
    if (g_songs < kPlayListSongs + kHistorySongs) {
        std::fprintf(stderr, "--songs: the benchmark needs at least %d songs\n", kPlayListSongs + kHistorySongs);
        return 64;
    }
    benchmark::Initialize(&argc, argv);
    HostEngineClock::setManual(true);
    // The list's trace lines and the host's notes would drown the table.
    FILE* quiet = std::fopen("/dev/null", "w");
    LOG_SetStream(quiet);
    QLoggingCategory::setFilterRules(QStringLiteral("mp.host.*=false"));
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    LOG_SetStream(nullptr);
    if (quiet)
        std::fclose(quiet);
    return 0;
}
