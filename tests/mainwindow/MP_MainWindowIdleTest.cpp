// The main window's clients that live with the engine: the idle screen's,
// to whose plug-in hiding hands over, and the display's, which the flip
// brings.

#include "clients/MP_IdleClient.h"
#include "host/platform/HostJournal.h"
#include "host/platform/display/HostDisplay.h"
#include "host/platform/phone/HostPhone.h"
#include "platform/MP_CommonPlayer.h"
#include "tests/support/Journal.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/Payload.h"

namespace {

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
    ASSERT_NE(window->cliClient(), nullptr);
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

} // namespace
