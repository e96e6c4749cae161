#pragma once
// The client connections behind the metadata handles. A handle is a small
// non-zero number naming one MediaDatabase connection to the database file of
// the data folder; when the data folder changes (a test's fresh folder), the
// connection follows it on its next use.

#include <QByteArray>
#include <QString>

#include <map>
#include <memory>

class MediaDatabase;

class MetadataClients {
public:
    static MetadataClients& instance();

    /** Opens a connection to the data folder's database; returns its handle, 0 on failure. */
    unsigned int open();
    /** Closes a connection; false for an unknown handle. */
    bool close(unsigned int handle);
    /** The connection of @p handle on the current data folder's database; null for an
     *  unknown handle or when that database cannot be opened. */
    MediaDatabase* database(unsigned int handle);

private:
    MetadataClients() = default;
    /** The data folder's database file, worked out again only when the environment
     *  that names the data folder changed (a search must not cost file-system calls). */
    const QString& databaseFile();

    std::map<unsigned int, std::unique_ptr<MediaDatabase>> m_connections;
    unsigned int m_lastHandle = 0;
    QByteArray m_dataDirEnvironment;
    QString m_databaseFile;
};
