#include "host/platform/media/MetadataLog.h"

Q_LOGGING_CATEGORY(lcMetadata, "mp.host.metadata")
