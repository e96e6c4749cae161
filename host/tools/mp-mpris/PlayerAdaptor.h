#pragma once
// org.mpris.MediaPlayer2.Player over the mirror of the player: the properties
// read the mirror, the methods and writable properties become the player's
// requests. Rate and Volume are fixed at 1.0: the player offers neither.

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QVariantMap>

class PlayerMirror;
class PlayerRequests;

class PlayerAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QString LoopStatus READ loopStatus WRITE setLoopStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(bool Shuffle READ shuffle WRITE setShuffle)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPause)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl)
public:
    /** Adds the interface to @p object; @p mirror and @p requests must outlive it. */
    PlayerAdaptor(QObject* object, const PlayerMirror& mirror, const PlayerRequests& requests);

    QString playbackStatus() const;
    QString loopStatus() const;
    void setLoopStatus(const QString& loopStatus);
    double rate() const { return 1.0; }
    void setRate(double) {}
    bool shuffle() const;
    void setShuffle(bool shuffle);
    QVariantMap metadata() const;
    double volume() const { return 1.0; }
    void setVolume(double) {}
    qlonglong position() const;
    bool canGoNext() const { return flag("CanGoNext"); }
    bool canGoPrevious() const { return flag("CanGoPrevious"); }
    bool canPlay() const { return flag("CanPlay"); }
    bool canPause() const { return flag("CanPause"); }
    bool canSeek() const { return flag("CanSeek"); }
    bool canControl() const { return flag("CanControl"); }

public Q_SLOTS:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath& trackId, qlonglong position);
    void OpenUri(const QString& uri);

Q_SIGNALS:
    void Seeked(qlonglong position);

private:
    bool flag(const char* name) const;

    const PlayerMirror& m_mirror;
    const PlayerRequests& m_requests;
};
