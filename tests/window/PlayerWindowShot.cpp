// Shows the player window under a real display as the application makes it:
// the main window plays a sample song, the player screen builds its options
// menu, and the left soft key opens it. Grabs the whole screen (so the pop-up
// menu is in the picture) and checks what a person would see: the window and
// the menu stand out from the background, and the title is text, not one
// colour. (Which menu a local sound file gets is the screen scenario's check.)
//
//   mp_window_shot OUTPUT.png
//
// Exit 0 when the picture holds what it must, 1 when not, 77 (skipped) when
// there is no X display to show the window on.

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/phone/HostPhone.h"
#include "host/tools/samplegen/SampleCatalogue.h"
#include "host/tools/samplegen/SampleLibraryWriter.h"
#include "mainwindow/MP_MainWindow.h"
#include "platform/VmKbMainWidget.h"
#include "platform/VmOptionsMenu.h"
#include "platform/VmSoftKey.h"
#include "tests/window/ShotProgram.h"

namespace {

constexpr int kWaitMilliseconds = 5000;

const char* const kProgram = "mp_window_shot";

bool check(const QImage& shot, const VmKbMainWidget& window, const QMenu& menu)
{
    // The window sits away from the screen's corner, which shows the background.
    const QRgb background = shot.pixel(shot.width() - 1, shot.height() - 1);
    const QRect windowArea(window.mapToGlobal(QPoint(0, 0)), window.size());
    const QRect menuArea(menu.pos(), menu.size());
    const QPoint belowCentre = windowArea.center() + QPoint(0, windowArea.height() / 4);
    if (shot.pixel(belowCentre) == background && !ShotProgram::hasDetail(shot, windowArea))
        return ShotProgram::fail(kProgram, "the window is not in the picture");
    if (!menu.isVisible() || shot.pixel(menuArea.center()) == background)
        return ShotProgram::fail(kProgram, "the options menu is not in the picture");
    const auto* title = window.findChild<QLabel*>(QStringLiteral("title"));
    if (!title || !ShotProgram::hasDetail(shot, QRect(title->mapToGlobal(QPoint(0, 0)), title->size())))
        return ShotProgram::fail(kProgram, "the title area is one colour");
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (const int refused = ShotProgram::refusal("mp_window_shot", "OUTPUT.png", argc); refused >= 0)
        return refused;
    QTemporaryDir data;
    qputenv("MP_DATA_DIR", data.path().toLocal8Bit());
    // The picture needs no other process: the channels stay in this one.
    qputenv("MP_QCOP_LOCAL", "1");
    QApplication app(argc, argv);

    const QString library = data.filePath(QStringLiteral("library"));
    if (!SampleLibraryWriter(library).write())
        return ShotProgram::failed(kProgram, "no sample library");
    // A tagged song: its title is text in the picture.
    const QString song = library + QLatin1Char('/') + SampleCatalogue::songPath(SampleCatalogue::songs().at(0));

    HostPhone::prepareDataFolder();
    HostEngineClock::setManual(true);
    auto player = std::make_unique<MP_MainWindow>(song, nullptr, nullptr, 0);
    if (!QTest::qWaitFor([] { return HostEngine::liveEngine() != nullptr; }, kWaitMilliseconds))
        return ShotProgram::failed(kProgram, "the player made no engine");
    VmKbMainWidget* window = HostEngine::liveEngine()->getMainWidget();
    window->move(40, 40);
    // The player screen builds its menu when the first meta information comes.
    HostEngineClock::advance(1000);
    VmSoftKey* keys = window->getSoftKey(false);
    if (!keys || !QTest::qWaitFor([keys] { return keys->optMenu(0) != nullptr; }, kWaitMilliseconds))
        return ShotProgram::failed(kProgram, "the player screen built no options menu");
    VmOptionsMenu* menu = keys->optMenu(0);
    if (!QTest::qWaitForWindowExposed(window, kWaitMilliseconds))
        return ShotProgram::failed(kProgram, "the window did not appear");
    keys->click(0);
    if (!QTest::qWaitForWindowExposed(menu->qmenu(), kWaitMilliseconds))
        return ShotProgram::failed(kProgram, "the menu did not appear");
    const QImage shot = ShotProgram::paintAndGrab({window, menu->qmenu()}, QString::fromLocal8Bit(argv[1]));
    if (shot.isNull())
        return ShotProgram::failed(kProgram, "the screen could not be grabbed and saved");
    const bool ok = check(shot, *window, *menu->qmenu());
    menu->hideMenu();
    player.reset();
    return ok ? 0 : 1;
}
