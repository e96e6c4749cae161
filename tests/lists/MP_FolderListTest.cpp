#include "lists/MP_FolderList.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <climits>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

// A folder of made-up media files with distinct sizes and times.
class MP_FolderListTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        // name, size, age in minutes
        make("b.mp3", 300, 5);
        make("A.wav", 100, 1);
        make("c.MP3", 200, 9);
        make("d.ogg", 50, 3);
        make("clip.mp4", 400, 2);
        make("notes.txt", 10, 4);
    }

    void make(const QString& name, int size, int minutesAgo)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(size, 'x'));
        file.close();
        const QDateTime time = QDateTime(QDate(2026, 1, 1), QTime(12, 0)).addSecs(-60 * minutesAgo);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }

    QString path(const QString& name) const { return folder.filePath(name); }

    static QStringList names(MP_FolderList& list)
    {
        QStringList result;
        for (int i = 0; i < int(list.count()); ++i)
            result.append(QFileInfo(list.getItem(i)).fileName());
        return result;
    }

    QTemporaryDir folder;
};

TEST_F(MP_FolderListTest, ListsTheStartFilesMediaClassInEachSortOrder)
{
    MP_FolderList byName(path("b.mp3"), MP_FolderList::SortByName);
    EXPECT_EQ(names(byName), (QStringList{"A.wav", "b.mp3", "c.MP3", "d.ogg"}));
    EXPECT_EQ(byName.getCurrentIndex(), 1);
    EXPECT_EQ(byName.getCurrent(), path("b.mp3"));

    MP_FolderList byTime(path("b.mp3"), MP_FolderList::SortByTime);
    EXPECT_EQ(names(byTime), (QStringList{"A.wav", "d.ogg", "b.mp3", "c.MP3"})) << "newest first";
    MP_FolderList bySize(path("b.mp3"), MP_FolderList::SortBySize);
    EXPECT_EQ(names(bySize), (QStringList{"b.mp3", "c.MP3", "A.wav", "d.ogg"})) << "largest first";
    MP_FolderList byType(path("b.mp3"), MP_FolderList::SortByType);
    EXPECT_EQ(names(byType), (QStringList{"b.mp3", "c.MP3", "d.ogg", "A.wav"})) << "by extension, then name";
    MP_FolderList unknownSort(path("b.mp3"), 42);
    EXPECT_EQ(names(unknownSort), names(byName));

    MP_FolderList videos(path("clip.mp4"), MP_FolderList::SortByName);
    EXPECT_EQ(names(videos), QStringList{"clip.mp4"});
    EXPECT_EQ(videos.getNameFilter().split(';').first(), "*.mp4");
    EXPECT_EQ(videos.getReservedData(), nullptr);
}

TEST_F(MP_FolderListTest, ListsOnlyWhatAFileManagerShows)
{
    make("._b.mp3", 4096, 0);  // the resource fork a memory card gets from another computer
    make(".hidden.wav", 10, 0);
    ASSERT_TRUE(QDir(folder.path()).mkdir("e.mp3"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("f.mp3")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path("gone.mp3"), path("g.mp3")));  // a dangling link

    MP_FolderList list(path("b.mp3"), MP_FolderList::SortByName);
    EXPECT_EQ(names(list), (QStringList{"A.wav", "b.mp3", "c.MP3", "d.ogg"}));
    EXPECT_EQ(list.getCurrentIndex(), 1);
}

TEST_F(MP_FolderListTest, Navigation_ClampsIntoTheList)
{
    MP_FolderList list(path("b.mp3"), MP_FolderList::SortByName);
    list.moveTo(10);
    EXPECT_EQ(list.getCurrentIndex(), 3);
    EXPECT_FALSE(list.hasNext());
    EXPECT_TRUE(list.hasPrevious());
    list.skipSteps(-5);
    EXPECT_EQ(list.getCurrentIndex(), 0);
    EXPECT_FALSE(list.hasPrevious());
    list.moveTo(1);
    list.skipSteps(INT_MAX);  // added beyond an int, the step still ends at the end
    EXPECT_EQ(list.getCurrentIndex(), 3);
    list.skipSteps(INT_MIN);
    EXPECT_EQ(list.getCurrentIndex(), 0);
    EXPECT_TRUE(list.getItem(4).isNull());
    EXPECT_TRUE(list.getItem(-1).isNull());
}

TEST_F(MP_FolderListTest, StartFileMissingFilteredOrUnknown)
{
    MP_FolderList missing(path("zz.mp3"), MP_FolderList::SortByName);
    EXPECT_EQ(missing.count(), 4u);
    EXPECT_EQ(missing.getCurrentIndex(), 0);

    // Exists but is of no media class: nothing is listed.
    MP_FolderList filtered(path("notes.txt"), MP_FolderList::SortByName);
    EXPECT_EQ(filtered.getNameFilter(), "");
    EXPECT_EQ(filtered.count(), 0u);
    EXPECT_TRUE(filtered.getCurrent().isNull());
    EXPECT_FALSE(filtered.hasNext());
    EXPECT_FALSE(filtered.hasPrevious());
    filtered.moveTo(3);
    EXPECT_EQ(filtered.getCurrentIndex(), 0);
}

TEST_F(MP_FolderListTest, RemoveItem_DeletesTheFileAndKeepsTheIndexInside)
{
    MP_FolderList list(path("c.MP3"), MP_FolderList::SortByName);  // [A, b, c, d], current c
    ASSERT_EQ(list.getCurrentIndex(), 2);

    EXPECT_TRUE(list.removeItem(0));  // before the current: it stays on its file
    EXPECT_FALSE(QFile::exists(path("A.wav")));
    EXPECT_EQ(list.getCurrent(), path("c.MP3"));
    EXPECT_EQ(list.getCurrentIndex(), 1);

    EXPECT_TRUE(list.removeItem(2));  // after the current: it stays
    EXPECT_EQ(list.getCurrent(), path("c.MP3"));

    list.moveTo(0);
    EXPECT_TRUE(list.removeItem(0));  // the current: the next takes its place
    EXPECT_EQ(list.getCurrent(), path("c.MP3"));

    EXPECT_TRUE(list.removeItem(0));  // the current and last: the list is empty, index 0
    EXPECT_EQ(list.count(), 0u);
    EXPECT_EQ(list.getCurrentIndex(), 0);
    EXPECT_TRUE(list.getCurrent().isNull());
    EXPECT_FALSE(list.removeItem(0));
}

TEST_F(MP_FolderListTest, RemoveItem_FailedDeletionChangesNothing_RemovingTheLastPlaysTheNewLast)
{
    MP_FolderList list(path("b.mp3"), MP_FolderList::SortByName);
    QFile::remove(path("A.wav"));  // gone behind the list's back
    EXPECT_FALSE(list.removeItem(0));
    EXPECT_EQ(list.count(), 4u);
    EXPECT_EQ(list.getCurrent(), path("b.mp3"));

    list.moveTo(3);
    EXPECT_TRUE(list.removeItem(3));
    EXPECT_EQ(list.getCurrent(), path("c.MP3"));
}

} // namespace
