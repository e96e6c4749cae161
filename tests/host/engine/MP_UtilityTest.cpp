#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "host/platform/phone/HostStorage.h"
#include "platform/MP_PlayerTypes.h"
#include "platform/MP_Utility.h"
#include "tests/support/TestEnvironment.h"

TEST(MP_UtilityTest, ConvertTime_MinutesBelowAnHourAndHoursFromOneHour)
{
    EXPECT_EQ(MP_Utility::convertTime(61000), "1:01");
    EXPECT_EQ(MP_Utility::convertTime(3599999), "59:59");
    EXPECT_EQ(MP_Utility::convertTime(3600000), "1:00:00");
    EXPECT_EQ(MP_Utility::convertTime(-5000), "0:00");
}

TEST(MP_UtilityTest, MediumType_StreamsByScheme_DownloadsBySuffix_CleanNamesWithoutEither)
{
    EXPECT_EQ(MP_Utility::getMediumType("http://radio.test/live.mp3"), MP_MEDIUM_STREAM);
    EXPECT_EQ(MP_Utility::getMediumType("RTSP://radio.test/clip.3gp"), MP_MEDIUM_STREAM);
    EXPECT_EQ(MP_Utility::getMediumType("/mmc/mmca1/song.mp3.pd"), MP_MEDIUM_PROGRESSIVE_DOWNLOAD);
    EXPECT_EQ(MP_Utility::getMediumType("/home/music/http://x.mp3"), MP_MEDIUM_LOCAL);
    EXPECT_EQ(MP_Utility::removePDSuffix("/a/song.mp3.pd"), "/a/song.mp3");
    EXPECT_EQ(MP_Utility::removePDSuffix("/a/song.PD"), "/a/song.PD");
    EXPECT_EQ(MP_Utility::getCleanFileName("file:///mmc/mmca1/song.mp3.pd"), "/mmc/mmca1/song.mp3");
}

class MP_UtilityCardTest : public TestEnvironment {};

TEST_F(MP_UtilityCardTest, CleanFileName_HostCardFolderIsNamedAsThePhoneCard)
{
    const QString card = HostStorage::memoryCardPath();
    EXPECT_EQ(MP_Utility::getCleanFileName(card + "/Music/a.mp3"), "/mmc/mmca1/Music/a.mp3");
    EXPECT_EQ(MP_Utility::getCleanFileName(card), "/mmc/mmca1");
    // Beside the card, not on it.
    EXPECT_EQ(MP_Utility::getCleanFileName(card + "x/a.mp3"), card + "x/a.mp3");

    // A card folder that is a link: the place it leads to is the card too.
    const QString target = dataPath("elsewhere");
    ASSERT_TRUE(QDir().mkpath(target));
    ASSERT_TRUE(QFile::link(target, card));
    EXPECT_EQ(MP_Utility::getCleanFileName(QFileInfo(target).canonicalFilePath() + "/b.mp3"), "/mmc/mmca1/b.mp3");
}
