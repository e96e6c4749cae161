#pragma once
// The play list as the playback engine and the clients see it. Implemented by
// MP_AufList (database-backed) and MP_FolderList (the files of one folder).

#include <QByteArray>
#include <QString>

class MP_ListInterface {
public:
    /** Number of entries. */
    virtual unsigned int count() = 0;
    /** Whether a step forward is possible. */
    virtual bool hasNext() = 0;
    /** Whether a step back is possible. */
    virtual bool hasPrevious() = 0;
    /** Full path of the current entry; a null string where there is none. */
    virtual QString getCurrent() = 0;
    /** Full path of the entry at @p index; a null string outside 0..count()-1. */
    virtual QString getItem(int index) = 0;
    /** List position of the current entry. */
    virtual int getCurrentIndex() = 0;
    /** Moves the current entry by @p steps positions (negative: backwards). */
    virtual void skipSteps(int steps) = 0;
    /** Makes the entry at @p index current. */
    virtual void moveTo(int index) = 0;
    /** Removes the entry at @p index; what removal means is the list's. */
    virtual bool removeItem(int index) = 0;
    /** A serialised description of how the list was selected; null when it has none.
     *  The list keeps ownership. */
    virtual QByteArray* getReservedData() = 0;

protected:
    // Nobody deletes a list through this interface; the owner knows its class.
    ~MP_ListInterface() = default;
};
