#pragma once
// What a search of the media database found: the total and one window of it.

#include <QByteArray>

#include <vector>

struct MediaSearchRow {
    quint32 id = 0;               ///< 0 in album-name results
    QByteArray path;              ///< UTF-8; empty unless asked for
    QByteArray album;             ///< UTF-8; empty unless asked for
};

struct MediaSearchResult {
    quint32 total = 0;            ///< every match (distinct album names in album-name results)
    std::vector<MediaSearchRow> rows;
};
