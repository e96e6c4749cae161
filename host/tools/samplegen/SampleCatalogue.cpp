#include "SampleCatalogue.h"

namespace {

// One row of the song table; kept as literals so the table reads as data.
struct SongRow {
    const char* artist;
    const char* album;
    const char* title;
    const char* genre;
    const char* composer;
    int track;
    const char* date;
    int seconds;
    int sampleRate;
};

// Four artists, seven albums, five genres, six composers. One quartet plays
// at 11025 Hz, everything else at 8000 Hz. The accented artist and album and
// the Cyrillic and Japanese titles put non-Latin-1 text into tags and paths.
const SongRow kSongRows[] = {
    {"Aurora Lane", "Northern Lights", "First Light", "Pop", "Edda Brenner", 1, "2003-03-14", 6, 8000},
    {"Aurora Lane", "Northern Lights", "Harbour Wind", "Pop", "Edda Brenner", 2, "2003-03-14", 7, 8000},
    {"Aurora Lane", "Northern Lights", "Silver Road", "Pop", "Lena Okafor", 3, "2003-03-14", 5, 8000},
    {"Aurora Lane", "Northern Lights", "Northern Lights", "Pop", "Edda Brenner", 4, "2003-03-14", 8, 8000},

    {"Aurora Lane", "Paper Boats", "Paper Boats", "Pop", "Tomas Vik", 1, "2005", 6, 8000},
    {"Aurora Lane", "Paper Boats", "Rain on Glass", "Pop", "Tomas Vik", 2, "2005", 5, 8000},
    {"Aurora Lane", "Paper Boats", "Lanterns", "Pop", "Lena Okafor", 3, "2005", 7, 8000},

    {"The Quiet Harbour", "Low Tide", "Low Tide", "Folk", "Jonas Reed", 1, "2001-09-21", 8, 8000},
    {"The Quiet Harbour", "Low Tide", "Salt and Pepper Sky", "Folk", "Jonas Reed", 2, "2001-09-21", 6, 8000},
    {"The Quiet Harbour", "Low Tide", "The Ferryman", "Folk", "Jonas Reed", 3, "2001-09-21", 7, 8000},
    {"The Quiet Harbour", "Low Tide", "Gulls", "Folk", "Lena Okafor", 4, "2001-09-21", 4, 8000},

    {"The Quiet Harbour", "Driftwood", "Driftwood", "Folk", "Jonas Reed", 1, "2004", 6, 8000},
    {"The Quiet Harbour", "Driftwood", "Stone Walls", "Folk", "Lena Okafor", 2, "2004", 5, 8000},
    {"The Quiet Harbour", "Driftwood", "Home by Lamplight", "Folk", "Jonas Reed", 3, "2004", 9, 8000},

    {"Árós Quartet", "Kvöldljóð", "Prelude in G", "Classical", "Sigrún Hallsdóttir", 1, "1998-12-01", 9, 11025},
    {"Árós Quartet", "Kvöldljóð", "Белая ночь", "Classical", "Sigrún Hallsdóttir", 2, "1998-12-01", 8, 11025},
    {"Árós Quartet", "Kvöldljóð", "Andante", "Classical", "Sigrún Hallsdóttir", 3, "1998-12-01", 10, 11025},
    {"Árós Quartet", "Kvöldljóð", "Coda", "Classical", "Edda Brenner", 4, "1998-12-01", 5, 11025},

    {"Neon Parade", "Circuit Bloom", "Circuit Bloom", "Electronic", "Mika Strand", 1, "2010-11-02", 6, 8000},
    {"Neon Parade", "Circuit Bloom", "Pixel Rain", "Electronic", "Mika Strand", 2, "2010-11-02", 5, 8000},
    {"Neon Parade", "Circuit Bloom", "Overdrive", "Electronic", "Tomas Vik", 3, "2010-11-02", 7, 8000},
    {"Neon Parade", "Circuit Bloom", "Glass City", "Electronic", "Mika Strand", 4, "2010-11-02", 6, 8000},

    {"Neon Parade", "Afterglow", "Afterglow", "Ambient", "Mika Strand", 1, "2012", 8, 8000},
    {"Neon Parade", "Afterglow", "月の光", "Ambient", "Mika Strand", 2, "2012", 7, 8000},
    {"Neon Parade", "Afterglow", "Last Train", "Ambient", "Tomas Vik", 3, "2012", 6, 8000},
};

struct RecordingRow {
    const char* fileName;
    int seconds;
    int sampleRate;
};

const RecordingRow kRecordingRows[] = {
    {"voice memo 01.wav", 5, 8000},
    {"track03.wav", 4, 8000},
    {"Demo (rough mix).wav", 6, 11025},
};

struct VideoRow {
    const char* relativePath;
    const char* brand;
    quint32 rgb;
    int toneHz;
    int seconds;
};

// "Captured" and "Downloads" folders are what the scanner reads as the
// created-by flag; the last one sits outside both. Colours and tones far
// apart, so that a picture or a recording tells which video played.
const VideoRow kVideoRows[] = {
    {"Videos/Captured/clip1.3gp", "3gp4", 0xD02020, 440, 3},
    {"Videos/Captured/clip2.3gp", "3gp4", 0x20B040, 550, 4},
    {"Videos/Downloads/trailer.mp4", "mp42", 0x2040D0, 660, 5},
    {"Videos/holiday.mp4", "isom", 0xE0C020, 880, 4},
};

// Titles are unique across the catalogue, so they name the play list's songs.
// Only songs with plain ASCII paths, so any reader of the list resolves them.
const char* const kEveningTitles[] = {
    "Harbour Wind", "Lanterns", "Low Tide", "Home by Lamplight", "Glass City", "Last Train",
};

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

}  // namespace

const QList<SampleSong>& SampleCatalogue::songs()
{
    static const QList<SampleSong> songs = [] {
        QList<SampleSong> list;
        for (const SongRow& row : kSongRows) {
            list.append({text(row.artist), text(row.album), text(row.title), text(row.genre),
                         text(row.composer), row.track, text(row.date), row.seconds,
                         row.sampleRate});
        }
        return list;
    }();
    return songs;
}

const QList<SampleRecording>& SampleCatalogue::untaggedRecordings()
{
    static const QList<SampleRecording> recordings = [] {
        QList<SampleRecording> list;
        for (const RecordingRow& row : kRecordingRows)
            list.append({text(row.fileName), row.seconds, row.sampleRate});
        return list;
    }();
    return recordings;
}

const QList<SampleVideo>& SampleCatalogue::videos()
{
    static const QList<SampleVideo> videos = [] {
        QList<SampleVideo> list;
        for (const VideoRow& row : kVideoRows)
            list.append({text(row.relativePath), QByteArray(row.brand), row.rgb, row.toneHz, row.seconds});
        return list;
    }();
    return videos;
}

QList<SampleSong> SampleCatalogue::eveningPlayList()
{
    QList<SampleSong> list;
    for (const char* title : kEveningTitles) {
        for (const SampleSong& song : songs()) {
            if (song.title == text(title)) {
                list.append(song);
                break;
            }
        }
    }
    return list;
}

QString SampleCatalogue::songPath(const SampleSong& song)
{
    // Concatenated rather than arg()-chained, so a '%' in a tag stays literal.
    const QString number = QStringLiteral("%1").arg(song.track, 2, 10, QLatin1Char('0'));
    return QStringLiteral("Music/") + fileNameFor(song.artist) + QLatin1Char('/')
        + fileNameFor(song.album) + QLatin1Char('/') + number + QLatin1Char(' ')
        + fileNameFor(song.title) + QStringLiteral(".wav");
}

QString SampleCatalogue::recordingPath(const SampleRecording& recording)
{
    return QStringLiteral("Music/Unsorted/") + fileNameFor(recording.fileName);
}

QString SampleCatalogue::eveningPlayListPath()
{
    return QStringLiteral("Playlists/Evening.m3u");
}

quint32 SampleCatalogue::seedFor(const QString& text)
{
    quint32 hash = 2166136261u;
    for (const char byte : text.toUtf8()) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 16777619u;
    }
    return hash;
}

QString SampleCatalogue::fileNameFor(const QString& text)
{
    static const QString rejected = QStringLiteral("/\\:*?\"<>|");
    QString name = text.trimmed();
    for (QChar& c : name) {
        if (rejected.contains(c) || c.unicode() < 0x20)
            c = QLatin1Char('_');
    }
    return name;
}
