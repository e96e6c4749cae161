#pragma once
// The main window as the phone's application makes and deletes it, through
// the library's exported entry points, and the fixture of the tests that
// drive one: a fresh environment, the window (gone before the environment),
// and the player's stored settings.

#include <memory>

#include "mainwindow/MP_LibraryEntry.h"
#include "mainwindow/MP_MainWindow.h"
#include "platform/AM_Action.h"
#include "platform/SETUP_SET_Manager.h"
#include "tests/support/TestEnvironment.h"

class MainWindowFixture : public TestEnvironment {
protected:
    void TearDown() override
    {
        window.reset();
        TestEnvironment::TearDown();
    }

    /** Makes the window; without @p passedFile its start-up runs the launch action or plays the library. */
    MP_MainWindow& create(const QString& passedFile = QString())
    {
        window.reset(MP_CreateMainWindow(passedFile));
        return *window;
    }
    /** Runs the event loop until the window has made its engine. */
    bool waitForEngine() const
    {
        return waitUntil([this] { return window->commonPlayer() != nullptr; });
    }

    template <typename Value>
    static void store(const char* key, Value value)
    {
        SETUP_SET_Manager(AM_Global::MediaPlayer, false).setSettingInfo("MediaControlItem", key, value);
    }
    template <typename Value>
    static Value storedSetting(const char* key, Value absent)
    {
        Value value = absent;
        SETUP_SET_Manager(AM_Global::MediaPlayer, false).getSettingInfo("MediaControlItem", key, value, absent);
        return value;
    }

    std::unique_ptr<MP_MainWindow, decltype(&MP_DeleteMainWindow)> window{nullptr, MP_DeleteMainWindow};
};
