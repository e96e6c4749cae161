#include "clients/MP_IdleClient.h"

#include <QFile>
#include <QJsonArray>
#include <QSignalSpy>

#include <memory>

#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "lists/MP_ListInterface.h"
#include "platform/AM_Action.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"
#include "tests/support/EngineRelease.h"
#include "tests/support/PathList.h"
#include "tests/support/ChannelJournal.h"
#include "tests/support/TestEnvironment.h"

namespace {

const std::string kName = "0000001e00490064006c0065004d00750073006900630050006c0061007900650072";

class MP_IdleClientTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        engine.reset(static_cast<HostEngine*>(MP_CreateCommonPlayer(false, MP_LAUNCH_LIST)));
        client = std::make_unique<MP_IdleClient>(engine.get());
    }
    void TearDown() override
    {
        client.reset();
        engine.reset();
        TestEnvironment::TearDown();
    }

    // Songs that exist but hold no tags: the engine plays each for ten seconds.
    QStringList songs(int count)
    {
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            QFile file(dataPath(QStringLiteral("song%1.mp3").arg(i)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("no tags");
            paths << file.fileName();
        }
        return paths;
    }

    // Plays @p list to its end, then clears the journal.
    void playToTheEnd(PathList& list)
    {
        engine->setPlayList(&list);
        engine->autoPlay(false);
        HostEngineClock::advance(10000 * int(list.count()) + 1000);
        ASSERT_EQ(engine->getPlayerControl()->getState(), MP_STATE_FINISHED);
        HostJournal::startCapture();
    }

    static void request(const char* message, const QByteArray& data = QByteArray())
    {
        QCopChannel::send("/MP/Idle/Channel", message, data);
        processEvents();
    }

    // The calls on the playback control, as "name(args)", since the capture started.
    static QStringList controlCalls()
    {
        QStringList calls;
        for (const QJsonObject& line : journal()) {
            if (line.value("kind").toString() != "control")
                continue;
            QStringList args;
            for (const QJsonValue& arg : line.value("args").toArray())
                args << (arg.isDouble() ? QString::number(arg.toInt()) : arg.toVariant().toString());
            calls << line.value("call").toString() + '(' + args.join(',') + ')';
        }
        return calls;
    }
    static MessageLines info()
    {
        MessageLines lines;
        for (const std::string& line : channelMessages("/MP/Idle/Channel"))
            if (line.rfind("/MP/Idle/Info/", 0) == 0)
                lines.push_back(line);
        return lines;
    }

    std::unique_ptr<HostEngine, EngineRelease> engine;
    std::unique_ptr<MP_IdleClient> client;
};

TEST_F(MP_IdleClientTest, State_StoppedErrorAndFinishedReadAsPaused_OthersAsTheyAre)
{
    for (int state : {0, 1, 2, 3, 5, 6, 7, 8})
        client->updateState(MP_PLAYER_STATE(state));
    EXPECT_EQ(info(), (MessageLines{"/MP/Idle/Info/State 00000000", "/MP/Idle/Info/State 00000001",
                                   "/MP/Idle/Info/State 00000002", "/MP/Idle/Info/State 00000003",
                                   "/MP/Idle/Info/State 00000002", "/MP/Idle/Info/State 00000002",
                                   "/MP/Idle/Info/State 00000002", "/MP/Idle/Info/State 00000002"}));
}

TEST_F(MP_IdleClientTest, Time_TotalSentWhenItChangesAndAgainAfterAnUpdateRequest)
{
    client->updateTime(0, 0); // a first total of 0 is the stored one
    client->updateTime(1000, 65000);
    client->updateTime(2000, 65000);
    EXPECT_EQ(info(), (MessageLines{"/MP/Idle/Info/ElapsedTime 000000080030003a00300030",
                                   "/MP/Idle/Info/ElapsedTime 000000080030003a00300031",
                                   "/MP/Idle/Info/TotalTime 000000080031003a00300035",
                                   "/MP/Idle/Info/ElapsedTime 000000080030003a00300032"}));

    request("/MP/Idle/Req/Update");
    EXPECT_EQ(controlCalls(), QStringList{"requestUpdate(listener)"});
    HostJournal::startCapture();
    client->updateTime(3000, 65000);
    EXPECT_EQ(info(), (MessageLines{"/MP/Idle/Info/ElapsedTime 000000080030003a00300033",
                                   "/MP/Idle/Info/TotalTime 000000080031003a00300035"}));
}

TEST_F(MP_IdleClientTest, MetaInfo_NameFromPathWithoutTitle_OneLine_CardMarkByPrefix)
{
    PathList list({"/a/b/song.mp3", "/mmc/mmca10/x", "file:///mmc/mmca1/y.mp3.pd"});
    engine->setPlayList(&list); // none of them exists: the engine reports nothing but an error
    HostJournal::startCapture();

    client->updateMetaInfo("", "", "", QByteArray(), true);
    client->updateMetaInfo("", "Y", "X", QByteArray("\x01\xff", 2), false);
    list.moveTo(1);
    client->updateMetaInfo("Two\r\nLines", "", "X", QByteArray(), true);
    list.moveTo(2);
    client->updateMetaInfo("x", "", "", QByteArray(), true);
    EXPECT_EQ(info(), (MessageLines{
                          "/MP/Idle/Info/MetaInfo 000000100073006f006e0067002e006d00700033" "00000000" "00",
                          "/MP/Idle/Info/MetaInfo 0000002000730"
                          "06f006e0067002e006d007000330020002d002000580020002d00200059" "0000000201ff" "00",
                          "/MP/Idle/Info/MetaInfo 0000001800540077006f004c0069006e006500730020002d00200058"
                          "00000000" "01",
                          "/MP/Idle/Info/MetaInfo 000000020078" "00000000" "01"}));
}

TEST_F(MP_IdleClientTest, MetaInfo_OfASingleFile_NamesTheFile)
{
    const QString path = songs(1).first();
    engine->setFile(path);
    HostJournal::startCapture();
    client->updateMetaInfo("", "", "", QByteArray(), true);
    EXPECT_EQ(info(), MessageLines{"/MP/Idle/Info/MetaInfo 000000120073006f006e00670030002e006d00700033" "00000000"
                                  "00"});
}

TEST_F(MP_IdleClientTest, Requests_ReachTheControlTheEngineAndTheMainWindow)
{
    PathList list(songs(3));
    engine->setPlayList(&list);
    SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    settings.setSettingInfo("MediaControlItem", "MusicShuffle", 2);
    settings.setSettingInfo("MediaControlItem", "MusicRepeat", true);
    QSignalSpy quit(client.get(), &MP_IdleClient::sigQuitApp);
    QSignalSpy keys(client.get(), &MP_IdleClient::sigSetupKeyClicked);
    HostJournal::startCapture();

    request("/MP/Idle/Req/Seek/Forth", QByteArray::fromHex("00000003"));
    request("/MP/Idle/Req/Seek/BACK", QByteArray::fromHex("00000002ffff")); // what follows the int is not read
    request("/MP/Idle/Req/Seek/Forth", QByteArray::fromHex("7fffffff"));     // held within int
    request("/MP/Idle/Req/Seek/END");
    request("/MP/Idle/Req/Play");
    request("/MP/Idle/Req/Pause");
    request("/MP/Idle/Req/Next");
    request("/MP/Idle/Req/Prev");
    EXPECT_EQ(controlCalls(), (QStringList{"seek(15000)", "seek(-10000)", "seek(2147483647)", "seekFinished()",
                                           "playPause()", "playPause()", "next()", "previous()"}));

    HostJournal::startCapture();
    request("/MP/Idle/Req/Restore");
    request("/MP/Idle/Req/Quit");
    request("/MP/Idle/Req/Shuffle");
    request("/MP/Idle/Req/Repeat");
    EXPECT_EQ(journalCalls(), (QStringList{"engine:showPlayer", "engine:setShuffleRepeat", "engine:setShuffleRepeat"}));
    EXPECT_EQ(journalLines("engine", "setShuffleRepeat").first().value("args").toArray(), (QJsonArray{true, true}));
    EXPECT_EQ(quit.size(), 1);
    ASSERT_EQ(keys.size(), 2);
    EXPECT_EQ(keys.at(0), (QVariantList{0x4002, false}));
    EXPECT_EQ(keys.at(1), (QVariantList{0x4003, false}));
}

TEST_F(MP_IdleClientTest, MalformedOrUnknownRequests_DoNothing)
{
    PathList list(songs(1));
    engine->setPlayList(&list);
    QSignalSpy quit(client.get(), &MP_IdleClient::sigQuitApp);
    HostJournal::startCapture();

    request("/MP/Idle/Req/Seek/Forth");                                    // no count at all
    request("/MP/Idle/Req/Seek/BACK", QByteArray::fromHex("000003"));      // a count cut short
    for (const char* name : {"/MP/Idle/Req/Seek/back", "/MP/Idle/Req/play", "/MP/Idle/Req/Quit/", "/MP/Idle/Req/",
                             "/MP/Idle/Info/State"})
        request(name, QByteArray::fromHex("00000001"));
    EXPECT_EQ(journalCalls(), QStringList());
    EXPECT_EQ(quit.size(), 0);
}

TEST_F(MP_IdleClientTest, AtTheEndOfAFinishedList_PlayRestartsALongerList_NextAnyList)
{
    PathList three(songs(3));
    playToTheEnd(three);
    request("/MP/Idle/Req/Play");
    EXPECT_EQ(three.getCurrentIndex(), 0);
    EXPECT_EQ(controlCalls(), QStringList{"play()"});
    EXPECT_EQ(engine->getPlayerControl()->getState(), MP_STATE_PLAYING);

    PathList one(songs(1));
    playToTheEnd(one);
    request("/MP/Idle/Req/Play"); // the engine's own play/pause plays a single item again
    EXPECT_EQ(controlCalls(), QStringList{"playPause()"});

    playToTheEnd(one);
    request("/MP/Idle/Req/Next");
    EXPECT_EQ(controlCalls(), QStringList{"play()"});
    EXPECT_EQ(engine->getPlayerControl()->getState(), MP_STATE_PLAYING);
}

TEST_F(MP_IdleClientTest, Plugin_ActivatedOnce_DeactivatedAndExitSentWhenTheClientGoes)
{
    HostJournal::startCapture();
    client->activePlugin();
    client->activePlugin();
    EXPECT_TRUE(client->isPluginActive());
    client.reset();
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"),
              (MessageLines{"activePlugIn() " + kName, "deactivePlugIn() " + kName}));
    EXPECT_EQ(info(), MessageLines{"/MP/Idle/Info/Exit "});
    EXPECT_EQ(journalCalls(), (QStringList{"engine:removeListListener", "engine:removePlayerListener"}));
}

} // namespace
