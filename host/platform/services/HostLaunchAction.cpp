#include "host/platform/services/HostLaunchAction.h"

namespace {
AM_ActionData& launchAction()
{
    static AM_ActionData action;
    return action;
}
} // namespace

void HostLaunchAction::set(const AM_ActionData& action)
{
    launchAction() = action;
}

void HostLaunchAction::clear()
{
    launchAction() = AM_ActionData();
}

AM_ActionData HostLaunchAction::get()
{
    return launchAction();
}
