#include "tests/support/PrivateBus.h"

#include <QStandardPaths>

PrivateBus::PrivateBus()
{
    const QString daemon = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
    if (daemon.isEmpty() || !m_socketFolder.isValid()) {
        m_error = QStringLiteral("no dbus-daemon (scripts/install-deps.sh installs it) or no folder for its socket");
        return;
    }
    m_daemon.start(daemon, {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                            QStringLiteral("--address=unix:dir=") + m_socketFolder.path()});
    // The daemon prints its address once it accepts connections.
    while (m_daemon.waitForReadyRead(10000)) {
        if (m_daemon.canReadLine()) {
            m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
            return;
        }
    }
    m_error = QStringLiteral("dbus-daemon did not start: ") + m_daemon.errorString();
}

void PrivateBus::stop()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    m_daemon.kill();
    m_daemon.waitForFinished(10000);
}

QProcessEnvironment PrivateBus::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.remove(QStringLiteral("MP_QCOP_LOCAL"));
    return environment;
}
