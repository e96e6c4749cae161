#pragma once
// The interface through which MP_AufList runs its database searches.

#include <QStringList>

#include "lists/MP_AUF_ITEM.h"
#include "platform/Qt2Compat.h"

class MP_AufAccessor {
public:
    /** Fetches up to @p count entries from position @p start of the result into @p out;
     *  a count of 0 asks only for the total, which count() then returns. */
    virtual bool getItems(int start, int count, QValueList<MP_AUF_ITEM>& out) = 0;
    /** The same, fetching object ids only. */
    virtual bool getIds(int start, int count, QValueList<unsigned int>& out) = 0;
    /** The total found by the last counting call. */
    virtual int count() = 0;
    /** Fetches album names of the result; a count of 0 asks only for the number of albums. */
    virtual bool getAlbums(int start, int count, QStringList& out) = 0;
    /** Restricts later searches to one album; a null string lifts the restriction. */
    virtual void setAlbum(const QString& album) = 0;
    /** The number of albums found by the last counting getAlbums() call. */
    virtual int albumCount() = 0;
    /** Finds the position of object @p id in the result. */
    virtual bool getIndex(unsigned int id, int& index) = 0;
    /** Removes one result. */
    virtual bool removeItem(int index, const QString& path) = 0;

protected:
    ~MP_AufAccessor() = default;
};
