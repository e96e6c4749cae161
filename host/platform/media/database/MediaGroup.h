#pragma once
// One group of the metadata database: a user play list or a play-history group.

#include <QString>

#include "platform/Metadata.h"

struct MediaGroup {
    quint32 id = 0;
    MetadataGroupType type = METADATA_GROUP_USER;
    QString name;
    QString source;               ///< the play-list file it was imported from; empty when made on the phone
};
