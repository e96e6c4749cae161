#pragma once
// Chooses how the decoder's pictures reach the player screen at an X
// display: through the display's OpenGL, or as plain images converted on the
// processor. Chosen before the application object exists, because Qt reads
// QT_XCB_GL_INTEGRATION once, when that object opens the display.
//
// Plain images, always, unless the user set QT_XCB_GL_INTEGRATION. Qt
// Multimedia turns every decoded frame into an image through OpenGL whenever
// the display offers a context, and Qt 6.4's OpenGL conversion weighs
// full-range frames (every Motion-JPEG movie's) with the red and blue factors
// swapped, at any display: the sample trailer's blue #2040d0 shows as
// #144bb4 (as plain images: #1239d9). At a virtual display, in a virtual
// machine or a remote X session the context is a software rasteriser anyway,
// doing the processor's work at greater cost, and a broken driver fills the
// terminal with its errors before Qt falls back by itself. The player screen
// paints images with QPainter, so nothing is lost without OpenGL. (A Qt whose
// conversion is right could take OpenGL again at a hardware renderer; that
// would need a probe of the display, not worth a child process at every
// start while the conversion is wrong.)

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

    /** The choice for this environment. */
    static Choice decide(const Environment& environment);

    /** Decides for this process, from its environment, and sets
     *  QT_XCB_GL_INTEGRATION=none when that is the choice. Call it in main,
     *  before the application object exists. */
    static void choose();
    /** Why choose() chose as it did; empty before it ran or without an X display. */
    static QString reason();
};
