#pragma once
// One media object of the metadata database as the host reads and writes it.

#include <QString>

enum class MediaKind { Audio = 1, Video = 2 };

struct MediaRecord {
    quint32 id = 0;               ///< the object id; 0 until stored
    QString path;                 ///< absolute path
    MediaKind kind = MediaKind::Audio;
    QString title;
    QString artist;
    QString album;
    QString genre;
    QString composer;
    int track = 0;                ///< 0 when unknown
    QString date;                 ///< yyyy-MM-dd, or the known part of it ("2008", "2008-05"); empty when unknown
    int storage = 0;              ///< 0 phone memory, 1 memory card
    int createdBy = -1;           ///< a MetadataCreateFlag (0 captured, 1 downloaded); -1 none
    bool buy = false;
    qint64 fileSize = 0;          ///< the file's size and modification time (ms since the epoch)
    qint64 fileModified = 0;      ///< when last read, so that an unchanged file is not read again
};
