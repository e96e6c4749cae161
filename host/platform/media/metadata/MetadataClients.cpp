#include "host/platform/media/metadata/MetadataClients.h"

#include <cstdlib>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/metadata/MetadataConnection.h"

MetadataClients& MetadataClients::instance()
{
    static MetadataClients clients;
    return clients;
}

MetadataClients::MetadataClients() = default;
MetadataClients::~MetadataClients() = default;

const QString& MetadataClients::databaseFile()
{
    if (!isDataDirEnvironmentUnchanged() || m_databaseFile.isEmpty())
        m_databaseFile = MediaDatabase::defaultFile();
    return m_databaseFile;
}

bool MetadataClients::isDataDirEnvironmentUnchanged()
{
    // The variables HostDataDir reads the data folder from. Every call of the
    // metadata functions asks, so they are compared where they stand, not copied.
    static constexpr std::array<const char*, 3> kNames = {"MP_DATA_DIR", "XDG_DATA_HOME", "HOME"};
    bool isUnchanged = true;
    for (size_t i = 0; i < kNames.size(); ++i) {
        const char* value = std::getenv(kNames[i]);
        std::optional<std::string>& remembered = m_dataDirEnvironment[i];
        if (value ? remembered && *remembered == value : !remembered)
            continue;
        isUnchanged = false;
        remembered = value ? std::optional<std::string>(value) : std::nullopt;
    }
    return isUnchanged;
}

unsigned int MetadataClients::open()
{
    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(databaseFile());
    if (!database)
        return 0;
    const unsigned int handle = ++m_lastHandle;
    m_connections[handle] = std::make_unique<MetadataConnection>(handle, std::move(database));
    return handle;
}

bool MetadataClients::close(unsigned int handle)
{
    const auto found = m_connections.find(handle);
    if (found == m_connections.end())
        return false;
    // Out of the map before it goes: its destructor may reach back here.
    const std::unique_ptr<MetadataConnection> closing = std::move(found->second);
    m_connections.erase(found);
    return true;
}

MetadataConnection* MetadataClients::connection(unsigned int handle)
{
    const auto found = m_connections.find(handle);
    if (found == m_connections.end() || !found->second->readerOn(databaseFile()))
        return nullptr;
    return found->second.get();
}

MediaDatabase* MetadataClients::database(unsigned int handle)
{
    const auto found = m_connections.find(handle);
    return found == m_connections.end() ? nullptr : found->second->readerOn(databaseFile());
}

MediaDatabase* MetadataClients::writer(unsigned int handle)
{
    const auto found = m_connections.find(handle);
    return found == m_connections.end() ? nullptr : found->second->writerOn(databaseFile());
}

MediaDatabase* MetadataClients::ownDatabase()
{
    const QString& file = databaseFile();
    if (!m_ownDatabase || m_ownDatabase->fileName() != file)
        m_ownDatabase = MediaDatabase::open(file);
    return m_ownDatabase.get();
}

void MetadataClients::warnNoConnection(const char* function, unsigned int handle)
{
    if (handle != 0)
        qCWarning(lcMetadata).nospace() << function << ": no open connection for handle " << handle;
}

void MetadataClients::noteUnreadRecordWritten()
{
    const QString& file = databaseFile();
    for (const auto& [handle, connection] : m_connections)
        connection->noteUnreadRecordWritten(file);
}
