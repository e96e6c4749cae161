#pragma once
// Writes a song's tags into a WAV file's ID3v2 tag with TagLib, entirely in
// memory, so the caller can compare the result with what is already on disk
// before touching the file.

#include <QByteArray>

struct SampleSong;

class SampleTagger {
public:
    /** `wav` with an ID3v2.4 tag ("ID3 " chunk) holding the song's title,
     *  artist, album, genre, composer (TCOM), track number and date (TDRC,
     *  "yyyy" or "yyyy-MM-dd"). Expects a complete RIFF/WAVE file; returns an
     *  empty array when TagLib cannot read or save it. */
    static QByteArray tagged(const QByteArray& wav, const SampleSong& song);
};
