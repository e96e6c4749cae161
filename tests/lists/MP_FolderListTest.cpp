#include "lists/MP_FolderList.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <utility>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "tests/support/ListSteps.h"

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

    // The files listed, the current one marked with '*'.
    static QString listed(MP_FolderList& list)
    {
        QStringList result;
        for (int i = 0; i < int(list.count()); ++i)
            result << QFileInfo(list.getItem(i)).fileName() + (i == list.getCurrentIndex() ? "*" : "");
        return result.join(' ');
    }

    QTemporaryDir folder;
};

TEST_F(MP_FolderListTest, ListsTheStartFilesMediaClassInEachSortOrder_OnlyWhatAFileManagerShows)
{
    make("._b.mp3", 4096, 0);  // the resource fork a memory card gets from another computer
    make(".hidden.wav", 10, 0);
    ASSERT_TRUE(QDir(folder.path()).mkdir("e.mp3"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("f.mp3")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path("gone.mp3"), path("g.mp3")));  // a dangling link

    const std::pair<int, const char*> sorts[] = {
        {MP_FolderList::SortByName, "A.wav b.mp3* c.MP3 d.ogg"},
        {MP_FolderList::SortByTime, "A.wav d.ogg b.mp3* c.MP3"},  // newest first
        {MP_FolderList::SortBySize, "b.mp3* c.MP3 A.wav d.ogg"},  // largest first
        {MP_FolderList::SortByType, "b.mp3* c.MP3 d.ogg A.wav"},  // by extension, then name
        {42, "A.wav b.mp3* c.MP3 d.ogg"},                         // an unknown order: by name
    };
    for (const auto& [sort, expected] : sorts) {
        MP_FolderList list(path("b.mp3"), sort);
        EXPECT_EQ(listed(list), expected) << sort;
    }

    MP_FolderList videos(path("clip.mp4"), MP_FolderList::SortByName);
    EXPECT_EQ(listed(videos), "clip.mp4*");
}

TEST_F(MP_FolderListTest, Navigation_ClampsIntoTheList_FromAStartFileMissingOrFilteredOut)
{
    MP_FolderList list(path("b.mp3"), MP_FolderList::SortByName);
    // Added beyond an int, a step still ends at the end.
    EXPECT_EQ(listSteps(list, {"@10", "-5", "@1", "+2147483647", "-2147483648"}), "<3 0> <1> <3 0>");
    EXPECT_TRUE(list.getItem(4).isNull());
    EXPECT_TRUE(list.getItem(-1).isNull());

    // A start file that is missing plays the first; one of no media class lists nothing.
    MP_FolderList missing(path("zz.mp3"), MP_FolderList::SortByName);
    EXPECT_EQ(listed(missing), "A.wav* b.mp3 c.MP3 d.ogg");

    MP_FolderList filtered(path("notes.txt"), MP_FolderList::SortByName);
    EXPECT_EQ(filtered.getNameFilter(), "");
    EXPECT_TRUE(filtered.getCurrent().isNull());
    EXPECT_EQ(listSteps(filtered, {"@3"}), "0");
}

TEST_F(MP_FolderListTest, RemoveItem_DeletesTheFileAndKeepsTheIndexInside)
{
    MP_FolderList list(path("c.MP3"), MP_FolderList::SortByName);
    // Before the current: it stays on its file. The current: the next takes
    // its place, or the new last one when it was the last.
    QStringList steps;
    for (int index : {0, 1, 1, 0}) {
        EXPECT_TRUE(list.removeItem(index)) << index;
        steps << listed(list);
    }
    EXPECT_EQ(steps, QStringList({"b.mp3 c.MP3* d.ogg", "b.mp3 d.ogg*", "b.mp3*", ""}));
    EXPECT_FALSE(QFile::exists(path("A.wav")));
    EXPECT_TRUE(list.getCurrent().isNull());
    EXPECT_FALSE(list.removeItem(0));
}

TEST_F(MP_FolderListTest, RemoveItem_OfAFileGoneOrReplacedBehindTheListsBack_ChangesNothing)
{
    MP_FolderList list(path("b.mp3"), MP_FolderList::SortByName);
    QFile::remove(path("A.wav"));
    EXPECT_FALSE(list.removeItem(0));
    // Another file under the listed name is not the one the user chose to delete,
    // even of the same size and time, renamed into its place.
    make("b.new", 300, 5);
    ASSERT_EQ(std::rename(QFile::encodeName(path("b.new")).constData(), QFile::encodeName(path("b.mp3")).constData()), 0);
    EXPECT_FALSE(list.removeItem(1));
    EXPECT_TRUE(QFile::exists(path("b.mp3")));
    EXPECT_EQ(listed(list), "A.wav b.mp3* c.MP3 d.ogg");
}

} // namespace
