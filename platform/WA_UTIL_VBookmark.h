#pragma once
// The browser's bookmarks. A bookmark is a file of its own; its identity is
// that file's full path.

#include <QString>

class WA_UTIL_VBookmark {
public:
    /** Opens the bookmark stored at @p bookmark for editing; false when there is none. */
    static bool editBookmark(const QString& bookmark);
    /** Adds a bookmark of @p url named @p title (the address when null or empty).
     *  @p identity receives the new bookmark's identity, or a null string when
     *  nothing could be stored; returns whether it was stored. */
    static bool addBookmark(const QString& title, const QString& url, QString& identity);
};
