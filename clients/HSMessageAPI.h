#pragma once
// Requests to the home-screen framework, which shows the idle screen's
// plug-ins: each is one message on "VEMO/HSFRAMEWORK" carrying the plug-in's
// name as a QString.

#include <QString>

class HSMessageAPI {
public:
    /** Asks the framework to activate (show) the plug-in @p name: "activePlugIn()". */
    static void HS_pluginActive(QString name);
    /** Asks the framework to deactivate the plug-in @p name: "deactivePlugIn()". */
    static void HS_pluginDeactive(QString name);

private:
    static void sendWithName(const char* message, const QString& name);
};
