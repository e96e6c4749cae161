#include "clients/HSMessageAPI.h"

#include "platform/TraceLog.h"
#include "platform/VmMsg.h"

MP_DEFINE_TRACE(HSMessageTrace, "HSMessageAPI")

namespace {

const char* const kFrameworkChannel = "VEMO/HSFRAMEWORK";

} // namespace

void HSMessageAPI::HS_pluginActive(QString name)
{
    sendWithName("activePlugIn()", name);
}

void HSMessageAPI::HS_pluginDeactive(QString name)
{
    sendWithName("deactivePlugIn()", name);
}

void HSMessageAPI::sendWithName(const char* message, const QString& name)
{
    HSMessageTrace(3, "HSMessageAPI: %s \"%s\"\n", message, qPrintable(name));
    VmMsg msg(kFrameworkChannel, message, false);
    msg << name;
    msg.send();
}
