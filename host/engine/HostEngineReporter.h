#pragma once
// The host engine's listeners and its reports to them. Each report is written
// to the journal once, as {"kind":"report","call":<operation>,"args":[...]},
// and then delivered to every registered listener in registration order.
// A report may make a listener unregister others (a client being deleted):
// the listeners are copied before delivery and any that left meanwhile are
// skipped. Listeners added during a report hear from the next one on.

#include <QJsonValue>
#include <QString>

#include <vector>

#include "platform/MP_PlayerTypes.h"

class MP_ListInterface;
class MP_ListListener;
class MP_PlayerListener;

class HostEngineReporter {
public:
    HostEngineReporter() = default;
    HostEngineReporter(const HostEngineReporter&) = delete;
    HostEngineReporter& operator=(const HostEngineReporter&) = delete;

    /** Registers a listener (not owned) at the end; null or one already registered is ignored. */
    void addPlayerListener(MP_PlayerListener* listener);
    void removePlayerListener(MP_PlayerListener* listener);
    void addListListener(MP_ListListener* listener);
    void removeListListener(MP_ListListener* listener);
    /** Forgets every listener (the engine is going away). */
    void clear();

    // Player reports. With @p only set, the report goes to that listener
    // alone (a requested update), registered or not.
    void reportState(MP_PLAYER_STATE state, MP_PlayerListener* only = nullptr);
    void reportTime(int elapsed, int total, MP_PlayerListener* only = nullptr);
    /** Journaled as title, artist, album, canSeek; the binary data is always empty. */
    void reportMetaInfo(const QString& title, const QString& artist, const QString& album, bool canSeek,
                        MP_PlayerListener* only = nullptr);
    void reportBuffering(int percent);
    void reportConnectionStatus(int status);
    void reportDownloadProgress(int progress, int value);
    void reportDownloadComplete();
    /** List report: the played list changed or was replaced (null: no list). */
    void reportListInfo(MP_ListInterface* list);

    /** How a pointer argument appears in the journal: null, or @p tag. */
    static QJsonValue journalTag(const void* pointer, const QString& tag);

private:
    template <typename Deliver>
    void toPlayerListeners(MP_PlayerListener* only, Deliver deliver);

    std::vector<MP_PlayerListener*> m_playerListeners; // not owned
    std::vector<MP_ListListener*> m_listListeners;     // not owned
};
