#pragma once
// Collects the paths of played files and writes them into the database's
// play-history group, where the history list finds them. One collector for
// audio (group 2) and one for video (group 3), each process-wide.

#include <QStringList>

#include "platform/MP_PlayerTypes.h"
#include "platform/Metadata.h"

class MP_RecentList {
public:
    /** The most paths a collector holds; the next one pushes the oldest out. */
    static const int MaxPaths = 15;

    /** The audio collector for content type 1, the video one for 2, else null. */
    static MP_RecentList* getRecentList(MP_CONTENT_TYPE type);
    static MP_RecentList* getAudioList();
    static MP_RecentList* getVideoList();

    explicit MP_RecentList(MP_CONTENT_TYPE type);

    /** Adds a played file; one played again moves to the newest place. */
    void addItem(const QString& fullPath);
    /** Writes every waiting path, oldest first, into the history group and empties the list. */
    void saveToDB();

    unsigned int groupId() const { return m_groupId; }
    const QStringList& paths() const { return m_paths; }

    static void AufGetItemCallback(void* self, MetadataSearchMusicFileResponse* response);

private:
    void addFoundItem(const MetadataSearchMusicFileResponse& response);

    unsigned int m_groupId;
    QStringList m_paths;  // oldest first
};
