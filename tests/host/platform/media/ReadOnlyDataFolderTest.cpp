#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include "host/platform/HostDataDir.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "platform/Metadata.h"
#include "platform/SETUP_SET_Manager.h"
#include "tests/lists/TraceCapture.h"
#include "tests/host/platform/media/MetadataTestLibrary.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

const char* const kNotice = " is read-only: playing what is stored, nothing will be saved "
                            "(settings, play history, play lists, last-played list)\n";

// A data folder with a stored song and a last-played list, then made read-only
// either by its permissions or by the host's option.
class ReadOnlyDataFolderTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        ASSERT_NE(database->addMedia(song("/m/a.mp3").title("A").album("X")), 0u);
        MediaLastPlayedList list;
        list.firstIndex = 3;
        ASSERT_TRUE(database->setLastPlayedList(list));
        ASSERT_TRUE(database->setLastPlayedSong({"/m/a.mp3", 1}));
        ASSERT_TRUE(SETUP_SET_Manager(7, false).setSettingInfo("MediaControlItem", "MusicShuffle", 1));
    }
    void TearDown() override
    {
        ::chmod(QFile::encodeName(HostDataDir::path()).constData(), 0700);
        qunsetenv("MP_DATA_READ_ONLY");
        TestEnvironment::TearDown();
    }

    // What the player does on a read-only folder: it opens and reads, its
    // writes are refused and journaled as such, the folder stays untouched,
    // and it says so once.
    void expectPlaysReadOnly()
    {
        const QStringList filesBefore = QDir(HostDataDir::path()).entryList(QDir::Files);
        TraceCapture trace;
        testing::internal::CaptureStderr();

        int status = -1;
        const unsigned int handle = metadataCreateClient(&status);
        ASSERT_EQ(status, 0) << "a read-only database still plays";
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        EXPECT_EQ(database->mediaCount(), 1);
        EXPECT_EQ(database->addMedia(song("/m/b.mp3")), 0u);

        LastPlayedListRecord changed = lastPlayedRecord(7);
        EXPECT_EQ(saveLastPlayedList(&changed), 0);
        EXPECT_EQ(journalLines("metadata", "saveLastPlayedList").value(0).value("written"), false);
        LastPlayedListRecord read = lastPlayedRecord();
        ASSERT_EQ(getLastPlayedList(&read), 1);
        EXPECT_EQ(read.firstIndex, 3);
        freeLastPlayedList(&read);
        EXPECT_EQ(saveLastPlayedSong("/m/b.mp3", 2), 0);
        EXPECT_EQ(journalLines("metadata", "saveLastPlayedSong").value(0).value("written"), false);
        EXPECT_EQ(database->lastPlayedSong()->path, "/m/a.mp3");
        metadataDestroyClient(handle);
        database.reset();

        const QByteArray expected = "the data folder " + QFile::encodeName(HostDataDir::path()) + kNotice;
        // Said once, however many connections open and writes fail.
        const QByteArray errors = QByteArray::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(errors.toStdString(), ("warning: " + expected).toStdString());
        EXPECT_EQ(trace.text().toStdString(), ("[HostDataDir] " + expected).toStdString());
        EXPECT_EQ(QDir(HostDataDir::path()).entryList(QDir::Files), filesBefore)
            << "no journal or index files made";
    }
};

TEST_F(ReadOnlyDataFolderTest, FolderWithoutWritePermission_PlaysAndSavesNothing)
{
    ASSERT_EQ(::chmod(QFile::encodeName(HostDataDir::path()).constData(), 0555), 0);
    if (HostDataDir::isWritable(HostDataDir::path()))
        GTEST_SKIP() << "permissions do not stop this user (the superuser) writing; the option test covers the path";
    expectPlaysReadOnly();
}

TEST_F(ReadOnlyDataFolderTest, ReadOnlyOption_PlaysAndSavesNothing)
{
    QFile settingsFile(HostDataDir::file("settings/app-7.ini"));
    ASSERT_TRUE(settingsFile.open(QIODevice::ReadOnly));
    const QByteArray settingsBefore = settingsFile.readAll();
    qputenv("MP_DATA_READ_ONLY", "1");
    expectPlaysReadOnly();

    // A refused setting is not answered back as if saved, nor journaled, and leaves no file beside the store.
    SETUP_SET_Manager settings(7, false);
    EXPECT_FALSE(settings.setSettingInfo("MediaControlItem", "MusicShuffle", 2));
    int shuffle = -1;
    EXPECT_TRUE(settings.getSettingInfo("MediaControlItem", "MusicShuffle", shuffle, 0));
    EXPECT_EQ(shuffle, 1);
    EXPECT_EQ(journalLines("settings", QString()).size(), 1) << "the set-up's write only";
    settingsFile.seek(0);
    EXPECT_EQ(settingsFile.readAll(), settingsBefore);
    EXPECT_EQ(QDir(HostDataDir::file("settings")).entryList(QDir::Files), QStringList{"app-7.ini"});
}

} // namespace
