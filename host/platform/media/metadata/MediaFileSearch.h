#pragma once
// A search for single files by path (metadataSearchMusicFile): read and
// checked like a media search, answered with eight-word media summaries.

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

#include "platform/Metadata.h"

class MediaDatabase;
struct MediaRecord;

/** What a file search found: every match and the window of summaries asked for. */
struct MediaFileSearchResult {
    quint32 total = 0;
    std::vector<MetadataMediaSummary> entries;
};

class MediaFileSearch {
public:
    /** Reads @p request: one or more path filters (type 2, operator 0, UTF-8 text), a
     *  storage location (selecting as in a media search, given @p storageCount) and a
     *  window. Returns nothing and sets @p error when the request cannot be read. */
    static std::optional<MediaFileSearch> read(const MetadataSearchMusicFileRequest& request, int storageCount,
                                               QString* error);

    /** The objects (audio or video) stored under one of the paths on the selected storage,
     *  in object-id order. */
    MediaFileSearchResult run(MediaDatabase& database) const;

    /** A media object as the eight-word record of a file search. */
    static MetadataMediaSummary summaryOf(const MediaRecord& record);

private:
    MediaFileSearch() = default;

    QList<QByteArray> m_paths;     // UTF-8
    std::optional<int> m_storage;  // nothing: every storage
    int m_firstIndex = 0;
    int m_resultCount = 0;
};
