// Whether a file is still the one the media database holds at its path.

#include <gtest/gtest.h>

#include <QFile>

#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufContext.h"
#include "platform/Metadata.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

using MetadataFileCheckTest = TestEnvironment;

TEST_F(MetadataFileCheckTest, ComparesTheFileWithTheStoredSizeAndTime)
{
    const QString kept = writeDataFile("kept.mp3", "song");
    const QString grown = writeDataFile("grown.mp3", "song");
    const QString gone = writeDataFile("gone.mp3", "song");
    const QString unstamped = writeDataFile("unstamped.mp3", "song");
    {
        auto database = MediaDatabase::open(MediaDatabase::defaultFile());
        for (const QString& path : {kept, grown, gone})
            ASSERT_NE(database->addMedia(song(path).stampOf(QFileInfo(path))), 0u);
        ASSERT_NE(database->addMedia(song(unstamped)), 0u);
    }
    writeDataFile("grown.mp3", "another song");
    ASSERT_TRUE(QFile::remove(gone));
    const unsigned int handle = MP_AufContext::getHandler();

    EXPECT_EQ(metadataCheckFile(handle, kept.toUtf8().constData()), METADATA_FILE_AS_STORED);
    EXPECT_EQ(metadataCheckFile(handle, (dataPath(".") + "/kept.mp3").toUtf8().constData()), METADATA_FILE_AS_STORED)
        << "the same path, spelt otherwise";
    EXPECT_EQ(metadataCheckFile(handle, grown.toUtf8().constData()), METADATA_FILE_CHANGED);
    EXPECT_EQ(metadataCheckFile(handle, gone.toUtf8().constData()), METADATA_FILE_CHANGED);
    EXPECT_EQ(metadataCheckFile(handle, unstamped.toUtf8().constData()), METADATA_FILE_CHANGED)
        << "stored without its stamp: nothing says it is the same file";
    EXPECT_EQ(metadataCheckFile(handle, dataPath("other.mp3").toUtf8().constData()), METADATA_FILE_NOT_STORED);
    EXPECT_EQ(metadataCheckFile(handle, nullptr), METADATA_FILE_UNKNOWN);
    EXPECT_EQ(metadataCheckFile(handle + 1000, kept.toUtf8().constData()), METADATA_FILE_UNKNOWN);
}

} // namespace
