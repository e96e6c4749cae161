#include "host/platform/media/database/MediaBackup.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QFile>

#include <map>

#include <unistd.h>

#include "tests/host/platform/media/MetadataTestLibrary.h"

namespace {

class MetadataBackupTest : public MetadataTestLibrary {
protected:
    void SetUp() override
    {
        MetadataTestLibrary::SetUp();
        // By title: A B C D E.
        for (const char* title : {"C", "A", "E", "B", "D"})
            m_ids[title] = add(QStringLiteral("/m/%1.mp3").arg(title), title);
        const MetadataSearchMediaRequest request = m_music.words();
        ASSERT_EQ(metadataBackupSearchedMedias(m_handle, &request), 0);
    }

    const SearchRequest m_music{METADATA_LIST_MUSIC};
    std::map<QString, quint32> m_ids;
};

using Ids = std::vector<quint32>;

} // namespace

TEST(MediaBackupLocate, FindsTheEntryOrTheFirstLaterSurvivor)
{
    // An entry still there, or gone with or without a later survivor, is checked through the client, below.
    const Ids backup{10, 11, 12, 13, 14};
    EXPECT_EQ(MediaBackup::locate(backup, 7, {10, 11}).newIndex, 2);          // no such entry
    EXPECT_EQ(MediaBackup::locate(backup, -1, {11, 10}).newIndex, 1);         // before the start: 10 is later
    // The second copy of an object keeps its own place.
    EXPECT_EQ(MediaBackup::locate({5, 6, 5}, 2, {6, 5, 7, 5}).newIndex, 4);
    EXPECT_EQ(MediaBackup::locate({5, 6, 5}, 2, {6, 5}).isExisted, false);
}

TEST_F(MetadataBackupTest, ChecksTheThreeOutcomesAgainstTheSearchRunAgain)
{
    // Nothing changed: B (position 1) is still second.
    EXPECT_EQ(checkBackup(1), (BackupCheck{0, true, 2, 5}));
    // "AA" sorts before B, which moves to the third place.
    add("/m/AA.mp3", "AA");
    EXPECT_EQ(checkBackup(1), (BackupCheck{0, true, 3, 6}));
    // B and C gone: D, the first later entry still there, is now at position 2 (A AA D E).
    ASSERT_TRUE(m_database->removeMedia(m_ids["B"]));
    ASSERT_TRUE(m_database->removeMedia(m_ids["C"]));
    EXPECT_EQ(checkBackup(1), (BackupCheck{0, false, 2, 4}));
    // D and E gone as well: nothing after B survives, the answer is the count.
    ASSERT_TRUE(m_database->removeMedia(m_ids["D"]));
    ASSERT_TRUE(m_database->removeMedia(m_ids["E"]));
    EXPECT_EQ(checkBackup(1), (BackupCheck{0, false, 2, 2}));
    EXPECT_EQ(checkBackup(0), (BackupCheck{0, true, 1, 2}));
}

// A refresh taking the present result is the lists' test of a second change to a playing list.
TEST_F(MetadataBackupTest, ReleaseEndsTheBackup_ItIsTheConnectionsOwn)
{
    int status = -1;
    EXPECT_EQ(metadataManageBackupList(m_handle, METADATA_BACKUP_RELEASE, &status), 0);
    EXPECT_NE(std::get<0>(checkBackup(0)), 0);
    EXPECT_NE(metadataManageBackupList(m_handle, METADATA_BACKUP_REFRESH, &status), 0);
    EXPECT_NE(status, 0);
    // Another connection has no backup of its own, and a bad handle none at all.
    int created = -1;
    const unsigned int other = metadataCreateClient(&created);
    const MetadataSearchMediaRequest request = m_music.words();
    ASSERT_EQ(metadataBackupSearchedMedias(m_handle, &request), 0);
    EXPECT_NE(metadataCheckBackupedItem(other, 0, nullptr, nullptr, nullptr), 0);
    EXPECT_NE(metadataCheckBackupedItem(other + 100, 0, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(std::get<0>(checkBackup(0)), 0);
    metadataDestroyClient(other);
}

TEST_F(MetadataBackupTest, FileDeletedUnderAWatchedFolderLeavesTheDatabaseAndIsAnnounced)
{
    const QString kept = QFileInfo(writeDataFile("watched/kept.mp3")).canonicalFilePath();
    const QString doomed = QFileInfo(writeDataFile("watched/doomed.mp3")).canonicalFilePath();
    for (const QString& path : {kept, doomed})
        add(path, QFileInfo(path).baseName());
    IndicationRecorder recorder;
    subscribe(m_handle, recorder);
    const MetadataSearchMediaRequest request = m_music.words();
    ASSERT_EQ(metadataBackupSearchedMedias(m_handle, &request), 0);

    ASSERT_EQ(::unlink(QFile::encodeName(doomed).constData()), 0);
    EXPECT_TRUE(waitUntil([&] { return !recorder.heard.isEmpty(); }, 3000));
    EXPECT_EQ(recorder.heard, QStringList{IndicationRecorder::content()});
    EXPECT_FALSE(m_database->mediaByPath(doomed));
    EXPECT_TRUE(m_database->mediaByPath(kept));
    EXPECT_EQ(journalArgs("file", "deleted"), QList<QJsonArray>{QJsonArray{doomed}});

    // Without a subscription nothing is watched.
    ASSERT_EQ(metadataDeregisterIndication(m_handle), 0);
    ASSERT_TRUE(QFile::remove(kept));
    processEvents();
    EXPECT_FALSE(waitUntil([&] { return !m_database->mediaByPath(kept); }, 300));
}
