#include "screen/MP_ActionList.h"

#include "screen/MP_ActionBase.h"

void MP_ActionList::addAction(MP_ActionBase* action)
{
    if (action)
        m_actions[action->getIndex()] = action;
}

void MP_ActionList::removeAction(MP_ActionBase* action)
{
    // By id, not by identity: the entry goes whichever action holds it.
    if (action)
        m_actions.erase(action->getIndex());
}

MP_ActionBase* MP_ActionList::getAction(int index) const
{
    const auto found = m_actions.find(index);
    return found == m_actions.end() ? nullptr : found->second;
}

void MP_ActionList::onUpdate()
{
    for (const auto& entry : m_actions)
        entry.second->onUpdate();
}
