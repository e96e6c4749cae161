#pragma once
// What the sample library holds: the tagged songs, the untagged recordings,
// the videos and the evening play list, as plain data. Everything
// the generator writes is derived from these tables and nothing else, so two
// runs produce the same bytes.

#include <QList>
#include <QString>

/** One tagged song: its tags, its length and the synthesis settings. */
struct SampleSong {
    QString artist;
    QString album;
    QString title;
    QString genre;
    QString composer;
    int track = 0;       // 1..n within its album
    QString date;        // "yyyy" or "yyyy-MM-dd"
    int seconds = 0;     // whole seconds, so the sample count is exact
    int sampleRate = 0;  // Hz
};

/** A recording without any tag: only a file name and its sound. */
struct SampleRecording {
    QString fileName;
    int seconds = 0;
    int sampleRate = 0;
};

/** A short movie (SampleVideoWriter): one colour to see, one tone to hear. */
struct SampleVideo {
    QString relativePath;  // below the output folder, e.g. "Videos/holiday.mp4"
    QByteArray brand;      // four characters for the container's type box
    quint32 rgb = 0;       // the picture's colour, 0xRRGGBB
    int toneHz = 0;        // the sound track's pitch
    int seconds = 0;       // whole seconds
};

class SampleCatalogue {
public:
    /** The tagged songs, album by album in track order. */
    static const QList<SampleSong>& songs();
    /** The recordings written without tags into unsortedFolder(). */
    static const QList<SampleRecording>& untaggedRecordings();
    /** The videos. */
    static const QList<SampleVideo>& videos();
    /** The songs of the evening play list, in play order. */
    static QList<SampleSong> eveningPlayList();

    /** Where a song lives below the output folder: "Music/<Artist>/<Album>/<NN> <Title>.wav". */
    static QString songPath(const SampleSong& song);
    /** Where an untagged recording lives below the output folder. */
    static QString recordingPath(const SampleRecording& recording);
    /** Where the evening play list lives below the output folder. */
    static QString eveningPlayListPath();

    /** A stable number derived from a text (FNV-1a over its UTF-8 bytes);
     *  seeds each song's melody, so a song sounds the same on every run. */
    static quint32 seedFor(const QString& text);

    /** A file-name-safe form of a tag: characters that file systems reject
     *  become '_', surrounding blanks are dropped. */
    static QString fileNameFor(const QString& text);
};
