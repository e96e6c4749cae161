#include "clients/HSMessageAPI.h"

#include "tests/support/Journal.h"
#include "tests/support/Payload.h"
#include "tests/support/TestEnvironment.h"

namespace {

using HSMessageAPITest = TestEnvironment;

TEST_F(HSMessageAPITest, NameGoesAsOneStringOnTheFrameworkChannel_NullAndEmptyKeptApart)
{
    HSMessageAPI::HS_pluginActive("IdleMusicPlayer");
    HSMessageAPI::HS_pluginDeactive("IdleMusicPlayer");
    HSMessageAPI::HS_pluginActive(QString());
    HSMessageAPI::HS_pluginDeactive(QStringLiteral(""));

    // One journal line a message: the message is sent once, through the channel.
    EXPECT_EQ(channelMessages("VEMO/HSFRAMEWORK"),
              (MessageLines{"activePlugIn() " + payloadHex(QStringLiteral("IdleMusicPlayer")),
                           "deactivePlugIn() " + payloadHex(QStringLiteral("IdleMusicPlayer")),
                           "activePlugIn() ffffffff", "deactivePlugIn() 00000000"}));
    EXPECT_EQ(journal().size(), 4);
}

} // namespace
