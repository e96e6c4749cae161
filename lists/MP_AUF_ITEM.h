#pragma once
// One entry of a database-backed list: the media object's id in the
// metadata database and its full path. The empty item has id 0; an item is
// tested for emptiness by its id alone.

#include <QString>

#include "platform/Qt2Compat.h"

struct MP_AUF_ITEM {
    unsigned int id = 0;
    QString path;

    MP_AUF_ITEM() = default;
    MP_AUF_ITEM(unsigned int objectId, const QString& fullPath) : id(objectId), path(fullPath) {}

    bool isEmpty() const { return id == 0; }
};
