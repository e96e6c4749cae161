#pragma once
// A main window made through the library's exported entry points, as the
// phone's application makes it, and deleted through them when it goes.

#include <QString>

#include <memory>

class MP_MainWindow;

extern "C" MP_MainWindow* MP_CreateMainWindow(const QString& passedFile);
extern "C" void MP_DeleteMainWindow(MP_MainWindow* window);

struct EntryPointWindowDeleter {
    void operator()(MP_MainWindow* window) const { MP_DeleteMainWindow(window); }
};
using WindowPtr = std::unique_ptr<MP_MainWindow, EntryPointWindowDeleter>;
