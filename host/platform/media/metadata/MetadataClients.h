#pragma once
// The client connections behind the metadata handles. A handle is a small
// non-zero number naming one MetadataConnection to the database file of the
// data folder; when the data folder changes (a test's fresh folder), the
// connection follows it on its next use.

#include <QByteArray>
#include <QString>

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/platform/media/database/MediaSearchPlanCache.h"

class MediaDatabase;
class MetadataConnection;

class MetadataClients {
public:
    static MetadataClients& instance();

    /** Opens a connection to the data folder's database; returns its handle, 0 on failure. */
    unsigned int open();
    /** Closes a connection; false for an unknown handle. */
    bool close(unsigned int handle);
    /** The connection of @p handle, its database open on the current data folder's file;
     *  null for an unknown handle or when that database cannot be opened. */
    MetadataConnection* connection(unsigned int handle);
    /** The reading database of connection(@p handle), in its snapshot, or null. */
    MediaDatabase* database(unsigned int handle);
    /** The writing database of connection(@p handle) (no snapshot), or null. */
    MediaDatabase* writer(unsigned int handle);
    /** A connection of the metadata library's own on the current data folder's database,
     *  for the functions that take no handle (the last-played list); null when it cannot
     *  be opened. */
    MediaDatabase* ownDatabase();
    /** A record that no client reads was written through ownDatabase(): every connection's
     *  snapshot moves past it when nothing else it must handle was committed meanwhile
     *  (MetadataConnection.h). */
    void noteUnreadRecordWritten();
    /** Warns that @p function was called with @p handle, which names no connection;
     *  silent for handle 0, a client's whose database was refused (said then). */
    static void warnNoConnection(const char* function, unsigned int handle);
    /** The plans of the last search requests of every connection. */
    MediaSearchPlanCache& searchPlans() { return m_searchPlans; }

private:
    MetadataClients();
    ~MetadataClients();
    /** The data folder's database file, worked out again only when the environment
     *  that names the data folder changed (a search must not cost file-system calls). */
    const QString& databaseFile();
    /** Whether the variables that name the data folder still hold what they did when
     *  databaseFile() was worked out; remembers what they hold now. */
    bool isDataDirEnvironmentUnchanged();

    std::map<unsigned int, std::unique_ptr<MetadataConnection>> m_connections;
    std::unique_ptr<MediaDatabase> m_ownDatabase;
    unsigned int m_lastHandle = 0;
    std::array<std::optional<std::string>, 3> m_dataDirEnvironment;
    QString m_databaseFile;
    MediaSearchPlanCache m_searchPlans;
};
