#pragma once
// Script commands about the player screen and what the engine reports to it:
//   softkey left|right          click a soft key of the player screen
//   engine medium N             the playing item is of medium N (0..3); list info is reported again
//   engine progress A B         the engine reports download progress (A, B)
//   engine complete             the engine reports the download complete
//   engine state N              the engine reports state N
//   menu open                   open the player's options menu and journal its items
//   menu choose ID              choose an item of the options menu as a click would
//   dlm cancel                  the download manager cancels the open transfer session

#include "host/app/script/ScriptCommandTable.h"

class HostEngine;

class ScreenScriptCommands {
public:
    void addTo(ScriptCommandTable& table);

private:
    static bool softKey(const QStringList& arguments, QString* error);
    static bool engine(const QStringList& arguments, QString* error);
    static bool engineMedium(HostEngine& engine, const QStringList& arguments, QString* error);
    static bool engineProgress(HostEngine& engine, const QStringList& arguments, QString* error);
    static bool engineComplete(HostEngine& engine, const QStringList& arguments, QString* error);
    static bool engineState(HostEngine& engine, const QStringList& arguments, QString* error);
    static bool menu(const QStringList& arguments, QString* error);
    static bool dlm(const QStringList& arguments, QString* error);
};
