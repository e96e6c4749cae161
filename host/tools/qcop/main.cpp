// qcop: sends a message on a channel of the players on this D-Bus session
// bus, or prints the messages of channels as they pass.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <cstdio>

#include "host/platform/channels/QCopBus.h"
#include "host/tools/qcop/PayloadDecoder.h"
#include "host/words/PayloadBuilder.h"
#include "platform/QCopChannel.h"
#include "platform/TraceLog.h"

namespace {

enum ExitStatus { ExitSent = 0, ExitNoBus = 1, ExitBadUsage = 2 };

// How long the bus may take to confirm that the listening has begun.
const int kListeningProofMs = 5000;

const char* const kUsage =
    "usage: qcop CHANNEL MESSAGE [ARG ...]   send MESSAGE on CHANNEL\n"
    "       qcop --listen CHANNEL [CHANNEL ...]\n"
    "                                       print every message on the CHANNELs, one line each:\n"
    "                                       CHANNEL MESSAGE ARG ..., until interrupted\n"
    "ARG: int:N (32-bit), i8:N (one byte), str:TEXT, bytes:HEX (length and bytes), raw:HEX (as is).\n"
    "Printed payloads are decoded by the types the message names (keyMsg(int,int)) or the\n"
    "player's own messages carry, otherwise shown as raw:HEX.\n"
    "Exit status: 0 sent (or listened), 1 no D-Bus session bus, 2 bad usage.\n";

int badUsage(const QString& reason)
{
    std::fprintf(stderr, "qcop: %s\n%s", qPrintable(reason), kUsage);
    return ExitBadUsage;
}

bool haveBus()
{
    if (QDBusConnection::sessionBus().isConnected())
        return true;
    std::fprintf(stderr, "qcop: no D-Bus session bus (DBUS_SESSION_BUS_ADDRESS): no other process can be reached\n");
    return false;
}

int send(const QStringList& arguments)
{
    QByteArray payload;
    QString error;
    if (!PayloadBuilder::build(arguments.mid(2), &payload, &error))
        return badUsage(error);
    if (!haveBus())
        return ExitNoBus;
    if (!QCopChannel::send(arguments.at(0).toUtf8(), arguments.at(1).toUtf8(), payload))
        return badUsage(QStringLiteral("the channel and the message need a name"));
    // A call on the same connection returns only after the signal before it
    // has gone out: the message is on the bus before the process ends.
    QDBusConnection::sessionBus().interface()->isServiceRegistered(QStringLiteral("org.freedesktop.DBus"));
    return ExitSent;
}

int listen(const QStringList& channels)
{
    if (channels.isEmpty())
        return badUsage(QStringLiteral("--listen needs at least one channel"));
    if (!haveBus())
        return ExitNoBus;
    for (const QString& name : channels) {
        auto* channel = new QCopChannel(name.toUtf8(), qApp);
        QObject::connect(channel, &QCopChannel::received, qApp,
                         [channel](const QCString& message, const QByteArray& data) {
                             QStringList words{QString::fromUtf8(channel->channel()), QString::fromUtf8(message)};
                             words += PayloadDecoder::describe(message, data);
                             std::printf("%s\n", words.join(QLatin1Char(' ')).toUtf8().constData());
                             std::fflush(stdout);
                         });
    }
    // From the line below on, no message on these channels is missed.
    if (!QCopBus::existing()->waitUntilListening(kListeningProofMs))
        std::fprintf(stderr, "qcop: the bus did not confirm listening; early messages may be missed\n");
    std::fprintf(stderr, "qcop: listening on %d channel(s)\n", int(channels.size()));
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    LOG_SetStream(stderr);  // standard output carries the messages alone
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.value(0) == QLatin1String("--help") || arguments.value(0) == QLatin1String("-h")) {
        std::fputs(kUsage, stdout);
        return ExitSent;
    }
    if (arguments.value(0) == QLatin1String("--listen"))
        return listen(arguments.mid(1));
    if (arguments.size() < 2 || arguments.at(0).startsWith(QLatin1String("--")))
        return badUsage(arguments.isEmpty() ? QStringLiteral("no channel given")
                                            : QStringLiteral("expected CHANNEL MESSAGE [ARG ...]"));
    return send(arguments);
}
