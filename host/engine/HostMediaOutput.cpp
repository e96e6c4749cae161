#include "host/engine/HostMediaOutput.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QGuiApplication>
#include <QAudioDevice>
#include <QMediaDevices>
#include <QUrl>
#include <QWidget>

#include <algorithm>
#include <climits>
#include <utility>

#include "host/engine/HostAudioSinkSetup.h"
#include "host/engine/HostEngineOutputListener.h"
#include "host/engine/HostPicturePath.h"
#include "host/engine/HostVideoView.h"
#include "platform/MP_Utility.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(trace, "HostMediaOutput")

namespace {

QtMessageHandler previousMessageHandler = nullptr;

// Qt Multimedia and its sound service say on standard error what they meet
// (no sound server, a sink that cannot connect); standard error is the
// person's, so their words go to the trace instead. Everything else passes on.
void routeMultimediaMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // Qt Multimedia's frame conversion says without a category that it works
    // without OpenGL, which is the picture path chosen (HostPicturePath).
    const bool multimedia = (context.category && qstrncmp(context.category, "qt.multimedia", 13) == 0)
        || message.startsWith(QLatin1String("PulseAudioService:"))
        || message.contains(QLatin1String("No RHI backend. Using CPU conversion."));
    if (multimedia && type != QtFatalMsg) {
        trace(5, "HostMediaOutput: Qt Multimedia says: %s\n", qPrintable(message));
        return;
    }
    previousMessageHandler(type, context, message);
}

bool routeMultimediaMessages()
{
    static const bool installed = [] {
        previousMessageHandler = qInstallMessageHandler(routeMultimediaMessage);
        return true;
    }();
    return installed;
}

QUrl urlOf(const QString& path)
{
    if (MP_Utility::getMediumType(path) == MP_MEDIUM_STREAM
        || path.startsWith(QLatin1String("file://"), Qt::CaseInsensitive))
        return QUrl(path);
    // A progressive download plays the part on disk, ".pd" suffix and all.
    return QUrl::fromLocalFile(path);
}

// Long enough for any file on a busy machine; a stream that has not opened by
// then is waiting for its server, and no decoder is being linked meanwhile.
const int kOpeningWatchMilliseconds = 5000;

} // namespace

HostMediaOutput::HostMediaOutput(HostEngineOutputListener& listener, QWidget& videoArea)
    : m_listener(listener)
    , m_videoArea(videoArea)
    , m_messagesRouted(routeMultimediaMessages())
    , m_audioSinksSetUp(HostAudioSinkSetup::install())
{
    reportMissingAudioDevice();
    reportPicturePath();
    m_player.setAudioOutput(&m_audio);
    connect(&m_player, &QMediaPlayer::positionChanged, this, &HostMediaOutput::positionChanged);
    connect(&m_player, &QMediaPlayer::durationChanged, this, [this](qint64 duration) {
        if (duration > 0)
            m_listener.outputDurationFound(int(std::min<qint64>(duration, INT_MAX)));
    });
    connect(&m_player, &QMediaPlayer::mediaStatusChanged, this, &HostMediaOutput::mediaStatusChanged);
    connect(&m_player, &QMediaPlayer::errorOccurred, this, &HostMediaOutput::errorOccurred);
    m_openingWatch.setSingleShot(true);
    m_openingWatch.setInterval(kOpeningWatchMilliseconds);
    connect(&m_openingWatch, &QTimer::timeout, this, [this] {
        if (!m_opening)
            return;
        trace(3, "HostMediaOutput: %s has not opened; what waits goes ahead\n", qPrintable(m_player.source().fileName()));
        openingEnded();
    });
}

HostMediaOutput::~HostMediaOutput()
{
    // The player stops as it goes and would report to an engine half gone.
    m_player.disconnect(this);
    m_player.stop();
    delete m_video.data();
}

// Qt Multimedia's GStreamer player locks up when a new source or a seek
// reaches it while the item before is still opening: the decoder's thread,
// linking the outputs it found, waits for the pipeline that the caller holds,
// and the caller waits for that thread's stream. A person pressing Next
// quickly, or another program sending Next after Next, met it. So while an
// item opens, the newest request waits and replaces any that waited before it.
void HostMediaOutput::load(const QString& path, MP_CONTENT_TYPE type)
{
    if (m_opening) {
        m_waitingItem = WaitingItem{path, type};
        m_waitingPosition.reset();
        return;
    }
    open(path, type);
}

void HostMediaOutput::unload()
{
    if (m_opening) {
        m_waitingItem = WaitingItem{QString(), MP_CONTENT_UNKNOWN};
        m_waitingPosition.reset();
        return;
    }
    close();
}

void HostMediaOutput::open(const QString& path, MP_CONTENT_TYPE type)
{
    const bool picture = type == MP_CONTENT_VIDEO && hasScreen();
    showPicture(picture);
    // Setting the source only starts opening it: the decoder reports what it
    // found through the event loop, so a slow file or stream never blocks it.
    m_opening = true;
    m_restartedAfterEarlyEnd = false;
    trace(5, "HostMediaOutput: opening %s\n", qPrintable(QFileInfo(path).fileName()));
    m_player.setSource(urlOf(path));
    m_openingWatch.start();
    if (m_playing)
        m_player.play();
}

void HostMediaOutput::close()
{
    m_player.setSource(QUrl());
    showPicture(false);
}

void HostMediaOutput::openingEnded()
{
    m_opening = false;
    m_openingWatch.stop();
    if (m_waitingItem) {
        const WaitingItem item = *std::exchange(m_waitingItem, std::nullopt);
        if (item.path.isEmpty()) {
            m_waitingPosition.reset();
            close();
        } else {
            open(item.path, item.type);  // the waiting seek is for this item
        }
        return;
    }
    if (m_waitingPosition)
        m_player.setPosition(*std::exchange(m_waitingPosition, std::nullopt));
}

void HostMediaOutput::setPlaying(bool playing)
{
    m_playing = playing;
    if (m_player.source().isEmpty())
        return;
    if (playing)
        m_player.play();
    else
        m_player.pause();
}

void HostMediaOutput::setPosition(int position)
{
    if (m_opening) {
        m_waitingPosition = position;
        return;
    }
    m_player.setPosition(position);
}

void HostMediaOutput::setVolume(int level, bool muted)
{
    m_audio.setVolume(float(std::clamp(level, 0, kFullVolumeLevel)) / kFullVolumeLevel);
    m_audio.setMuted(muted);
}

void HostMediaOutput::setNormalSize(bool normal)
{
    m_normalSize = normal;
    if (m_video && !m_video->isHidden())
        placePicture();
}

void HostMediaOutput::manualTimePassed(int /*milliseconds*/)
{
}

void HostMediaOutput::clockModeChanged()
{
}

void HostMediaOutput::positionChanged(qint64 position)
{
    // A held item's position moves only by the engine's own seeks, which it
    // has reported already.
    if (m_playing && !m_opening)
        m_listener.outputPositionReached(int(std::min<qint64>(position, INT_MAX)));
}

void HostMediaOutput::mediaStatusChanged(QMediaPlayer::MediaStatus status)
{
    switch (status) {
    case QMediaPlayer::LoadedMedia:
    case QMediaPlayer::BufferingMedia:
    case QMediaPlayer::BufferedMedia:
        if (m_opening)
            openingEnded();
        break;
    case QMediaPlayer::EndOfMedia:
        // Said where it ended, so that an end that comes early can be told
        // from one that comes on time.
        trace(3, "HostMediaOutput: %s ended at %lld of %lld ms%s\n", qPrintable(m_player.source().fileName()),
            qlonglong(m_player.position()), qlonglong(m_player.duration()), m_opening ? " (still opening)" : "");
        if (!m_playing)
            break;
        // On a busy machine the player can say that the item just loaded has
        // ended, at 0 with its whole length ahead, and stop it there: the end
        // of the item before, handed over late. That item is started again,
        // once: an item that really holds nothing ends the second time.
        if (endedBeforeBeginning() && !m_restartedAfterEarlyEnd) {
            m_restartedAfterEarlyEnd = true;
            m_player.play();
            break;
        }
        if (!m_opening)
            m_listener.outputEndReached();
        break;
    default:
        break;
    }
}

bool HostMediaOutput::endedBeforeBeginning() const
{
    return m_opening || (m_player.position() == 0 && m_player.duration() > 0);
}

void HostMediaOutput::errorOccurred(QMediaPlayer::Error error, const QString& message)
{
    if (error == QMediaPlayer::NoError)
        return;
    trace(1, "HostMediaOutput: %s: %s\n", qPrintable(m_player.source().toString()), qPrintable(message));
    // An item that failed while another waited is not the engine's current
    // item any more: the one that waited opens instead.
    const bool superseded = m_waitingItem.has_value();
    if (m_opening)
        openingEnded();
    if (!superseded)
        m_listener.outputFailed(message);
}

void HostMediaOutput::showPicture(bool shown)
{
    if (!shown) {
        m_player.setVideoOutput(nullptr);
        if (m_video) {
            m_video->hide();
            m_video->clear();
        }
        return;
    }
    if (!m_video)
        m_video = new HostVideoView(&m_videoArea);
    m_player.setVideoSink(m_video->sink());
    placePicture();
}

// At normal size the picture takes the content area above the texts; at
// the other size it is a window of its own over the whole screen.
void HostMediaOutput::placePicture()
{
    auto* box = qobject_cast<QBoxLayout*>(m_videoArea.layout());
    if (m_normalSize) {
        if (m_video->isWindow()) {
            m_video->setParent(&m_videoArea);
        }
        if (box && box->indexOf(m_video.data()) < 0)
            box->insertWidget(0, m_video.data(), 1);
        m_video->show();
    } else {
        if (box)
            box->removeWidget(m_video.data());
        m_video->setParent(nullptr, Qt::Window);
        m_video->showFullScreen();
    }
}

bool HostMediaOutput::hasScreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

// Said once a process: every engine meets the same machine.
void HostMediaOutput::reportMissingAudioDevice()
{
    static bool reported = false;
    if (reported || !QMediaDevices::audioOutputs().isEmpty())
        return;
    reported = true;
    trace(1, "HostMediaOutput: no audio device: playing into nothing at real speed\n");
}

void HostMediaOutput::reportPicturePath()
{
    static bool reported = false;
    if (reported || HostPicturePath::reason().isEmpty())
        return;
    reported = true;
    trace(3, "HostMediaOutput: picture path: %s\n", qPrintable(HostPicturePath::reason()));
}
