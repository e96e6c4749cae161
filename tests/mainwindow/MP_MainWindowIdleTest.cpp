// The main window and the idle screen: the idle client lives with the
// engine, hiding hands over to its plug-in.

#include "clients/MP_IdleClient.h"
#include "host/platform/HostJournal.h"
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

} // namespace
