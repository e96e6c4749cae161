#include "host/platform/display/HostDisplay.h"

#include <QList>

#include "platform/CLI_MediaPlayerClient.h"

namespace {

// Open sessions, oldest first: the newest one holds the display, and when it
// ends the one before it shows again.
QList<CLI::BaseFeatureClient*>& openSessions()
{
    static QList<CLI::BaseFeatureClient*> sessions;
    return sessions;
}

} // namespace

CLI::MediaPlayerClient* HostDisplay::mediaPlayerClient()
{
    const QList<CLI::BaseFeatureClient*>& sessions = openSessions();
    return sessions.isEmpty() ? nullptr : qobject_cast<CLI::MediaPlayerClient*>(sessions.last());
}

bool HostDisplay::send(const DisplayCommand& command)
{
    CLI::MediaPlayerClient* client = mediaPlayerClient();
    if (!client)
        return false;
    switch (command.kind) {
    case DisplayCommand::Kind::Play: Q_EMIT client->play(); break;
    case DisplayCommand::Kind::Pause: Q_EMIT client->pause(); break;
    case DisplayCommand::Kind::Stop: Q_EMIT client->stop(); break;
    case DisplayCommand::Kind::Next: Q_EMIT client->next(); break;
    case DisplayCommand::Kind::Previous: Q_EMIT client->previous(); break;
    case DisplayCommand::Kind::Shift: Q_EMIT client->shift(INT32(command.value)); break;
    case DisplayCommand::Kind::ShiftFinished: Q_EMIT client->shiftFinished(); break;
    case DisplayCommand::Kind::Exit: Q_EMIT client->exit(); break;
    case DisplayCommand::Kind::Mute: Q_EMIT client->setMute(command.value != 0); break;
    case DisplayCommand::Kind::Volume: Q_EMIT client->setVolume(UINT8(command.value)); break;
    }
    return true;
}

void HostDisplay::sessionOpened(CLI::BaseFeatureClient* client)
{
    openSessions().removeAll(client);
    openSessions().append(client);
}

void HostDisplay::sessionClosed(CLI::BaseFeatureClient* client)
{
    openSessions().removeAll(client);
}
