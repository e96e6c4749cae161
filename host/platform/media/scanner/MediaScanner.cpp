#include "host/platform/media/scanner/MediaScanner.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/platform/phone/HostStorage.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/scanner/MediaTagReader.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "platform/UTIL_MimeType.h"

namespace {

// Files read between two commits of a folder scan: the work of an interrupted
// scan is mostly kept, and the application is never kept waiting long to write.
constexpr int kFilesPerCommit = 100;

QString cleanAbsolutePath(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

qint64 modificationTimeOf(const QFileInfo& info)
{
    return info.lastModified().toMSecsSinceEpoch();
}

// A play list is UTF-8 when it says so (.m3u8) or decodes as such; older
// ones are Latin-1.
QString decodePlayList(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

bool isUtf8(const std::string& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    // The decoder works when its result is taken.
    const QString decoded = utf8(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
    Q_UNUSED(decoded);
    return !utf8.hasError();
}

// The bytes of @p path with every byte that is not printable ASCII as \xNN:
// a message names the file exactly, whatever its encoding.
QString escapedPath(const std::string& path)
{
    QString text;
    for (const char byte : path) {
        const uchar value = uchar(byte);
        if (value >= 0x20 && value < 0x7F && value != '\\')
            text += QLatin1Char(char(value));
        else
            text += QStringLiteral("\\x%1").arg(value, 2, 16, QLatin1Char('0'));
    }
    return text;
}

} // namespace

MediaScanSummary& MediaScanSummary::operator+=(const MediaScanSummary& other)
{
    added += other.added;
    updated += other.updated;
    removed += other.removed;
    unchanged += other.unchanged;
    skipped += other.skipped;
    playListsImported += other.playListsImported;
    playListsRemoved += other.playListsRemoved;
    missingFolders += other.missingFolders;
    return *this;
}

QString MediaScanSummary::text() const
{
    return QStringLiteral("%1 added, %2 updated, %3 removed, %4 unchanged, %5 skipped; play lists: %6 imported, %7 removed")
        .arg(added)
        .arg(updated)
        .arg(removed)
        .arg(unchanged)
        .arg(skipped)
        .arg(playListsImported)
        .arg(playListsRemoved);
}

MediaScanner::MediaScanner(MediaDatabase& database) : m_database(database) {}

std::optional<MediaKind> MediaScanner::mediaKindOf(const QString& path)
{
    if (UTIL_MimeType::isAudio(path))
        return MediaKind::Audio;
    if (UTIL_MimeType::isVideo(path))
        return MediaKind::Video;
    return std::nullopt;
}

bool MediaScanner::isPlayList(const QString& path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    return extension == QLatin1String("m3u") || extension == QLatin1String("m3u8");
}

int MediaScanner::createdByOf(const QString& path)
{
    const QStringList folders = QFileInfo(path).absolutePath().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (auto folder = folders.crbegin(); folder != folders.crend(); ++folder) {
        if (*folder == QLatin1String("Captured"))
            return METADATA_CREATED_CAPTURED;
        if (*folder == QLatin1String("Downloads"))
            return METADATA_CREATED_DOWNLOADED;
    }
    return -1;
}

void MediaScanner::report(const QString& message) const
{
    if (m_onMessage)
        m_onMessage(message);
}

bool MediaScanner::isReadable(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        report(QStringLiteral("cannot read %1: it does not exist (a broken link?); skipped").arg(path));
        return false;
    }
    // A pipe or a device would block the reader or never end.
    if (!info.isFile()) {
        report(QStringLiteral("cannot read %1: not a regular file; skipped").arg(path));
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report(QStringLiteral("cannot read %1: %2; skipped").arg(path, file.errorString()));
        return false;
    }
    return true;
}

int MediaScanner::skipUnnamedEntries(const QString& folder)
{
    // Paths are stored as text, so a name that is not UTF-8 cannot be stored
    // (nor found again under the name Qt makes of it, which is why the folder
    // listing does not even show it). Such entries are looked for in the raw
    // bytes, reported and counted as skipped rather than lost in silence.
    namespace fs = std::filesystem;
    std::error_code error;
    fs::recursive_directory_iterator entry(QFile::encodeName(folder).toStdString(),
                                           fs::directory_options::skip_permission_denied, error);
    // Sorted, as the files are, so that the messages come in the same order at every scan.
    std::vector<std::pair<std::string, QString>> skipped;
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().native();
        if (isUtf8(name))
            continue;
        const QString shownName = QString::fromUtf8(name.data(), qsizetype(name.size()));
        if (entry->is_directory(error) && !entry->is_symlink(error)) {
            entry.disable_recursion_pending();
            skipped.emplace_back(entry->path().native(),
                                 QStringLiteral("cannot read the folder %1: its name is not valid UTF-8; "
                                                "skipped with all it holds"));
        } else if (mediaKindOf(shownName) || isPlayList(shownName)) {
            skipped.emplace_back(entry->path().native(),
                                 QStringLiteral("cannot read %1: its name is not valid UTF-8; skipped"));
        }
    }
    std::sort(skipped.begin(), skipped.end());
    for (const auto& [path, message] : skipped)
        report(message.arg(escapedPath(path)));
    return int(skipped.size());
}

MediaRecord MediaScanner::recordOf(const QString& path, MediaKind kind, const MediaTags& tags) const
{
    const QFileInfo info(path);
    MediaRecord record;
    record.path = path;
    record.kind = kind;
    record.title = tags.title.isEmpty() ? info.completeBaseName() : tags.title;
    record.artist = tags.artist;
    record.album = tags.album;
    record.genre = tags.genre;
    record.composer = tags.composer;
    record.track = tags.track;
    // Without a date tag (a recording, a captured video) the day the file was
    // made stands in, so that a selection by date finds it.
    record.date = tags.date.isEmpty() ? info.lastModified().toString(QStringLiteral("yyyy-MM-dd")) : tags.date;
    record.storage = HostStorage::storageOf(path);
    record.createdBy = createdByOf(path);
    record.fileSize = info.size();
    record.fileModified = modificationTimeOf(info);
    return record;
}

MediaScanner::FileOutcome MediaScanner::scanFile(const QString& path)
{
    const QString file = cleanAbsolutePath(path);
    std::optional<MediaFileStamp> stored;
    if (const std::optional<MediaRecord> record = m_database.mediaByPath(file))
        stored = MediaFileStamp{record->id, record->path, record->fileSize, record->fileModified};
    return scanFile(file, stored);
}

MediaScanner::FileOutcome MediaScanner::scanFile(const QString& path, const std::optional<MediaFileStamp>& stored)
{
    const std::optional<MediaKind> kind = mediaKindOf(path);
    if (!kind)
        return FileOutcome::NotMedia;
    if (!isReadable(path))
        return FileOutcome::Skipped;
    const QFileInfo info(path);
    if (stored && stored->fileSize == info.size() && stored->fileModified == modificationTimeOf(info))
        return FileOutcome::Unchanged;

    const std::optional<MediaTags> tags = MediaTagReader::read(path);
    if (!tags) {
        report(QStringLiteral("cannot read %1: its content is not that of a .%2 file; skipped")
                   .arg(path, QFileInfo(path).suffix().toLower()));
        return FileOutcome::Skipped;
    }
    MediaRecord record = recordOf(path, *kind, *tags);
    if (stored) {
        record.id = stored->id;
        // The buy flag is the user's, not the file's.
        if (const std::optional<MediaRecord> previous = m_database.mediaById(stored->id))
            record.buy = previous->buy;
        if (m_database.updateMedia(record))
            return FileOutcome::Updated;
    } else if (m_database.addMedia(record) != 0) {
        return FileOutcome::Added;
    }
    report(QStringLiteral("cannot store %1 in the database; skipped").arg(path));
    return FileOutcome::Skipped;
}

bool MediaScanner::removeFile(const QString& path)
{
    const std::optional<MediaRecord> record = m_database.mediaByPath(cleanAbsolutePath(path));
    return record && m_database.removeMedia(record->id);
}

std::optional<quint32> MediaScanner::playListEntryId(const QString& entry, const QString& playList)
{
    QString path = entry;
    if (entry.startsWith(QLatin1String("file:")))
        path = QUrl(entry).toLocalFile();
    else if (entry.contains(QLatin1String("://")))
        return std::nullopt;  // a stream is no media object
    path = QDir::cleanPath(QFileInfo(playList).dir().absoluteFilePath(path));

    for (const QString& candidate : {path, QFileInfo(path).canonicalFilePath()}) {
        if (candidate.isEmpty())
            continue;
        if (const std::optional<MediaRecord> record = m_database.mediaByPath(candidate))
            return record->id;
    }
    // An entry outside the scanned folders is read now, if it is a media file.
    if (QFileInfo(path).isFile()) {
        const FileOutcome outcome = scanFile(path);
        if (outcome == FileOutcome::Added || outcome == FileOutcome::Updated || outcome == FileOutcome::Unchanged) {
            if (const std::optional<MediaRecord> record = m_database.mediaByPath(path))
                return record->id;
        }
    }
    report(QStringLiteral("play list %1: no media file %2; entry left out").arg(playList, entry));
    return std::nullopt;
}

bool MediaScanner::importPlayList(const QString& path)
{
    const QString playList = cleanAbsolutePath(path);
    QFile file(playList);
    if (!file.open(QIODevice::ReadOnly)) {
        report(QStringLiteral("cannot read play list %1: %2; skipped").arg(playList, file.errorString()));
        return false;
    }
    QString text = decodePlayList(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);

    QList<quint32> members;
    for (const QString& rawLine : text.split(QLatin1Char('\n'))) {
        const QString line = rawLine.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (const std::optional<quint32> id = playListEntryId(line, playList))
            members.append(*id);
    }

    // The group keeps its id across imports: the last-played list may name it.
    const std::unique_ptr<SqliteTransaction> transaction = m_database.beginTransaction();
    const std::optional<MediaGroup> group = m_database.groupBySource(playList);
    if (group && m_database.groupMembers(group->id) == members)
        return false;
    const quint32 groupId =
        group ? group->id : m_database.addGroup(METADATA_GROUP_USER, QFileInfo(playList).completeBaseName(), playList);
    return groupId != 0 && m_database.setGroupMembers(groupId, members) && transaction->commit();
}

MediaScanSummary MediaScanner::scanFolders(const QStringList& folders)
{
    MediaScanSummary summary;
    for (const QString& folder : folders) {
        const QFileInfo info(folder);
        if (!info.isDir()) {
            report(QStringLiteral("%1 is not a folder").arg(folder));
            ++summary.missingFolders;
            continue;
        }
        scanFolder(info.canonicalFilePath(), summary);
    }
    return summary;
}

void MediaScanner::scanFolder(const QString& folder, MediaScanSummary& summary)
{
    QStringList mediaFiles;
    QStringList playLists;
    listFolder(folder, mediaFiles, playLists);
    summary.skipped += skipUnnamedEntries(folder);

    QHash<QString, MediaFileStamp> stored;
    for (const MediaFileStamp& stamp : m_database.mediaUnder(folder))
        stored.insert(stamp.path, stamp);

    scanMediaFiles(mediaFiles, stored, summary);
    std::unique_ptr<SqliteTransaction> batch = m_database.beginTransaction();
    MediaScanSummary pending;
    removeVanishedMedia(mediaFiles, stored, pending);
    importPlayLists(folder, playLists, pending);
    commitBatch(std::move(batch), pending, summary);
}

void MediaScanner::listFolder(const QString& folder, QStringList& mediaFiles, QStringList& playLists)
{
    // System entries too: a broken link is reported as unreadable rather than
    // passed over in silence.
    QDirIterator files(folder, QDir::Files | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (mediaKindOf(path))
            mediaFiles.append(path);
        else if (isPlayList(path))
            playLists.append(path);
    }
    mediaFiles.sort();
    playLists.sort();
}

void MediaScanner::scanMediaFiles(const QStringList& mediaFiles, const QHash<QString, MediaFileStamp>& stored,
                                  MediaScanSummary& summary)
{
    std::unique_ptr<SqliteTransaction> batch = m_database.beginTransaction();
    MediaScanSummary pending;
    for (int i = 0; i < mediaFiles.size(); ++i) {
        const auto found = stored.constFind(mediaFiles[i]);
        const std::optional<MediaFileStamp> stamp =
            found == stored.constEnd() ? std::nullopt : std::optional<MediaFileStamp>(*found);
        switch (scanFile(mediaFiles[i], stamp)) {
        case FileOutcome::Added: ++pending.added; break;
        case FileOutcome::Updated: ++pending.updated; break;
        case FileOutcome::Unchanged: ++pending.unchanged; break;
        case FileOutcome::Skipped: ++pending.skipped; break;
        case FileOutcome::NotMedia: break;
        }
        if ((i + 1) % kFilesPerCommit == 0) {
            commitBatch(std::move(batch), pending, summary);
            pending = MediaScanSummary();
            batch = m_database.beginTransaction();
        }
        if (m_onProgress)
            m_onProgress(i + 1, int(mediaFiles.size()));
    }
    commitBatch(std::move(batch), pending, summary);
}

void MediaScanner::removeVanishedMedia(const QStringList& mediaFiles, const QHash<QString, MediaFileStamp>& stored,
                                       MediaScanSummary& summary)
{
    const QSet<QString> seen(mediaFiles.cbegin(), mediaFiles.cend());
    for (const MediaFileStamp& stamp : stored) {
        if (!seen.contains(stamp.path) && !QFileInfo::exists(stamp.path) && m_database.removeMedia(stamp.id))
            ++summary.removed;
    }
}

void MediaScanner::importPlayLists(const QString& folder, const QStringList& playLists, MediaScanSummary& summary)
{
    for (const QString& playList : playLists) {
        if (importPlayList(playList))
            ++summary.playListsImported;
    }
    const QSet<QString> playListSet(playLists.cbegin(), playLists.cend());
    for (const MediaGroup& group : m_database.groupsWithSourceUnder(folder)) {
        if (!playListSet.contains(group.source) && !QFileInfo::exists(group.source)
            && m_database.removeGroup(group.id))
            ++summary.playListsRemoved;
    }
}

void MediaScanner::commitBatch(std::unique_ptr<SqliteTransaction> batch, const MediaScanSummary& pending,
                               MediaScanSummary& summary)
{
    // Without a transaction each write was committed as it was made.
    if (!batch->isActive() || batch->commit()) {
        summary += pending;
        return;
    }
    // The batch rolls back here, before anything else begins on the connection.
    batch.reset();
    report(QStringLiteral("the database did not take the last changes (%1 added, %2 updated, %3 removed, "
                          "%4 play lists imported, %5 removed); none of them is stored")
               .arg(pending.added)
               .arg(pending.updated)
               .arg(pending.removed)
               .arg(pending.playListsImported)
               .arg(pending.playListsRemoved));
    MediaScanSummary kept;
    kept.unchanged = pending.unchanged;
    kept.skipped = pending.skipped + pending.added + pending.updated;
    summary += kept;
}
