#pragma once
// A main window made through the library's exported entry points, as the
// phone's application makes it, and deleted through them when it goes.

#include <memory>

#include "mainwindow/MP_LibraryEntry.h"

struct EntryPointWindowDeleter {
    void operator()(MP_MainWindow* window) const { MP_DeleteMainWindow(window); }
};
using WindowPtr = std::unique_ptr<MP_MainWindow, EntryPointWindowDeleter>;
