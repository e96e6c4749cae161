#pragma once
// What the playback engine reports to its list listeners.

class MP_ListInterface;

class MP_ListListener {
public:
    /** The list that the engine plays changed or was replaced (null: no list). */
    virtual void updateListInfo(MP_ListInterface* list) = 0;

protected:
    ~MP_ListListener() = default;
};
