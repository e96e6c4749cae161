#pragma once
// The memory card going in and out of the host phone. The card is the data
// folder's card folder (HostStorage::memoryCardPath()); taking it out moves
// the folder aside, with its files, and putting it back moves it back, as a
// real card keeps its files while it is out. Each change is journaled as
// {"kind":"phone","call":"setMemoryCard","args":[inserted]} and announced on
// "VEMO/System" as "cardHotplugEvent(int,int)" with the card's slot (1; the
// phone has one) and a flag: 1 inserted, 0 removed (SystemChannel.h).

#include <QString>

class HostMemoryCard {
public:
    static bool isInserted();
    /** Puts the card in (its files come back); false with a reason in
     *  @p error when it is in already or its folder cannot be made. */
    static bool insert(QString* error);
    /** Takes the card out (its files are kept aside); false with a reason in
     *  @p error when there is no card or its folder cannot be moved. */
    static bool remove(QString* error);

    /** The payload of "cardHotplugEvent(int,int)": slot, then the flag. */
    static QByteArray hotplugPayload(bool inserted);

private:
    /** Where the card's folder waits while the card is out. */
    static QString removedPath();
    static void announce(bool inserted);
};
