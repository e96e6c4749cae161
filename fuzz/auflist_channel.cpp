// The play list's handler of the setup-change channel
// ("MEDIAPLAYER_MESSAGE_CHANNEL"), fed a message name and payload.
//
// Input:
//   byte 0      the list: bit 0 set = a video list (all videos), else a music
//               list (the whole library); bits 1-2 its shuffle mode when built
//               (0 off, 1 songs, 2 albums, 3 reads as off); bit 3 repeat
//   then        the message name, up to the first NUL byte
//   then        the payload, every byte after that NUL (none without one)
//
// Each input gets a list of its own, built anew from the same library, so
// that an input reproduces alone what it did inside a run.

#include <QMetaObject>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "fuzz/support/FuzzEnvironment.h"
#include "fuzz/support/FuzzInput.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzEnvironment::start();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const uint8_t setup = input.takeByte();
    const bool video = setup & 0x01;
    const int shuffle = (setup >> 1) & 0x03;
    MP_AufContext::shuffle = MP_AufContext::shuffleSetting = shuffle == 3 ? 0 : shuffle;
    MP_AufContext::isRepeat = setup & 0x08;
    const QByteArray message = input.takeUntil('\0');
    const QByteArray payload = input.takeRest();

    std::unique_ptr<MP_AufList> list =
        video ? std::make_unique<MP_AufList>(QStringLiteral("All"), QString(), 2, 0) : std::make_unique<MP_AufList>();
    // Called by name, as the channel calls it, so that the target follows the
    // slot whatever its access.
    QMetaObject::invokeMethod(list.get(), "onMessageChannel", Qt::DirectConnection, Q_ARG(QCString, message),
                              Q_ARG(QByteArray, payload));
    // Whatever the message left for later runs before the list goes.
    FuzzEnvironment::runEventLoop();
    // The list is walked in its new mode, as the engine would.
    list->skipSteps(1);
    list->getCurrent();
    list.reset();
    FuzzEnvironment::runEventLoop();
    return 0;
}
