// The main window through its exported entry points, as the application
// reaches them: its start-up, its engine, and the clients that live with the
// engine: the idle screen's, to whose plug-in hiding hands over, and the
// display's, which the flip brings. Then its events: return-to-idle requests,
// the end key, closing and quitting, the setup keys, the jump key and the
// memory card. Last, launch requests: the last-played record round trip, the
// resume's file check, the captured-video request, and the lists they
// install: replaced, run empty and released.

#include "mainwindow/MP_MainWindow.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QFile>
#include <QJsonArray>
#include <QPointer>
#include <QSignalSpy>

#include <memory>
#include <tuple>
#include <utility>

#include "clients/MP_IdleClient.h"
#include "host/platform/HostJournal.h"
#include "host/platform/display/HostDisplay.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/phone/HostPhone.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/QCopChannel.h"
#include "platform/VmKbMainWidget.h"
#include "tests/support/Journal.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/PathList.h"
#include "tests/support/Payload.h"
#include "tests/support/SongBuilder.h"

namespace {

// Counts the events of one type that reach a window: the start-up's, or the
// closes that quitting makes.
class EventCounter : public QObject {
public:
    explicit EventCounter(int type) : m_type(type) {}
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == m_type)
            ++count;
        return QObject::eventFilter(watched, event);
    }

private:
    const int m_type;
};

using MP_MainWindowTest = MainWindowFixture;

TEST_F(MP_MainWindowTest, Startup_WithoutFileOrAction_PostsOneEventAndPlaysTheWholeLibrary)
{
    create();
    EventCounter counter(MP_MainWindow::StartupEventType);
    window->installEventFilter(&counter);
    EXPECT_EQ(counter.count, 0) << "nothing may happen before the event loop turns";

    ASSERT_TRUE(waitUntil([&] { return counter.count > 0; }));
    // Long enough for a 1 ms timer to have fired, had one been armed.
    waitUntil([] { return false; }, 20);
    EXPECT_EQ(counter.count, 1);
    EXPECT_FALSE(journalCalls().contains("engine:setFile")) << "no timer played a file";
    // Opened with nothing to do, the player plays the library rather than sitting empty.
    ASSERT_NE(window->currentList(), nullptr);
    EXPECT_EQ(window->currentList()->getReservedData()->toHex(), "00000000ffffffffffffffffffffffffffffffff");
    EXPECT_EQ(window->launchType(), MP_LAUNCH_LIST);
    EXPECT_EQ(journalLines("engine", "autoPlay").size(), 1);
    EXPECT_TRUE(QCopChannel::isRegistered("VEMO/System"));
}

// A passed file plays with no start-up event: the spine scenario sees the engine get it, and no list.
TEST_F(MP_MainWindowTest, EngineLifecycle_FreeTwiceThenOpenMakesANewEngine)
{
    create();
    window->onOpenDoc(QStringLiteral("/music/a.mp3"));
    ASSERT_NE(window->commonPlayer(), nullptr);

    window->freeCommonPlayer();
    window->freeCommonPlayer();
    EXPECT_EQ(journalLines("engine", "MP_DestroyCommonPlayer").size(), 1);

    window->onOpenDoc(QStringLiteral("/music/b.mp3"));
    ASSERT_NE(window->commonPlayer(), nullptr);
    EXPECT_EQ(journalLines("engine", "MP_CreateCommonPlayer").size(), 2);
    EXPECT_EQ(window->launchType(), MP_LAUNCH_FILE) << "setMediaFile keeps the launch type";

    // A second open on a running engine only brings the player to the front.
    window->onOpenDoc(QStringLiteral("/music/c.mp3"));
    EXPECT_EQ(journalLines("engine", "MP_CreateCommonPlayer").size(), 2);
    EXPECT_EQ(journalLines("engine", "showPlayer").size(), 1);
}

TEST_F(MP_MainWindowTest, TearDown_ReleasesEngineThenStoresHidePlayingFalse)
{
    store("HidePlaying", true);
    create();
    window->onOpenDoc(QStringLiteral("/music/a.mp3"));
    window.reset();

    EXPECT_FALSE(QCopChannel::isRegistered("VEMO/System"));
    // That HidePlaying=false is written after the engine went is the spine scenario's check.
    EXPECT_FALSE(storedSetting("HidePlaying", true));

    MP_DeleteMainWindow(nullptr);  // ignored
}

TEST_F(MP_MainWindowTest, ReadSetting_ForcedShuffleKeepsTheStoredSettingApart_UnknownModesAreOff)
{
    create();
    store("MusicRepeat", true);
    // The setting, then the mode the list gets, then repeat, after each read.
    const auto read = [this](bool isVideo, bool forceShuffle) {
        window->readSetting(isVideo, forceShuffle);
        return QStringLiteral("%1 %2 %3")
            .arg(MP_AufContext::shuffleSetting)
            .arg(MP_AufContext::shuffle)
            .arg(MP_AufContext::isRepeat);
    };
    store("VideoShuffle", 2);
    EXPECT_EQ(read(true, false), "2 2 0") << "absent VideoRepeat reads as false";
    // A stored shuffle mode outside the three is off; a launch that asks for shuffled songs still gets them.
    store("VideoShuffle", 7);
    EXPECT_EQ(read(true, true), "0 1 0");
    for (const int stored : {3, -1}) {
        store("MusicShuffle", stored);
        EXPECT_EQ(read(false, false), "0 0 1") << stored;
    }
    store("MusicShuffle", 0);
    EXPECT_EQ(read(false, true), "0 1 1");
    EXPECT_EQ(storedSetting("MusicShuffle", 0), 0) << "reading writes nothing";
}

TEST_F(MP_MainWindowTest, FreeCurrentList_ClearsTheLastPlayedRecord)
{
    create();
    window->freeCurrentList();
    const LastPlayedListRecord& record = window->lastPlayedList();
    EXPECT_EQ(std::tuple(record.listType, record.groupObjectId, record.artist), std::tuple(-1, 0xFFFFFFFFu, nullptr));
    EXPECT_FALSE(journalCalls().contains("engine:setPlayList")) << "no list: the engine is not told";
}

const std::string kName = payloadHex(QStringLiteral("IdleMusicPlayer"));
const std::string kActive = "activePlugIn() " + kName;

class MP_MainWindowIdleTest : public MainWindowFixture {
protected:
    void SetUp() override
    {
        MainWindowFixture::SetUp();
        create(writeDataFile("song.mp3"));
    }
    static bool hidePlaying() { return storedSetting("HidePlaying", false); }
};

TEST_F(MP_MainWindowIdleTest, WithoutEngine_HideAndStyleChangeDoNothing)
{
    // Called directly: the event loop must not turn, or the passed file plays.
    window->onHidePlayer();
    window->slotSystemMessage("applyStyle()", QByteArray());
    EXPECT_EQ(window->idleClient(), nullptr);
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"), MessageLines());
    EXPECT_FALSE(hidePlaying());
}

TEST_F(MP_MainWindowIdleTest, Hide_ActivatesThePluginOnce_StoresHidePlaying_ClosesThePlayerScreen)
{
    ASSERT_TRUE(waitUntil([&] { return window->idleClient() != nullptr; }));
    HostJournal::startCapture();
    window->onHidePlayer();
    window->onHidePlayer();
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"), MessageLines{kActive});
    EXPECT_TRUE(hidePlaying());
    EXPECT_EQ(journalLines("engine", "closePlayerWindow").size(), 2);
    // A new style restarting the plug-in and the idle screen's quit request
    // are rows of the channels' contract test.
}

using MP_MainWindowFlipTest = MainWindowFixture;

TEST_F(MP_MainWindowFlipTest, FlipClosedBeforeTheEngine_TheEngineComesWithTheDisplayClient_EveryClientGoesBeforeIt)
{
    create(QStringLiteral("/music/song.mp3"));
    // No engine yet: the flip is noted, and nothing else can happen.
    HostPhone::setFlipStatus(1);
    window->onFlipStatusChanged(1);
    EXPECT_EQ(window->cliClient(), nullptr);

    ASSERT_TRUE(waitForEngine());
    const QStringList made = journalCalls();
    EXPECT_LT(made.indexOf("engine:MP_CreateCommonPlayer"), made.indexOf("display:beginSession"));

    // Every client (the media browser, idle, Bluetooth and screen ones, then the display's, which ends
    // its session first) unregisters before the engine goes; the idle screen's plug-in is told.
    HostJournal::startCapture();
    window->freeCommonPlayer();
    EXPECT_EQ(window->cliClient(), nullptr);
    EXPECT_EQ(window->idleClient(), nullptr);
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"), MessageLines{"deactivePlugIn() " + kName});
    QStringList calls;
    for (int client = 0; client < 4; ++client)
        calls << "engine:removeListListener" << "engine:removePlayerListener";
    calls << "display:endSession" << "engine:removeListListener" << "engine:removePlayerListener"
          << "engine:MP_DestroyCommonPlayer";
    EXPECT_EQ(journalCalls(), calls);
}

TEST_F(MP_MainWindowFlipTest, TheFlipOpeningWhileStopped_LeavesTheDisplayUntilTheNextChange)
{
    create(writeDataFile("song.mp3"));
    ASSERT_TRUE(waitForEngine());
    MP_PlayerControl* control = window->commonPlayer()->getPlayerControl();
    window->onFlipStatusChanged(1);
    ASSERT_NE(window->cliClient(), nullptr) << "closed while playing";
    control->stop();
    window->onFlipStatusChanged(0);
    EXPECT_NE(window->cliClient(), nullptr) << "stopped: the display stays";
    control->playPause();
    window->onFlipStatusChanged(1);
    window->onFlipStatusChanged(0);
    EXPECT_EQ(window->cliClient(), nullptr) << "playing again, the next change takes it";
}

TEST_F(MP_MainWindowFlipTest, DisplayExit_QuitsThePlayer)
{
    HostPhone::setFlipStatus(1);
    create(QStringLiteral("/music/song.mp3"));
    ASSERT_TRUE(waitUntil([&] { return window->cliClient() != nullptr; }));
    ASSERT_TRUE(HostDisplay::send({DisplayCommand::Kind::Exit, 0}));
    EXPECT_TRUE(journalCalls().contains("engine:closePlayerWindow"));
}

class MP_MainWindowEventsTest : public MainWindowFixture {
protected:
    // A window whose engine plays @p passedFile (a missing file still
    // reports its content type, from its name); nothing to hide to.
    void startPlaying(const QString& passedFile)
    {
        create(passedFile);
        ASSERT_TRUE(waitForEngine());
        processEvents();
        HostJournal::startCapture();
    }
    void create(const QString& passedFile)
    {
        MainWindowFixture::create(passedFile).installEventFilter(&closeCounter);
        quitSpy = std::make_unique<QSignalSpy>(window.get(), &MP_MainWindow::quitApp);
    }
    void installList()
    {
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        ASSERT_NE(database->addMedia(song("/music/a.mp3").title("A")), 0u);
        window->setList(new MP_AufList(), false, false, false, false, MP_LAUNCH_LIST);
        HostJournal::startCapture();
    }
    static QStringList storedWrites() { return Journal::settingsWritten(journal()); }
    int quits() const { return int(journalLines("engine", "closePlayerWindow").size()); }

    EventCounter closeCounter{QEvent::Close};
    std::unique_ptr<QSignalSpy> quitSpy;
};

TEST_F(MP_MainWindowEventsTest, ReturnToIdle_FlipReasonsAndEndKeyActLater_OtherReasonsAreIgnored)
{
    // A video does not play on hidden: every way out quits.
    startPlaying(dataPath("clip.mp4"));
    for (int reason : {-5001, -5003, -5000}) {
        const int before = closeCounter.count;
        window->onAskReturnToIdle(reason);
        EXPECT_EQ(closeCounter.count, before) << "not inside the application's callback, reason " << reason;
        EXPECT_TRUE(waitUntil([&] { return closeCounter.count == before + 1; })) << "reason " << reason;
    }
    EXPECT_EQ(quits(), 3);
    EXPECT_EQ(journalLines("engine", "flipClosed").size(), 0) << "the player screen did not want to hide";

    for (int reason : {-5002, -4999})
        window->onAskReturnToIdle(reason);
    processEvents();
    EXPECT_EQ(std::pair(closeCounter.count, int(quitSpy->count())), std::pair(3, 0)) << "not a captured video";
}

TEST_F(MP_MainWindowEventsTest, EndKeyCloseAndAppIcon_NeedTheEngine_ThenTheFocusedScreensEndKeyQuits)
{
    create(dataPath("clip.mp4"));
    // Called directly, before the event loop made the engine.
    window->onClosePlayer();
    window->onClickAppIcon();
    window->onEndKeyPressed();
    window->onFlipClosed();
    EXPECT_EQ(closeCounter.count, 1) << "the flip closing quits even without an engine";
    EXPECT_EQ(journalCalls().filter("engine:"), QStringList());

    ASSERT_TRUE(waitForEngine());
    VmKbMainWidget* screen = window->commonPlayer()->getMainWidget();
    screen->activateWindow();
    screen->setFocus();
    ASSERT_TRUE(waitUntil([&] { return screen->hasFocus(); }));
    HostJournal::startCapture();
    window->onEndKeyPressed();
    EXPECT_EQ(closeCounter.count, 2);
    EXPECT_EQ(quits(), 1);
    window->onClosePlayer();
    window->onClickAppIcon();
    EXPECT_EQ(journalCalls().filter("engine:"),
              (QStringList{"engine:closePlayerWindow", "engine:closePlayerWindow", "engine:showPlayer"}));
    EXPECT_EQ(closeCounter.count, 2) << "they only move the player screen";
}

// The end key away from the player screen hides playing music: the toolkit scenario's phone commands.

TEST_F(MP_MainWindowEventsTest, ShuffleKey_AppliesTheStoredMode_RepeatKeyInvertsRepeatAndTurnsShuffleOff)
{
    startPlaying(dataPath("song.mp3"));
    window->onSetupKeyClicked(0x4002, false);
    window->onSetupKeyClicked(0x4003, false);
    EXPECT_EQ(journalCalls(), QStringList()) << "without a list";
    installList();
    store("MusicRepeat", true);
    store("MusicShuffle", 1);  // the asker stores the mode before the key comes
    window->onSetupKeyClicked(0x4002, true);
    window->onSetupKeyClicked(0x4004, false);
    EXPECT_EQ(journalCalls(), QStringList()) << "presses and other codes are ignored";

    // 3: a mode this player does not know counts as off.
    for (const auto& [stored, applied] : {std::pair{2, 2}, {3, 0}}) {
        store("MusicShuffle", stored);
        window->onSetupKeyClicked(0x4002, false);
        EXPECT_EQ(MP_AufContext::shuffle, applied) << stored;
    }
    window->onSetupKeyClicked(0x4003, false);
    EXPECT_FALSE(MP_AufContext::isRepeat);
    window->onSetupKeyClicked(0x4003, false);
    EXPECT_TRUE(MP_AufContext::isRepeat);
    // The shuffle key writes nothing; the engine and the list get the repeat key's new mode.
    EXPECT_EQ(storedWrites(), (QStringList{"MusicRepeat=true", "MusicShuffle=1", "MusicShuffle=2", "MusicShuffle=3",
                                           "MusicRepeat=false", "MusicShuffle=0", "MusicRepeat=true",
                                           "MusicShuffle=0"}));
    EXPECT_EQ(journalArgs("engine", "setShuffleRepeat"),
              (QList<QJsonArray>{{true, true}, {false, true}, {false, false}, {false, true}}));
}

TEST_F(MP_MainWindowEventsTest, ToggleKey_StartsTheRecorder_OrAfterACapturedVideoAsksTheApplicationToEnd)
{
    create(dataPath("clip.mp4"));
    window->onSetupKeyClicked(0x4006, false);
    EXPECT_EQ(journalArgs("action", "invoke"),
              (QList<QJsonArray>{{QJsonObject{{"action", "RecordingVideo"}, {"values", QJsonObject()}}, false}}));
    EXPECT_EQ(std::pair(closeCounter.count, int(quitSpy->count())), std::pair(1, 0)) << "closes, quit requests";

    window->playCapturedVideo();
    HostJournal::startCapture();
    window->onSetupKeyClicked(0x4006, false);
    EXPECT_EQ(journalArgs("action", "invoke").size(), 0);
    EXPECT_EQ(std::pair(closeCounter.count, int(quitSpy->count())), std::pair(2, 1)) << "closes, quit requests";
}

TEST_F(MP_MainWindowEventsTest, CardEvent_QuitsWhateverTheFlagOrPayload_OtherMessagesAreIgnored)
{
    startPlaying(dataPath("song.mp3"));
    window->slotSystemMessage("cardHotplugEvent(int)", payload(1, 1));
    EXPECT_EQ(closeCounter.count, 0);
    // A payload cut short is still a card event. (A whole one, the toolkit scenario's.)
    window->slotSystemMessage("cardHotplugEvent(int,int)", payload(1, 0).left(7));
    EXPECT_EQ(closeCounter.count, 1);
    EXPECT_EQ(quits(), 1);
}

TEST_F(MP_MainWindowEventsTest, JumpKey_BeforeTheFirstReport_WaitsForIt_AndQuitsOnlyForVideo_ADroppedOneBeforeMusic)
{
    // Called directly: the event loop must not turn, or the engine reports first.
    create(dataPath("clip.mp4"));
    const QByteArray jump = payload(0x1048, 1);
    window->slotKeyMessage("keyMsg(int,int)", jump);
    window->slotContentTypeChanged(MP_CONTENT_VIDEO);
    EXPECT_EQ(closeCounter.count, 1) << "quits at the first report";
    window->slotContentTypeChanged(MP_CONTENT_VIDEO);
    EXPECT_EQ(closeCounter.count, 1) << "the pending key was used up";

    // Known video: other keys, types, names and short payloads do nothing.
    window->slotKeyMessage("keyMsg(int,int)", payload(0x1048, 0));
    window->slotKeyMessage("keyMsg(int,int)", payload(0x1049, 1));
    window->slotKeyMessage("keyMsg(int,int)", jump.left(7));
    window->slotKeyMessage("keyMsg(int)", jump);
    EXPECT_EQ(closeCounter.count, 1);
    window->slotKeyMessage("keyMsg(int,int)", jump);
    EXPECT_EQ(closeCounter.count, 2);
    window->slotContentTypeChanged(MP_CONTENT_SOUND);
    window->slotKeyMessage("keyMsg(int,int)", jump);
    EXPECT_EQ(closeCounter.count, 2) << "music plays on";

    // Before a first report of music, the key is dropped.
    window.reset();
    create(dataPath("song.mp3"));
    window->slotKeyMessage("keyMsg(int,int)", jump);
    window->slotContentTypeChanged(MP_CONTENT_SOUND);
    window->slotContentTypeChanged(MP_CONTENT_VIDEO);
    EXPECT_EQ(closeCounter.count, 2);
    // The key-event channel reaches the handler.
    QCopChannel::send("VEMO/KeyEvent", "keyMsg(int,int)", jump);
    EXPECT_TRUE(waitUntil([&] { return closeCounter.count == 3; }));
}

/** The four strings of a library selection's stored description. */
QStringList selectionOf(const MP_AufList& list)
{
    QDataStream stream(*const_cast<MP_AufList&>(list).getReservedData());
    int type = -1;
    QString artist, album, genre, composer;
    stream >> type >> artist >> album >> genre >> composer;
    return {QString::number(type), artist, album, genre, composer};
}

class MP_MainWindowLaunchTest : public MainWindowFixture {
protected:
    void SetUp() override
    {
        MainWindowFixture::SetUp();
        database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
    }

    // Real files: the resume checks that they exist.
    QString addFile(SongBuilder builder)
    {
        EXPECT_NE(database->addMedia(builder), 0u);
        return builder.record().path;
    }
    SongBuilder songFile(const QString& name) { return song(writeDataFile("music/" + name)); }

    void request(const QString& name, const QList<QPair<QString, QString>>& values)
    {
        AM_ActionData action(name);
        for (const auto& [key, value] : values)
            action.setValue(key, value);
        window->onReceiveAction(action);
    }
    void resumeFromHomeScreen() { create().handleLauncherRequest(QStringLiteral("HomeScreen")); }

    std::unique_ptr<MediaDatabase> database;
};

TEST_F(MP_MainWindowLaunchTest, LibrarySelection_EveryFieldAndNonLatinNameSurviveTheResume)
{
    addFile(songFile("kino.mp3").title("Gruppa krovi").artist("Кино").album("Звезда").genre("Рок").composer("Цой"));
    addFile(songFile("other.mp3").title("Other").artist("Other"));
    create();  // a request made now comes before the start-up installs the library
    request("PlayMusicListInMediaplayer", {{"isAllArtist", "0"}, {"Artist", "Кино"}, {"isAllAlbum", "0"},
                                           {"Album", "Звезда"}, {"isAllGenre", "0"}, {"Genre", "Рок"},
                                           {"isAllComposer", "0"}, {"Composer", "Цой"}, {"StorageLocation", "2"},
                                           {"FirstIndex", "0"}});
    ASSERT_EQ(window->currentList()->count(), 1u);

    // The record holds composer third and genre fourth, as UTF-8.
    LastPlayedListRecord record{};
    record.handler = MP_AufContext::getHandler();
    ASSERT_NE(getLastPlayedList(&record), 0);
    EXPECT_EQ((QStringList{QString::fromUtf8(record.artist), QString::number(record.artistLength),
                           QString::fromUtf8(record.composer), QString::fromUtf8(record.genre)}),
              (QStringList{"Кино", "8", "Цой", "Рок"}))
        << "a byte length, not a character count";
    freeLastPlayedList(&record);

    resumeFromHomeScreen();
    ASSERT_NE(window->currentList(), nullptr);
    EXPECT_EQ(selectionOf(*window->currentList()), (QStringList{"0", "Кино", "Звезда", "Рок", "Цой"}))
        << "the same selection, not the whole library";
    EXPECT_EQ(window->currentList()->count(), 1u);
}

TEST_F(MP_MainWindowLaunchTest, Resume_KeepsAListWithOneFileLeftAndReplacesOneWithNone)
{
    const QString first = addFile(songFile("1.mp3").title("A").artist("Band"));
    const QString second = addFile(songFile("2.mp3").title("B").artist("Band"));
    addFile(songFile("3.mp3").title("C").artist("Solo"));
    create();
    request("PlayMusicListInMediaplayer", {{"isAllArtist", "0"}, {"Artist", "Band"}, {"isAllAlbum", "1"},
                                           {"isAllGenre", "1"}, {"isAllComposer", "1"}, {"StorageLocation", "2"}});

    QFile::remove(first);
    resumeFromHomeScreen();
    EXPECT_EQ(selectionOf(*window->currentList()).at(1), "Band") << "the second file still exists";

    QFile::remove(second);
    resumeFromHomeScreen();
    EXPECT_EQ(selectionOf(*window->currentList()), (QStringList{"0", "", "", "", ""}))
        << "no file left: the whole library instead";
    EXPECT_EQ(window->currentList()->count(), 3u);
}

TEST_F(MP_MainWindowLaunchTest, CapturedVideo_ReplacesTheListKeepsEngineAndSettings_LeavesTheHistoryUnsaved)
{
    addFile(songFile("clip.mp4").title("Clip").video().createdBy(int(METADATA_CREATED_CAPTURED)));
    const QString played = addFile(songFile("song.mp3").title("Song"));
    create();
    request("PlayMusicListInMediaplayer", {{"isAllArtist", "1"}, {"isAllAlbum", "1"}, {"isAllGenre", "1"},
                                           {"isAllComposer", "1"}, {"StorageLocation", "2"}});
    MP_RecentList::getAudioList()->addItem(played);
    // The song that started playing went into the history already.
    const auto historyWrites = journalLines("metadata", "metadataAddItemsIntoGroup").size();
    MP_AufContext::shuffle = 1;

    playCapturedVideo(window.get());
    // That the engine stays and gets the videos is the launch scenario's captured video.
    EXPECT_EQ(window->launchType(), MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(MP_RecentList::getAudioList()->paths(), QStringList{played}) << "still waiting, not saved";
    EXPECT_EQ(journalLines("metadata", "metadataAddItemsIntoGroup").size(), historyWrites);
    EXPECT_EQ(MP_AufContext::shuffle, 1) << "the settings are not read again";
    // The new list keeps the database's backup of its result: the old one
    // left before the new one made it.
    bool exists = false;
    int index = 0;
    unsigned int count = 0;
    EXPECT_EQ(metadataCheckBackupedItem(MP_AufContext::getHandler(), 0, &exists, &index, &count), 0);

    playCapturedVideo(nullptr);   // an application without a window gets nothing done
    MP_RecentList::getAudioList()->saveToDB();   // leave the process-wide collector empty
}

TEST_F(MP_MainWindowLaunchTest, NewList_TheEngineLetsGoOfNothingDeletedAndGetsTheNewList)
{
    create();
    QPointer<MP_AufList> first = new MP_AufList();
    window->setList(first, false, false, false, false, MP_LAUNCH_LIST);
    int linesWhenDeleted = -1;
    QObject::connect(first, &QObject::destroyed, [&] { linesWhenDeleted = int(journal().size()); });
    auto* second = new MP_AufList();
    const int linesBefore = int(journal().size());
    window->setList(second, false, false, false, false, MP_LAUNCH_LIST);

    ASSERT_TRUE(first.isNull());
    EXPECT_EQ(window->currentList(), second);
    // The old list is gone before the engine is handed the new one.
    QStringList calls;
    for (const QJsonObject& line : journal())
        calls << line.value("call").toString();
    EXPECT_GE(linesWhenDeleted, linesBefore);
    EXPECT_LE(linesWhenDeleted, calls.lastIndexOf("setPlayList"));
}

class MP_MainWindowListTest : public MP_MainWindowLaunchTest {
protected:
    void SetUp() override
    {
        MP_MainWindowLaunchTest::SetUp();
        for (int i = 0; i < 3; ++i) {
            const QString number = QString::number(i);
            ASSERT_NE(database->addMedia(song("/music/song" + number + ".mp3").title("Song " + number).artist("Band")), 0u);
        }
        // A file passed at creation keeps the start-up from installing a list.
        create(QStringLiteral("/music/song0.mp3"));
        ASSERT_TRUE(waitForEngine());
    }
};

TEST_F(MP_MainWindowListTest, TheCurrentListAgainOrALauncherOnARunningPlayer_OnlyShowsThePlayer)
{
    MP_AufList* list = new MP_AufList();
    window->setList(list, false, false, false, true, MP_LAUNCH_LIST);
    ASSERT_EQ(window->currentList(), list);
    HostJournal::startCapture();

    window->handleLauncherRequest(QStringLiteral("HomeScreen"));
    EXPECT_EQ(window->currentList(), list);
    window->setList(list, true, true, true, true, MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(window->launchType(), MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(journal().size(), 2) << "nothing saved, nothing replaced";
    EXPECT_EQ(journalCalls(), (QStringList{"engine:showPlayer", "engine:showPlayer"}));
}

TEST_F(MP_MainWindowListTest, AListChange_QuitsThePlayerOnlyWhenTheEnginesListRanEmpty)
{
    window->setList(new MP_AufList(), false, false, false, true, MP_LAUNCH_LIST);
    // The engine plays a list of its own, with one song left in it.
    PathList lastSong({QStringLiteral("/music/song1.mp3")});
    window->commonPlayer()->setPlayList(&lastSong);
    window->onCurrentItemChanged();
    EXPECT_EQ(journalLines("engine", "notifyCurrentChanged").size(), 1);
    EXPECT_TRUE(journalLines("engine", "closePlayerWindow").isEmpty());

    window->freeCurrentList();
    EXPECT_EQ(journalArgs("engine", "setPlayList").last(), QJsonArray{QJsonValue()});
    window->onCurrentItemChanged();
    EXPECT_EQ(journalLines("engine", "closePlayerWindow").size(), 1);
}

TEST_F(MP_MainWindowListTest, FreeCurrentList_SavesThePlayedSongsToTheHistory)
{
    window->setList(new MP_AufList(), false, false, false, true, MP_LAUNCH_LIST);
    MP_RecentList::getAudioList()->addItem(QStringLiteral("/music/song1.mp3"));
    MP_RecentList::getAudioList()->addItem(QStringLiteral("/music/song2.mp3"));
    window->freeCurrentList();
    EXPECT_TRUE(MP_RecentList::getAudioList()->paths().isEmpty());
    // In the order the history's own test checks.
    EXPECT_EQ(MP_AufList(METADATA_AUDIO_HISTORY_GROUP_ID, METADATA_GROUP_PLAY_HISTORY, 2, 0, QString()).count(), 2u);
}

} // namespace
