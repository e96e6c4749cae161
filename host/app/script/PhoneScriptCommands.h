#pragma once
// Script commands about the phone around the player: its keys, its memory
// card, its theme and the requests its application passes on:
//   returntoidle N              the phone asks the player to return to the idle
//                               screen for reason N (-5000 end key, -5001 and
//                               -5003 the flip closing; others are ignored);
//                               "returnToIdle" is the same command's old name
//   endkey                      the phone's end key (returntoidle -5000)
//   appicon                     the player's icon is chosen on the home screen
//   key CODE TYPE               "keyMsg(int,int)" on the key-event channel
//                               (CODE decimal or 0x hex; TYPE 1 press, 2 release, 4 held)
//   setupkey CODE pressed|released   a setup key of the player screen (0x4002
//                               shuffle, 0x4003 repeat, 0x4006 toggle); needs a
//                               running player
//   card insert|remove          the memory card goes in or out: its folder comes
//                               back or is moved aside, and "cardHotplugEvent(int,int)"
//                               (slot 1, flag 1 in / 0 out) goes on "VEMO/System"
//   theme                       the phone's theme changes: "applyStyle()" on "VEMO/System"

#include "host/app/script/ScriptCommandTable.h"

class PlayerSession;

class PhoneScriptCommands {
public:
    /** The commands act on @p session, which must outlive them. */
    explicit PhoneScriptCommands(PlayerSession& session);

    void addTo(ScriptCommandTable& table);

private:
    bool returnToIdle(const QStringList& arguments, QString* error);
    bool endKey(const QStringList& arguments, QString* error);
    bool appIcon(const QStringList& arguments, QString* error);
    static bool key(const QStringList& arguments, QString* error);
    static bool setupKey(const QStringList& arguments, QString* error);
    static bool card(const QStringList& arguments, QString* error);
    static bool theme(const QStringList& arguments, QString* error);

    PlayerSession& m_session;
};
