// The host's bookmarks live in files of the data folder: what one run
// stores, the next run reads, and a file spoiled by hand is read as far as
// it holds a bookmark, never further.

#include <QDir>
#include <QFile>

#include "host/platform/services/HostBookmarkStore.h"
#include "tests/support/TestEnvironment.h"

namespace {

class HostBookmarkStoreTest : public TestEnvironment {
protected:
    static QStringList titles()
    {
        QStringList result;
        for (const HostBookmark& bookmark : HostBookmarkStore::all())
            result << bookmark.title + QLatin1Char(' ') + bookmark.url;
        return result;
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }
};

TEST_F(HostBookmarkStoreTest, AStoredBookmarkIsReadBackAfterARestartAndNumbersGoOn)
{
    // Nothing is stored without an address, or too long to read back.
    EXPECT_TRUE(HostBookmarkStore::add("No address", QString()).isNull());
    EXPECT_TRUE(HostBookmarkStore::add(QString(int(HostBookmarkStore::kMaxFileBytes), QLatin1Char('t')), "http://a").isNull());
    EXPECT_EQ(HostBookmarkStore::add("One", "http://a/1"), dataPath("bookmarks/bookmark-1.url"));
    // What a previous run left, with a gap in the numbers and a stray file.
    writeDataFile("bookmarks/bookmark-7.url", "TITLE=Seven\nURL=http://a/7\n");
    writeDataFile("bookmarks/notes.txt", "TITLE=Not one\nURL=http://a/x\n");

    EXPECT_EQ(HostBookmarkStore::add("Line\nbreak", "http://a/8"), dataPath("bookmarks/bookmark-8.url"));
    EXPECT_EQ(titles(), QStringList({"One http://a/1", "Seven http://a/7", "Line break http://a/8"}));
}

TEST_F(HostBookmarkStoreTest, AboveTheHighestNumberTheLowestFreeOneIsTakenAndNoNameIsReused)
{
    writeDataFile("bookmarks/bookmark-2147483647.url", "TITLE=Top\nURL=http://a/top\n");
    writeDataFile("bookmarks/bookmark-1.url", "TITLE=One\nURL=http://a/1\n");
    EXPECT_EQ(HostBookmarkStore::add("Two", "http://a/2"), dataPath("bookmarks/bookmark-2.url"));
    EXPECT_EQ(titles(), QStringList({"One http://a/1", "Two http://a/2", "Top http://a/top"}));

    // A name held by a link that points nowhere is passed over, not written through.
    ASSERT_TRUE(QFile::link(dataPath("elsewhere.url"), dataPath("bookmarks/bookmark-3.url")));
    EXPECT_EQ(HostBookmarkStore::add("Four", "http://a/4"), dataPath("bookmarks/bookmark-4.url"));
    EXPECT_FALSE(QFile::exists(dataPath("elsewhere.url")));
}

TEST_F(HostBookmarkStoreTest, Update_ReplacesTheFileWholeOrWritesNothing)
{
    using Result = HostBookmarkStore::UpdateResult;
    const QString identity = HostBookmarkStore::add("One", "http://a/1");
    const QByteArray one = "TITLE=One\nURL=http://a/1\n";
    // Files that parse as bookmarks but are not this store's to rewrite.
    const QStringList strangers = {writeDataFile("bookmarks/notes.txt", one), writeDataFile("elsewhere/bookmark-1.url", one),
                                   dataPath("bookmarks/bookmark-2.url"), dataPath("bookmarks/bookmark-3.url")};
    ASSERT_TRUE(QFile::link(identity, strangers.at(2)));
    for (const QString& stranger : strangers)
        EXPECT_EQ(HostBookmarkStore::update(stranger, "X", "http://x"), Result::NotABookmark) << qPrintable(stranger);
    EXPECT_FALSE(QFile::exists(strangers.at(3))) << "a missing bookmark is not made";
    EXPECT_EQ(HostBookmarkStore::update(identity, "Blank", " \n"), Result::NoAddress);
    EXPECT_EQ(HostBookmarkStore::update(identity, QString(int(HostBookmarkStore::kMaxFileBytes), QLatin1Char('t')), "http://a"),
              Result::TooLong);
    qputenv("MP_DATA_READ_ONLY", "1");
    EXPECT_EQ(HostBookmarkStore::update(identity, "Read-only", "http://a/r"), Result::NotWritten);
    qunsetenv("MP_DATA_READ_ONLY");
    for (const QString& path : {identity, strangers.at(0), strangers.at(1)})
        EXPECT_EQ(bytesOf(path), one) << qPrintable(path);

    EXPECT_EQ(HostBookmarkStore::update(identity, "Two\nlines", "http://a/2\r"), Result::Stored);
    EXPECT_EQ(bytesOf(identity), QByteArray("TITLE=Two lines\nURL=http://a/2 \n"));
    EXPECT_EQ(QDir(dataPath("bookmarks")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"bookmark-1.url", "bookmark-2.url", "notes.txt"}))
        << "the new file took the old one's name and left nothing beside it";
}

TEST_F(HostBookmarkStoreTest, Parse_TakesTheLastTitleAndAddressAndIgnoresTheRest)
{
    const std::optional<HostBookmark> bookmark =
        HostBookmarkStore::parse("junk\r\nTITLE=Old\r\nURL=http://old\nTITLE=New \xc3\xa4\nURL=http://new\nURL\n");
    ASSERT_TRUE(bookmark);
    EXPECT_EQ(QStringList({bookmark->title, bookmark->url}), QStringList({QString::fromUtf8("New \xc3\xa4"), "http://new"}));

    EXPECT_FALSE(HostBookmarkStore::parse("TITLE=only\nURL=\n"));
    EXPECT_FALSE(HostBookmarkStore::parse("URL=http://a\n" + QByteArray(int(HostBookmarkStore::kMaxFileBytes), ' ')));
    writeDataFile("bookmarks/bookmark-1.url", "URL=http://a\n" + QByteArray(int(HostBookmarkStore::kMaxFileBytes), ' '));
    EXPECT_FALSE(HostBookmarkStore::read(dataPath("bookmarks/bookmark-1.url"))) << "an oversized file is not read";
}

} // namespace
