#include "host/engine/HostPicturePath.h"

#include <QList>

#include <cstdlib>

#include "host/engine/HostOpenGLProbe.h"

namespace {

// A driver that has not answered by then is not worth waiting for: the
// player starts without OpenGL instead.
constexpr int kProbeTimeoutMilliseconds = 4000;
// A right conversion of a flat frame is off by rounding only.
constexpr int kColourTolerance = 8;

QString chosenReason;

// The platform Qt opens first: "xcb" of "xcb:option;wayland".
QByteArray firstPlatform(const QByteArray& value)
{
    return value.split(';').first().split(':').first().trimmed();
}

bool isSoftwareRasteriser(const QByteArray& renderer)
{
    const QByteArray name = renderer.toLower();
    return name.contains("llvmpipe") || name.contains("softpipe") || name.contains("software rasterizer");
}

bool isNear(quint32 seen, quint32 wanted)
{
    for (int shift : {16, 8, 0}) {
        if (std::abs(int(seen >> shift & 0xFF) - int(wanted >> shift & 0xFF)) > kColourTolerance)
            return false;
    }
    return true;
}

QString hex(quint32 colour)
{
    return QStringLiteral("#%1").arg(colour, 6, 16, QLatin1Char('0'));
}

HostPicturePath::Choice plainImages(const QString& why)
{
    return {true, QStringLiteral("plain images: ") + why};
}

HostPicturePath::Choice judge(const QByteArray& answer)
{
    if (answer == "no-opengl\n")
        return plainImages(QStringLiteral("the X display offers no OpenGL"));
    const QList<QByteArray> fields = answer.endsWith('\n') ? answer.chopped(1).split('\t') : QList<QByteArray>();
    bool isColour = false;
    const quint32 colour = fields.size() == 3 && fields[0] == "opengl" && fields[2].startsWith('#')
        ? fields[2].mid(1).toUInt(&isColour, 16)
        : 0;
    if (!isColour)
        return plainImages(QStringLiteral("the OpenGL probe gave no answer (it could not start, crashed or hung)"));
    const QString renderer = QString::fromUtf8(fields[1]);
    if (isSoftwareRasteriser(fields[1]))
        return plainImages(QStringLiteral("the display's OpenGL is a software rasteriser (%1)").arg(renderer));
    if (!isNear(colour, HostOpenGLProbe::kTestColour))
        return plainImages(QStringLiteral("OpenGL (%1) turns the test colour %2 into %3")
                               .arg(renderer, hex(HostOpenGLProbe::kTestColour), hex(colour)));
    return {false, QStringLiteral("OpenGL (%1): it gives the test colour back").arg(renderer)};
}

} // namespace

HostPicturePath::Choice HostPicturePath::decide(const Environment& environment, const Probe& probe)
{
    const QByteArray platform = firstPlatform(environment("QT_QPA_PLATFORM"));
    const bool xDisplay = platform.isEmpty() ? !environment("DISPLAY").isEmpty() : platform == "xcb";
    if (!xDisplay)
        return {};
    const QByteArray userChoice = environment("QT_XCB_GL_INTEGRATION");
    if (!userChoice.isEmpty())
        return {false, QStringLiteral("left to QT_XCB_GL_INTEGRATION=%1, as the environment sets it").arg(QString::fromLocal8Bit(userChoice))};
    return judge(probe());
}

void HostPicturePath::choose()
{
    const Choice choice = decide([](const char* name) { return qgetenv(name); },
                                 [] { return HostOpenGLProbe::run(kProbeTimeoutMilliseconds); });
    if (choice.withoutOpenGL)
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    chosenReason = choice.reason;
}

QString HostPicturePath::reason()
{
    return chosenReason;
}
