#include "host/engine/HostPlayerView.h"

#include <QFont>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

#include "platform/MP_Utility.h"

namespace {

QLabel* addLabel(QWidget& screen, QVBoxLayout& layout, const char* name)
{
    auto* label = new QLabel(&screen);
    label->setObjectName(QString::fromLatin1(name));
    label->setAlignment(Qt::AlignHCenter);
    layout.addWidget(label);
    return label;
}

} // namespace

HostPlayerView::HostPlayerView(QWidget& screen)
{
    auto* layout = new QVBoxLayout(&screen);
    layout->addStretch();
    m_title = addLabel(screen, *layout, "title");
    m_artist = addLabel(screen, *layout, "artist");
    m_album = addLabel(screen, *layout, "album");
    m_time = addLabel(screen, *layout, "time");
    m_state = addLabel(screen, *layout, "state");
    layout->addStretch();

    QFont titleFont = m_title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.4);
    m_title->setFont(titleFont);
    showState(MP_STATE_NONE);
}

void HostPlayerView::showMedia(const QString& title, const QString& artist, const QString& album)
{
    m_title->setText(title);
    m_artist->setText(artist);
    m_album->setText(album);
}

void HostPlayerView::showTime(int elapsed, int total)
{
    m_time->setText(timeText(elapsed, total));
}

void HostPlayerView::showState(MP_PLAYER_STATE state)
{
    m_state->setText(stateName(state));
}

void HostPlayerView::clearMedia()
{
    showMedia(QString(), QString(), QString());
    m_time->clear();
}

QString HostPlayerView::stateName(MP_PLAYER_STATE state)
{
    switch (state) {
    case MP_STATE_NONE:
        return QStringLiteral("idle");
    case MP_STATE_PLAYING:
        return QStringLiteral("playing");
    case MP_STATE_PAUSED:
        return QStringLiteral("paused");
    case MP_STATE_STOPPED:
        return QStringLiteral("stopped");
    case MP_STATE_ERROR:
        return QStringLiteral("error");
    case MP_STATE_FINISHED:
        return QStringLiteral("finished");
    default:
        return QStringLiteral("state %1").arg(int(state));
    }
}

QString HostPlayerView::timeText(int elapsed, int total)
{
    if (total <= 0)
        return MP_Utility::convertTime(elapsed);
    return MP_Utility::convertTime(elapsed) + QStringLiteral(" / ") + MP_Utility::convertTime(total);
}
