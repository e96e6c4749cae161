#pragma once
// The options-menu entry "Use Bluetooth": moves the sound from the handset
// to a Bluetooth headset. Offered only while the radio is on and no headset
// link is up.

#include <QString>

#include "screen/MP_SlotAction.h"

class MP_UseBluetoothAction : public MP_SlotAction {
    Q_OBJECT
public:
    /** The entry for item @p index with the translated @p text. */
    MP_UseBluetoothAction(int index, QString text);
    ~MP_UseBluetoothAction() override;

    /** Hidden while the radio is off or a stereo or mono link is up. */
    void onUpdate() override;

public Q_SLOTS:
    /** Asks the Bluetooth audio engine for a headset (the phone's default kind). */
    void onExecute() override;
};
