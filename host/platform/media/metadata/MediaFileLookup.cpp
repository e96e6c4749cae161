#include "host/platform/media/metadata/MediaFileLookup.h"

#include <QDir>
#include <QFileInfo>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/metadata/MetadataClients.h"
#include "host/platform/media/database/MetadataLog.h"
#include "platform/Metadata.h"

std::optional<MediaRecord> MediaFileLookup::find(const QString& path)
{
    if (path.isEmpty())
        return std::nullopt;
    MediaDatabase* database = MetadataClients::instance().ownDatabase();
    if (!database)
        return std::nullopt;
    // The database keeps clean absolute paths; "/m/./a.mp3" is the same file.
    return database->mediaByPath(QDir::cleanPath(path));
}

int isMediaFile(const char* path)
{
    if (!path)
        return 0;
    return MediaFileLookup::find(QString::fromUtf8(path)) ? 1 : 0;
}

int metadataCheckFile(unsigned int handle, const char* utf8Path)
{
    if (!utf8Path || !*utf8Path)
        return METADATA_FILE_UNKNOWN;
    MediaDatabase* database = MetadataClients::instance().database(handle);
    if (!database) {
        MetadataClients::warnNoConnection("metadataCheckFile", handle);
        return METADATA_FILE_UNKNOWN;
    }
    const std::optional<MediaRecord> stored = database->mediaByPath(QDir::cleanPath(QString::fromUtf8(utf8Path)));
    if (!stored)
        return METADATA_FILE_NOT_STORED;
    // The stamp the scanner keeps to tell an unchanged file; a file put in
    // the place of the stored one (a rename over it, a copy) differs in it.
    const QFileInfo file(stored->path);
    const bool isSame = file.isFile() && file.size() == stored->fileSize
                        && file.lastModified().toMSecsSinceEpoch() == stored->fileModified;
    return isSame ? METADATA_FILE_AS_STORED : METADATA_FILE_CHANGED;
}
