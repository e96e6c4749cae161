#pragma once
// Copies a folder of WAV songs as MP3 songs, with the same names but the
// suffix and the same tags, so that the player can be measured on MP3 files
// without shipping any: GStreamer decodes each WAV and LAME (in GStreamer's
// good plug-ins) encodes it at 128 kbit/s; TagLib copies the tags.

#include <QString>

class Mp3Copy {
public:
    /** Writes an MP3 under @p to for every .wav under @p from, keeping the
     *  folders; false, with the reason on standard error, at the first failure. */
    static bool copyFolder(const QString& from, const QString& to);

private:
    static bool encode(const QString& wav, const QString& mp3);
    static bool encodeSound(const QString& wav, const QString& mp3);
    static bool copyTags(const QString& wav, const QString& mp3);
};
