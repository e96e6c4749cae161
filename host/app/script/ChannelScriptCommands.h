#pragma once
// Script commands that keep time with other processes on the channels:
//   await CHANNEL MESSAGE MS    run the event loop until MESSAGE arrives on CHANNEL
//                               (from this process or another); fails after MS
//                               milliseconds. Says "await: listening on CHANNEL for
//                               MESSAGE" on standard error once the bus has shown that
//                               it hands this process what others send, so that
//                               the other side knows when to send.

#include "host/app/script/ScriptCommandTable.h"

class ChannelScriptCommands {
public:
    void addTo(ScriptCommandTable& table);

private:
    static bool await(const QStringList& arguments, QString* error);
};
