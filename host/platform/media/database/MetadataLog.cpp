#include "host/platform/media/database/MetadataLog.h"

Q_LOGGING_CATEGORY(lcMetadata, "mp.host.metadata")
