#pragma once
// Brings the media database in line with the files on disk: adds, updates and
// removes the objects of media files (audio and video, told apart by their
// extension; tags read with TagLib; a file whose content is not of the kind its
// name says is skipped, and an object stored before keeps what it held) and
// imports .m3u/.m3u8 play lists as user groups. Used by mp-scan for whole
// folders and by the application's script commands for single files.

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

#include "host/platform/media/database/MediaRecord.h"

class MediaDatabase;
struct MediaFileStamp;
struct MediaTags;
class SqliteTransaction;

struct MediaScanSummary {
    int added = 0;
    int updated = 0;
    int removed = 0;
    int unchanged = 0;
    int skipped = 0;              ///< files that could not be read
    int playListsImported = 0;    ///< play lists created or changed
    int playListsRemoved = 0;
    int missingFolders = 0;       ///< folders asked for that are not folders

    /** One line: "3 added, 0 updated, 1 removed, 5 unchanged, 1 skipped; play lists: 1 imported, 0 removed". */
    QString text() const;
    MediaScanSummary& operator+=(const MediaScanSummary& other);
};

class MediaScanner {
public:
    enum class FileOutcome { Added, Updated, Unchanged, Skipped, NotMedia };
    /** Receives one line per problem (an unreadable file, a play-list entry not found). */
    using MessageHandler = std::function<void(const QString& message)>;
    /** Receives the number of media files done and their total, after each file of a folder. */
    using ProgressHandler = std::function<void(int done, int total)>;

    /** Works on @p database, which must outlive the scanner. */
    explicit MediaScanner(MediaDatabase& database);

    void setMessageHandler(MessageHandler handler) { m_onMessage = std::move(handler); }
    void setProgressHandler(ProgressHandler handler) { m_onProgress = std::move(handler); }

    /** Scans every folder recursively: new and changed media files are read, objects whose
     *  file has gone are removed, play lists are imported; an unchanged file (same size and
     *  modification time) is not read again. */
    MediaScanSummary scanFolders(const QStringList& folders);
    /** Adds or updates the object of one file; Unchanged when its size and modification
     *  time are the ones stored. */
    FileOutcome scanFile(const QString& path);
    /** Removes the object of @p path (with its group memberships); false when none is stored. */
    bool removeFile(const QString& path);
    /** Creates or refreshes the user group of one play list, its entries in order; returns
     *  whether the group was created or changed. */
    bool importPlayList(const QString& path);

    /** Audio or video by the file's extension; nothing for other files. */
    static std::optional<MediaKind> mediaKindOf(const QString& path);
    static bool isPlayList(const QString& path);
    /** 0 under a folder named "Captured", 1 under "Downloads" (the nearest counts), else -1. */
    static int createdByOf(const QString& path);

private:
    FileOutcome scanFile(const QString& path, const std::optional<MediaFileStamp>& stored);
    void scanFolder(const QString& folder, MediaScanSummary& summary);
    // The phases of a folder scan.
    static void listFolder(const QString& folder, QStringList& mediaFiles, QStringList& playLists);
    /** Adds and updates the objects of @p mediaFiles, committing every few files. */
    void scanMediaFiles(const QStringList& mediaFiles, const QHash<QString, MediaFileStamp>& stored,
                        MediaScanSummary& summary);
    void removeVanishedMedia(const QStringList& mediaFiles, const QHash<QString, MediaFileStamp>& stored,
                             MediaScanSummary& summary);
    void importPlayLists(const QString& folder, const QStringList& playLists, MediaScanSummary& summary);
    /** Commits @p batch and adds what it holds (@p pending) to @p summary; when the commit
     *  fails, says so and counts its files as skipped, nothing as stored or removed. */
    void commitBatch(std::unique_ptr<SqliteTransaction> batch, const MediaScanSummary& pending,
                     MediaScanSummary& summary);
    bool isReadable(const QString& path);
    /** Reports the media files, play lists and folders under @p folder whose names are
     *  not UTF-8; returns their number. */
    int skipUnnamedEntries(const QString& folder);
    MediaRecord recordOf(const QString& path, MediaKind kind, const MediaTags& tags) const;
    std::optional<quint32> playListEntryId(const QString& entry, const QString& playList);
    void report(const QString& message) const;

    MediaDatabase& m_database;
    MessageHandler m_onMessage;
    ProgressHandler m_onProgress;
};
