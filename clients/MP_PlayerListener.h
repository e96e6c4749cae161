#pragma once
// What the playback engine reports to its player listeners. Every report
// runs on the event-loop thread, to every registered listener in the order
// of registration.

#include <QByteArray>
#include <QString>

#include "platform/MP_PlayerTypes.h"

class MP_PlayerListener {
public:
    /** The engine changed state. */
    virtual void updateState(MP_PLAYER_STATE state) = 0;
    /** Position and duration of the current media, in milliseconds; once a second while playing. */
    virtual void updateTime(int elapsed, int total) = 0;
    /** Buffering progress of a network medium, in percent. */
    virtual void updateBuffering(int percent) = 0;
    /** Progress of a download. */
    virtual void updateDownloadProgress(int progress, int value) = 0;
    /** The download of the current media finished. */
    virtual void updateDownloadComplete() = 0;
    /** Meta information of the current media; any text may be empty. */
    virtual void updateMetaInfo(const QString& title, const QString& artist, const QString& album,
                                QByteArray data, bool canSeek) = 0;
    /** Connection state of a network medium (2 failed, 3 connecting). */
    virtual void updateConnectionStatus(int status) = 0;

protected:
    // The engine never deletes a listener; listeners unregister themselves.
    ~MP_PlayerListener() = default;
};
