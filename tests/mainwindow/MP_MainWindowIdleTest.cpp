// The main window and the idle screen: the idle client lives with the
// engine, hiding hands over to its plug-in, a style change restarts it.

#include <QFile>

#include <memory>

#include "clients/MP_IdleClient.h"
#include "mainwindow/MP_MainWindow.h"
#include "platform/AM_Action.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"
#include "tests/support/ChannelJournal.h"
#include "tests/support/TestEnvironment.h"

namespace {

const std::string kName = "0000001e00490064006c0065004d00750073006900630050006c0061007900650072";
const std::string kActive = "activePlugIn() " + kName;
const std::string kDeactive = "deactivePlugIn() " + kName;

class MP_MainWindowIdleTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        window = std::make_unique<MP_MainWindow>(dataPath("song.mp3"), nullptr, nullptr, 0);
        QFile file(dataPath("song.mp3"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("no tags");
    }
    void TearDown() override
    {
        window.reset();
        TestEnvironment::TearDown();
    }
    static bool hidePlaying()
    {
        bool value = false;
        SETUP_SET_Manager(AM_Global::MediaPlayer, false).getSettingInfo("MediaControlItem", "HidePlaying", value);
        return value;
    }
    static void systemMessage(const char* message, const QByteArray& data = QByteArray())
    {
        QCopChannel::send("VEMO/System", message, data);
        processEvents();
    }

    std::unique_ptr<MP_MainWindow> window;
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

    // A new style restarts the plug-in.
    systemMessage("applyStyle()");
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"), (MessageLines{kActive, kDeactive, kActive}));
    EXPECT_EQ(journalLines("engine", "closePlayerWindow").size(), 2) << "nothing quit";
}

TEST_F(MP_MainWindowIdleTest, IdleClient_GoesBeforeTheEngine_AndItsQuitRequestQuits)
{
    ASSERT_TRUE(waitUntil([&] { return window->idleClient() != nullptr; }));
    QCopChannel::send("/MP/Idle/Channel", "/MP/Idle/Req/Quit");
    processEvents();
    EXPECT_EQ(journalLines("engine", "closePlayerWindow").size(), 1);

    HostJournal::startCapture();
    window->freeCommonPlayer();
    EXPECT_EQ(window->idleClient(), nullptr);
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"), MessageLines{kDeactive});
    // Every client (the media browser, idle, Bluetooth, screen ones) unregisters, then the engine goes.
    QStringList clientRemovals;
    for (int client = 0; client < 4; ++client)
        clientRemovals << "engine:removeListListener" << "engine:removePlayerListener";
    EXPECT_EQ(journalCalls(), clientRemovals + QStringList{"engine:MP_DestroyCommonPlayer"});
}

} // namespace
