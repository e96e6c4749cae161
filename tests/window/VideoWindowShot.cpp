// Plays a sample video through the media output under a real display and
// checks a picture of the player screen: the video's area shows the colour
// that the sample generator painted that video in.
//
//   mp_video_shot OUTPUT.png
//
// Exit 0 when the picture holds the colour, 1 when not, 77 (skipped) when
// there is no X display.

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <cstdlib>

#include "host/engine/HostEngine.h"
#include "host/engine/HostOutputChoice.h"
#include "host/engine/HostPicturePath.h"
#include "host/engine/HostVideoView.h"
#include "host/tools/samplegen/SampleCatalogue.h"
#include "host/tools/samplegen/SampleLibraryWriter.h"
#include "platform/VmKbMainWidget.h"
#include "tests/window/ShotProgram.h"

namespace {

constexpr int kWaitMilliseconds = 10000;
// JPEG and the decoder's colour conversion move a channel by a few steps.
constexpr int kTolerance = 24;

const char* const kProgram = "mp_video_shot";

bool near(QRgb seen, quint32 painted)
{
    return std::abs(qRed(seen) - int(painted >> 16 & 0xFF)) <= kTolerance
        && std::abs(qGreen(seen) - int(painted >> 8 & 0xFF)) <= kTolerance
        && std::abs(qBlue(seen) - int(painted & 0xFF)) <= kTolerance;
}

} // namespace

int main(int argc, char** argv)
{
    if (const int refused = ShotProgram::refusal("mp_video_shot", "OUTPUT.png", argc); refused >= 0)
        return refused;
    // As the application does: the picture path is chosen before the
    // application object opens the display.
    HostPicturePath::choose();
    std::printf("mp_video_shot: picture path: %s\n", qPrintable(HostPicturePath::reason()));
    QTemporaryDir data;
    qputenv("MP_DATA_DIR", data.path().toLocal8Bit());
    QApplication app(argc, argv);

    const QString library = data.filePath(QStringLiteral("library"));
    if (!SampleLibraryWriter(library).write())
        return ShotProgram::failed(kProgram, "no sample library");
    // The downloaded trailer: blue, so that neither black nor the window's grey passes for it.
    const SampleVideo& video = SampleCatalogue::videos().at(2);

    HostOutputChoice::setKind(HostOutputKind::Media);
    HostEngine engine(true, MP_LAUNCH_TYPE(0));
    VmKbMainWidget* window = engine.getMainWidget();
    window->move(40, 40);
    engine.setFile(library + QLatin1Char('/') + video.relativePath);
    engine.autoPlay(false);
    if (!QTest::qWaitForWindowExposed(window, kWaitMilliseconds))
        return ShotProgram::failed(kProgram, "the window did not appear");
    const auto* view = window->findChild<HostVideoView*>(QStringLiteral("video"));
    if (!view || !QTest::qWaitFor([&] { return !view->frame().isNull() && engine.position() >= 1000; },
                                  kWaitMilliseconds))
        return ShotProgram::failed(kProgram, "no video frame was drawn");
    engine.getPlayerControl()->pause();
    const QImage shot = ShotProgram::paintAndGrab({window}, QString::fromLocal8Bit(argv[1]));
    if (shot.isNull())
        return ShotProgram::failed(kProgram, "the screen could not be grabbed and saved");
    const QRect area(view->mapToGlobal(QPoint(0, 0)), view->size());
    const QRgb centre = shot.pixel(area.center());
    if (!near(centre, video.rgb)) {
        std::fprintf(stderr, "mp_video_shot: the video's area shows #%06x, not #%06x\n", centre & 0xFFFFFF,
                     video.rgb);
        return 1;
    }
    return 0;
}
