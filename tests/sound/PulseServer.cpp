#include "tests/sound/PulseServer.h"

#include <QDeadlineTimer>
#include <QProcessEnvironment>
#include <QStandardPaths>

PulseServer::PulseServer(int timeoutMs)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("pulseaudio"));
    if (program.isEmpty() || !m_runtime.isValid()) {
        m_error = QStringLiteral("no pulseaudio program (scripts/install-deps.sh installs it)");
        return;
    }
    // Its own runtime and home folders keep it apart from any other server;
    // as root it runs all the same, with a warning.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_runtime.path());
    environment.insert(QStringLiteral("HOME"), m_runtime.path());
    environment.remove(QStringLiteral("PULSE_SERVER"));
    m_process.setProcessEnvironment(environment);
    // Its log goes to standard error: read it as the only channel.
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program, {
        QStringLiteral("-n"), QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"),
        QStringLiteral("--use-pid-file=no"), QStringLiteral("--disable-shm=yes"),
        QStringLiteral("--log-target=stderr"), QStringLiteral("--log-level=info"),
        QStringLiteral("-L"), QStringLiteral("module-native-protocol-unix socket=%1/native auth-anonymous=1")
                                  .arg(m_runtime.path()),
        QStringLiteral("-L"), QStringLiteral("module-null-sink sink_name=%1").arg(QLatin1String(kSink)),
    });
    // The server says when it is ready; everything before is set-up talk.
    const QDeadlineTimer deadline(timeoutMs);
    QByteArray said;
    while (!said.contains("Daemon startup complete.")) {
        if (m_process.state() == QProcess::NotRunning
            || !m_process.waitForReadyRead(int(deadline.remainingTime()))) {
            m_error = QStringLiteral("pulseaudio did not start: ") + QString::fromLocal8Bit(said.right(400));
            return;
        }
        said += m_process.readAll();
    }
    m_running = true;
}

// Its socket and state go with the runtime folder: nothing to leave tidy.
PulseServer::~PulseServer()
{
    m_process.kill();
    m_process.waitForFinished(5000);
}
