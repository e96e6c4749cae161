#pragma once
// The address book's user interface, reached through its library, which is
// opened for one use and closed again: the address book is another
// application's, and most players never use it.

#include <QByteArray>
#include <QString>

#include "platform/ADDRBK_UI.h"

class MP_AddressBook {
public:
    /** The library's name, "libvemoaddrbk.so", found by the loader's search. */
    static const char* const kDefaultLibrary;

    /** Opens the library; isOpen() tells whether it and its entry point are there. */
    MP_AddressBook();
    /** Closes the library: any object it handed out is gone. */
    ~MP_AddressBook();

    bool isOpen() const { return m_getUI != nullptr; }
    /** The address book's object; null when the library is not open or has none. */
    ADDRBK_UI* ui() const;

    /** Opens @p library instead of the default from now on; an empty name
     *  goes back to the default. For tests of a phone without the address book. */
    static void setLibraryName(const QByteArray& library);

private:
    void* m_handle = nullptr;
    ADDRBK_GetUI m_getUI = nullptr;
    MP_AddressBook(const MP_AddressBook&) = delete;
    MP_AddressBook& operator=(const MP_AddressBook&) = delete;
};
