#include "host/app/TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {
// The only things a signal handler may safely do here: write a byte, arm an
// alarm, write a message and end the process.
int g_signalSockets[2] = {-1, -1};

// How long the orderly end may take. Qt 6.4's GStreamer player can lock up
// inside itself (its decoder thread and the caller each waiting for a lock
// the other holds); a player caught in that would never read the byte, and a
// termination request must end it all the same.
const unsigned kOrderlyEndSeconds = 10;

void onOverdue(int)
{
    static const char message[] =
        "mediaplayer: the orderly end did not finish within 10 s of the termination request; ended at once\n";
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, message, sizeof message - 1);
    ::_exit(1);
}

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(g_signalSockets[0], &byte, 1);
    ::alarm(kOrderlyEndSeconds);
}
} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_signalSockets) != 0)
        return;
    m_notifier = new QSocketNotifier(g_signalSockets[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    struct sigaction overdue = {};
    overdue.sa_handler = onOverdue;
    sigemptyset(&overdue.sa_mask);
    sigaction(SIGALRM, &overdue, nullptr);
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    // The orderly end goes on after this object (the library, the bridge):
    // the alarm stays armed until the process is gone.
    for (int& socket : g_signalSockets) {
        if (socket >= 0)
            ::close(socket);
        socket = -1;
    }
}

void TerminationSignals::onReadable()
{
    char byte = 0;
    [[maybe_unused]] const ssize_t count = ::read(g_signalSockets[1], &byte, 1);
    Q_EMIT terminationRequested();
}
