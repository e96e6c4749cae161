#include "share/MP_AddressBook.h"

#include <dlfcn.h>

#include "platform/ADDRBK_UI.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(AddressBookTrace, "MP_AddressBook")

const char* const MP_AddressBook::kDefaultLibrary = "libvemoaddrbk.so";

namespace {

QByteArray& libraryName()
{
    static QByteArray name = MP_AddressBook::kDefaultLibrary;
    return name;
}

} // namespace

MP_AddressBook::MP_AddressBook()
{
    // Global binding: the address book's own plug-ins look up its symbols.
    m_handle = dlopen(libraryName().constData(), RTLD_LAZY | RTLD_GLOBAL);
    if (!m_handle) {
        AddressBookTrace(3, "MP_AddressBook, cannot open %s: %s\n", libraryName().constData(), dlerror());
        return;
    }
    m_getUI = reinterpret_cast<ADDRBK_GetUI>(dlsym(m_handle, "getAddrbkUI"));
    if (!m_getUI)
        AddressBookTrace(3, "MP_AddressBook, no getAddrbkUI in %s\n", libraryName().constData());
}

MP_AddressBook::~MP_AddressBook()
{
    if (m_handle)
        dlclose(m_handle);
}

ADDRBK_UI* MP_AddressBook::ui() const
{
    return m_getUI ? m_getUI() : nullptr;
}

void MP_AddressBook::setLibraryName(const QByteArray& library)
{
    libraryName() = library.isEmpty() ? QByteArray(kDefaultLibrary) : library;
}
