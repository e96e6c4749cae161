#include "host/platform/services/HostDownloadManager.h"

#include <QJsonArray>

#include <algorithm>
#include <vector>

#include "host/platform/HostJournal.h"
#include "platform/DLM_TransSession.h"

namespace {

// Oldest first; a session leaves when it is destroyed.
std::vector<DLM_TransSession*>& openSessions()
{
    static std::vector<DLM_TransSession*> sessions;
    return sessions;
}

} // namespace

bool HostDownloadManager::cancelNewest()
{
    if (openSessions().empty())
        return false;
    DLM_TransSession* session = openSessions().back();
    HostJournal::call(QStringLiteral("service"), QStringLiteral("DownloadManager::cancel"), {0});
    emit session->signalCancelTransfer(0);
    return true;
}

void HostDownloadManager::opened(DLM_TransSession* session)
{
    openSessions().push_back(session);
}

void HostDownloadManager::closed(DLM_TransSession* session)
{
    auto& sessions = openSessions();
    sessions.erase(std::remove(sessions.begin(), sessions.end(), session), sessions.end());
}
