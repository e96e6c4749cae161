#pragma once
// The media player's main-window library, loaded at run time with dlopen
// and reached only through its three exported entry points.

#include <QString>

class MP_MainWindow;  // opaque here: the application knows it only as a QWidget
class QWidget;

class MainWindowLibrary {
public:
    MainWindowLibrary() = default;
    ~MainWindowLibrary();

    /** Loads the library at @p path and resolves the entry points. On failure
     *  returns false with a message naming the library or symbol in @p error. */
    bool load(const QString& path, QString* error);

    MP_MainWindow* createMainWindow(const QString& passedFile) const;
    void deleteMainWindow(MP_MainWindow* window) const;
    void playCapturedVideo(MP_MainWindow* window) const;

    /** The window as the widget it is (its one base class). */
    static QWidget* asWidget(MP_MainWindow* window);

private:
    using CreateFunction = MP_MainWindow* (*)(const QString&);
    using WindowFunction = void (*)(MP_MainWindow*);

    void* m_handle = nullptr;
    CreateFunction m_create = nullptr;
    WindowFunction m_delete = nullptr;
    WindowFunction m_playCapturedVideo = nullptr;

    MainWindowLibrary(const MainWindowLibrary&) = delete;
    MainWindowLibrary& operator=(const MainWindowLibrary&) = delete;
};
