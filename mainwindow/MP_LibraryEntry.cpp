// The library's exported entry points: the only symbols it exports, with
// plain (unmangled) names, for the application to find with dlsym.

#include "mainwindow/MP_MainWindow.h"

#define MP_EXPORT extern "C" __attribute__((visibility("default")))

MP_EXPORT MP_MainWindow* MP_CreateMainWindow(const QString& passedFile)
{
    return new MP_MainWindow(passedFile, nullptr, nullptr, 0);
}

MP_EXPORT void MP_DeleteMainWindow(MP_MainWindow* window)
{
    delete window;
}

MP_EXPORT void playCapturedVideo(MP_MainWindow* window)
{
    // An application that lost its window gets nothing played, not a crash.
    if (window)
        window->playCapturedVideo();
}
