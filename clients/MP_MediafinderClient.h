#pragma once
// The client that keeps the phone's media browser informed. It announces the
// player's start and exit, forwards every player state, describes the item
// that plays together with the list it belongs to (so that the browser can
// show it and build the list again), answers the browser's two requests
// (show the player; report what plays), stores the last played song, and
// adds each song that starts playing to the play history.
//
// Messages go to "/vemo/apps/mediaplayer"; requests arrive on "MF_MSG_CHANNEL".

#include <QByteArray>
#include <QPointer>

#include <memory>

#include "clients/MP_AbstractClient.h"
#include "platform/Qt2Compat.h"

class MP_AufList;
class QCopChannel;

class MP_MediafinderClient : public MP_AbstractClient {
    Q_OBJECT
public:
    /** List kinds, the first word of a list's reserved data; -1 before any item was described. */
    enum { NoListKind = -1, LibrarySelection = 0, GroupList = 1 };

    /** Registers with @p player (not owned), listens for the browser's requests and
     *  sends "MediaplayerStarted()". */
    explicit MP_MediafinderClient(MP_CommonPlayer* player);
    /** Sends "MediaplayerExited()" and stops listening. */
    ~MP_MediafinderClient() override;

    /** The list that plays (not owned; null for a single file). Sends nothing by itself:
     *  the engine's list report that follows does. */
    void setAufList(MP_AufList* list);
    /** Answers a status query: the stored item message of the last item described
     *  (none before the first), then the state when there is a playback control. */
    void updateStatus();
    /** Describes the list's current item to the browser and stores it as the last
     *  played song; nothing without a list, or for a list kind the browser does not know. */
    void sendNowPlayingItem();

    int listKind() const { return m_listKind; }
    bool isSavePending() const { return m_savePending; }

    // MP_PlayerListener
    /** Forwards the state unchanged. */
    void updateState(MP_PLAYER_STATE state) override;
    /** The first time report after new meta information adds the song to the history. */
    void updateTime(int elapsed, int total) override;
    /** Arms one history entry for the next time report. */
    void updateMetaInfo(const QString& title, const QString& artist, const QString& album, QByteArray data,
                        bool canSeek) override;
    // MP_ListListener
    /** Describes the current item unless the list is a video list; @p list is not used. */
    void updateListInfo(MP_ListInterface* list) override;

private Q_SLOTS:
    void onMessageChannel(const QCString& msg, const QByteArray& data);

private:
    /** Copies the selection that follows the kind in @p reserved into m_payload; false when
     *  the reserved data does not hold it whole. */
    bool copySelection(QDataStream& reserved, QDataStream& payload);
    void sendItemMessage() const;
    void addToHistory();

    std::unique_ptr<QCopChannel> m_channel;  // owned; closed first in the destructor
    // Not owned: the main window's current list. Guarded, because the main
    // window deletes a list it releases before it hands over the next one.
    QPointer<MP_AufList> m_aufList;
    /** The data of the last item message sent, resent as it is by a status query. */
    QByteArray m_payload;
    /** Kind of the list of the last item described (LibrarySelection, GroupList), else -1. */
    int m_listKind = NoListKind;
    /** New meta information came, and no time report since. */
    bool m_savePending = false;

    Q_DISABLE_COPY(MP_MediafinderClient)
};
