// The launch-request reader: an action record, as another application sends
// it, delivered to a main window's onReceiveAction.
//
// Input: UTF-8 text (bytes that are not UTF-8 read as U+FFFD), split at '\n'.
//   line 1      the action name ("PlayMusicListInMediaplayer", ...)
//   each other  one key/value pair, split at its first '='; a line without
//               '=' is a key with an empty value. A later pair wins.
//
// Each input gets a main window of its own, made and destroyed through the
// library's entry points: the window plays the whole library first (as a
// player launched without an action does), takes the action, and plays on for
// three seconds of the engine's manual clock. Only the media database carries
// over from one input to the next: the last-played list and the play history
// that the requests themselves write.

#include <QStringList>

#include <cstddef>
#include <cstdint>

#include "fuzz/support/FuzzEnvironment.h"
#include "host/engine/HostEngineClock.h"
#include "mainwindow/MP_MainWindow.h"
#include "platform/AM_Action.h"

extern "C" MP_MainWindow* MP_CreateMainWindow(const QString& passedFile);
extern "C" void MP_DeleteMainWindow(MP_MainWindow* window);

namespace {

AM_ActionData actionFrom(const uint8_t* data, size_t size)
{
    const QStringList lines =
        QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size)).split(QLatin1Char('\n'));
    AM_ActionData action(lines.first());
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype equals = lines.at(i).indexOf(QLatin1Char('='));
        if (equals < 0)
            action.setValue(lines.at(i), QString());
        else
            action.setValue(lines.at(i).left(equals), lines.at(i).mid(equals + 1));
    }
    return action;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzEnvironment::start();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const AM_ActionData action = actionFrom(data, size);
    MP_MainWindow* window = MP_CreateMainWindow(QString());
    FuzzEnvironment::runEventLoop();
    window->onReceiveAction(action);
    FuzzEnvironment::runEventLoop();
    for (int second = 0; second < 3; ++second) {
        HostEngineClock::advance(1000);
        FuzzEnvironment::runEventLoop();
    }
    MP_DeleteMainWindow(window);
    FuzzEnvironment::runEventLoop();
    return 0;
}
