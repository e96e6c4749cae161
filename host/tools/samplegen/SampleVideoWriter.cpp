#include "SampleVideoWriter.h"

#include "WavSynth.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>

#include <algorithm>

namespace {

// The movie's own time unit: milliseconds.
constexpr quint32 kMovieTimeScale = 1000;
// One sound chunk a second, between the pictures of that second.
constexpr int kSoundChunkSeconds = 1;

QByteArray be16(quint16 value)
{
    char bytes[2];
    qToBigEndian(value, bytes);
    return QByteArray(bytes, 2);
}

QByteArray be32(quint32 value)
{
    char bytes[4];
    qToBigEndian(value, bytes);
    return QByteArray(bytes, 4);
}

QByteArray box(const char type[4], const QByteArray& body)
{
    return be32(quint32(8 + body.size())) + QByteArray(type, 4) + body;
}

// A box with a version byte and 24 bits of flags before its body.
QByteArray fullBox(const char type[4], quint32 flags, const QByteArray& body)
{
    return box(type, be32(flags & 0xFFFFFFu) + body);
}

// The identity transformation of the movie and track headers.
QByteArray unityMatrix()
{
    return be32(0x00010000) + be32(0) + be32(0) + be32(0) + be32(0x00010000) + be32(0) + be32(0) + be32(0)
        + be32(0x40000000);
}

QByteArray trackHeader(quint32 trackId, quint32 duration, bool sound)
{
    return fullBox("tkhd", 3 /* enabled, in movie */,
                   be32(0) + be32(0) + be32(trackId) + be32(0) + be32(duration) + QByteArray(8, '\0')
                       + be16(0) + be16(0) + be16(sound ? 0x0100 : 0) + be16(0) + unityMatrix()
                       + be32(sound ? 0 : quint32(SampleVideoWriter::kWidth) << 16)
                       + be32(sound ? 0 : quint32(SampleVideoWriter::kHeight) << 16));
}

QByteArray mediaHeader(quint32 timeScale, quint32 duration)
{
    return fullBox("mdhd", 0, be32(0) + be32(0) + be32(timeScale) + be32(duration) + be16(0x55C4 /* "und" */)
                                  + be16(0));
}

QByteArray handler(const char type[4], const QByteArray& name)
{
    return fullBox("hdlr", 0, be32(0) + QByteArray(type, 4) + QByteArray(12, '\0') + name + '\0');
}

QByteArray dataInformation()
{
    return box("dinf", fullBox("dref", 0, be32(1) + fullBox("url ", 1 /* in this file */, {})));
}

QByteArray pictureEntry()
{
    QByteArray compressor(32, '\0');
    compressor[0] = 4;
    compressor.replace(1, 4, "JPEG");
    return box("jpeg", QByteArray(6, '\0') + be16(1) + be16(0) + be16(0) + QByteArray(12, '\0')
                           + be16(SampleVideoWriter::kWidth) + be16(SampleVideoWriter::kHeight)
                           + be32(0x00480000) + be32(0x00480000) + be32(0) + be16(1) + compressor + be16(0x18)
                           + be16(0xFFFF));
}

// Little-endian 16-bit PCM ("sowt"), described the QuickTime way that
// readers of either family accept.
QByteArray soundEntry()
{
    return box("sowt", QByteArray(6, '\0') + be16(1) + be16(0) + be16(0) + be32(0) + be16(1) + be16(16)
                           + be16(0) + be16(0) + be32(quint32(SampleVideoWriter::kSampleRate) << 16));
}

QByteArray offsetTable(const QList<quint32>& offsets)
{
    QByteArray body = be32(quint32(offsets.size()));
    for (const quint32 offset : offsets)
        body += be32(offset);
    return fullBox("stco", 0, body);
}

QByteArray pictureTrack(const QList<int>& frameSizes, const QList<quint32>& offsets, quint32 duration)
{
    QByteArray sizes = be32(0) + be32(quint32(frameSizes.size()));
    for (const int size : frameSizes)
        sizes += be32(quint32(size));
    const quint32 frameTime = kMovieTimeScale / SampleVideoWriter::kFramesPerSecond;
    const QByteArray table = box("stsd", be32(0) + be32(1) + pictureEntry())
        + fullBox("stts", 0, be32(1) + be32(quint32(frameSizes.size())) + be32(frameTime))
        + fullBox("stsc", 0, be32(1) + be32(1) + be32(1) + be32(1)) + fullBox("stsz", 0, sizes)
        + offsetTable(offsets);
    const QByteArray information = fullBox("vmhd", 1, QByteArray(8, '\0')) + dataInformation() + box("stbl", table);
    return box("trak", trackHeader(1, duration, false)
                           + box("mdia", mediaHeader(kMovieTimeScale, duration) + handler("vide", "Picture")
                                             + box("minf", information)));
}

QByteArray soundTrack(const QList<quint32>& offsets, int seconds)
{
    const quint32 samples = quint32(seconds) * SampleVideoWriter::kSampleRate;
    const quint32 perChunk = quint32(kSoundChunkSeconds) * SampleVideoWriter::kSampleRate;
    const QByteArray table = box("stsd", be32(0) + be32(1) + soundEntry())
        + fullBox("stts", 0, be32(1) + be32(samples) + be32(1))
        + fullBox("stsc", 0, be32(1) + be32(1) + be32(perChunk) + be32(1))
        + fullBox("stsz", 0, be32(2) + be32(samples)) + offsetTable(offsets);
    const QByteArray information = fullBox("smhd", 0, be32(0)) + dataInformation() + box("stbl", table);
    return box("trak", trackHeader(2, quint32(seconds) * kMovieTimeScale, true)
                           + box("mdia", mediaHeader(SampleVideoWriter::kSampleRate, samples)
                                             + handler("soun", "Sound") + box("minf", information)));
}

} // namespace

QByteArray SampleVideoWriter::movie(const QByteArray& brand, const QColor& colour, int toneHz, int seconds)
{
    seconds = std::max(1, seconds);
    const QByteArray fileType = box("ftyp", brand + be32(0) + brand + QByteArray("isom"));
    const WavSynth synth(kSampleRate);
    const QByteArray pcm = synth.tone(toneHz, seconds);

    // The media data comes first, so every offset is known when the movie
    // box that lists them is written, last.
    QByteArray data;
    QList<int> frameSizes;
    QList<quint32> frameOffsets;
    QList<quint32> soundOffsets;
    const int frameCount = seconds * kFramesPerSecond;
    const quint32 dataStart = quint32(fileType.size() + 8);
    const int chunkBytes = kSoundChunkSeconds * kSampleRate * 2;
    for (int second = 0; second < seconds; ++second) {
        soundOffsets.append(dataStart + quint32(data.size()));
        data += pcm.mid(second * chunkBytes, chunkBytes);
        for (int i = 0; i < kFramesPerSecond; ++i) {
            const QByteArray picture = frame(colour, second * kFramesPerSecond + i, frameCount);
            frameOffsets.append(dataStart + quint32(data.size()));
            frameSizes.append(int(picture.size()));
            data += picture;
        }
    }
    return fileType + box("mdat", data) + movieBox(frameSizes, frameOffsets, soundOffsets, seconds);
}

QByteArray SampleVideoWriter::frame(const QColor& colour, int index, int frameCount)
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    image.fill(colour);
    {
        // A square crossing the lowest band, so that the picture moves.
        QPainter painter(&image);
        const int side = kHeight / 8;
        const int x = (kWidth - side) * index / std::max(1, frameCount - 1);
        painter.fillRect(x, kHeight - side - 2, side, side, Qt::white);
    }
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(85);
    writer.write(image);
    return jpeg;
}

QByteArray SampleVideoWriter::movieBox(const QList<int>& frameSizes, const QList<quint32>& frameOffsets,
                                       const QList<quint32>& soundOffsets, int seconds)
{
    const quint32 duration = quint32(seconds) * kMovieTimeScale;
    const QByteArray header = fullBox("mvhd", 0, be32(0) + be32(0) + be32(kMovieTimeScale) + be32(duration)
                                                     + be32(0x00010000) + be16(0x0100) + QByteArray(10, '\0')
                                                     + unityMatrix() + QByteArray(24, '\0') + be32(3));
    return box("moov", header + pictureTrack(frameSizes, frameOffsets, duration) + soundTrack(soundOffsets, seconds));
}
