#include <QCoreApplication>
#include <QLabel>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "clients/MP_ListListener.h"
#include "clients/MP_PlayerListener.h"
#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/engine/HostEngineOutputListener.h"
#include "host/engine/HostMediaOutput.h"
#include "host/tools/samplegen/SampleCatalogue.h"
#include "host/tools/samplegen/SampleTagger.h"
#include "host/tools/samplegen/WavSynth.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/VmKbMainWidget.h"
#include "tests/lists/TraceCapture.h"
#include "tests/support/EngineRelease.h"
#include "tests/support/PathList.h"
#include "tests/support/TestEnvironment.h"

namespace {

// Writes every report it hears into a shared log, prefixed with its name
// when it has one, so that the order across listeners shows.
class RecordingListener : public MP_PlayerListener, public MP_ListListener {
public:
    explicit RecordingListener(QStringList& log, QString name = QString()) : m_log(log), m_name(std::move(name)) {}

    std::function<void(MP_PLAYER_STATE)> onState;

    void updateState(MP_PLAYER_STATE state) override
    {
        record(QStringLiteral("updateState(%1)").arg(state));
        if (onState)
            onState(state);
    }
    void updateTime(int elapsed, int total) override { record(QStringLiteral("updateTime(%1,%2)").arg(elapsed).arg(total)); }
    void updateBuffering(int percent) override { record(QStringLiteral("updateBuffering(%1)").arg(percent)); }
    // The host engine has no downloads to report.
    void updateDownloadProgress(int, int) override {}
    void updateDownloadComplete() override {}
    void updateMetaInfo(const QString& title, const QString& artist, const QString& album, QByteArray data,
                        bool canSeek) override
    {
        record(QStringLiteral("updateMetaInfo(%1,%2,%3,%4,%5)").arg(title, artist, album).arg(data.size()).arg(canSeek));
    }
    void updateConnectionStatus(int status) override { record(QStringLiteral("updateConnectionStatus(%1)").arg(status)); }
    void updateListInfo(MP_ListInterface* list) override
    {
        record(QStringLiteral("updateListInfo(%1)").arg(list ? list->getCurrentIndex() : -1));
    }

private:
    void record(const QString& event) { m_log << (m_name.isEmpty() ? event : m_name + ':' + event); }

    QStringList& m_log;
    const QString m_name;
};

// Lists of std::string print readably when an expectation fails.
using Events = std::vector<std::string>;

Events eventsOf(const QStringList& log)
{
    Events events;
    for (const QString& event : log)
        events.push_back(event.toStdString());
    return events;
}

} // namespace

class HostEngineTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        engine = makeHostEngine();
        engine->addListListener(&listener);
        engine->addPlayerListener(&listener);
    }

    void TearDown() override
    {
        engine.reset();
        TestEnvironment::TearDown();
    }

    // A silent PCM WAV (8 kHz, 16-bit mono) lasting @p milliseconds, tagged when a title is given.
    QString writeWav(const QString& name, int milliseconds, const SampleSong& tags = {})
    {
        const QByteArray wav = WavSynth(8000).wavFile(QByteArray(milliseconds * 16, '\0'));
        return writeDataFile(name, tags.title.isEmpty() ? wav : SampleTagger::tagged(wav, tags));
    }

    // Not media at all: TagLib cannot read it, so it plays for the default time.
    QString writeFakeVideo(const QString& name) { return writeDataFile(name, "not really a video"); }

    // The reports heard since the last call.
    Events takeLog() { return eventsOf(std::exchange(log, QStringList())); }

    QStringList log;
    RecordingListener listener{log};
    HostEnginePtr engine;
};

TEST_F(HostEngineTest, SetFile_TaggedWav_ReportsTagsAndDuration_ShowsOnTheMainWidget_EndsInState8)
{
    QList<MP_CONTENT_TYPE> contentTypes;
    QObject::connect(engine.get(), &MP_CommonPlayer::signalContentTypeChanged,
                     [&](MP_CONTENT_TYPE type) { contentTypes << type; });
    engine->setFile(writeWav("night.wav", 2500, {"Aurora Lane", "Coastlines", "Night Drive", {}, {}, 0, {}}));

    EXPECT_EQ(takeLog(), Events({"updateMetaInfo(Night Drive,Aurora Lane,Coastlines,0,1)",
                                 "updateTime(0,2500)", "updateState(5)"}));
    EXPECT_EQ(contentTypes, QList<MP_CONTENT_TYPE>({MP_CONTENT_SOUND}));
    EXPECT_EQ(engine->getPlayerControl()->getContentName(), "Night Drive");

    // What plays is reported again to the asking listener only.
    RecordingListener other(log, "B");
    engine->addPlayerListener(&other);
    engine->autoPlay(false);
    HostEngineClock::advance(1000);
    EXPECT_EQ(takeLog(), Events({"updateState(1)", "B:updateState(1)", "updateTime(1000,2500)",
                                 "B:updateTime(1000,2500)"}));
    engine->getPlayerControl()->requestUpdate(&other);
    EXPECT_EQ(takeLog(), Events({"B:updateMetaInfo(Night Drive,Aurora Lane,Coastlines,0,1)",
                                 "B:updateTime(1000,2500)", "B:updateState(1)"}));
    engine->removePlayerListener(&other);

    VmKbMainWidget* screen = engine->getMainWidget();
    ASSERT_NE(screen, nullptr);
    QStringList labels;
    for (const char* name : {"title", "artist", "album", "time", "state"})
        labels << screen->findChild<QLabel*>(name)->text();
    EXPECT_EQ(labels.join('|'), "Night Drive|Aurora Lane|Coastlines|0:01 / 0:02|playing");

    // Given something to play, the screen came up by itself.
    EXPECT_TRUE(engine->isPlayerShown());
    engine->closePlayerWindow();
    EXPECT_FALSE(engine->isPlayerShown());
    engine->showPlayer();
    EXPECT_TRUE(engine->isPlayerShown());

    // A single file ends in state 8.
    HostEngineClock::advance(5000);
    EXPECT_EQ(takeLog(), Events({"updateTime(2000,2500)", "updateState(8)"}));
}

TEST_F(HostEngineTest, UnreadableFilesPlayForTenSecondsUnderTheirNames_MissingOnesFail)
{
    engine->setFile(writeFakeVideo("holiday.clip.3gp"));
    EXPECT_EQ(takeLog(), Events({"updateMetaInfo(holiday.clip,,,0,1)", "updateTime(0,10000)", "updateState(5)"}));
    EXPECT_EQ(engine->getContentType(), MP_CONTENT_VIDEO);

    engine->setFile(dataPath("gone.mp3"));
    EXPECT_EQ(takeLog(), Events({"updateState(7)"}));
    QString detail, message;
    engine->getPlayerControl()->getErrorInfo(detail, message);
    EXPECT_EQ(detail + '|' + message, "file not found|gone cannot be played.");
}

TEST_F(HostEngineTest, Reports_ReachListenersInRegistrationOrder_SkippingThoseRemovedMeanwhile)
{
    RecordingListener second(log, "B"), third(log, "C"), unregistered(log, "D");
    engine->addPlayerListener(&second);
    engine->addPlayerListener(&third);
    engine->addPlayerListener(&unregistered);
    engine->addPlayerListener(&second); // already there: no second delivery
    engine->removePlayerListener(&unregistered);
    // A client deleted by an earlier listener's reaction must not be called.
    second.onState = [&](MP_PLAYER_STATE) { engine->removePlayerListener(&third); };

    engine->setFile(writeFakeVideo("clip.mp4"));

    EXPECT_EQ(takeLog(), Events({"updateMetaInfo(clip,,,0,1)", "B:updateMetaInfo(clip,,,0,1)",
                                 "C:updateMetaInfo(clip,,,0,1)", "updateTime(0,10000)",
                                 "B:updateTime(0,10000)", "C:updateTime(0,10000)", "updateState(5)",
                                 "B:updateState(5)"}));
    EXPECT_EQ(journalLines("report", "updateState").size(), 1);
}

TEST_F(HostEngineTest, RepeatedListOfMissingFiles_TriesEachOnceThenFinishes)
{
    PathList list({dataPath("a.mp3"), dataPath("b.mp3"), dataPath("c.mp3")}, true);
    engine->setPlayList(&list);
    EXPECT_EQ(takeLog(), Events({"updateListInfo(0)", "updateState(7)"}));

    engine->autoPlay(false);
    EXPECT_EQ(takeLog(), Events({"updateState(7)", "updateListInfo(1)", "updateState(7)", "updateListInfo(2)",
                                 "updateState(7)", "updateState(8)"}));
}

// A long run of files that are gone is stepped past 64 at a time, one go per
// turn of the event loop, and anything done to the engine in between ends it.
TEST_F(HostEngineTest, LongRunOfMissingFiles_SteppedPastAGoAtATime_AStopEndsIt)
{
    QStringList paths;
    for (int i = 0; i < 200; ++i)
        paths << dataPath(QStringLiteral("gone%1.mp3").arg(i));
    PathList list(paths);
    engine->setPlayList(&list);
    engine->autoPlay(false);
    EXPECT_EQ(list.current, 64) << "the first go";
    QCoreApplication::processEvents();
    EXPECT_EQ(list.current, 128) << "the next turn of the event loop";
    engine->control().stop();
    takeLog();
    QCoreApplication::processEvents();
    EXPECT_EQ(list.current, 128) << "the run ended with the stop";
    EXPECT_EQ(takeLog(), Events{});

    engine->autoPlay(false);   // from the stopped item on, to the end
    for (int turn = 0; turn < 4 && engine->control().getState() != MP_STATE_FINISHED; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(list.current, 199);
    EXPECT_EQ(engine->control().getState(), MP_STATE_FINISHED);
}

TEST_F(HostEngineTest, Control_NextPreviousSeekStopAndPause_ThenTheListMovesByItself)
{
    PathList list({writeFakeVideo("a.mp4"), writeFakeVideo("b.mp4"), writeFakeVideo("c.mp4")});
    MP_PlayerControl* control = engine->getPlayerControl();
    engine->setPlayList(&list);
    control->play();
    control->next();
    takeLog();

    HostEngineClock::advance(3000);
    control->previous(); // from 3 s on: back to the item's start
    control->seek(25000);
    control->seek(-8000);
    control->previous(); // before 3 s: to the previous item
    EXPECT_EQ(takeLog(), Events({"updateTime(1000,10000)", "updateTime(2000,10000)", "updateTime(3000,10000)",
                                 "updateTime(0,10000)", "updateTime(10000,10000)", "updateTime(2000,10000)",
                                 "updateListInfo(0)", "updateMetaInfo(a,,,0,1)", "updateTime(0,10000)"}));

    control->playPause();
    control->seek(-1);
    control->previous(); // no previous item: restart
    control->stop();
    EXPECT_EQ(takeLog(), Events({"updateState(2)", "updateTime(0,10000)", "updateTime(0,10000)",
                                 "updateState(5)", "updateTime(0,10000)"}));
    control->playPause();
    EXPECT_EQ(takeLog(), Events({"updateState(1)"}));

    // The list moved by itself: the new current item is loaded, playing on.
    list.moveTo(2);
    engine->notifyCurrentChanged();
    EXPECT_EQ(takeLog(), Events({"updateListInfo(2)", "updateMetaInfo(c,,,0,1)", "updateTime(0,10000)"}));
    EXPECT_EQ(control->getState(), MP_STATE_PLAYING);
}

TEST_F(HostEngineTest, EmptyAndClearedLists)
{
    PathList empty({});
    engine->setPlayList(&empty);
    EXPECT_EQ(takeLog(), Events({"updateListInfo(0)", "updateState(8)"}));
    EXPECT_TRUE(engine->getCurrentPath().isNull());

    PathList list({writeFakeVideo("a.mp4")});
    engine->setPlayList(&list);
    engine->autoPlay(false);
    takeLog();
    engine->setPlayList(nullptr);
    EXPECT_TRUE(engine->getCurrentPath().isNull());
    EXPECT_EQ(takeLog(), Events({"updateListInfo(-1)", "updateState(5)"}));
}

TEST_F(HostEngineTest, Streams_PlayWithoutEnd_AndMediumTypesFollowThePathOrTheHostSetting)
{
    engine->setFile("rtsp://media.test/live/news.3gp");
    engine->autoPlay(false);
    HostEngineClock::advance(2500);
    EXPECT_EQ(takeLog(), Events({"updateConnectionStatus(3)", "updateMetaInfo(news,,,0,0)", "updateTime(0,0)",
                                 "updateBuffering(100)", "updateState(5)", "updateState(1)",
                                 "updateTime(1000,0)", "updateTime(2000,0)"}));
    EXPECT_EQ(std::pair(engine->getMediumType(), engine->getContentType()),
              std::pair(int(MP_MEDIUM_STREAM), MP_CONTENT_VIDEO));

    engine->setMediumType(MP_MEDIUM_TRANSFER_SESSION);
    EXPECT_EQ(takeLog(), Events({"updateListInfo(-1)"})) << "told again, about no list";
    engine->setFile(writeFakeVideo("next.mp4"));
    EXPECT_EQ(engine->getMediumType(), MP_MEDIUM_TRANSFER_SESSION);
    EXPECT_EQ(takeLog().front(), "updateMetaInfo(next,,,0,0)");
}

TEST_F(HostEngineTest, LiveEngine_IsTheNewestStillAlive)
{
    EXPECT_EQ(HostEngine::liveEngine(), engine.get());
    HostEnginePtr newer = makeHostEngine();
    EXPECT_EQ(HostEngine::liveEngine(), newer.get());
    newer.reset();
    EXPECT_EQ(HostEngine::liveEngine(), engine.get());
    MP_DestroyCommonPlayer(nullptr);
}

TEST_F(HostEngineTest, ShuffleKeyRelease_StoresTheNextModeBeforeItIsReported)
{
    const auto stored = [] {
        int mode = -1;
        SETUP_SET_Manager(71, true).getSettingInfo(QStringLiteral("MediaControlItem"), QStringLiteral("MusicShuffle"), mode, 0);
        return mode;
    };
    QList<int> modesWhenReported;
    QObject::connect(engine.get(), &HostEngine::SetupKeyEvent, [&](int, bool) { modesWhenReported.append(stored()); });
    engine->pressSetupKey(0x4002, true);   // a press chooses nothing
    engine->pressSetupKey(0x4002, false);  // off -> songs
    engine->pressSetupKey(0x4002, false);  // songs -> off
    SETUP_SET_Manager(71, false).setSettingInfo(QStringLiteral("MediaControlItem"), QStringLiteral("MusicShuffle"), 2);
    engine->pressSetupKey(0x4002, false);  // albums -> off
    engine->pressSetupKey(0x4003, false);  // another key leaves it
    EXPECT_EQ(modesWhenReported, (QList<int>{0, 1, 0, 0, 0}));
}

TEST_F(HostEngineTest, AListStepsAtItemEnds_CarryingTimeOver_OnTheManualClockAndTheMediaOutputAlike)
{
    PathList list({writeWav("one.wav", 1500), writeWav("two.wav", 2000)});
    EXPECT_FALSE(engine->isPlayerShown());
    engine->setPlayList(&list);
    // Given a list, the screen comes up by itself: on the first launch the
    // library does not ask for it.
    EXPECT_TRUE(engine->isPlayerShown());
    engine->autoPlay(false);
    Events onClock = takeLog();
    Events steps;   // what each step of the clock brought, after a bar
    for (const int step : {1200, 1300, 60000}) {
        HostEngineClock::advance(step);
        const Events brought = takeLog();
        steps.push_back("|");
        steps.insert(steps.end(), brought.begin(), brought.end());
        onClock.insert(onClock.end(), brought.begin(), brought.end());
    }
    EXPECT_EQ(steps, Events({"|", "updateTime(1000,1500)", "|", "updateListInfo(1)", "updateMetaInfo(two,,,0,1)",
                             "updateTime(0,2000)", "updateTime(1000,2000)", "|", "updateTime(2000,2000)",
                             "updateState(8)"}));
    EXPECT_EQ(list.current, 1);

    // The media output decodes for real, in real time: short files, waits
    // bounded by events. Whatever sound device the machine has (or none), the
    // reports are the clock's. Real time makes it the output an engine plays through.
    HostEngineClock::setManual(false);
    EXPECT_STREQ(engine->output().name(), "media");
    QStringList mediaLog;
    RecordingListener mediaListener{mediaLog};
    const HostEnginePtr media = makeHostEngine();
    media->addListListener(&mediaListener);
    media->addPlayerListener(&mediaListener);
    list.current = 0;
    media->setPlayList(&list);
    media->autoPlay(false);
    EXPECT_TRUE(waitUntil([&] { return media->control().getState() == MP_STATE_FINISHED; }, 10000));
    EXPECT_EQ(eventsOf(mediaLog), onClock);
}

TEST_F(HostEngineTest, MediaOutput_AFileTheDecoderRefuses_IsAnErrorAndTheListMovesOn)
{
    HostEngineClock::setManual(false);
    PathList list({writeFakeVideo("broken.mp4"), writeWav("fine.wav", 1000)});
    engine->setPlayList(&list);
    engine->autoPlay(false);
    ASSERT_TRUE(waitUntil([&] { return engine->control().getState() == MP_STATE_FINISHED; }, 10000));
    // TagLib cannot measure it, so it is announced for the default time; the
    // decoder then refuses it.
    EXPECT_EQ(takeLog(), Events({"updateListInfo(0)", "updateMetaInfo(broken,,,0,1)", "updateTime(0,10000)",
                                 "updateState(5)", "updateState(1)", "updateState(7)", "updateListInfo(1)",
                                 "updateMetaInfo(fine,,,0,1)", "updateTime(0,1000)", "updateState(1)",
                                 "updateTime(1000,1000)", "updateState(8)"}));
    QString detail;
    QString message;
    engine->control().getErrorInfo(detail, message);
    EXPECT_EQ(message, "broken cannot be played.");
    EXPECT_FALSE(detail.isEmpty()) << "the decoder's own words";
}

// Hears what the media output says of the decoder.
class OutputReports : public HostEngineOutputListener {
public:
    QList<int> durations;
    QStringList failures;
    int lastPosition = 0;
    int ends = 0;
    void outputTimePassed(int) override {}
    void outputPositionReached(int position) override { lastPosition = position; }
    void outputDurationFound(int duration) override { durations << duration; }
    void outputEndReached() override { ++ends; }
    void outputFailed(const QString& message) override { failures << message; }
};

TEST_F(HostEngineTest, MediaOutput_ItemsAskedForWhileOneOpens_WaitAndOnlyTheNewestOpensNext)
{
    const QString first = writeWav("first.wav", 1500);
    const QString second = writeWav("second.wav", 1200);
    const QString third = writeWav("third.wav", 900);
    const QString broken = writeFakeVideo("broken.mp4");
    OutputReports reports;
    QWidget videoArea;
    HostMediaOutput output(reports, videoArea);
    TraceCapture trace;
    output.setPlaying(true);
    output.load(first, MP_CONTENT_SOUND);
    output.load(second, MP_CONTENT_SOUND);
    output.setPosition(500);
    output.load(third, MP_CONTENT_SOUND);
    ASSERT_TRUE(waitUntil([&] { return reports.durations.contains(900); }, 10000));
    // A failure of an item that another waits behind is not the engine's.
    output.load(broken, MP_CONTENT_VIDEO);
    output.load(first, MP_CONTENT_SOUND);
    ASSERT_TRUE(waitUntil([&] { return reports.durations.count(1500) == 2; }, 10000));
    QStringList opened;
    for (const QByteArray& line : trace.text().split('\n')) {
        if (line.contains("HostMediaOutput: opening "))
            opened << QString::fromUtf8(line.mid(line.indexOf("opening ") + 8));
    }
    EXPECT_EQ(opened, QStringList({"first.wav", "third.wav", "broken.mp4", "first.wav"}));
    EXPECT_EQ(reports.failures, QStringList());
}

// A stream is fetched by the decoder itself: here from a web server of the
// test's own, which answers every request with the song.
TEST_F(HostEngineTest, MediaOutput_AStreamOverHttpPlaysToItsEnd)
{
    const QByteArray body = WavSynth(8000).wavFile(QByteArray(1200 * 16, '\0'));
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, [&] {
        QTcpSocket* socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [&, socket] {
            if (!socket->peek(4096).contains("\r\n\r\n"))
                return;
            socket->readAll();
            socket->write("HTTP/1.0 200 OK\r\nContent-Type: audio/x-wav\r\nContent-Length: "
                          + QByteArray::number(body.size()) + "\r\n\r\n" + body);
            socket->disconnectFromHost();
        });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
    OutputReports reports;
    QWidget videoArea;
    HostMediaOutput output(reports, videoArea);
    output.setPlaying(true);
    output.load(QStringLiteral("http://127.0.0.1:%1/radio/tone.wav").arg(server.serverPort()), MP_CONTENT_SOUND);
    ASSERT_TRUE(waitUntil([&] { return reports.ends > 0 || !reports.failures.isEmpty(); }, 10000));
    EXPECT_EQ(reports.failures, QStringList());
    EXPECT_EQ(reports.ends, 1);
    EXPECT_GE(reports.lastPosition, 1000) << "it played the song through";
}

TEST_F(HostEngineTest, MediaOutput_ARepeatedSingleItemPlaysAgainFromItsBeginning)
{
    HostEngineClock::setManual(false);
    PathList list({writeWav("only.wav", 1000)}, /*wraps*/ true);
    engine->setPlayList(&list);
    engine->autoPlay(false);
    // Until the third start: the second end's time report can come from the
    // decoder's position before the end itself.
    ASSERT_TRUE(waitUntil([&] { return log.count("updateMetaInfo(only,,,0,1)") == 3; }, 10000))
        << log.join(' ').toStdString();
    engine->getPlayerControl()->stop();
    EXPECT_EQ(takeLog(), Events({"updateListInfo(0)", "updateMetaInfo(only,,,0,1)", "updateTime(0,1000)",
                                 "updateState(5)", "updateState(1)", "updateTime(1000,1000)", "updateListInfo(0)",
                                 "updateMetaInfo(only,,,0,1)", "updateTime(0,1000)", "updateTime(1000,1000)",
                                 "updateListInfo(0)", "updateMetaInfo(only,,,0,1)", "updateTime(0,1000)",
                                 "updateState(5)", "updateTime(0,1000)"}));
}
