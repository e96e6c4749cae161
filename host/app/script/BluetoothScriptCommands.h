#pragma once
// Script commands about the phone's Bluetooth audio and its lock, as a
// person with a headset would change them:
//   bt power on|off             the Bluetooth radio; off drops a headset link
//   bt link none|mono|stereo    the headset link (mono or stereo only while the radio is on)
//   lock on|off                 the phone's key lock (headset keys are then swallowed)
// A held headset key is a key message on the key-event channel:
//   qcop VEMO/KeyEvent "keyMsg(int,int)" int:CODE int:TYPE   (TYPE 1 press, 2 release)

#include "host/app/script/ScriptCommandTable.h"

class BluetoothScriptCommands {
public:
    void addTo(ScriptCommandTable& table);

private:
    static bool bluetooth(const QStringList& arguments, QString* error);
    static bool lock(const QStringList& arguments, QString* error);
};
