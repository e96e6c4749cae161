#include "clients/MP_IdleClient.h"

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
#include "tests/support/Journal.h"
#include "tests/support/Payload.h"
#include "tests/support/TestEnvironment.h"

namespace {

// "/MP/Idle/Info/NAME HEX" of an information message, its payload made of @p values.
template <typename... Values>
std::string info(const char* name, const Values&... values)
{
    return "/MP/Idle/Info/" + std::string(name) + ' ' + payloadHex(values...);
}

class MP_IdleClientTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        engine = makeHostEngine();
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
        for (int i = 0; i < count; ++i)
            paths << writeDataFile(QStringLiteral("song%1.mp3").arg(i));
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
    static MessageLines controlCalls() { return Journal::callsWithArgs(journal(), {"control"}); }
    static MessageLines infos() { return channelMessages("/MP/Idle/Channel", "/MP/Idle/Info/"); }

    HostEnginePtr engine;
    std::unique_ptr<MP_IdleClient> client;
};

TEST_F(MP_IdleClientTest, StateAndTime_StoppedErrorAndFinishedReadAsPaused_TotalSentWhenItChangesOrIsAskedFor)
{
    MessageLines expected;
    for (const auto& [state, shown] : {std::pair{0, 0}, {1, 1}, {2, 2}, {3, 3}, {5, 2}, {6, 2}, {7, 2}, {8, 2}}) {
        client->updateState(MP_PLAYER_STATE(state));
        expected.push_back(info("State", qint32(shown)));
    }
    client->updateTime(0, 0); // a first total of 0 is the stored one
    client->updateTime(1000, 65000);
    client->updateTime(2000, 65000);
    const std::pair<const char*, const char*> times[] = {
        {"ElapsedTime", "0:00"}, {"ElapsedTime", "0:01"}, {"TotalTime", "1:05"}, {"ElapsedTime", "0:02"}};
    for (const auto& [name, time] : times)
        expected.push_back(info(name, QString::fromLatin1(time)));
    EXPECT_EQ(infos(), expected);

    request("/MP/Idle/Req/Update");  // its call to the engine is the channel contract's
    HostJournal::startCapture();
    client->updateTime(3000, 65000);
    EXPECT_EQ(infos(), (MessageLines{info("ElapsedTime", QStringLiteral("0:03")), info("TotalTime", QStringLiteral("1:05"))}));
}

TEST_F(MP_IdleClientTest, MetaInfo_NameFromPathWithoutTitle_OneLine_CardMarkByPrefix_AlsoForASingleFile)
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
    const QByteArray none("");
    EXPECT_EQ(infos(), (MessageLines{info("MetaInfo", QStringLiteral("song.mp3"), none, qint8(0)),
                                     info("MetaInfo", QStringLiteral("song.mp3 - X - Y"), QByteArray("\x01\xff", 2), qint8(0)),
                                     info("MetaInfo", QStringLiteral("TwoLines - X"), none, qint8(1)),
                                     info("MetaInfo", QStringLiteral("x"), none, qint8(1))}));

    // A single file, without a list, is named by its file too.
    engine->setFile(songs(1).first());
    HostJournal::startCapture();
    client->updateMetaInfo("", "", "", QByteArray(), true);
    EXPECT_EQ(infos(), MessageLines{info("MetaInfo", QStringLiteral("song0.mp3"), none, qint8(0))});
}

// The reactions to the plain requests, and the main window's to the idle
// screen's shuffle and repeat keys, are checked with the channel's contract.
TEST_F(MP_IdleClientTest, Requests_SeekByTheirCountAlone_ShuffleAndRepeatApplyTheStoredModes_TheMalformedDoNothing)
{
    PathList list(songs(3));
    engine->setPlayList(&list);
    SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    settings.setSettingInfo("MediaControlItem", "MusicShuffle", 2);
    settings.setSettingInfo("MediaControlItem", "MusicRepeat", true);
    QSignalSpy quit(client.get(), &MP_IdleClient::sigQuitApp);
    HostJournal::startCapture();

    request("/MP/Idle/Req/Seek/Forth");                                    // no count at all
    request("/MP/Idle/Req/Seek/BACK", QByteArray::fromHex("000003"));      // a count cut short
    for (const char* name : {"/MP/Idle/Req/Seek/back", "/MP/Idle/Req/Quit/", "/MP/Idle/Info/State"})
        request(name, QByteArray::fromHex("00000001"));
    EXPECT_EQ(journalCalls(), QStringList());
    EXPECT_EQ(quit.size(), 0);

    request("/MP/Idle/Req/Seek/Forth", QByteArray::fromHex("00000003"));
    request("/MP/Idle/Req/Seek/BACK", QByteArray::fromHex("00000002ffff")); // what follows the int is not read
    request("/MP/Idle/Req/Seek/Forth", QByteArray::fromHex("7fffffff"));     // held within int
    request("/MP/Idle/Req/Shuffle");
    request("/MP/Idle/Req/Repeat");
    EXPECT_EQ(Journal::callsWithArgs(journal(), {"control", "engine"}),
              (MessageLines{"control:seek [15000]", "control:seek [-10000]", "control:seek [2147483647]",
                            "engine:setShuffleRepeat [true,true]", "engine:setShuffleRepeat [true,true]"}));
}

TEST_F(MP_IdleClientTest, AtTheEndOfAFinishedList_PlayRestartsALongerList_NextAnyList)
{
    PathList three(songs(3));
    playToTheEnd(three);
    request("/MP/Idle/Req/Play");
    EXPECT_EQ(three.getCurrentIndex(), 0);
    EXPECT_EQ(controlCalls(), MessageLines{"control:play []"});

    PathList one(songs(1));
    playToTheEnd(one);
    request("/MP/Idle/Req/Play"); // the engine's own play/pause plays a single item again
    EXPECT_EQ(controlCalls(), MessageLines{"control:playPause []"});

    playToTheEnd(one);
    request("/MP/Idle/Req/Next");
    EXPECT_EQ(controlCalls(), MessageLines{"control:play []"});
}

} // namespace
