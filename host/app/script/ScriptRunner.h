#pragma once
// Runs a scenario script against a player session, one command a line:
//   action NAME key=value ...   deliver an action record through the action receiver
//   qcop CHANNEL MESSAGE [ARG]  send a channel message (ARG: int:N i8:N str:TEXT bytes:HEX raw:HEX)
//   wait MS                     run the event loop for MS milliseconds
//   clock manual|real           the playback engine's clock
//   advance MS                  move the manual clock
//   open FILE                   the application opens a document
//   capturedvideo               the library's playCapturedVideo entry point
//   hide                        hide the player to the idle screen (the window's onHidePlayer)
//   setting GROUP KEY int:N|bool:true|false   write the player's settings store (application 71)
//   next | previous | playpause the playback control, as a headset or the screen would
//   remove                      remove the playing entry through the list, without asking
//   dialog answer N [after MS]  the next question answers N (after the manual clock moved MS while it was open)
//   db add|remove|touch PATH    change the media database as the scanner does
//   flip open|closed            the phone's flip moves; the application tells the window
//   display COMMAND [ARG]       the user's command on the external display (DisplayCommandParser)
//   (the player screen's commands: see ScreenScriptCommands.h)
//   (Bluetooth and the phone lock: see BluetoothScriptCommands.h)
//   (the phone's keys, card, theme and requests: see PhoneScriptCommands.h)
//   quit                        delete the main window and end
// After every command the event loop runs briefly, so that deferred work
// (posted events, 1 ms timers, channel deliveries) has happened before the
// next line. An unknown command or bad arguments stop the script with a
// message naming the line.

#include <QString>
#include <QStringList>

#include "host/app/script/BluetoothScriptCommands.h"
#include "host/app/script/ChannelScriptCommands.h"
#include "host/app/script/PhoneScriptCommands.h"
#include "host/app/script/ScreenScriptCommands.h"
#include "host/app/script/ScriptCommandTable.h"

class HostEngine;
class PlayerSession;

class ScriptRunner {
public:
    explicit ScriptRunner(PlayerSession& session);

    /** Reads the script from @p path ("-" for standard input). */
    bool load(const QString& path, QString* error);
    /** Runs the script. Returns 0 when every line ran (or the player quit),
     *  2 after a bad line (the message is printed to standard error). */
    int run();

private:
    using Command = bool (ScriptRunner::*)(const QStringList& arguments, QString* error);

    bool runLine(const QString& line, QString* error);
    static void settle();

    bool commandAction(const QStringList& arguments, QString* error);
    bool commandQcop(const QStringList& arguments, QString* error);
    bool commandWait(const QStringList& arguments, QString* error);
    bool commandClock(const QStringList& arguments, QString* error);
    bool commandAdvance(const QStringList& arguments, QString* error);
    bool commandOpen(const QStringList& arguments, QString* error);
    bool commandQuit(const QStringList& arguments, QString* error);
    bool commandCapturedVideo(const QStringList& arguments, QString* error);
    bool commandHide(const QStringList& arguments, QString* error);
    bool commandSetting(const QStringList& arguments, QString* error);
    bool commandNext(const QStringList& arguments, QString* error);
    bool commandPrevious(const QStringList& arguments, QString* error);
    bool commandPlayPause(const QStringList& arguments, QString* error);
    bool commandRemove(const QStringList& arguments, QString* error);
    bool commandDialog(const QStringList& arguments, QString* error);
    bool commandDb(const QStringList& arguments, QString* error);
    bool commandFlip(const QStringList& arguments, QString* error);
    bool commandDisplay(const QStringList& arguments, QString* error);
    bool commandProfile(const QStringList& arguments, QString* error);

    PlayerSession& m_session;
    QString m_name;
    QStringList m_lines;
    ScriptCommandTable m_commands;
    ScreenScriptCommands m_screenCommands;
    ChannelScriptCommands m_channelCommands;
    BluetoothScriptCommands m_bluetoothCommands;
    PhoneScriptCommands m_phoneCommands{m_session};
    bool m_quit = false;
};
