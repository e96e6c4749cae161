#include "host/platform/display/HostDisplay.h"
#include "host/platform/phone/HostPhone.h"
#include "platform/MP_CommonPlayer.h"
#include "tests/support/MainWindowFixture.h"

namespace {

using MP_MainWindowFlipTest = MainWindowFixture;

TEST_F(MP_MainWindowFlipTest, FlipClosedBeforeTheEngine_TheEngineComesWithTheDisplayClient)
{
    create(QStringLiteral("/music/song.mp3"));
    // No engine yet: the flip is noted, and nothing else can happen.
    HostPhone::setFlipStatus(1);
    window->onFlipStatusChanged(1);
    EXPECT_EQ(window->cliClient(), nullptr);

    ASSERT_TRUE(waitForEngine());
    ASSERT_NE(window->cliClient(), nullptr);
    const QStringList calls = journalCalls();
    EXPECT_LT(calls.indexOf("engine:MP_CreateCommonPlayer"), calls.indexOf("display:beginSession"));

    // The display client goes first when the engine is released.
    window->freeCommonPlayer();
    EXPECT_EQ(window->cliClient(), nullptr);
    const QStringList after = journalCalls();
    EXPECT_EQ(after.mid(after.indexOf("display:endSession")),
              (QStringList{"display:endSession", "engine:removeListListener", "engine:removePlayerListener",
                           "engine:MP_DestroyCommonPlayer"}));
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
