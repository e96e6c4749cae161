#include "host/app/MainWindowLibrary.h"

#include <dlfcn.h>

namespace {
template <typename Function>
bool resolve(void* handle, const char* name, Function* function, QString* error)
{
    dlerror();
    void* symbol = dlsym(handle, name);
    if (!symbol) {
        const char* reason = dlerror();
        *error = QStringLiteral("the library has no entry point %1 (%2)")
                     .arg(QLatin1String(name), QString::fromLocal8Bit(reason ? reason : "not found"));
        return false;
    }
    *function = reinterpret_cast<Function>(symbol);
    return true;
}
} // namespace

MainWindowLibrary::~MainWindowLibrary()
{
    if (m_handle)
        dlclose(m_handle);
}

bool MainWindowLibrary::load(const QString& path, QString* error)
{
    m_handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!m_handle) {
        *error = QStringLiteral("cannot load %1: %2").arg(path, QString::fromLocal8Bit(dlerror()));
        return false;
    }
    return resolve(m_handle, "MP_CreateMainWindow", &m_create, error)
        && resolve(m_handle, "MP_DeleteMainWindow", &m_delete, error)
        && resolve(m_handle, "playCapturedVideo", &m_playCapturedVideo, error);
}

MP_MainWindow* MainWindowLibrary::createMainWindow(const QString& passedFile) const
{
    return m_create(passedFile);
}

void MainWindowLibrary::deleteMainWindow(MP_MainWindow* window) const
{
    m_delete(window);
}

void MainWindowLibrary::playCapturedVideo(MP_MainWindow* window) const
{
    m_playCapturedVideo(window);
}

QWidget* MainWindowLibrary::asWidget(MP_MainWindow* window)
{
    // The window derives from QWidget alone, so both pointers share an address.
    return reinterpret_cast<QWidget*>(window);
}
