#include "host/tools/mp-mpris/PlayerMirror.h"

#include <QDBusObjectPath>
#include <QDataStream>
#include <QFileInfo>
#include <QUrl>

#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/contracts/SetupChangeChannel.h"
#include "host/tools/mp-mpris/PlaySettings.h"
#include "host/tools/mp-mpris/TrackLookup.h"
#include "platform/StreamEncoding.h"

const char* const PlayerMirror::kUnlistedTrack = "/org/mediaplayerhost/Track/Unlisted";

namespace {

const char* const kTrackPrefix = "/org/mediaplayerhost/Track/";

/** Reads exactly the values of @p reads from @p data; false when the bytes
 *  run out or some are left over. */
template <typename... Values>
bool readPayload(const QByteArray& data, Values&... values)
{
    QDataStream stream(data);
    MP_SetPayloadFormat(stream);
    (stream >> ... >> values);
    return stream.status() == QDataStream::Ok && stream.atEnd();
}

/** Milliseconds of a player time text ("m:ss" or "h:mm:ss"); -1 when it is not one. */
qint64 parseTime(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() < 2 || parts.size() > 3)
        return -1;
    qint64 seconds = 0;
    for (int i = 0; i < parts.size(); ++i) {
        bool ok = false;
        const uint value = parts.at(i).toUInt(&ok);
        // Every part but the first has two digits below 60.
        if (!ok || (i > 0 && (parts.at(i).size() != 2 || value >= 60)) || value > 1000000)
            return -1;
        seconds = seconds * 60 + value;
    }
    return seconds * 1000;
}

// How the player shows a state: 1 playing; 3 and 4 are the engine's passing
// states while it plays, shown as playing; 2 paused; the rest is stopped.
QString statusOfState(int state)
{
    switch (state) {
    case 1:
    case 3:
    case 4:
        return QStringLiteral("Playing");
    case 2:
        return QStringLiteral("Paused");
    default:
        return QStringLiteral("Stopped");
    }
}

} // namespace

PlayerMirror::PlayerMirror(const TrackLookup& tracks, const PlaySettings& settings, QObject* parent)
    : QObject(parent), m_tracks(tracks), m_settings(settings)
{
}

void PlayerMirror::receive(const QCString& channel, const QCString& message, const QByteArray& data)
{
    QVariantMap before = playerProperties();
    const bool wasPresent = m_present;
    if (channel == IdleScreenChannel::kChannel)
        receiveIdle(message, data);
    else if (channel == MediaBrowserChannel::kNewsChannel)
        receiveBrowser(message, data);
    else if (channel == SetupChangeChannel::kChannel && message.startsWith(SetupChangeChannel::kPrefix))
        readSettings();
    else
        return;

    const QVariantMap after = playerProperties();
    QStringList changed;
    for (auto it = after.constBegin(); it != after.constEnd(); ++it) {
        if (it.key() != QLatin1String("Position") && before.value(it.key()) != it.value())
            changed.append(it.key());
    }
    if (wasPresent != m_present)
        emit presenceChanged(m_present);
    if (!changed.isEmpty())
        emit playerPropertiesChanged(changed);
}

void PlayerMirror::playerGone()
{
    // The same message the player sends when it ends, so that the desktop
    // sees the same changes whether the player ended or died.
    receive(MediaBrowserChannel::kNewsChannel, MediaBrowserChannel::kExited, QByteArray());
}

void PlayerMirror::receiveIdle(const QCString& message, const QByteArray& data)
{
    if (message == IdleScreenChannel::kExit) {
        forgetPlayer();
        return;
    }
    // The requests pass on the same channel, from us or from anyone else.
    if (message == IdleScreenChannel::kSeekForth || message == IdleScreenChannel::kSeekBack) {
        m_seekRequested = m_present;
        return;
    }
    if (!message.startsWith(IdleScreenChannel::kInfoPrefix))
        return;
    if (message == IdleScreenChannel::kState) {
        qint32 state = 0;
        if (!readPayload(data, state))
            return;
        m_idleState = state;
    } else if (message == IdleScreenChannel::kElapsedTime || message == IdleScreenChannel::kTotalTime) {
        QString text;
        const qint64 time = readPayload(data, text) ? parseTime(text) : -1;
        if (time < 0)
            return;
        if (message == IdleScreenChannel::kTotalTime)
            m_totalMs = time;
        else
            receiveElapsed(time);
    } else if (message == IdleScreenChannel::kMetaInfo) {
        QString text;
        QByteArray binary;
        qint8 onCard = 0;
        if (!readPayload(data, text, binary, onCard))
            return;
        m_metaText = text;
        m_newItem = true;
    } else {
        return;
    }
    setPresent(true);
}

void PlayerMirror::receiveElapsed(qint64 elapsedMs)
{
    const bool jumped = m_seekRequested || (!m_newItem && elapsedMs < m_elapsedMs);
    m_elapsedMs = elapsedMs;
    m_seekRequested = false;
    m_newItem = false;
    if (jumped)
        emit seeked(position());
}

void PlayerMirror::receiveBrowser(const QCString& message, const QByteArray& data)
{
    if (message == MediaBrowserChannel::kStarted) {
        forgetPlayer();
        setPresent(true);
        return;
    }
    if (message == MediaBrowserChannel::kExited) {
        forgetPlayer();
        return;
    }
    if (message == MediaBrowserChannel::kState) {
        qint32 state = 0;
        if (!readPayload(data, state))
            return;
        m_browserState = state;
    } else if (message == MediaBrowserChannel::kSystemItem) {
        QString path, artist, album, genre, composer;
        qint32 position = 0;
        if (!readPayload(data, path, position, artist, album, genre, composer))
            return;
        setNowPlaying(path);
        // The player sends its item again after every shuffle or repeat change.
        readSettings();
    } else if (message == MediaBrowserChannel::kGroupItem) {
        QString path;
        qint32 position = 0, group = 0;
        if (!readPayload(data, path, position, group))
            return;
        setNowPlaying(path);
        readSettings();
    } else {
        return;
    }
    setPresent(true);
}

void PlayerMirror::setNowPlaying(const QString& path)
{
    m_nowPlayingPath = path;
    m_nowPlayingRecord = m_tracks.find(path);
}

void PlayerMirror::setPresent(bool present)
{
    if (present && !m_present)
        readSettings();
    m_present = present;
}

void PlayerMirror::forgetPlayer()
{
    m_present = false;
    m_browserState = -1;
    m_idleState = -1;
    m_elapsedMs = 0;
    m_totalMs = 0;
    m_metaText.clear();
    m_nowPlayingPath.clear();
    m_nowPlayingRecord.reset();
    m_seekRequested = false;
    m_newItem = false;
}

void PlayerMirror::readSettings()
{
    m_shuffleMode = m_settings.shuffleMode();
    m_repeat = m_settings.repeat();
}

QString PlayerMirror::playbackStatus() const
{
    if (!m_present)
        return QStringLiteral("Stopped");
    // The idle screen's state shows stopped and finished as paused; the media
    // browser's is the engine's own, so it decides whenever one came.
    return statusOfState(m_browserState >= 0 ? m_browserState : m_idleState);
}

// The media browser tells the path only for items of library and group
// lists; a file played on its own leaves the previous list's path behind.
// The idle screen's text begins with the item's title or its file name, so
// a text that begins with neither belongs to another item.
bool PlayerMirror::nowPlayingIsCurrent() const
{
    if (m_nowPlayingPath.isEmpty())
        return false;
    if (m_metaText.isEmpty())
        return true;
    const QFileInfo file(m_nowPlayingPath);
    const std::optional<MediaRecord>& record = m_nowPlayingRecord;
    for (const QString& name : {record ? record->title : QString(), file.completeBaseName(), file.fileName()}) {
        if (!name.isEmpty() && m_metaText.startsWith(name))
            return true;
    }
    return false;
}

QString PlayerMirror::trackId() const
{
    if (!m_present || (m_metaText.isEmpty() && m_nowPlayingPath.isEmpty()))
        return QString();
    if (nowPlayingIsCurrent()) {
        if (m_nowPlayingRecord)
            return QLatin1String(kTrackPrefix) + QString::number(m_nowPlayingRecord->id);
    }
    return QLatin1String(kUnlistedTrack);
}

QVariantMap PlayerMirror::metadata() const
{
    const QString id = trackId();
    if (id.isEmpty())
        return {};
    QVariantMap map{{QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(id))}};
    QString title = m_metaText;
    if (nowPlayingIsCurrent()) {
        map.insert(QStringLiteral("xesam:url"), QUrl::fromLocalFile(m_nowPlayingPath).toString());
        if (const std::optional<MediaRecord>& record = m_nowPlayingRecord) {
            title = record->title.isEmpty() ? QFileInfo(m_nowPlayingPath).completeBaseName() : record->title;
            if (!record->artist.isEmpty())
                map.insert(QStringLiteral("xesam:artist"), QStringList{record->artist});
            if (!record->album.isEmpty())
                map.insert(QStringLiteral("xesam:album"), record->album);
        }
    }
    if (!title.isEmpty())
        map.insert(QStringLiteral("xesam:title"), title);
    if (m_totalMs > 0)
        map.insert(QStringLiteral("mpris:length"), length());
    return map;
}

QVariantMap PlayerMirror::playerProperties() const
{
    return {
        {QStringLiteral("PlaybackStatus"), playbackStatus()},
        {QStringLiteral("LoopStatus"), m_repeat ? QStringLiteral("Playlist") : QStringLiteral("None")},
        {QStringLiteral("Shuffle"), m_shuffleMode != 0},
        {QStringLiteral("Metadata"), metadata()},
        {QStringLiteral("Position"), position()},
        {QStringLiteral("CanGoNext"), m_present},
        {QStringLiteral("CanGoPrevious"), m_present},
        {QStringLiteral("CanPlay"), m_present},
        {QStringLiteral("CanPause"), m_present},
        {QStringLiteral("CanSeek"), m_present && m_totalMs > 0},
        // Constant while the bridge runs, as MPRIS asks: the desktop may always
        // try; the other flags say what a player (or none) allows now.
        {QStringLiteral("CanControl"), true},
    };
}
