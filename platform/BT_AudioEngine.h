#pragma once
// The phone's Bluetooth audio: whether the radio is on, which headset link
// is up, and moving the sound between a headset and the handset.

class BT_AudioEngine {
public:
    /** The phone's one Bluetooth audio engine; never null. */
    static BT_AudioEngine* instance();

    bool isBluetoothPowerOn() const;
    /** A stereo (music) link to a headset is up. */
    bool isBluetoothStereoConnected() const;
    /** A mono (call) link to a headset is up. */
    bool isBluetoothMonoConnected() const;

    /** Moves the sound to a headset of the kind @p preference asks for (0: the
     *  phone's default). Returns true when a link came up; false when the
     *  radio is off or a link is already up. */
    bool attachAudioAccy(int preference);
    /** Moves the sound back to the handset (@p preference as above). Returns
     *  true when a link went down; false when none was up. */
    bool detachAudioAccy(int preference);

private:
    BT_AudioEngine() = default;
    BT_AudioEngine(const BT_AudioEngine&) = delete;
    BT_AudioEngine& operator=(const BT_AudioEngine&) = delete;
};
