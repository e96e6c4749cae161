// The headset's keys: what each release does, a held seek key on the
// manual clock, the phone lock, the launched-by-key mode, and the two
// audio-route entries the client lends the player's menu.

#include <QJsonArray>

#include <memory>
#include <utility>

#include "clients/MP_BluetoothClient.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/phone/HostBluetooth.h"
#include "host/platform/phone/HostPhone.h"
#include "platform/PhoneServices.h"
#include "platform/QCopChannel.h"
#include "platform/VmOptionsMenu.h"
#include "screen/MP_WindowClient.h"
#include "tests/support/FakeEngine.h"
#include "tests/support/Payload.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_BluetoothClientTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        screen = std::make_unique<MP_WindowClient>(&engine);
    }
    void TearDown() override
    {
        client.reset();
        screen.reset();
        TestEnvironment::TearDown();
    }

    void makeClient(bool launchedByKey = false)
    {
        client = std::make_unique<MP_BluetoothClient>(&engine, nullptr, screen.get(), launchedByKey);
    }
    static void send(const QCString& message, const QByteArray& data)
    {
        QCopChannel::send(UTIL_GetKeyEventChannel().toLatin1(), message, data);
        processEvents();
    }
    static void press(int key) { send("keyMsg(int,int)", payload(key, 1)); }
    static void release(int key) { send("keyMsg(int,int)", payload(key, 2)); }
    QStringList takeCalls() { return std::exchange(engine.control.calls, {}); }

    FakeScreenEngine engine;
    std::unique_ptr<MP_WindowClient> screen;
    std::unique_ptr<MP_BluetoothClient> client;
};

TEST_F(MP_BluetoothClientTest, KeyMessages_ReleasesMapToCommandsAndOtherMessagesDoNothing)
{
    makeClient();
    const struct {
        int key;
        QStringList calls;
    } rows[] = {
        {0x1050, {"playPause()"}}, {0x1051, {}},          {0x1052, {"playPause()"}}, {0x1053, {"seekFinished()"}},
        {0x1054, {"seekFinished()"}}, {0x1055, {"next()"}}, {0x1056, {"previous()"}}, {0x1057, {}},
    };
    for (const auto& row : rows) {
        press(row.key);
        release(row.key);
        EXPECT_EQ(takeCalls(), row.calls) << std::hex << row.key;
    }
    // Type 3 is no key event; 4 (press-and-hold) is left to the press's timer.
    send("keyMsg(int,int)", payload(0x1055, 3));
    send("keyMsg(int,int)", payload(0x1055, 4));
    send("otherMsg(int,int)", payload(0x1055, 2));
    // Cut short inside the type: not read as a release.
    send("keyMsg(int,int)", payload(0x1055, 2).left(6));
    EXPECT_EQ(takeCalls(), QStringList());

    engine.hasControl = false;
    release(0x1050);
    release(0x1055);
    EXPECT_EQ(takeCalls(), QStringList()) << "without a control nothing is called";
}

TEST_F(MP_BluetoothClientTest, HeldSeekKey_SeeksOncePerRepeatIntervalThenFinishes_ALockedPhoneStopsIt)
{
    makeClient();
    press(0x1054);
    HostEngineClock::advance(3 * 300 + 299);  // the fourth tick is 1 ms away
    release(0x1054);
    HostEngineClock::advance(1000);
    // Released before the first tick: no seek, still the end of the gesture.
    press(0x1053);
    HostEngineClock::advance(299);
    release(0x1053);
    HostEngineClock::advance(1000);
    EXPECT_EQ(takeCalls(),
              QStringList({"seek(5000)", "seek(5000)", "seek(5000)", "seekFinished()", "seekFinished()"}));

    // A second press without a release replaces the first: one seek a tick.
    HostPhone::setProfileItem("Keys", "RepeatInterval", "200");
    press(0x1054);
    press(0x1053);
    HostEngineClock::advance(400);
    EXPECT_EQ(takeCalls(), QStringList({"seek(-5000)", "seek(-5000)"})) << "the profile's interval";

    // A locked phone swallows the keys, and any key message stops the seek.
    HostPhone::setPhoneLockStatus(1);
    release(0x1053);
    release(0x1055);
    HostEngineClock::advance(900);
    HostPhone::setPhoneLockStatus(0);
    release(0x1055);
    EXPECT_EQ(takeCalls(), QStringList({"next()"})) << "while locked no seek, no seek-finished, no next";
}

TEST_F(MP_BluetoothClientTest, LaunchedByKey_OnlyPlayOrPauseCountsUntilItClearsTheMode)
{
    makeClient(/*launchedByKey*/ true);
    release(0x1055);
    press(0x1054);  // a press whose release is ignored starts no seek
    HostEngineClock::advance(900);
    release(0x1054);
    release(0x1052);
    release(0x1055);
    EXPECT_EQ(takeCalls(), QStringList({"playPause()", "next()"}));
}

TEST_F(MP_BluetoothClientTest, AudioRouteEntries_FollowPowerAndLinkWhileTheClientLives)
{
    screen->updateMetaInfo("A", "B", "C", QByteArray(), true);
    VmOptionsMenu* menu = screen->getMenu();
    ASSERT_NE(menu, nullptr);
    const auto openMenu = [menu] {
        Q_EMIT menu->aboutToShow();
        return std::make_pair(menu->isItemVisible(1016), menu->isItemVisible(1017));
    };
    makeClient();
    using Shown = std::pair<bool, bool>;
    EXPECT_EQ(openMenu(), Shown(false, false)) << "radio off";
    EXPECT_EQ(menu->itemText(1016), "Use Bluetooth");
    EXPECT_EQ(menu->itemText(1017), "Use Handset");
    HostBluetooth::setPower(true);
    EXPECT_EQ(openMenu(), Shown(true, false)) << "on, no link";
    HostBluetooth::setLink(HostBluetooth::Link::Mono);
    EXPECT_EQ(openMenu(), Shown(false, true)) << "mono link";

    // Choosing an entry moves the route; the menu follows at the next opening.
    ASSERT_TRUE(menu->chooseItem(1017));
    EXPECT_EQ(HostBluetooth::link(), HostBluetooth::Link::None);
    EXPECT_EQ(openMenu(), Shown(true, false));
    ASSERT_TRUE(menu->chooseItem(1016));
    EXPECT_EQ(HostBluetooth::link(), HostBluetooth::Link::Stereo) << "a music headset comes up in stereo";
    EXPECT_EQ(openMenu(), Shown(false, true));
    EXPECT_EQ(journalLines("service", "attachAudioAccy").value(0).value("args"), QJsonArray{0}) << "the phone's default";

    client.reset();
    EXPECT_EQ(openMenu(), Shown(false, false)) << "without the client no entry is offered";
}

} // namespace
