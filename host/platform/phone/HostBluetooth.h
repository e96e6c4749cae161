#pragma once
// The host phone's Bluetooth audio: the radio's power and the headset link
// (none, mono for calls, stereo for music). Tests and scenario scripts set
// them as a person with a headset would; every change, whoever makes it, is
// journaled as {"kind":"phone","call":"setBluetoothPower","args":[true]} or
// {"kind":"phone","call":"setBluetoothLink","args":["stereo"]}.
// A new phone has the radio off and no link.

#include <QString>

class HostBluetooth {
public:
    enum class Link { None, Mono, Stereo };

    /** Turning the radio off drops a link that is up (journaled as its own change). */
    static void setPower(bool on);
    static bool isPowerOn();

    /** A link comes up only while the radio is on: false, changing nothing, otherwise. */
    static bool setLink(Link link);
    static Link link();

    /** "none", "mono", "stereo". */
    static QString linkName(Link link);
    /** Reads one of linkName()'s words; false for anything else. */
    static bool parseLink(const QString& name, Link* link);

    /** Back to a new phone's state (tests). Not journaled. */
    static void reset();
};
