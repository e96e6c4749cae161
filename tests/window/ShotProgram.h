#pragma once
// What the programs that grab the screen share: they run under an X display
// or are skipped, and they judge a picture by what a person would see.

#include <QByteArray>
#include <QImage>
#include <QRect>

#include <cstdio>

namespace ShotProgram {

constexpr int kSkipped = 77;

/** -1 when @p program may go on: one argument given, an X display there (Qt is
 *  then set to use it); else its exit code, and why, said on the way. */
inline int refusal(const char* program, const char* argument, int argc)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s %s\n", program, argument);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        std::printf("%s: no X display (run it under xvfb-run): skipped\n", program);
        return kSkipped;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    return -1;
}

/** Whether the rectangle @p area of @p image holds more than one colour. */
inline bool hasDetail(const QImage& image, const QRect& area)
{
    const QRect inside = area.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (image.pixel(x, y) != image.pixel(inside.topLeft()))
                return true;
        }
    }
    return false;
}

} // namespace ShotProgram
