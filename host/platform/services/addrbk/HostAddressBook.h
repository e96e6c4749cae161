#pragma once
// The host's address book: no contacts to show or pick, so every operation
// is journaled as kind "service" and answers as a user who went along would
// (the contact saved or set).

#include "platform/ADDRBK_UI.h"

class HostAddressBook : public ADDRBK_UI {
public:
    int addToNewContact(int kind, const QString& path, int option, int flags, const QString& name) override;
    int showContacts(int flags) override;
    int pickContact(int flags) override;
    int addToExistingContact(int kind, const QString& path, int option, int flags) override;
};

/** The library's one address book; journaled as "getAddrbkUI". */
extern "C" __attribute__((visibility("default"))) ADDRBK_UI* getAddrbkUI();
