#include "host/app/TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {
// The only thing a signal handler may safely do here: write a byte.
int g_signalSockets[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(g_signalSockets[0], &byte, 1);
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
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
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
