#pragma once
// Tries the decoder's OpenGL picture path at the X display, in a child
// process, and answers in one line what it found:
//
//   "opengl\t<renderer>\t#rrggbb\n"   a context was made; the colour is what
//                                     Qt's frame conversion made of the test frame
//   "no-opengl\n"                     the display offers no OpenGL context
//
// In a child, because a broken driver may crash or hang the process that
// loads it, and because Qt settles its OpenGL integration once per process,
// when the application object opens the display: the probe needs one of its
// own before the player makes its.

#include <QByteArray>

class HostOpenGLProbe {
public:
    /** What the test frame codes (Y 71, Cb 205, Cr 100 in full-range BT.601,
     *  as a Motion-JPEG decoder gives its frames): a right conversion gives it back. */
    static constexpr quint32 kTestColour = 0x2040cf;

    /** Runs the probe; its answer line, or an empty one when the child could
     *  not start, crashed, or did not answer within @p timeoutMilliseconds
     *  (it is then killed). Call it while the process has a single thread and
     *  no application object. */
    static QByteArray run(int timeoutMilliseconds);
};
