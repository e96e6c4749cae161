#include "clients/HSMessageAPI.h"

#include "tests/support/ChannelJournal.h"
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
              (MessageLines{"activePlugIn() 0000001e00490064006c0065004d00750073006900630050006c0061007900650072",
                           "deactivePlugIn() 0000001e00490064006c0065004d00750073006900630050006c0061007900650072",
                           "activePlugIn() ffffffff", "deactivePlugIn() 00000000"}));
    EXPECT_EQ(journal().size(), 4);
}

} // namespace
