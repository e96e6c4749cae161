#include "host/platform/media/MediaFileLookup.h"

#include <QDir>

#include "host/platform/media/MediaDatabase.h"
#include "host/platform/media/MetadataClients.h"
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
