#pragma once
// The player's side of the idle screen's music plug-in. While the player runs
// hidden, the plug-in shows what is playing and offers the playback keys.
// The client mirrors the engine's state, time and meta information as
// "/MP/Idle/Info/..." messages on "/MP/Idle/Channel" and turns the
// "/MP/Idle/Req/..." requests arriving on the same channel into engine
// commands. It also asks the home-screen framework to show the plug-in
// (activePlugin) and, when it goes, to hide it again.
//
// Information sent (payloads in the phone's stream encoding):
//   /MP/Idle/Info/State        int: the state; stopped, error and finished read as paused (2)
//   /MP/Idle/Info/ElapsedTime  QString: the position, "m:ss"
//   /MP/Idle/Info/TotalTime    QString: the duration, only when it changed (or was asked for)
//   /MP/Idle/Info/MetaInfo     QString "title - album - artist"; QByteArray: the engine's
//                              data; Q_INT8: 1 when the file is on the memory card
//   /MP/Idle/Info/Exit         no data: the client is going
// Requests understood (anything else is ignored):
//   /MP/Idle/Req/Seek/Forth int n, /MP/Idle/Req/Seek/BACK int n (steps of 5 s),
//   /MP/Idle/Req/Seek/END, Play, Pause, Next, Prev, Quit, Restore, Update,
//   Shuffle, Repeat.

#include <QByteArray>
#include <QString>

#include <memory>

#include "clients/MP_AbstractClient.h"
#include "platform/Qt2Compat.h"

class QCopChannel;

class MP_IdleClient : public MP_AbstractClient {
    Q_OBJECT
public:
    /** Registers with @p player (not owned) and starts listening for requests. */
    explicit MP_IdleClient(MP_CommonPlayer* player);
    /** Sends "/MP/Idle/Info/Exit" and asks the framework to deactivate the
     *  plug-in, whether or not it was activated. */
    ~MP_IdleClient() override;

    /** Asks the framework to activate the plug-in, once: a second call while
     *  it is active sends nothing. */
    void activePlugin();
    /** Whether activePlugin() has asked for the plug-in. */
    bool isPluginActive() const { return m_pluginActive; }
    /** Hook run by the update request before the engine reports again; nothing to do. */
    void updateIdlePlayer();

    // MP_PlayerListener
    void updateState(MP_PLAYER_STATE state) override;
    void updateTime(int elapsed, int total) override;
    void updateMetaInfo(const QString& title, const QString& artist, const QString& album, QByteArray data,
                        bool canSeek) override;
    // The other reports are the base's: the plug-in shows nothing of them.

Q_SIGNALS:
    /** The plug-in asked to quit the player. */
    void sigQuitApp();
    /** The plug-in pressed a setup key (0x4002 shuffle, 0x4003 repeat), reported as released. */
    void sigSetupKeyClicked(int keyCode, bool pressed);

protected Q_SLOTS:
    /** Play/pause; at the end of a list of more than one item, restarts it from the first. */
    void onPlayPause();
    /** Next; at the end of a list, restarts it from the first (whatever its size). */
    void onNext();

private Q_SLOTS:
    void onReceiveRequest(const QCString& msg, const QByteArray& data);

private:
    /** Seek, play/pause, next and previous; false when @p msg is none of them. */
    bool handlePlaybackRequest(const QCString& msg, const QByteArray& data);
    /** End of seek, quit, restore, update, shuffle and repeat; false when none of them. */
    bool handleSessionRequest(const QCString& msg);
    void seekBySteps(const QByteArray& data, int stepMilliseconds);
    void requestUpdate();
    void toggleSetup(int keyCode);
    /** The engine's list has no next entry and the engine finished playing it;
     *  with @p needsSeveral, the list must also not hold exactly one entry. */
    bool listFinished(bool needsSeveral) const;
    void restartList();
    /** The file the meta information belongs to: the list's current entry, else the engine's file. */
    QString currentPath() const;

    void sendInfo(const char* message, const QByteArray& payload = QByteArray()) const;

    std::unique_ptr<QCopChannel> m_channel;
    /** The last total time sent; -1 after an update request, so that the next is sent again. */
    int m_totalTime;
    bool m_pluginActive;
};
