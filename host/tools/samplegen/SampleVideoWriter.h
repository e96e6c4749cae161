#pragma once
// Makes the sample videos: small, real movies that a decoder plays. Each is
// an ISO media file (the brand of its kind: "3gp4" for a phone's capture,
// "mp42", "isom") holding a Motion-JPEG picture track, every frame filled
// with the video's own colour and a white square that crosses it, and a
// 16-bit mono PCM sound track of one steady tone. The picture's colour and
// the tone's pitch tell the videos apart when they are seen or heard.

#include <QByteArray>
#include <QColor>
#include <QList>

class SampleVideoWriter {
public:
    static constexpr int kWidth = 160;
    static constexpr int kHeight = 120;
    static constexpr int kFramesPerSecond = 10;
    static constexpr int kSampleRate = 8000;

    /** A movie of @p seconds (at least 1) whole seconds in @p colour with a
     *  tone of @p toneHz, its type box carrying @p brand (four characters). */
    static QByteArray movie(const QByteArray& brand, const QColor& colour, int toneHz, int seconds);

private:
    static QByteArray frame(const QColor& colour, int index, int frameCount);
    static QByteArray movieBox(const QList<int>& frameSizes, const QList<quint32>& frameOffsets,
                               const QList<quint32>& soundOffsets, int seconds);
};
