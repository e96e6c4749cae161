#pragma once
// The trace category of the host media-metadata database: rejected requests,
// SQLite failures, scanner messages.

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcMetadata)
