#pragma once
// Where the media output draws a video: a widget that takes the decoder's
// frames through a QVideoSink and paints the newest one, fitted into itself
// and centred on black. It paints with QPainter, so the picture is on any
// screen, a virtual one included, without a graphics driver.

#include <QImage>
#include <QVideoSink>
#include <QWidget>

class HostVideoView final : public QWidget {
    Q_OBJECT
public:
    explicit HostVideoView(QWidget* parent = nullptr);

    /** The sink to hand the player (owned by the view). */
    QVideoSink* sink() { return &m_sink; }
    /** Forgets the last frame: the view shows black until the next. */
    void clear();
    /** The frame shown now (null before the first). */
    const QImage& frame() const { return m_frame; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeFrame(const QVideoFrame& frame);

    QVideoSink m_sink;
    QImage m_frame;
};
