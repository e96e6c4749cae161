#pragma once
// Chooses how the decoder's pictures reach the player screen at an X
// display: through the display's OpenGL, or as plain images converted on the
// processor. Chosen before the application object exists, because Qt reads
// QT_XCB_GL_INTEGRATION once, when that object opens the display.
//
// Why: Qt Multimedia turns every decoded frame into an image through OpenGL
// whenever the display offers a context. At a virtual display, in a virtual
// machine or a remote X session that context is a software rasteriser, which
// does the processor's work at greater cost; a broken driver fails (Qt then
// falls back itself, with the driver's errors on the terminal); and Qt 6.4's
// OpenGL conversion weighs full-range frames (every Motion-JPEG movie's) with
// the red and blue factors swapped, at any display: the sample trailer's blue
// #2040d0 shows as #144bb4 (as plain images: #1239d9).
// The player screen paints images with QPainter anyway, so nothing is lost
// without OpenGL. So a child process tries the OpenGL path on a test frame
// (HostOpenGLProbe), and unless a hardware renderer gives the frame's colour
// back, Qt opens the display without OpenGL (QT_XCB_GL_INTEGRATION=none).
// A QT_XCB_GL_INTEGRATION that the user set is never replaced.

#include <QByteArray>
#include <QString>

#include <functional>

class HostPicturePath {
public:
    struct Choice {
        /** True when Qt should open the display without OpenGL. */
        bool withoutOpenGL = false;
        /** Why, for the trace; empty when there is no X display to choose for. */
        QString reason;
    };
    /** The value of an environment variable (empty when unset). */
    using Environment = std::function<QByteArray(const char* name)>;
    /** The probe's answer line (HostOpenGLProbe::run), empty when it gave none. */
    using Probe = std::function<QByteArray()>;

    /** The choice for this environment; @p probe runs only when the choice needs it. */
    static Choice decide(const Environment& environment, const Probe& probe);

    /** Decides for this process, from its environment and a real probe, and
     *  sets QT_XCB_GL_INTEGRATION=none when that is the choice. Call it first
     *  in main, before the application object and any thread exist. */
    static void choose();
    /** Why choose() chose as it did; empty before it ran or without an X display. */
    static QString reason();
};
