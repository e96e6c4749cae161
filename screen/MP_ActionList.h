#pragma once
// The screen client's registry of dynamic menu actions, keyed by item id.
// It never owns an action: the creator registers an action after making it
// and unregisters it before destroying it.

#include <map>

class MP_ActionBase;

class MP_ActionList {
public:
    MP_ActionList() = default;

    /** Registers @p action under its getIndex(), replacing (not destroying)
     *  one registered there before. Null is ignored. */
    void addAction(MP_ActionBase* action);
    /** Removes whatever action is registered under @p action's getIndex();
     *  an absent id or null changes nothing. */
    void removeAction(MP_ActionBase* action);
    /** The action registered under @p index, or null; the lookup adds nothing. */
    MP_ActionBase* getAction(int index) const;
    /** onUpdate() on every registered action, in ascending id order. */
    void onUpdate();

private:
    std::map<int, MP_ActionBase*> m_actions;  // not owned
};
