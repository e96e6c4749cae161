#include "host/platform/MetadataClients.h"

#include "host/platform/MediaDatabase.h"

MetadataClients& MetadataClients::instance()
{
    static MetadataClients clients;
    return clients;
}

const QString& MetadataClients::databaseFile()
{
    // The variables HostDataDir reads the data folder from.
    const QByteArray environment = qgetenv("MP_DATA_DIR") + '\0' + qgetenv("XDG_DATA_HOME") + '\0' + qgetenv("HOME");
    if (m_databaseFile.isEmpty() || environment != m_dataDirEnvironment) {
        m_dataDirEnvironment = environment;
        m_databaseFile = MediaDatabase::defaultFile();
    }
    return m_databaseFile;
}

unsigned int MetadataClients::open()
{
    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(databaseFile());
    if (!database)
        return 0;
    const unsigned int handle = ++m_lastHandle;
    m_connections[handle] = std::move(database);
    return handle;
}

bool MetadataClients::close(unsigned int handle)
{
    return m_connections.erase(handle) == 1;
}

MediaDatabase* MetadataClients::database(unsigned int handle)
{
    const auto found = m_connections.find(handle);
    if (found == m_connections.end())
        return nullptr;
    std::unique_ptr<MediaDatabase>& database = found->second;
    const QString& file = databaseFile();
    if (!database || database->fileName() != file)
        database = MediaDatabase::open(file);
    return database.get();
}
