#pragma once
// org.mpris.MediaPlayer2: who the player is; Raise shows its screen, Quit
// ends it. CanQuit and CanRaise hold while a player runs.

#include <QDBusAbstractAdaptor>
#include <QStringList>

class PlayerMirror;
class PlayerRequests;

class MediaPlayer2Adaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ canQuit)
    Q_PROPERTY(bool CanRaise READ canRaise)
    Q_PROPERTY(bool HasTrackList READ hasTrackList)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)
public:
    /** Adds the interface to @p object; @p mirror and @p requests must outlive it. */
    MediaPlayer2Adaptor(QObject* object, const PlayerMirror& mirror, const PlayerRequests& requests);

    bool canQuit() const;
    bool canRaise() const;
    bool hasTrackList() const { return false; }
    QString identity() const { return QStringLiteral("Media Player"); }
    QString desktopEntry() const { return QStringLiteral("mediaplayer"); }
    // The player is started with what to play; the bridge opens nothing.
    QStringList supportedUriSchemes() const { return {}; }
    QStringList supportedMimeTypes() const { return {}; }

public Q_SLOTS:
    void Raise();
    void Quit();

private:
    const PlayerMirror& m_mirror;
    const PlayerRequests& m_requests;
};
