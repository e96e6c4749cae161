#pragma once
// The library's entry points, as the phone's application calls them: it
// makes one main window when it starts, hands the captured-video request to
// it, and deletes it when it ends. Plain C names, so that an application that
// opens the library with dlopen finds them with dlsym; an application linked
// against the library calls them directly.

#include <QString>

class MP_MainWindow;

// The library hides everything else (hidden visibility and a version script).
#define MP_ENTRY_POINT extern "C" __attribute__((visibility("default")))

/** Makes the player's main window; @p passedFile, when not empty, is played
 *  once the event loop turns, else the start-up event hands over the launch. */
MP_ENTRY_POINT MP_MainWindow* MP_CreateMainWindow(const QString& passedFile);
/** Deletes a window made by MP_CreateMainWindow (null is allowed). */
MP_ENTRY_POINT void MP_DeleteMainWindow(MP_MainWindow* window);
/** Plays the captured videos in @p window; nothing for a null window. */
MP_ENTRY_POINT void playCapturedVideo(MP_MainWindow* window);
