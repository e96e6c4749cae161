#include "clients/MP_CLIClient.h"

#include <QSignalSpy>

#include <memory>

#include "host/engine/HostEngine.h"
#include "host/platform/display/HostDisplay.h"
#include "platform/AM_Action.h"
#include "platform/SETUP_SET_Manager.h"
#include "tests/support/EngineRelease.h"
#include "tests/support/Journal.h"
#include "tests/support/PathList.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_CLIClientTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        engine = makeHostEngine();
    }
    void TearDown() override
    {
        client.reset();
        engine.reset();
        TestEnvironment::TearDown();
    }

    // A new session over @p level stored by the last one, the journal read so far forgotten.
    void restartWithStoredVolume(int level)
    {
        client.reset();
        storeVolume(level);
        client = std::make_unique<MP_CLIClient>(engine.get());
        skipJournal();
    }

    // "call args" of every journal line of @p kind since skipJournal(), e.g.
    // "informPosition [1500,0]"; settings writes read "VolumeLevel=3".
    static QStringList take(const QString& kind)
    {
        if (kind == "settings")
            return Journal::settingsWritten(journal());
        QStringList lines;
        for (const std::string& line : Journal::callsWithArgs(journal(), {kind}))
            lines << QString::fromStdString(line).section(':', 1);
        return lines;
    }
    // Forgets what the journal holds so far.
    static void skipJournal() { HostJournal::startCapture(); }

    static void storeVolume(int level)
    {
        SETUP_SET_Manager(AM_Global::MediaPlayer, false).setSettingInfo("MediaControlItem", "VolumeLevel", level);
    }
    static void send(DisplayCommand::Kind kind, int value = 0) { ASSERT_TRUE(HostDisplay::send({kind, value})); }

    HostEnginePtr engine;
    std::unique_ptr<MP_CLIClient> client;
};

TEST_F(MP_CLIClientTest, Session_ShowsTheStoredVolumeAndEndsWithTheClient)
{
    struct Case {
        int stored; // -1: none stored
        QStringList shown;
    };
    // A stored level beyond the display's is held to the nearest one.
    const Case cases[] = {
        {-1, {"beginSession []", "informVolume [5]"}},
        {7, {"beginSession []", "informVolume [7]"}},
        {-5, {"beginSession []", "informMuteState [1]", "informVolume [0]"}},
        {300, {"beginSession []", "informVolume [255]"}},
    };
    for (const Case& c : cases) {
        if (c.stored != -1)
            storeVolume(c.stored);
        skipJournal();
        client = std::make_unique<MP_CLIClient>(engine.get());
        // Without a list nothing else is shown, and no refresh is asked for.
        EXPECT_EQ(take("display"), c.shown) << "stored " << c.stored;
        EXPECT_TRUE(take("control").isEmpty());

        client.reset();
        EXPECT_EQ(take("display").last(), "endSession []");
        EXPECT_FALSE(HostDisplay::send({DisplayCommand::Kind::Play, 0})) << "no client to take it";
    }
}

TEST_F(MP_CLIClientTest, Session_WithAListPlaying_ShowsItsEntryAndTheEngineReportsAtOnce)
{
    // A file that cannot be played: the refreshed state is the error, whose
    // user text reaches the display.
    PathList missing({dataPath("gone.mp3")});
    engine->setPlayList(&missing);
    skipJournal();
    client = std::make_unique<MP_CLIClient>(engine.get());
    EXPECT_EQ(take("display"), (QStringList{"beginSession []", "informVolume [5]",
                                            "informFileName [\"" + dataPath("gone.mp3") + "\"]",
                                            "informMediaType [0]", "informMessage [\"gone cannot be played.\"]"}));
    EXPECT_EQ(take("control"), QStringList{"requestUpdate [\"listener\"]"});
    client.reset();

    // A stream is another medium.
    PathList stream({"http://radio.example/live"});
    engine->setPlayList(&stream);
    client = std::make_unique<MP_CLIClient>(engine.get());
    skipJournal();
    client->updateListInfo(&stream);
    EXPECT_EQ(take("display"), (QStringList{"informFileName [\"http://radio.example/live\"]", "informMediaType [1]"}));

    // The engine reports no list when it drops one: the display keeps what it shows.
    skipJournal();
    client->updateListInfo(nullptr);
    EXPECT_TRUE(take("display").isEmpty());
    engine->setPlayList(nullptr);
}

TEST_F(MP_CLIClientTest, Session_ReportsReachTheDisplayInItsTerms_ItsCommandsTheEngine_VolumeAndMuteTheStore)
{
    client = std::make_unique<MP_CLIClient>(engine.get());
    QSignalSpy quit(client.get(), &MP_CLIClient::quitApp);
    skipJournal();
    for (int state = MP_STATE_NONE; state <= MP_STATE_FINISHED + 1; ++state) {
        if (state != MP_STATE_ERROR)
            client->updateState(MP_PLAYER_STATE(state));
    }
    client->updateTime(1500, 6000);
    client->updateBuffering(40);
    client->updateDownloadProgress(70, 9);
    client->updateDownloadComplete();
    client->updateMetaInfo("Tide", "Shore", "Sea", QByteArray("\x01\xff", 2), true);
    client->updateConnectionStatus(2);
    client->updateConnectionStatus(3);
    client->updateConnectionStatus(1);
    EXPECT_EQ(take("display"),
              (QStringList{"informState [2]", "informState [3]", "informState [1]", "informPosition [1500,0]",
                           "informTotalDuration [6000]", "informBufferingPercentage [40]",
                           "informDownloadProgress [70]",
                           "informStaticStreamInfo [{\"album\":\"Sea\",\"artist\":\"Shore\",\"data\":\"01ff\","
                           "\"title\":\"Tide\"}]",
                           "informMessage [\"The connection to the server has failed\"]",
                           "informMessage [\"Connecting to server\"]"}));

    skipJournal();
    send(DisplayCommand::Kind::Volume, 3);
    send(DisplayCommand::Kind::Mute, 1);
    send(DisplayCommand::Kind::Mute, 0);
    EXPECT_EQ(take("display"), (QStringList{"informVolume [3]", "informMuteState [1]", "informMuteState [0]"}));
    // Level 0 means muted to the next session: unmuting must not leave it.
    EXPECT_EQ(take("settings"), (QStringList{"VolumeLevel=3", "VolumeLevel=0", "VolumeLevel=3"}));
    send(DisplayCommand::Kind::Play);
    send(DisplayCommand::Kind::Pause); // the engine only toggles: both keys do
    send(DisplayCommand::Kind::Stop);
    send(DisplayCommand::Kind::Next);
    send(DisplayCommand::Kind::Previous);
    send(DisplayCommand::Kind::Shift, -5000);
    send(DisplayCommand::Kind::ShiftFinished);
    send(DisplayCommand::Kind::Exit);
    EXPECT_EQ(take("control"), (QStringList{"setVolume [3]", "setMute [true]", "setMute [false]", "playPause []",
                                            "playPause []", "stop []", "next []", "previous []", "seek [-5000]",
                                            "seekFinished []"}));
    EXPECT_EQ(quit.count(), 1);

    // A session that starts muted has seen no level: unmuting stores the default.
    restartWithStoredVolume(0);
    send(DisplayCommand::Kind::Mute, 0);
    EXPECT_EQ(take("settings"), QStringList{"VolumeLevel=5"});
    // A level held from beyond the display's is stored back as held.
    restartWithStoredVolume(300);
    send(DisplayCommand::Kind::Mute, 1);
    send(DisplayCommand::Kind::Mute, 0);
    EXPECT_EQ(take("settings"), (QStringList{"VolumeLevel=0", "VolumeLevel=255"}));
}

} // namespace
