#pragma once
// Writes the sample library of SampleCatalogue into a folder: tagged songs,
// untagged recordings, videos and the evening play list. Every file
// is built in memory first and written only when the folder does not already
// hold exactly those bytes, so a second run leaves every file (and its
// modification time) alone.

#include <QByteArray>
#include <QString>

struct SampleVideo;

class SampleLibraryWriter {
public:
    /** A writer into `outputFolder` (created with its subfolders as needed). */
    explicit SampleLibraryWriter(const QString& outputFolder);

    /** Writes every file of the library. Stops at the first file that cannot be
     *  written and returns false; errorString() then says which and why. */
    bool write();

    /** Files written by the last write(), files found already complete, and
     *  the size of the whole library in bytes. */
    int filesWritten() const { return m_filesWritten; }
    int filesUnchanged() const { return m_filesUnchanged; }
    qint64 totalBytes() const { return m_totalBytes; }
    QString errorString() const { return m_error; }

    /** One line saying what the library holds and what this run did. */
    QString summary() const;

    /** The evening play list: "#EXTM3U", then per song an "#EXTINF:seconds,Artist - Title"
     *  line and its path relative to the play list's folder; UTF-8, '\n' line ends. */
    static QByteArray eveningPlayListText();

    /** The bytes of a video: a movie of SampleVideoWriter with the video's
     *  brand, colour, tone and length. */
    static QByteArray videoPayload(const SampleVideo& video);

private:
    bool writeSongs();
    bool writeUntaggedRecordings();
    bool writeVideos();
    // Writes `content` to `relativePath` unless the file already holds it.
    bool store(const QString& relativePath, const QByteArray& content);

    QString m_outputFolder;
    int m_filesWritten = 0;
    int m_filesUnchanged = 0;
    qint64 m_totalBytes = 0;
    QString m_error;
};
