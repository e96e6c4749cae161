#include "host/engine/HostEngineReporter.h"

#include <QByteArray>
#include <QJsonArray>

#include <algorithm>

#include "clients/MP_ListListener.h"
#include "clients/MP_PlayerListener.h"
#include "host/platform/HostJournal.h"

namespace {

template <typename Listener>
bool contains(const std::vector<Listener*>& listeners, Listener* listener)
{
    return std::find(listeners.begin(), listeners.end(), listener) != listeners.end();
}

template <typename Listener>
void add(std::vector<Listener*>& listeners, Listener* listener)
{
    if (listener && !contains(listeners, listener))
        listeners.push_back(listener);
}

template <typename Listener>
void remove(std::vector<Listener*>& listeners, Listener* listener)
{
    listeners.erase(std::remove(listeners.begin(), listeners.end(), listener), listeners.end());
}

// Delivers to a snapshot of @p listeners, skipping those unregistered by an
// earlier delivery of the same report.
template <typename Listener, typename Deliver>
void deliverToAll(const std::vector<Listener*>& listeners, Deliver deliver)
{
    const std::vector<Listener*> snapshot = listeners;
    for (Listener* listener : snapshot) {
        if (contains(listeners, listener))
            deliver(listener);
    }
}

void journal(const char* call, const QJsonArray& args = {})
{
    HostJournal::call(QStringLiteral("report"), QString::fromLatin1(call), args);
}

} // namespace

void HostEngineReporter::addPlayerListener(MP_PlayerListener* listener)
{
    add(m_playerListeners, listener);
}

void HostEngineReporter::removePlayerListener(MP_PlayerListener* listener)
{
    remove(m_playerListeners, listener);
}

void HostEngineReporter::addListListener(MP_ListListener* listener)
{
    add(m_listListeners, listener);
}

void HostEngineReporter::removeListListener(MP_ListListener* listener)
{
    remove(m_listListeners, listener);
}

void HostEngineReporter::clear()
{
    m_playerListeners.clear();
    m_listListeners.clear();
}

template <typename Deliver>
void HostEngineReporter::toPlayerListeners(MP_PlayerListener* only, Deliver deliver)
{
    if (only)
        deliver(only);
    else
        deliverToAll(m_playerListeners, deliver);
}

void HostEngineReporter::reportState(MP_PLAYER_STATE state, MP_PlayerListener* only)
{
    journal("updateState", {int(state)});
    toPlayerListeners(only, [state](MP_PlayerListener* listener) { listener->updateState(state); });
}

void HostEngineReporter::reportTime(int elapsed, int total, MP_PlayerListener* only)
{
    journal("updateTime", {elapsed, total});
    toPlayerListeners(only, [=](MP_PlayerListener* listener) { listener->updateTime(elapsed, total); });
}

void HostEngineReporter::reportMetaInfo(const QString& title, const QString& artist, const QString& album,
                                        bool canSeek, MP_PlayerListener* only)
{
    journal("updateMetaInfo", {title, artist, album, canSeek});
    toPlayerListeners(only, [&](MP_PlayerListener* listener) {
        listener->updateMetaInfo(title, artist, album, QByteArray(), canSeek);
    });
}

void HostEngineReporter::reportBuffering(int percent)
{
    journal("updateBuffering", {percent});
    toPlayerListeners(nullptr, [percent](MP_PlayerListener* listener) { listener->updateBuffering(percent); });
}

void HostEngineReporter::reportConnectionStatus(int status)
{
    journal("updateConnectionStatus", {status});
    toPlayerListeners(nullptr,
                      [status](MP_PlayerListener* listener) { listener->updateConnectionStatus(status); });
}

void HostEngineReporter::reportDownloadProgress(int progress, int value)
{
    journal("updateDownloadProgress", {progress, value});
    toPlayerListeners(nullptr, [=](MP_PlayerListener* listener) {
        listener->updateDownloadProgress(progress, value);
    });
}

void HostEngineReporter::reportDownloadComplete()
{
    journal("updateDownloadComplete");
    toPlayerListeners(nullptr, [](MP_PlayerListener* listener) { listener->updateDownloadComplete(); });
}

void HostEngineReporter::reportListInfo(MP_ListInterface* list)
{
    journal("updateListInfo", {journalTag(list, QStringLiteral("list"))});
    deliverToAll(m_listListeners, [list](MP_ListListener* listener) { listener->updateListInfo(list); });
}

QJsonValue HostEngineReporter::journalTag(const void* pointer, const QString& tag)
{
    return pointer ? QJsonValue(tag) : QJsonValue(QJsonValue::Null);
}
