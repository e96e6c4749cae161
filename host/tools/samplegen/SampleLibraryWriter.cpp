#include "SampleLibraryWriter.h"

#include "SampleCatalogue.h"
#include "SampleTagger.h"
#include "SampleVideoWriter.h"
#include "WavSynth.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>

namespace {

bool holdsExactly(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (file.size() != content.size() || !file.open(QIODevice::ReadOnly))
        return false;
    return file.readAll() == content;
}

}  // namespace

SampleLibraryWriter::SampleLibraryWriter(const QString& outputFolder)
    : m_outputFolder(outputFolder)
{
}

bool SampleLibraryWriter::write()
{
    m_filesWritten = 0;
    m_filesUnchanged = 0;
    m_totalBytes = 0;
    m_error.clear();
    if (!QDir().mkpath(m_outputFolder)) {
        m_error = QStringLiteral("cannot create folder %1").arg(m_outputFolder);
        return false;
    }
    return writeSongs() && writeUntaggedRecordings() && writeVideos()
        && store(SampleCatalogue::eveningPlayListPath(), eveningPlayListText());
}

bool SampleLibraryWriter::writeSongs()
{
    for (const SampleSong& song : SampleCatalogue::songs()) {
        const QString path = SampleCatalogue::songPath(song);
        const WavSynth synth(song.sampleRate);
        const QByteArray wav = synth.wavFile(synth.melody(SampleCatalogue::seedFor(path), song.seconds));
        const QByteArray tagged = SampleTagger::tagged(wav, song);
        if (tagged.isEmpty()) {
            m_error = QStringLiteral("cannot tag %1").arg(path);
            return false;
        }
        if (!store(path, tagged))
            return false;
    }
    return true;
}

bool SampleLibraryWriter::writeUntaggedRecordings()
{
    for (const SampleRecording& recording : SampleCatalogue::untaggedRecordings()) {
        const QString path = SampleCatalogue::recordingPath(recording);
        const WavSynth synth(recording.sampleRate);
        if (!store(path, synth.wavFile(synth.melody(SampleCatalogue::seedFor(path), recording.seconds))))
            return false;
    }
    return true;
}

bool SampleLibraryWriter::writeVideos()
{
    for (const SampleVideo& video : SampleCatalogue::videos()) {
        if (!store(video.relativePath, videoPayload(video)))
            return false;
    }
    return true;
}

bool SampleLibraryWriter::store(const QString& relativePath, const QByteArray& content)
{
    const QString path = QDir(m_outputFolder).filePath(relativePath);
    m_totalBytes += content.size();
    if (holdsExactly(path, content)) {
        ++m_filesUnchanged;
        return true;
    }
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
        m_error = QStringLiteral("cannot create the folder of %1").arg(path);
        return false;
    }
    // Through a temporary file, so an interrupted run never leaves a
    // truncated song that a later run or a scanner would take for complete.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
        m_error = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    ++m_filesWritten;
    return true;
}

QString SampleLibraryWriter::summary() const
{
    const QList<SampleSong>& songs = SampleCatalogue::songs();
    QSet<QString> artists;
    QSet<QString> albums;
    for (const SampleSong& song : songs) {
        artists.insert(song.artist);
        albums.insert(song.artist + QLatin1Char('/') + song.album);
    }
    return QStringLiteral("%1: %2 songs by %3 artists on %4 albums, %5 untagged, %6 videos, "
                          "1 play list (%7 KB); %8 files written, %9 unchanged")
        .arg(QDir::toNativeSeparators(m_outputFolder))
        .arg(songs.size())
        .arg(artists.size())
        .arg(albums.size())
        .arg(SampleCatalogue::untaggedRecordings().size())
        .arg(SampleCatalogue::videos().size())
        .arg((m_totalBytes + 512) / 1024)
        .arg(m_filesWritten)
        .arg(m_filesUnchanged);
}

QByteArray SampleLibraryWriter::eveningPlayListText()
{
    const QString listFolder = QFileInfo(SampleCatalogue::eveningPlayListPath()).path();
    const QDir fromList(QStringLiteral("/") + listFolder);
    QString text = QStringLiteral("#EXTM3U\n");
    for (const SampleSong& song : SampleCatalogue::eveningPlayList()) {
        text += QStringLiteral("#EXTINF:%1,").arg(song.seconds) + song.artist + QStringLiteral(" - ")
            + song.title + QLatin1Char('\n');
        text += fromList.relativeFilePath(QStringLiteral("/") + SampleCatalogue::songPath(song))
            + QLatin1Char('\n');
    }
    return text.toUtf8();
}

QByteArray SampleLibraryWriter::videoPayload(const SampleVideo& video)
{
    return SampleVideoWriter::movie(video.brand, QColor::fromRgb(QRgb(video.rgb)), video.toneHz, video.seconds);
}
