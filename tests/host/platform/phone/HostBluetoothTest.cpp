// The host phone's Bluetooth audio state and its key repeat: what tests and
// scripts may set, what follows from it, and the profile's say.

#include <QFile>

#include "host/platform/phone/HostBluetooth.h"
#include "host/platform/phone/HostPhone.h"
#include "platform/BT_AudioEngine.h"
#include "platform/PhoneServices.h"
#include "tests/support/TestEnvironment.h"

namespace {

using HostBluetoothTest = TestEnvironment;

// The link going with the power is the toolkit scenario's; the headset menu's
// test moves the link with the radio on.
TEST_F(HostBluetoothTest, Link_NeedsThePower_AttachAndDetachNeedTheirState)
{
    BT_AudioEngine* audio = BT_AudioEngine::instance();
    EXPECT_FALSE(HostBluetooth::setLink(HostBluetooth::Link::Stereo)) << "a new phone has the radio off";
    EXPECT_FALSE(audio->attachAudioAccy(0));

    HostBluetooth::setPower(true);
    EXPECT_TRUE(HostBluetooth::setLink(HostBluetooth::Link::Mono));
    EXPECT_FALSE(audio->attachAudioAccy(0)) << "a link is already up";
    HostBluetooth::setPower(false);
    EXPECT_FALSE(audio->detachAudioAccy(0));
}

TEST_F(HostBluetoothTest, KeyRepeat_FromTheProfileWithinBounds)
{
    EXPECT_EQ(UTIL_GetTimeBetweenKeyRepeat(), 300);
    const auto profileSays = [](const QByteArray& value) {
        QFile file(HostPhone::profilePath());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Keys]\nRepeatInterval = " + value + "\n");
        file.close();
        HostPhone::reset();
        return UTIL_GetTimeBetweenKeyRepeat();
    };
    EXPECT_EQ(profileSays("120"), 120);
    EXPECT_EQ(profileSays("0"), 300) << "a key that repeats at every instant";
    EXPECT_EQ(profileSays("60001"), 300);
    EXPECT_EQ(profileSays("fast"), 300);
}

} // namespace
