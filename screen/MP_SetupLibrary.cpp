#include "screen/MP_SetupLibrary.h"

#include <dlfcn.h>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(SetupLibraryTrace, "MP_SetupLibrary")

namespace {

const char* const kPhoneLibrary = "libvemo_mp_setuplib.so";
const char* const kEntryPoint = "exeShowSetupUI";

using ShowSetupUI = void (*)(int kind, bool backHide);

// The one name the process opens; a plain value, not a list of candidates,
// so that the phone's build never looks anywhere else.
QByteArray& configuredName()
{
    static QByteArray name;
    return name;
}

} // namespace

QByteArray MP_SetupLibrary::libraryName()
{
    return configuredName().isEmpty() ? QByteArray(kPhoneLibrary) : configuredName();
}

void MP_SetupLibrary::setLibraryName(const QByteArray& name)
{
    configuredName() = name;
}

bool MP_SetupLibrary::showSetupUI(int kind, bool backHide)
{
    void* library = ::dlopen(libraryName().constData(), RTLD_NOW);
    if (!library) {
        const char* reason = ::dlerror();
        SetupLibraryTrace(3, "MP_SetupLibrary::showSetupUI, dlopen failed: %s\n", reason ? reason : "");
        return false;
    }
    ::dlerror();
    auto entry = reinterpret_cast<ShowSetupUI>(::dlsym(library, kEntryPoint));
    if (const char* reason = ::dlerror())
        SetupLibraryTrace(3, "MP_SetupLibrary::showSetupUI, dlsym: %s\n", reason);
    if (!entry) {
        ::dlclose(library);
        return false;
    }
    // The setup screen runs inside this call; the library stays open until it returns.
    entry(kind, backHide);
    ::dlclose(library);
    return true;
}
