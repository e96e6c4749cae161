#pragma once
// The address book's user interface, as another application's library
// offers it: "libvemoaddrbk.so", opened at run time, hands its one object
// out through the C function getAddrbkUI(). Callers reach the operations by
// their place in the object's table of virtual operations, so their order
// is fixed and there is no virtual destructor (the object is the library's).

#include <QString>

class ADDRBK_UI {
public:
    /** 1st: creates a new contact with the file @p path as its @p kind of
     *  content; nonzero when the user saved the contact. */
    virtual int addToNewContact(int kind, const QString& path, int option, int flags, const QString& name) = 0;
    /** 2nd: shows the contact list. */
    virtual int showContacts(int flags) = 0;
    /** 3rd: picks a contact; nonzero when the user picked one. */
    virtual int pickContact(int flags) = 0;
    /** 4th: sets the file @p path as @p kind of content of a contact the user
     *  picks; nonzero when it was set. */
    virtual int addToExistingContact(int kind, const QString& path, int option, int flags) = 0;

protected:
    ~ADDRBK_UI() = default;
};

/** The address book's entry point: its object (owned by the library), or null. */
extern "C" typedef ADDRBK_UI* (*ADDRBK_GetUI)();
