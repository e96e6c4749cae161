#include "host/app/ChannelScriptCommands.h"

#include <QEventLoop>
#include <QTimer>

#include <cstdio>

#include "host/app/ScriptArguments.h"
#include "host/app/ScriptWords.h"
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
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    std::fprintf(stderr, "await: listening on %s for %s\n", qPrintable(arguments.at(0)), qPrintable(arguments.at(1)));
    std::fflush(stderr);
    loop.exec();
    if (!arrived)
        *error = QStringLiteral("%1 did not arrive within %2 ms").arg(ScriptWords::excerpt(arguments.at(1))).arg(milliseconds);
    return arrived;
}
