#include "lists/MP_AufSearchMediaAccessor.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufSearchCondition.h"
#include "platform/Metadata.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_AufSearchMediaAccessorTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        const struct {
            const char* path;
            const char* title;
            const char* album;
            int track;
        } songs[] = {{"/m/b.mp3", "Bravo", "Second", 1}, {"/m/a.mp3", "Alpha", "First", 2},
                     {"/m/c.mp3", "Charlie", "First", 1}};
        for (const auto& row : songs)
            ASSERT_NE(database->addMedia(song(row.path).title(row.title).artist("Band").album(row.album).track(row.track)),
                      0u);
        int status = -1;
        m_handle = metadataCreateClient(&status);
        ASSERT_NE(m_handle, 0u);
        m_condition = std::make_unique<MP_AufSearchCondition>("Band", QString(), QString(), QString(), 2);
        m_accessor = std::make_unique<MP_AufSearchMediaAccessor>(int(m_handle), m_condition.get());
    }
    void TearDown() override
    {
        metadataDestroyClient(m_handle);
        TestEnvironment::TearDown();
    }

    unsigned int m_handle = 0;
    std::unique_ptr<MP_AufSearchCondition> m_condition;
    std::unique_ptr<MP_AufSearchMediaAccessor> m_accessor;
};

QStringList pathsOf(const QValueList<MP_AUF_ITEM>& items)
{
    QStringList paths;
    for (const MP_AUF_ITEM& item : items)
        paths.append(QString::number(item.id) + ' ' + item.path);
    return paths;
}

} // namespace

TEST_F(MP_AufSearchMediaAccessorTest, CountsFetchesIdsAndAlbums_ABadEntryIsEmpty_AFailedSearchChangesNothing)
{
    QValueList<MP_AUF_ITEM> items{MP_AUF_ITEM(9, "/kept")};
    QValueList<unsigned int> ids;
    QStringList albums{"kept"};
    const auto state = [&] {
        QStringList idTexts;
        for (unsigned int id : ids)
            idTexts << QString::number(id);
        return QStringLiteral("%1 songs, %2 albums: ").arg(m_accessor->count()).arg(m_accessor->albumCount())
            + QStringList{pathsOf(items).join(','), idTexts.join(','), albums.join(',')}.join(" | ");
    };
    // A request for no entries counts them and leaves the container as it is.
    EXPECT_TRUE(m_accessor->getItems(0, 0, items));
    EXPECT_TRUE(m_accessor->getAlbums(0, 0, albums));
    EXPECT_EQ(state(), "3 songs, 2 albums: 9 /kept |  | kept");

    EXPECT_TRUE(m_accessor->getItems(1, 10, items));
    EXPECT_TRUE(m_accessor->getIds(0, 2, ids));
    EXPECT_TRUE(m_accessor->getAlbums(0, 5, albums));
    EXPECT_EQ(state(), "3 songs, 2 albums: 1 /m/b.mp3,3 /m/c.mp3 | 2,1 | First,Second");

    // A window of one album does not touch the count.
    m_accessor->setAlbum("First");
    EXPECT_TRUE(m_accessor->getItems(5, 10, items));
    EXPECT_TRUE(items.isEmpty());
    EXPECT_TRUE(m_accessor->getItems(0, 10, items));
    const QString found = state();
    EXPECT_EQ(found, "3 songs, 2 albums: 2 /m/a.mp3,3 /m/c.mp3 | 2,1 | First,Second");

    // An entry without id or path becomes the empty item.
    const MetadataMediaField albumOnly{METADATA_CANDIDATE_ALBUM, 6, {0}};
    MetadataMediaField fields[1] = {albumOnly};
    fields[0].value.text = "First";
    const MetadataMediaInfo info{1, fields};
    MetadataSearchMediaResponse response{1, 1, &info};
    QValueList<MP_AUF_ITEM> bad;
    ASSERT_TRUE(m_accessor->getItems(0, 1, bad));  // sets the item output and window mode
    MP_AufSearchMediaAccessor::AufGetFilterItemCallback(m_accessor.get(), &response);
    ASSERT_EQ(bad.size(), 1);
    EXPECT_EQ(std::make_pair(bad[0].id, bad[0].path.isNull()), std::make_pair(0u, true));

    // A failed search changes no container and no count.
    metadataDestroyClient(m_handle);
    const int succeeded = int(m_accessor->getItems(0, 0, items)) + int(m_accessor->getAlbums(0, 0, albums))
        + int(m_accessor->getItems(0, 10, items)) + int(m_accessor->getIds(0, 10, ids))
        + int(m_accessor->getAlbums(0, 10, albums));
    EXPECT_EQ(succeeded, 0);
    EXPECT_EQ(state(), found);
}
