// The flip and the external display end to end: the application tells the
// window of the flip, the display's commands drive the player.

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

const QStringList kPlayAuroraLane{"--action", "PlayMusicListInMediaplayer", "isAllArtist=0", "Artist=Aurora Lane",
                                  "isAllAlbum=1", "isAllGenre=1", "isAllComposer=1", "FirstIndex=0",
                                  "StorageLocation=2", "ShuffleAllSongs=0"};

// The journal from the display's and the control's point of view, flip
// changes included: "kind:call args".
QStringList displayStory(const ScenarioRun& scenario)
{
    QStringList story;
    for (const QJsonObject& line : scenario.journal()) {
        const QString kind = line.value("kind").toString();
        const QString call = line.value("call").toString();
        if ((kind != "display" && kind != "control" && call != "setFlipStatus") || call == "informPosition"
            || call == "informTotalDuration")
            continue;
        QStringList args;
        for (const QJsonValue& arg : line.value("args").toArray())
            args << (arg.isObject() ? arg.toObject().value("title").toString() : arg.toVariant().toString());
        story << kind + ':' + call + ' ' + args.join(',');
    }
    return story;
}

TEST(FlipScenarioTest, FlipClosedWhilePlaying_TheDisplayShowsTheSongAndDrivesThePlayer)
{
    ScenarioRun scenario;
    ASSERT_TRUE(scenario.scanSampleLibrary());
    // The last line fails on purpose: the display has no player any more.
    ASSERT_EQ(scenario.run(ScenarioRun::script("flip_display.mps"), kPlayAuroraLane), 2)
        << qPrintable(scenario.errorOutput());
    EXPECT_TRUE(scenario.errorOutput().contains(
        "flip_display.mps:16: display: the external display shows no player (is the flip closed while playing?)"))
        << qPrintable(scenario.errorOutput());

    const QString folder = ScenarioRun::sampleLibrary() + "/Music/Aurora Lane/Northern Lights/";
    EXPECT_EQ(displayStory(scenario),
              (QStringList{"phone:setFlipStatus 1",
                           // At once: the stored volume, the song, then what the engine reports again.
                           "display:beginSession ", "display:informVolume 5",
                           "display:informFileName " + folder + "01 First Light.wav", "display:informMediaType 0",
                           "control:requestUpdate listener", "display:informStaticStreamInfo First Light",
                           "display:informState 2",
                           // The display's commands.
                           "control:next ", "display:informFileName " + folder + "02 Harbour Wind.wav",
                           "display:informMediaType 0", "display:informStaticStreamInfo Harbour Wind",
                           "control:seek -500", "control:setVolume 3", "display:informVolume 3", "control:stop ",
                           "display:informState 1",
                           // Stopped: opening the flip leaves the display alone.
                           "phone:setFlipStatus 0", "control:playPause ", "display:informState 2",
                           // Playing, the flip closes (the client is still there) and opens.
                           "phone:setFlipStatus 1", "phone:setFlipStatus 0", "display:endSession "}));
}

} // namespace
