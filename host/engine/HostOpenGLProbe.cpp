#include "host/engine/HostOpenGLProbe.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QVideoFrame>
#include <QVideoFrameFormat>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kTestFrameSide = 16;
constexpr uchar kTestLuma = 71;
constexpr uchar kTestBlueDifference = 205;
constexpr uchar kTestRedDifference = 100;

QVideoFrame testFrame()
{
    QVideoFrameFormat format(QSize(kTestFrameSide, kTestFrameSide), QVideoFrameFormat::Format_YUV420P);
    format.setColorRange(QVideoFrameFormat::ColorRange_Full);
    format.setColorSpace(QVideoFrameFormat::ColorSpace_BT601);
    QVideoFrame frame(format);
    if (!frame.map(QVideoFrame::WriteOnly))
        return QVideoFrame();
    const uchar planeValues[] = {kTestLuma, kTestBlueDifference, kTestRedDifference};
    for (int plane = 0; plane < 3; ++plane) {
        const int rows = plane == 0 ? kTestFrameSide : kTestFrameSide / 2;
        std::memset(frame.bits(plane), planeValues[plane], size_t(frame.bytesPerLine(plane) * rows));
    }
    frame.unmap();
    return frame;
}

// The renderer's name on one line of the answer, whatever the driver says.
QByteArray oneField(QByteArray text)
{
    return text.replace('\t', ' ').replace('\n', ' ').trimmed();
}

QByteArray probeAnswer()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        return "no-opengl\n";
    const GLubyte* name = context.functions()->glGetString(GL_RENDERER);
    const QByteArray renderer = oneField(name ? QByteArray(reinterpret_cast<const char*>(name)) : "unknown");
    context.doneCurrent();
    // Converted as the player screen converts every frame (QVideoFrame::toImage),
    // which uses OpenGL when the display offers it.
    const QImage image = testFrame().toImage();
    const quint32 colour = image.isNull() ? 0 : image.pixel(kTestFrameSide / 2, kTestFrameSide / 2) & 0xFFFFFF;
    return "opengl\t" + renderer + "\t#" + QByteArray::number(colour, 16).rightJustified(6, '0') + '\n';
}

[[noreturn]] void answerInChild(int answerFd)
{
    // The driver's complaints would reach the person's terminal; the answer says what matters.
    const int null = ::open("/dev/null", O_WRONLY);
    if (null >= 0) {
        ::dup2(null, STDOUT_FILENO);
        ::dup2(null, STDERR_FILENO);
    }
    static int argc = 1;
    static char name[] = "mediaplayer-opengl-probe";
    static char* argv[] = {name, nullptr};
    QGuiApplication application(argc, argv);
    const QByteArray answer = probeAnswer();
    const ssize_t written = ::write(answerFd, answer.constData(), size_t(answer.size()));
    // Without the application's teardown: the driver's exit handlers are the
    // parent's concern no more than its buffered output is.
    ::_exit(written == answer.size() ? 0 : 1);
}

// Reads until the child closes its end or the time is up (then null).
QByteArray readAnswer(int fd, int timeoutMilliseconds)
{
    QDeadlineTimer deadline(timeoutMilliseconds);
    QByteArray answer;
    for (;;) {
        pollfd wait{fd, POLLIN, 0};
        const int ready = ::poll(&wait, 1, int(deadline.remainingTime()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            return QByteArray();
        char chunk[256];
        const ssize_t got = ::read(fd, chunk, sizeof chunk);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return answer.isEmpty() ? QByteArray() : answer;
        answer.append(chunk, int(got));
    }
}

} // namespace

QByteArray HostOpenGLProbe::run(int timeoutMilliseconds)
{
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        return QByteArray();
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(fds[0]);
        answerInChild(fds[1]);
    }
    ::close(fds[1]);
    if (child < 0) {
        ::close(fds[0]);
        return QByteArray();
    }
    const QByteArray answer = readAnswer(fds[0], timeoutMilliseconds);
    ::close(fds[0]);
    if (answer.isNull())
        ::kill(child, SIGKILL);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    const bool answered = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return answered ? answer : QByteArray();
}
