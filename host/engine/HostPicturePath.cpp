#include "host/engine/HostPicturePath.h"

#include <QList>

namespace {

QString chosenReason;

// The platform Qt opens first: "xcb" of "xcb:option;wayland".
QByteArray firstPlatform(const QByteArray& value)
{
    return value.split(';').first().split(':').first().trimmed();
}

} // namespace

HostPicturePath::Choice HostPicturePath::decide(const Environment& environment)
{
    const QByteArray platform = firstPlatform(environment("QT_QPA_PLATFORM"));
    const bool xDisplay = platform.isEmpty() ? !environment("DISPLAY").isEmpty() : platform == "xcb";
    if (!xDisplay)
        return {};
    const QByteArray userChoice = environment("QT_XCB_GL_INTEGRATION");
    if (!userChoice.isEmpty())
        return {false, QStringLiteral("left to QT_XCB_GL_INTEGRATION=%1, as the environment sets it")
                           .arg(QString::fromLocal8Bit(userChoice))};
    return {true, QStringLiteral("plain images: Qt's OpenGL conversion swaps the colours of full-range video")};
}

void HostPicturePath::choose()
{
    const Choice choice = decide([](const char* name) { return qgetenv(name); });
    if (choice.withoutOpenGL)
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    chosenReason = choice.reason;
}

QString HostPicturePath::reason()
{
    return chosenReason;
}
