#include "host/app/script/ChannelScriptCommands.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <cstdio>

#include "host/app/script/ScriptArguments.h"
#include "host/platform/channels/QCopBus.h"
#include "host/words/ScriptWords.h"
#include "platform/QCopChannel.h"

void ChannelScriptCommands::addTo(ScriptCommandTable& table)
{
    table.insert(QStringLiteral("await"), &ChannelScriptCommands::await);
}

bool ChannelScriptCommands::await(const QStringList& arguments, QString* error)
{
    int milliseconds = 0;
    if (arguments.size() != 3 || !ScriptArguments::milliseconds(arguments.mid(2), &milliseconds, error)) {
        *error = QStringLiteral("expects a channel, a message and a number of milliseconds");
        return false;
    }
    const QByteArray expected = arguments.at(1).toUtf8();
    QCopChannel channel(arguments.at(0).toUtf8());
    QEventLoop loop;
    bool arrived = false;
    QObject::connect(&channel, &QCopChannel::received, &loop, [&](const QCString& message, const QByteArray&) {
        if (message == expected) {
            arrived = true;
            loop.quit();
        }
    });
    const QDeadlineTimer deadline(milliseconds);
    // Said only once the bus is known to hand over what others send: the
    // other side sends as soon as it reads the line. The proof counts
    // against the time allowed; what arrives meanwhile is not missed.
    QCopBus* bus = QCopBus::existing();
    if (bus && !bus->waitUntilListening(int(deadline.remainingTime()))) {
        *error = QStringLiteral("the session bus did not confirm listening within %1 ms").arg(milliseconds);
        return false;
    }
    std::fprintf(stderr, "await: listening on %s for %s\n", qPrintable(arguments.at(0)), qPrintable(arguments.at(1)));
    std::fflush(stderr);
    if (!arrived) {
        QTimer::singleShot(int(deadline.remainingTime()), &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!arrived)
        *error = QStringLiteral("%1 did not arrive within %2 ms").arg(ScriptWords::excerpt(arguments.at(1))).arg(milliseconds);
    return arrived;
}
