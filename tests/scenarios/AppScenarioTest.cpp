// The host application end to end: runs without a display that must end by
// themselves, scripts it must refuse, and playing a folder through the
// library's exported folder list. Then launch requests: action records and
// launchers through the application, checked in the journal; and a launched
// list while another program changes the media database.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

#include "host/platform/media/database/MediaDatabase.h"
#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"
#include "tests/support/ProjectProgram.h"
#include "tests/support/SongBuilder.h"

namespace {

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

QList<int> states(const ScenarioRun& scenario)
{
    QList<int> result;
    for (const QJsonArray& args : scenario.argsOf("report", "updateState"))
        result.append(args.at(0).toInt());
    return result;
}

TEST(AppScenarioTest, WithoutADisplay_EndsWhenNothingWillPlayOrTheCommandLineIsBad_AndSaysWhy)
{
    ScenarioRun scenario;  // a fresh data folder: no library, nothing to resume
    const QString missing = QDir(ScenarioRun::sampleLibrary()).filePath("Music/none.wav");
    // The clock would play it for TagLib's stand-in time; the media output's decoder refuses it at once.
    const QString broken = scenario.dataDir() + "/broken.mp4";
    ASSERT_TRUE(writeFile(broken, "not really a video"));
    const QString nowhere = scenario.dataDir() + "/no-such-folder/journal.jsonl";
    // A start file of no media class would list nothing: refused at once.
    const QString playList = scenario.dataDir() + "/list.m3u";
    ASSERT_TRUE(writeFile(playList, "01 Paper Boats.wav\n"));
    const struct {
        QStringList arguments;
        int exitCode;
        QString said;  ///< standard error, whole
        bool usageFollows = false;  ///< a bad option: the usage follows what was said
    } rows[] = {
        // The library ignores unknown actions.
        {{"--action", "FooBar"}, 3, "mediaplayer: nothing to play: the launch action \"FooBar\" started nothing\n"},
        // Nothing stored to resume: the notice nobody saw, in the chosen language.
        {{"--action", "PlayMediaInMediaPlayer", "Launcher=HomeScreen"}, 3,
         "mediaplayer: nothing to play: the player said \"Because the files do not exist.\"\n"},
        {{"--lang", "de", "--action", "PlayMediaInMediaPlayer", "Launcher=HomeScreen"}, 3,
         "mediaplayer: nothing to play: the player said \"Weil die Dateien nicht vorhanden sind.\"\n"},
        // The whole library, which is empty.
        {{}, 3, "mediaplayer: nothing to play: the list is empty\n"},
        {{missing}, 3, "mediaplayer: cannot play \"" + missing + "\": none cannot be played.\n"},
        {{"--output", "media", broken}, 3, "mediaplayer: cannot play \"" + broken + "\": broken cannot be played.\n"},
        {{"--lang", "xx"}, 64, "mediaplayer: --lang: no translation for \"xx\" (there are: en de)\n"},
        {{"--output", "loud"}, 64, "mediaplayer: --output is media or clock, not \"loud\"\n", true},
        {{"--action", "PlayVideoInMediaplayer", "SelectionType=All", "StorageLocation"}, 64,
         "mediaplayer: --action PlayVideoInMediaplayer: \"StorageLocation\" is no key=value pair, nor a file\n", true},
        {{"--action", QString(81, 'A'), "StorageLocation"}, 64,
         "mediaplayer: --action \"" + QString(80, 'A') + "...\" (81 characters): \"StorageLocation\" is no key=value "
         "pair, nor a file\n", true},
        {{"--action", "FooBar", "-h"}, 0, ""},  // an option after the pairs is one, not a FILE
        {{"--journal", nowhere}, 64,
         "mediaplayer: --journal: cannot write " + nowhere + ": No such file or directory\n"},
        {{playList}, 64,
         "mediaplayer: \"" + playList + "\" is a play list: mp-scan imports it as a user list, which --action "
         "PlayUserListInMediaplayer plays\n"},
        {{"--folder", playList}, 64, "mediaplayer: --folder: \"" + playList + "\" is not an audio or video file\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        EXPECT_EQ(scenario.runWithoutScript(row.arguments), row.exitCode);
        EXPECT_EQ(row.usageFollows ? scenario.errorOutput().left(row.said.size()) : scenario.errorOutput(), row.said);
        if (row.arguments.contains("--action")) {
            EXPECT_TRUE(scenario.argsOf("engine", "MP_CreateCommonPlayer").isEmpty());
        }
    }

    // A database that is none: refused once, and named as the reason.
    const QString database = scenario.dataDir() + "/data/metadata.db";
    ASSERT_TRUE(writeFile(database, QByteArray(4096, 'x')));
    EXPECT_EQ(scenario.runWithoutScript({}), 3);
    EXPECT_EQ(scenario.errorOutput(), "mp.host.metadata: cannot use " + database + " : file is not a database\n"
                                      "mediaplayer: nothing to play: the media database cannot be used (" + database
                                          + ": file is not a database)\n");
}

// The engine steps past files that are gone a part of the run at a time: its
// error state between two parts is not the end of the run.
TEST(AppScenarioTest, WithoutADisplay_ALibraryWhoseFilesAreGoneIsSteppedThroughToTheEnd)
{
    ScenarioRun scenario;
    {
        QDir().mkpath(scenario.dataDir() + "/data");
        const auto database = MediaDatabase::open(scenario.dataDir() + "/data/metadata.db");
        ASSERT_TRUE(database);
        for (int i = 0; i < 300; ++i)
            ASSERT_NE(database->addMedia(song(QStringLiteral("/gone/%1.mp3").arg(i, 3, 10, QLatin1Char('0')))), 0u);
    }
    EXPECT_EQ(scenario.runWithoutScript({"--output", "clock"}), 0) << qPrintable(scenario.errorOutput());
    const QList<int> reported = states(scenario);
    EXPECT_EQ(reported.count(7), 301) << "each one failed, the first twice: as the window's file, then in the list";
    EXPECT_EQ(reported.last(), 8);
}

TEST(AppScenarioTest, Journal_EachRunWritesItsOwn_ARefusedCommandLineNone)
{
    ScenarioRun scenario;
    const QString journal = scenario.dataDir() + "/own.jsonl";
    ASSERT_TRUE(writeFile(journal, "an earlier run's line\n"));
    EXPECT_EQ(scenario.runWithoutScript({"--journal", journal, "--lang", "xx"}), 64);
    EXPECT_EQ(QFileInfo(journal).size(), 22) << "a refused command line leaves it as it was";
    EXPECT_EQ(scenario.runWithoutScript({"--journal", journal + ".new", "--lang", "xx"}), 64);
    EXPECT_FALSE(QFile::exists(journal + ".new")) << "and makes none";
    EXPECT_EQ(scenario.runWithoutScript({"--journal", journal, "--action", "PlayMediaInMediaPlayer",
                                         "Launcher=HomeScreen"}), 3);
    // Its own lines only: the earlier run's, which is no JSON, would read as an empty object.
    const JournalLines written = Journal::readFile(journal);
    EXPECT_FALSE(written.isEmpty() || written.contains(QJsonObject()));
}

TEST(AppScenarioTest, BadLines_StopTheScriptWithABoundedMessage)
{
    ScenarioRun scenario;
    const QString script = scenario.textScriptPath();
    const auto runLine = [&](const QByteArray& line) { return scenario.runText(line + "\nquit\n"); };

    EXPECT_EQ(runLine(QByteArray(10 * 1024 * 1024, 'x')), 2);
    EXPECT_EQ(scenario.errorOutput(),
              script + ":1: unknown command \"" + QString(80, 'x') + "...\" (10485760 characters)\n");
    ASSERT_FALSE(scenario.journal().isEmpty());
    EXPECT_EQ(scenario.journal().last().value("key").toString(), "HidePlaying")
        << "the window was still deleted through the library";

    // The cut falls inside a character of two UTF-16 units: it goes whole.
    EXPECT_EQ(runLine(QByteArray(79, 'a') + "\xF0\x9F\x8E\xB5" + "bbbbb"), 2);
    EXPECT_EQ(scenario.errorOutput(),
              script + ":1: unknown command \"" + QString(79, 'a') + "...\" (86 characters)\n");

    // Digits of another script are no hex digits.
    EXPECT_EQ(runLine("qcop VEMO/System applyStyle() raw:\xD9\xA3\xD9\xA3"), 2);
    EXPECT_EQ(scenario.errorOutput(),
              script + ":1: qcop: bad argument \"raw:\u0663\u0663\" (expected int:N, i8:N, str:TEXT, bytes:HEX or raw:HEX)\n");
}

TEST(AppScenarioTest, Folder_PlaysItsFilesInNameOrder)
{
    QTemporaryDir folder;
    const QDir songs(ScenarioRun::sampleLibrary() + "/Music/Aurora Lane/Paper Boats");
    for (const QString& name : songs.entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(songs.filePath(name), folder.filePath(name)));
    // What a memory card brings from another computer, and what is no song.
    ASSERT_TRUE(writeFile(folder.filePath("._02 Rain on Glass.wav"), QByteArray(4096, '\0')));
    ASSERT_TRUE(QDir(folder.path()).mkdir("zz.wav"));

    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("app_folder.mps"), {"--folder", folder.path()}), 0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.argsOf("engine", "setPlayList"), QList<QJsonArray>{QJsonArray{"list"}});
    // The first song twice: once as the window's file, once as the list's first entry.
    EXPECT_EQ(scenario.titlesPlayed().join(" | "), "Paper Boats | Paper Boats | Rain on Glass | Lanterns");
    EXPECT_FALSE(states(scenario).contains(7)) << "no entry failed to play";
    EXPECT_EQ(states(scenario).last(), 8);
}

TEST(AppScenarioTest, Library_ExportsTheEntryPointsAndTheFolderListOnly)
{
    QProcess nm;
    nm.start("nm", {"-D", "--defined-only", "--format=just-symbols", ProjectProgram::path("../lib/libmp_mainwindow.so")});
    ASSERT_TRUE(nm.waitForFinished(30000));
    ASSERT_EQ(nm.exitCode(), 0) << nm.readAllStandardError().constData();
    QSet<QString> others, folderList;
    for (const QByteArray& line : nm.readAllStandardOutput().split('\n')) {
        if (line.isEmpty())
            continue;
        (line.contains("13MP_FolderList") ? folderList : others).insert(QString::fromLatin1(line));
    }
    EXPECT_EQ(others, (QSet<QString>{"MP_CreateMainWindow", "MP_DeleteMainWindow", "playCapturedVideo"}));
    // The constructor, the deleting destructor and the virtual table.
    EXPECT_TRUE(folderList.contains(
        {"_ZN13MP_FolderListC1ERK7QStringi", "_ZN13MP_FolderListD0Ev", "_ZTV13MP_FolderList"}));
}

const QStringList kPlayAuroraLane{"--action", "PlayMusicListInMediaplayer", "isAllArtist=0", "Artist=Aurora Lane",
                                  "isAllAlbum=1", "isAllGenre=1", "isAllComposer=1", "FirstIndex=3",
                                  "StorageLocation=2", "ShuffleAllSongs=0"};

QStringList launcher(const char* id)
{
    return {"--action", "PlayMediaInMediaPlayer", QStringLiteral("Launcher=") + id};
}

const QRegularExpression kEngineCalls("^engine:(MP_Create|setShuffle|setPlayList|autoPlay|setFile)");

// The first last-played record saved, as compact JSON (keys sorted).
std::string savedList(const ScenarioRun& scenario)
{
    const QList<QJsonArray> saves = scenario.argsOf("metadata", "saveLastPlayedList");
    return saves.isEmpty() ? std::string() : QJsonDocument(saves.first().at(0).toObject()).toJson(QJsonDocument::Compact).toStdString();
}

class LaunchScenarioTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(scenario.scanSampleLibrary()); }
    int run(const char* script, const QStringList& arguments)
    {
        return scenario.run(ScenarioRun::script(QString::fromLatin1(script)), arguments);
    }
    ScenarioRun scenario;
};

TEST_F(LaunchScenarioTest, MusicList_SavesTheSelectionAndPlaysItsSong_AndLaunchersResumeItAfterARestart)
{
    ASSERT_EQ(run("play_artist.mps", kPlayAuroraLane), 0) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(Journal::callsWithArgsMatching(scenario.journal(), kEngineCalls),
              (MessageLines{"engine:MP_CreateCommonPlayer [false,0]", "engine:setShuffleRepeat [false,false]",
                            "engine:setPlayList [\"list\"]", "engine:autoPlay [false]"}));
    // Titles in order: First Light, Harbour Wind, Lanterns, Northern Lights, ...
    EXPECT_EQ(scenario.titlesPlayed().value(0), "Northern Lights");
    EXPECT_EQ(savedList(scenario), R"({"album":null,"artist":"Aurora Lane","composer":null,"firstIndex":3,)"
                                   R"("genre":null,"groupObjectId":-1,"listType":6,"storageLocation":2})");
    // The media browser's client follows the list: it stores the song it announced.
    ASSERT_EQ(scenario.argsOf("metadata", "saveLastPlayedSong").size(), 1);
    EXPECT_EQ(scenario.argsOf("metadata", "saveLastPlayedSong").first().at(1), 3);

    ASSERT_EQ(run("resume.mps", launcher("HomeScreen")), 0) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.titlesPlayed().value(0), "Northern Lights");
}

TEST_F(LaunchScenarioTest, UserList_SavesTheGroupAndPlaysItsEntry_AHomeScreenResumesIt_AHeadsetOnlyPreparesIt)
{
    // The sample library's one play list, "Evening", is the first user group.
    const QStringList evening{"--action", "PlayUserListInMediaplayer", "Type=0", "GroupObjectID=4",
                              "FirstIndex=1", "StorageLocation=2"};
    ASSERT_EQ(run("play_artist.mps", evening), 0) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.titlesPlayed().value(0), "Lanterns");
    EXPECT_EQ(savedList(scenario), R"({"album":null,"artist":null,"composer":null,"firstIndex":1,)"
                                   R"("genre":null,"groupObjectId":4,"listType":0,"storageLocation":2})");

    ASSERT_EQ(run("resume.mps", launcher("HomeScreen")), 0);
    EXPECT_EQ(scenario.titlesPlayed().value(0), "Lanterns") << "the play list resumes after a restart";

    // A headset's resume only prepares the list: without a display, nobody starts it.
    EXPECT_EQ(scenario.runWithoutScript(launcher("BTAvrcpKeys")), 3);
    EXPECT_EQ(scenario.errorOutput(), "mediaplayer: nothing to play: the list was prepared but not started\n");
    EXPECT_EQ(scenario.argsOf("engine", "setPlayList").size(), 1);
}

TEST_F(LaunchScenarioTest, UnknownLauncherPlaysTheWholeLibrary_AVideoSlideShowItsNewestVideo_NeitherIsSaved)
{
    ASSERT_EQ(run("resume.mps", launcher("Calendar")), 0);
    EXPECT_EQ(scenario.titlesPlayed().value(0), "Afterglow") << "the first title of the library";
    EXPECT_TRUE(scenario.argsOf("metadata", "saveLastPlayedList").isEmpty());

    const QStringList slideShow{"--action", "PlayVideoInMediaplayer", "SelectionType=Downloaded", "isSlideShow=1",
                                "StorageLocation=2"};
    ASSERT_EQ(run("resume.mps", slideShow), 0) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.argsOf("engine", "MP_CreateCommonPlayer").first(), (QJsonArray{true, 0}));
    EXPECT_EQ(scenario.argsOf("engine", "autoPlay").first(), QJsonArray{true});
    EXPECT_EQ(scenario.titlesPlayed().value(0), "trailer") << "the one downloaded video";
    EXPECT_TRUE(scenario.argsOf("metadata", "saveLastPlayedList").isEmpty()) << "videos are not resumed";
}

TEST_F(LaunchScenarioTest, CapturedVideo_ReplacesTheLibraryAndKeepsTheEngine)
{
    // Launched with nothing, the player plays the library until the camera calls.
    ASSERT_EQ(run("captured_video.mps", {}), 0) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.argsOf("engine", "MP_CreateCommonPlayer"), (QList<QJsonArray>{QJsonArray{false, 0}}));
    // The engine lets go of the library before it goes, then gets the videos.
    EXPECT_EQ(scenario.argsOf("engine", "setPlayList"),
              (QList<QJsonArray>{QJsonArray{"list"}, QJsonArray{QJsonValue()}, QJsonArray{"list"}}));
    EXPECT_TRUE(scenario.argsOf("report", "updateMetaInfo").last().at(0).toString().startsWith("clip"));
}

TEST_F(LaunchScenarioTest, SongsRemovedBeforeThePlayingOne_PreviousStillPlaysTheSongBeforeIt)
{
    const QStringList wholeLibraryFromDriftwood{"--action", "PlayMusicListInMediaplayer", "isAllArtist=1",
                                                "isAllAlbum=1", "isAllGenre=1", "isAllComposer=1", "FirstIndex=5",
                                                "StorageLocation=2"};
    ASSERT_EQ(run("db_previous_after_removal.mps", wholeLibraryFromDriftwood), 0) << qPrintable(scenario.errorOutput());
    // Title order: ... Circuit Bloom (2), Coda (3), Demo (4), Driftwood (5), First Light (6).
    EXPECT_EQ(scenario.titlesPlayed(), (QStringList{"Driftwood", "Demo (rough mix)", "Driftwood"}));
}

} // namespace
