// Arbitrary channel messages to a running main window that plays a list:
// every channel the player listens on, and one more named by the input.
//
// Input: a sequence of records, read until the input ends (at most 64):
//   byte        the channel: its value modulo (channels + 1) picks one of
//               kChannels below, or the last choice, a channel named by the input
//   byte N      the length of the text that follows
//   N bytes     the message name; for a channel named by the input, the
//               channel name, a NUL byte, then the message name
//   2 bytes     the payload length L, big-endian
//   L bytes     the payload
// A record the input ends inside is sent with what there is of it.
//
// The window, its engine and clients are made once; each input starts by
// asking for the whole library again, so that it plays a fresh list in the
// stored modes. Each message goes through the channel and the event loop
// runs after it, so that it has been delivered before the next one.

#include <QList>

#include <cstddef>
#include <cstdint>

#include "fuzz/support/FuzzEnvironment.h"
#include "fuzz/support/FuzzInput.h"
#include "host/engine/HostEngineClock.h"
#include "mainwindow/MP_MainWindow.h"
#include "platform/AM_Action.h"
#include "platform/PhoneServices.h"
#include "platform/QCopChannel.h"

extern "C" MP_MainWindow* MP_CreateMainWindow(const QString& passedFile);

namespace {

// The channels whose messages the player reads; a new handler adds its line.
const QList<QCString>& channels()
{
    static const QList<QCString> kChannels = {
        "MEDIAPLAYER_MESSAGE_CHANNEL",
        "VEMO/System",
        UTIL_GetKeyEventChannel().toLatin1(),
        "MF_MSG_CHANNEL",
        "/MP/Idle/Channel",
        "FILEMANAGER_MSG_CHANNEL",
    };
    return kChannels;
}

constexpr int kMaxMessages = 64;

MP_MainWindow* window = nullptr;  // lives until the process ends

AM_ActionData wholeLibrary()
{
    AM_ActionData action(QStringLiteral("PlayMusicListInMediaplayer"));
    for (const char* key : {"isAllArtist", "isAllAlbum", "isAllGenre", "isAllComposer"})
        action.setValue(QLatin1String(key), QStringLiteral("1"));
    action.setValue(QStringLiteral("StorageLocation"), QStringLiteral("2"));
    return action;
}

void sendOne(FuzzInput& input)
{
    const int choice = input.takeByte() % (channels().size() + 1);
    QByteArray text = input.take(input.takeByte());
    const QByteArray payload = input.take(input.takeUint16());
    QCString channel;
    if (choice < channels().size()) {
        channel = channels().at(choice);
    } else {
        const qsizetype nul = text.indexOf('\0');
        channel = nul < 0 ? text : text.left(nul);
        text = nul < 0 ? QByteArray() : text.mid(nul + 1);
    }
    QCopChannel::send(channel, text, payload);
    FuzzEnvironment::runEventLoop();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzEnvironment::start();
    window = MP_CreateMainWindow(QString());
    FuzzEnvironment::runEventLoop();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    window->onReceiveAction(wholeLibrary());
    FuzzEnvironment::runEventLoop();
    FuzzInput input(data, size);
    for (int sent = 0; sent < kMaxMessages && !input.atEnd(); ++sent)
        sendOne(input);
    // The engine plays on in whatever modes the messages left.
    HostEngineClock::advance(1500);
    FuzzEnvironment::runEventLoop();
    return 0;
}
