#pragma once
// What the programs that grab the screen share: they run under an X display
// or are skipped, and they judge a picture by what a person would see.

#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QRect>
#include <QScreen>
#include <QWidget>

#include <cstdio>
#include <initializer_list>

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

/** Says "PROGRAM: WHY" on standard error; false, for a check to return. */
inline bool fail(const char* program, const char* why)
{
    std::fprintf(stderr, "%s: %s\n", program, why);
    return false;
}

/** As fail(), for main(): the exit code of a picture that could not be made. */
inline int failed(const char* program, const char* why)
{
    fail(program, why);
    return 1;
}

/** Paints @p shown now rather than on the window system's turn, so that the picture does not depend on
 *  how long their exposure took; then grabs the whole screen (pop-ups included) and saves it as PNG to
 *  @p picture. A null image when it could not be grabbed or saved. */
inline QImage paintAndGrab(std::initializer_list<QWidget*> shown, const QString& picture)
{
    for (QWidget* widget : shown)
        widget->repaint();
    QCoreApplication::processEvents();
    const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    return !shot.isNull() && shot.save(picture, "PNG") ? shot : QImage();
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
