#pragma once
// The options-menu entry "Use Handset": moves the sound from a Bluetooth
// headset back to the handset. Offered only while the radio is on and a
// headset link (stereo or mono) is up.

#include <QString>

#include "screen/MP_SlotAction.h"

class MP_UseHandsetAction : public MP_SlotAction {
    Q_OBJECT
public:
    /** The entry for item @p index with the translated @p text. */
    MP_UseHandsetAction(int index, QString text);
    ~MP_UseHandsetAction() override;

    /** Hidden while the radio is off or neither a stereo nor a mono link is up. */
    void onUpdate() override;

public Q_SLOTS:
    /** Asks the Bluetooth audio engine to let the headset go (the phone's default kind). */
    void onExecute() override;
};
