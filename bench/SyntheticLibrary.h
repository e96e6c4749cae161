#pragma once
// A synthetic music library for the benchmarks, built directly in the media
// database (not by scanning files): songs with accented titles, twelve to an
// album, 2,000 artists, a genre per seven albums.

class MediaDatabase;

class SyntheticLibrary {
public:
    static constexpr int kSongsPerAlbum = 12;

    /** Adds @p songs songs to @p database in one transaction; false on failure. */
    static bool build(MediaDatabase& database, int songs);
};
