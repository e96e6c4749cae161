#pragma once
// The common base of every player client. A client registers itself with the
// engine as a list listener and then as a player listener when it is
// constructed, and unregisters in the same order when it is destroyed. Its
// listener operations do nothing, so a client overrides only the reports it
// cares about. Its slots forward user commands to the engine's playback
// control, looked up anew at every call.

#include <QObject>
#include <QString>

#include "clients/MP_ListListener.h"
#include "clients/MP_PlayerListener.h"

class MP_CommonPlayer;

class MP_AbstractClient : public QObject, public MP_PlayerListener, public MP_ListListener {
    Q_OBJECT
public:
    /** @p player must not be null and must outlive the client; it is not owned. */
    explicit MP_AbstractClient(MP_CommonPlayer* player);
    ~MP_AbstractClient() override;

    MP_CommonPlayer* getCommonPlayer() const { return m_commonPlayer; }
    /** The playback control's content name; an empty string when there is no control. */
    QString getPlayingContentName();

    // MP_PlayerListener: all ignored here.
    void updateState(MP_PLAYER_STATE state) override;
    void updateTime(int elapsed, int total) override;
    void updateBuffering(int percent) override;
    void updateDownloadProgress(int progress, int value) override;
    void updateDownloadComplete() override;
    void updateMetaInfo(const QString& title, const QString& artist, const QString& album, QByteArray data,
                        bool canSeek) override;
    void updateConnectionStatus(int status) override;
    // MP_ListListener: ignored here.
    void updateListInfo(MP_ListInterface* list) override;

protected Q_SLOTS:
    // Each forwards to the playback control and does nothing without one.
    // Not virtual: a client may hide one and fall back to it explicitly.
    void onPlayPause();
    void onNext();
    void onPrevious();
    void onStop();
    void onSeek(int offset);
    void onSeekFinished();
    void onSetMute(bool mute);
    void onSetVolume(int level);

private:
    template <typename Command>
    void forwardToControl(const char* slotName, Command command);

    MP_CommonPlayer* const m_commonPlayer;  // not owned
    Q_DISABLE_COPY(MP_AbstractClient)
};
