#pragma once
// A D-Bus session bus of a test's own: a dbus-daemon that lives as long as
// the object, so that processes the test starts talk only to each other. Its
// socket lies in a temporary folder of its own, which goes with the object:
// killed daemons leave no sockets behind in the system's temporary folder.

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

class PrivateBus {
public:
    /** Starts the daemon; address() is empty when it could not be started (see error()). */
    PrivateBus();
    ~PrivateBus() { stop(); }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QString address() const { return m_address; }
    QString error() const { return m_error; }
    /** Ends the daemon now, as a session ending would: every connection to it is lost. */
    void stop();
    /** The environment for a process on this bus (offscreen, English, on the bus). */
    QProcessEnvironment environment() const;

private:
    QTemporaryDir m_socketFolder;
    QProcess m_daemon;
    QString m_address;
    QString m_error;
};
