// Shows the host's dialogs under a real display, one at a time, as a person
// meets them: the bookmark editor on a stored bookmark, the music setup
// screen and the details of a song. Grabs the screen once a dialog (the
// pictures land in OUTPUT_FOLDER) and checks that the dialog stands out from
// the background and that its main field shows text, not one colour; then
// types into it and presses its buttons as a person would, and checks what
// the player gets: the bookmark file's bytes, the stored setup and its
// messages, the details' one OK.
//
//   mp_dialog_shots OUTPUT_FOLDER
//
// Exit 0 when every dialog holds what it must, 1 when not, 77 (skipped) when
// there is no X display.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostBookmarkEditor.h"
#include "host/platform/services/setuplib/HostSetupDialog.h"
#include "host/platform/toolkit/HostDetailsDialog.h"

namespace {

constexpr int kSkipped = 77;
constexpr int kWaitMilliseconds = 5000;

bool fail(const char* dialog, const char* why)
{
    std::fprintf(stderr, "mp_dialog_shots: %s: %s\n", dialog, why);
    return false;
}

QRect onScreen(const QWidget& widget)
{
    return QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size());
}

// Where @p field's text begins: its left half, inside any frame (the frame of
// an empty field or the arrow of a box has detail of its own).
QRect textArea(const QWidget& field)
{
    constexpr int kFrame = 4;
    return onScreen(field).adjusted(kFrame, kFrame, -field.width() / 2, -kFrame);
}

// Whether the rectangle @p area of @p image holds more than one colour.
bool hasDetail(const QImage& image, const QRect& area)
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

// Shows @p dialog away from the screen's corner, saves the screen's picture
// as @p picture and checks that a person sees the dialog and the text of @p field.
bool shownAndSeen(const char* name, QWidget& dialog, const QWidget& field, const QString& picture)
{
    dialog.move(40, 40);
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog, kWaitMilliseconds))
        return fail(name, "did not appear");
    // Painted now rather than at the window system's turn, so the picture does
    // not depend on how long the exposure took.
    dialog.repaint();
    QCoreApplication::processEvents();
    const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    if (shot.isNull() || !shot.save(picture, "PNG"))
        return fail(name, "the screen could not be grabbed and saved");
    const QRgb background = shot.pixel(shot.width() - 1, shot.height() - 1);
    if (!shot.rect().contains(onScreen(dialog)) || shot.pixel(onScreen(dialog).center()) == background)
        return fail(name, "the dialog is not in the picture");
    if (!hasDetail(shot, textArea(field)))
        return fail(name, "its text is one colour");
    return true;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void press(const QDialogButtonBox& buttons, QDialogButtonBox::StandardButton which)
{
    QTest::mouseClick(buttons.button(which), Qt::LeftButton);
}

void replaceText(QLineEdit& field, const QString& text)
{
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClicks(&field, text);
}

bool bookmarkEditorStoresWhatIsTyped(const QString& folder)
{
    const char* name = "bookmark editor";
    const QString identity = HostBookmarkStore::add(QStringLiteral("Radio"), QStringLiteral("http://r.example/live"));
    const QByteArray stored = bytesOf(identity);
    HostBookmarkEditor cancelled(*HostBookmarkStore::read(identity));
    if (!shownAndSeen(name, cancelled, cancelled.titleField(), folder + QStringLiteral("/dialog-bookmark-editor.png")))
        return false;
    replaceText(cancelled.titleField(), QStringLiteral("Cancelled"));
    press(cancelled.buttons(), QDialogButtonBox::Cancel);
    if (cancelled.isVisible() || bytesOf(identity) != stored)
        return fail(name, "Cancel did not close it unchanged");

    HostBookmarkEditor editor(*HostBookmarkStore::read(identity));
    editor.show();
    replaceText(editor.titleField(), QStringLiteral("Morning news"));
    replaceText(editor.addressField(), QString());
    press(editor.buttons(), QDialogButtonBox::Ok);
    if (!editor.isVisible() || bytesOf(identity) != stored
        || editor.message() != QLatin1String("Enter an address: a bookmark without one opens nothing."))
        return fail(name, "an empty address was not refused in the dialog");
    QTest::keyClicks(&editor.addressField(), QStringLiteral("http://r.example/news"));
    press(editor.buttons(), QDialogButtonBox::Ok);
    if (editor.isVisible() || editor.result() != QDialog::Accepted
        || bytesOf(identity) != "TITLE=Morning news\nURL=http://r.example/news\n")
        return fail(name, "OK did not store the typed bookmark");
    return true;
}

// The channel messages captured since the last call, as "MESSAGE HEX".
QStringList messagesSent()
{
    QStringList messages;
    for (const QJsonObject& line : HostJournal::captured()) {
        if (line.value(QLatin1String("kind")) == QLatin1String("qcop"))
            messages << line.value(QLatin1String("message")).toString() + QLatin1Char(' ')
                            + line.value(QLatin1String("data")).toString();
    }
    HostJournal::startCapture();
    return messages;
}

bool setupStoresAndAnnouncesTheChoice(const QString& folder)
{
    const char* name = "setup screen";
    HostJournal::startCapture();
    HostSetupDialog setup(0);
    QDialog& window = setup.window();
    auto* shuffle = window.findChild<QComboBox*>();
    if (!shuffle || !shownAndSeen(name, window, *shuffle, folder + QStringLiteral("/dialog-setup.png")))
        return false;
    QTest::keyClick(shuffle, Qt::Key_Down);  // Songs
    QTest::keyClick(shuffle, Qt::Key_Down);  // Albums
    QTest::keyClick(window.findChild<QCheckBox*>(), Qt::Key_Space);  // Repeat on
    press(*window.findChild<QDialogButtonBox*>(), QDialogButtonBox::Ok);
    if (setup.storedShuffle() != 2 || !setup.storedRepeat()
        || messagesSent() != QStringList({"MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC 00000002", "MP_MSG_SETUP_CHANGE_REPEAT_MUSIC 00000001"}))
        return fail(name, "OK did not store and announce shuffle by albums and repeat");

    HostSetupDialog again(0);
    again.window().show();
    QTest::keyClick(again.window().findChild<QComboBox*>(), Qt::Key_Up);
    press(*again.window().findChild<QDialogButtonBox*>(), QDialogButtonBox::Cancel);
    if (again.window().isVisible() || again.storedShuffle() != 2 || !messagesSent().isEmpty())
        return fail(name, "Cancel changed the setup");
    return true;
}

bool detailsShowTheSongAndClose(const QString& songFolder, const QString& folder)
{
    const char* name = "details";
    const QString song = songFolder + QStringLiteral("/Dawn.mp3");
    QFile file(song);
    if (!file.open(QIODevice::WriteOnly) || file.write("ID3 four bytes") != 14)
        return fail(name, "cannot write the song");
    file.close();
    MediaMetaInfo info;
    info.title = QStringLiteral("Dawn");
    info.artist = QStringLiteral("Aurora Lane");
    info.album = QStringLiteral("First Light");
    HostDetailsDialog details(song, &info);
    const auto* text = details.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!text || !shownAndSeen(name, details, *text, folder + QStringLiteral("/dialog-details.png")))
        return false;
    // The third line is the date, written as the locale writes dates.
    const QStringList lines = text->text().split(QLatin1Char('\n'));
    if (lines.size() != 6 || lines.mid(0, 2) != QStringList({"Dawn.mp3", "14 bytes"})
        || lines.mid(3) != QStringList({"Dawn", "Aurora Lane", "First Light"}))
        return fail(name, "the text is not the song's");
    if (details.buttons().size() != 1)
        return fail(name, "it offers more than OK");
    QTest::mouseClick(details.button(QMessageBox::Ok), Qt::LeftButton);
    if (details.isVisible() || details.clickedButton() != details.button(QMessageBox::Ok))
        return fail(name, "OK did not close it");
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: mp_dialog_shots OUTPUT_FOLDER\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        std::printf("mp_dialog_shots: no X display (run it under xvfb-run): skipped\n");
        return kSkipped;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    QTemporaryDir data;
    qputenv("MP_DATA_DIR", data.path().toLocal8Bit());
    // The setup screen's messages stay in this process.
    qputenv("MP_QCOP_LOCAL", "1");
    QApplication app(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    // Each runs even when one before failed, so one run names every fault.
    const bool editor = bookmarkEditorStoresWhatIsTyped(folder);
    const bool setup = setupStoresAndAnnouncesTheChoice(folder);
    const bool details = detailsShowTheSongAndClose(data.path(), folder);
    return editor && setup && details ? 0 : 1;
}
