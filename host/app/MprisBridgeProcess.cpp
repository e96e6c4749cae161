#include "host/app/MprisBridgeProcess.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QFileInfo>
#include <QProcess>

#include <csignal>
#include <cstdio>

#include <sys/prctl.h>
#include <unistd.h>

namespace {
const int kEndMilliseconds = 5000;

bool channelsStayLocal()
{
    return qEnvironmentVariableIntValue("MP_QCOP_LOCAL") == 1 || qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
}

/** The command that runs mp-mpris, beside this program, with @p arguments.
 *  Built for another processor, the programs run under an emulator on the
 *  development machine (MP_EMULATOR names it, with its options, split as a
 *  shell splits words), and a program the player starts must run under it
 *  too: that machine's kernel cannot start it by itself. */
QStringList bridgeCommand(const QStringList& arguments)
{
    QStringList command = QProcess::splitCommand(qEnvironmentVariable("MP_EMULATOR"));
    command << QCoreApplication::applicationDirPath() + QStringLiteral("/mp-mpris") << arguments;
    return command;
}
} // namespace

MprisBridgeProcess::MprisBridgeProcess() = default;

MprisBridgeProcess::~MprisBridgeProcess()
{
    if (!m_process || m_process->state() == QProcess::NotRunning)
        return;
    m_process->terminate();
    if (!m_process->waitForFinished(kEndMilliseconds)) {
        m_process->kill();
        m_process->waitForFinished(kEndMilliseconds);
    }
}

bool MprisBridgeProcess::start(const QString& dataDir)
{
    // Without a bus the player's channels never leave it: a bridge would
    // offer a player it cannot hear. The player plays on all the same.
    if (channelsStayLocal()) {
        std::fprintf(stderr, "mediaplayer: --mpris: no D-Bus session bus, the media controls are not offered\n");
        return false;
    }
    QStringList arguments;
    if (!dataDir.isEmpty())
        arguments << QStringLiteral("--data-dir") << QFileInfo(dataDir).absoluteFilePath();
    // This player's own bridge: with another player on the desktop, each is
    // offered by its own bridge. The channels leave through this connection.
    const QString ownBusName = QDBusConnection::sessionBus().baseService();
    if (!ownBusName.isEmpty())
        arguments << QStringLiteral("--follow") << ownBusName;
    QStringList command = bridgeCommand(arguments);
    const QString program = command.takeFirst();
    m_process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The journal records the player's effects; the bridge is another program.
    environment.remove(QStringLiteral("MP_JOURNAL"));
    m_process->setProcessEnvironment(environment);
    m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    // The bridge ends with the player even when the player cannot end it
    // (killed, crashed): the kernel sends it SIGTERM when its parent dies.
    // Runs in the child between fork and exec: only async-signal-safe calls.
    const pid_t player = ::getpid();
    m_process->setChildProcessModifier([player] {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != player)  // the player died before the request took
            ::raise(SIGTERM);
    });
    m_process->start(program, command);
    if (!m_process->waitForStarted(kEndMilliseconds)) {
        std::fprintf(stderr, "mediaplayer: --mpris: cannot start %s: %s\n",
                     qPrintable((QStringList{program} + command).join(QLatin1Char(' '))),
                     qPrintable(m_process->errorString()));
        m_process.reset();
        return false;
    }
    return true;
}
