#pragma once
// What changed in the media database since a reader last looked, as the
// change log (schema version 2) tells it, and the stamp that tells cheaply
// whether anything was committed at all.

#include <QByteArray>
#include <QList>

#include <utility>
#include <vector>

struct MediaGroupChange {
    quint32 groupId = 0;
    bool isDeleted = false;         ///< the group no longer exists
};

struct MediaChanges {
    qint64 lastSequence = 0;        ///< the number of the newest change read
    bool isMediaChanged = false;    ///< media objects were added, changed or removed
    QList<MediaGroupChange> groups; ///< each changed group once, in the order of their latest change
};

/** A place in the media objects' change log: the number of a change and the object it
 *  names, so that a log emptied and refilled since is not taken for the same one. */
struct MediaLogPosition {
    qint64 sequence = -1;
    qint64 mediaId = -1;

    bool operator==(const MediaLogPosition& other) const
    {
        return sequence == other.sequence && mediaId == other.mediaId;
    }
};

/** The media objects changed after a place in the change log (schema version 3). */
struct MediaEntryChanges {
    MediaLogPosition last;                  ///< the newest change read
    std::vector<quint32> ids;               ///< each changed object once, ascending
    /** (album key, album) that changed objects were in before, each once, ascending. */
    std::vector<std::pair<QByteArray, QByteArray>> formerAlbums;
};

/** Equal stamps of one connection mean that nothing was committed in between. */
struct MediaCommitStamp {
    qint64 othersVersion = -1;      ///< moves when another connection commits (PRAGMA data_version)
    qint64 ownChanges = -1;         ///< moves when this connection writes

    bool operator==(const MediaCommitStamp& other) const
    {
        return othersVersion == other.othersVersion && ownChanges == other.ownChanges;
    }
    bool operator!=(const MediaCommitStamp& other) const { return !(*this == other); }
};
