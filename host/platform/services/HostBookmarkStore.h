#pragma once
// The host's bookmarks: one small file each in <data folder>/bookmarks,
// named "bookmark-N.url" with N counting up from 1, holding UTF-8 lines
// "TITLE=..." and "URL=..."; a new file never replaces one that is there.
// A bookmark's identity is its file's full path,
// so that it can be checked for with a plain file test and outlives the process.
// An edited bookmark replaces its file whole: the new bytes go to a new file
// that takes the old one's name in one step.

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

struct HostBookmark {
    QString identity;  ///< the file's full path
    QString title;
    QString url;
};

class HostBookmarkStore {
public:
    /** The largest bookmark file read; a bigger one is not a bookmark. */
    static constexpr qint64 kMaxFileBytes = 8 * 1024;

    /** Stores a new bookmark of @p url named @p title (the address when empty);
     *  returns its identity, or a null string when it could not be written. */
    static QString add(const QString& title, const QString& url);
    /** The bookmark stored at @p identity; nothing when it is missing or not a bookmark. */
    static std::optional<HostBookmark> read(const QString& identity);
    /** Every stored bookmark, in the order they were added. */
    static QList<HostBookmark> all();

    /** What update() did. */
    enum class UpdateResult {
        Stored,        ///< the bookmark now holds the new title and address
        NotABookmark,  ///< the identity names no bookmark file of this store (gone, a link, elsewhere)
        NoAddress,     ///< the address is empty or only blanks
        TooLong,       ///< the file would be longer than kMaxFileBytes
        NotWritten,    ///< the folder is read-only or the disk refused the bytes
    };
    /** Stores @p title and @p url in the bookmark at @p identity, in place of what
     *  it held; the bytes are format()'s. The old file stays whole until the new
     *  one has been written completely (a crash or a full disk leaves it as it
     *  was). Anything but Stored writes nothing. */
    static UpdateResult update(const QString& identity, const QString& title, const QString& url);

    /** Reads a bookmark file's bytes: the last TITLE and URL lines count, other
     *  lines and every carriage return are ignored; nothing without a non-empty
     *  URL or when longer than kMaxFileBytes. */
    static std::optional<HostBookmark> parse(const QByteArray& bytes);
    /** The bytes of a bookmark file; line breaks in @p title or @p url become spaces,
     *  an empty title is the address. */
    static QByteArray format(const QString& title, const QString& url);

private:
    static QString folder();
    /** Whether @p identity names a plain bookmark file in folder(), not a link. */
    static bool isStoredHere(const QString& identity);
    /** N of a file named "bookmark-N.url"; 0 for any other name. */
    static int numberOf(const QString& fileName);
    /** The number of the next bookmark in @p dir: one above the highest, or the
     *  lowest free one when no number is left above it. */
    static int nextNumber(const QString& dir);

    /** How many names add() tries when other programs take them meanwhile. */
    static constexpr int kNameAttempts = 16;
};
