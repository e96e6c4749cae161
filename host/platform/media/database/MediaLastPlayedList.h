#pragma once
// The last-played list and the last played song as the media database
// stores them: one of each at most.

#include <QString>

#include <optional>

struct MediaLastPlayedList {
    int listType = -1;              ///< group type of a user list, 6 for a library selection
    std::optional<QString> artist;  ///< the selection's filters; nothing for no filter
    std::optional<QString> album;
    std::optional<QString> composer;
    std::optional<QString> genre;
    quint32 groupId = 0;            ///< the play-list group of a user list
    int storage = -1;               ///< the storage location the list was selected in
    int firstIndex = -1;            ///< the entry to start with
};

struct MediaLastPlayedSong {
    QString path;       ///< the song's full path
    int position = -1;  ///< its position in the list it was played from
};
