// The entry point of the phone's setup library. Every call is journaled as
// {"kind":"service","call":"exeShowSetupUI","args":[kind, backHide]}. When the
// application runs interactively with a display, the setup screen is shown
// and blocks until the user closes it; headless, the call only journals.

#include <QGuiApplication>
#include <QJsonArray>

#include "host/platform/HostJournal.h"
#include "host/platform/services/setuplib/HostSetupDialog.h"
#include "host/platform/toolkit/HostDialogs.h"

extern "C" __attribute__((visibility("default"))) void exeShowSetupUI(int kind, bool backHide)
{
    HostJournal::call(QStringLiteral("service"), QStringLiteral("exeShowSetupUI"), QJsonArray{kind, backHide});
    // The back-hide flag concerns the phone's own setup application (what its
    // Back does); the host's screen is a dialog that simply closes.
    if (!HostDialogs::isInteractive() || QGuiApplication::platformName() == QLatin1String("offscreen"))
        return;
    if (kind != 0 && kind != 1)
        return;
    HostSetupDialog(kind).exec();
}
