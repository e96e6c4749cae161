// The library's exported entry points: the only symbols it exports, with
// plain (unmangled) names, for the application to find with dlsym.

#include "mainwindow/MP_LibraryEntry.h"

#include "mainwindow/MP_MainWindow.h"

MP_MainWindow* MP_CreateMainWindow(const QString& passedFile)
{
    return new MP_MainWindow(passedFile, nullptr, nullptr, 0);
}

void MP_DeleteMainWindow(MP_MainWindow* window)
{
    delete window;
}

void playCapturedVideo(MP_MainWindow* window)
{
    // An application that lost its window gets nothing played, not a crash.
    if (window)
        window->playCapturedVideo();
}
