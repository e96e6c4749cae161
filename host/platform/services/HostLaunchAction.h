#pragma once
// The launch action of this process, as the application framework would
// hand it over. The host application sets it from its command line
// (--action NAME key=value ...); AM_ActionParser reads it.

#include "platform/AM_Action.h"

class HostLaunchAction {
public:
    static void set(const AM_ActionData& action);
    /** Forgets the launch action (an application launched without one). */
    static void clear();
    static AM_ActionData get();
};
