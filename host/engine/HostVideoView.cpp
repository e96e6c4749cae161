#include "host/engine/HostVideoView.h"

#include <QPainter>
#include <QVideoFrame>

HostVideoView::HostVideoView(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("video"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(80, 60);
    connect(&m_sink, &QVideoSink::videoFrameChanged, this, &HostVideoView::takeFrame);
}

void HostVideoView::clear()
{
    m_frame = QImage();
    update();
}

void HostVideoView::takeFrame(const QVideoFrame& frame)
{
    // An empty frame comes when the decoder lets go of the picture; the
    // last one stays until a new item shows something else.
    if (!frame.isValid())
        return;
    m_frame = frame.toImage();
    update();
}

void HostVideoView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (m_frame.isNull())
        return;
    const QSize fitted = m_frame.size().scaled(size(), Qt::KeepAspectRatio);
    const QRect target(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, m_frame);
}
