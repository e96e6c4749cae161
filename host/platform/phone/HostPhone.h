#pragma once
// The state of the host phone that a person would change on a real one:
// the flip, feature bits, profile items. Tests and scenario scripts set it;
// every change is journaled as {"kind":"phone","call":...,"args":[...]}.
// A new phone starts from the defaults below, then from what the data
// folder's profile file (HostProfileFile) says.

#include <QString>

class HostPhone {
public:
    /** 1 closed, 0 open (the default). */
    static void setFlipStatus(int status);
    static int flipStatus();

    /** Feature bits that are on unless the profile says otherwise: 149 (blog)
     *  and 512 (ringtone check); every other bit, 492 included, is off. */
    static void setFlexBit(int bit, bool on);
    static bool flexBit(int bit);

    /** Profile items; "MF_FlexNumber"/"StorageNumber" is "2" unless set. */
    static void setProfileItem(const QString& section, const QString& key, const QString& value);
    static QString profileItem(const QString& section, const QString& key);
    /** A number that changes whenever any profile item may have: what is worked out
     *  from the profile can be kept while it stays the same. */
    static quint64 profileGeneration();

    /** Nonzero while the phone is locked; 0 (unlocked) unless set. */
    static void setPhoneLockStatus(int status);
    static int phoneLockStatus();

    /** Milliseconds between repeats of a held key: the profile item
     *  "Keys"/"RepeatInterval", 300 unless the profile says otherwise; a
     *  value that is not a number from 1 to 60000 counts as 300. */
    static int keyRepeatInterval();

    /** Back to a new phone's state: the defaults, then the profile file of the
     *  current data folder (tests); Bluetooth off. Not journaled. */
    static void reset();

    /** <data folder>/profile.ini */
    static QString profilePath();
    /** A data folder without a profile file is a new phone's: it gets the
     *  default profile written out (so that a person sees what to edit) and a
     *  memory card, as a phone usually has its card in. Nothing when the
     *  folder is read-only or already has a profile. */
    static void prepareDataFolder();
};
