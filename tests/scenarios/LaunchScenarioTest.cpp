// Launch requests end to end: action records and launchers through the
// application, checked in the journal; and a launched list while another
// program changes the media database.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <string>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"

namespace {

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
