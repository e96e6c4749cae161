#pragma once
// A PulseAudio server of the test's own: a private runtime folder, a null
// sink that plays into nothing at real speed, and its monitor to record
// from. Started by the constructor, stopped by the destructor; the server
// never touches a user's sound setup and dies with the test.

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

class PulseServer {
public:
    /** The null sink's name; its monitor source is kSink + ".monitor". */
    static constexpr const char* kSink = "mp_test_sink";

    /** Starts the server and waits (at most @p timeoutMs) until it takes clients. */
    explicit PulseServer(int timeoutMs = 10000);
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;
    ~PulseServer();

    /** True once the server runs; otherwise error() says why. */
    bool isRunning() const { return m_running; }
    QString error() const { return m_error; }
    /** The PULSE_SERVER value that reaches it. */
    QByteArray address() const { return "unix:" + m_runtime.path().toLocal8Bit() + "/native"; }

private:
    QTemporaryDir m_runtime;
    QProcess m_process;
    bool m_running = false;
    QString m_error;
};
