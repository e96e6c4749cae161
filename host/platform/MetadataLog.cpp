#include "host/platform/MetadataLog.h"

Q_LOGGING_CATEGORY(lcMetadata, "mp.host.metadata")
