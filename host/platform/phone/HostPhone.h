#pragma once
// The state of the host phone that a person would change on a real one:
// the flip, feature bits, profile items. Tests and scenario scripts set it;
// every change is journaled as {"kind":"phone","call":...,"args":[...]}.

#include <QString>

class HostPhone {
public:
    /** 1 closed, 0 open (the default). */
    static void setFlipStatus(int status);
    static int flipStatus();

    static void setFlexBit(int bit, bool on);
    static bool flexBit(int bit);

    /** Profile items; "MF_FlexNumber"/"StorageNumber" is "2" unless set. */
    static void setProfileItem(const QString& section, const QString& key, const QString& value);
    static QString profileItem(const QString& section, const QString& key);

    /** Back to a new phone's state (tests). Not journaled. */
    static void reset();
};
