// mp-mpris: offers the media player to the desktop's media controls (MPRIS
// 2.2 on the D-Bus session bus), following the player as it starts and ends.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QFileInfo>

#include <cstdio>

#include "host/tools/mp-mpris/DatabaseTrackLookup.h"
#include "host/tools/mp-mpris/MprisBridge.h"
#include "host/tools/mp-mpris/StoredPlaySettings.h"
#include "platform/TraceLog.h"

namespace {

enum ExitStatus { ExitEnded = 0, ExitNoBus = 1, ExitBadUsage = 2, ExitBusLost = 3 };

const char* const kUsage =
    "usage: mp-mpris [--data-dir DIR] [--follow NAME]\n"
    "Offers the media player on the session bus as org.mpris.MediaPlayer2.mediaplayer (or, when\n"
    "that name is taken, org.mpris.MediaPlayer2.mediaplayer.instance<pid>) until interrupted or\n"
    "the bus goes away. DIR is the player's data folder (default: MP_DATA_DIR, else the\n"
    "player's own), where the titles of what plays are looked up. Without --follow the newest\n"
    "player on the bus is offered; with it, only the player whose unique bus name is NAME\n"
    "(mediaplayer --mpris starts its bridge so).\n"
    "Exit status: 0 ended, 1 no D-Bus session bus or no name to take, 2 bad usage,\n"
    "3 the session bus went away.\n";

int badUsage(const char* reason)
{
    std::fprintf(stderr, "mp-mpris: %s\n%s", reason, kUsage);
    return ExitBadUsage;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    LOG_SetStream(stderr);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.value(0) == QLatin1String("--help") || arguments.value(0) == QLatin1String("-h")) {
        std::fputs(kUsage, stdout);
        return ExitEnded;
    }
    QString followed;
    for (int i = 0; i < arguments.size(); i += 2) {
        const QString& option = arguments.at(i);
        if (i + 1 >= arguments.size() || (option != QLatin1String("--data-dir") && option != QLatin1String("--follow")))
            return badUsage("expected --data-dir DIR and --follow NAME, each with its value");
        if (option == QLatin1String("--follow"))
            followed = arguments.at(i + 1);
        else
            qputenv("MP_DATA_DIR", QFileInfo(arguments.at(i + 1)).absoluteFilePath().toLocal8Bit());
    }
    if (!QDBusConnection::sessionBus().isConnected()) {
        std::fprintf(stderr, "mp-mpris: no D-Bus session bus (DBUS_SESSION_BUS_ADDRESS): the player cannot be offered\n");
        return ExitNoBus;
    }
    DatabaseTrackLookup tracks;
    StoredPlaySettings settings;
    MprisBridge bridge(tracks, settings);
    if (!followed.isEmpty())
        bridge.followOnly(followed);
    QString error;
    if (!bridge.start(&error)) {
        std::fprintf(stderr, "mp-mpris: %s\n", qPrintable(error));
        return ExitNoBus;
    }
    // Nothing can reach a bridge without its bus, and a new bus gets a new bridge.
    QObject::connect(&bridge, &MprisBridge::busLost, &app, [] {
        std::fprintf(stderr, "mp-mpris: the session bus went away\n");
        QCoreApplication::exit(ExitBusLost);
    });
    std::fprintf(stderr, "mp-mpris: offering %s\n", qPrintable(bridge.serviceName()));
    return QCoreApplication::exec();
}
