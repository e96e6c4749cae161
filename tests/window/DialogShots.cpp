// Shows the host's dialogs under a real display: the bookmark editor, the
// music setup screen and a song's details. One picture a dialog (saved in
// OUTPUT_FOLDER) must show it standing out from the background with text in
// its main field; then keys and buttons are pressed as a person would, and
// what is stored is checked. Exit 0, 1 when a check fails, 77 (skipped)
// without an X display.
//
//   mp_dialog_shots OUTPUT_FOLDER

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "host/platform/services/HostBookmarkEditor.h"
#include "host/platform/services/setuplib/HostSetupDialog.h"
#include "host/platform/toolkit/HostDetailsDialog.h"
#include "tests/window/ShotProgram.h"

namespace {

bool fail(const char* dialog, const char* why)
{
    return ShotProgram::fail("mp_dialog_shots", qPrintable(QStringLiteral("%1: %2").arg(dialog, why)));
}

// Shows @p dialog away from the screen's corner, saves the screen as @p picture
// and checks that a person sees the dialog and the text of @p field.
bool shownAndSeen(const char* name, QWidget& dialog, const QWidget& field, const QString& picture)
{
    dialog.move(40, 40);
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog, 5000))
        return fail(name, "did not appear");
    const QImage shot = ShotProgram::paintAndGrab({&dialog}, picture);
    if (shot.isNull())
        return fail(name, "the screen could not be grabbed and saved");
    const QRgb background = shot.pixel(shot.width() - 1, shot.height() - 1);
    // A top-level window's geometry is where it is on the screen.
    const QRect area = dialog.geometry();
    // Looked at inside the dialog's margin: its centre may fall on a glyph,
    // as dark as the background (it did with the fonts of another build).
    const QPoint margin = area.topLeft() + QPoint(4, 4);
    if (!shot.rect().contains(area) || shot.pixel(margin) == background)
        return fail(name, "the dialog is not in the picture");
    // Text in the left half of the field, inside its frame, where an empty field's frame or a box's
    // arrow would not count.
    const QRect text(field.mapToGlobal(QPoint(4, 4)), field.size() - QSize(field.width() / 2 + 4, 8));
    return ShotProgram::hasDetail(shot, text) || fail(name, "its field is one colour");
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void press(QWidget& dialog, QDialogButtonBox::StandardButton which)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(which), Qt::LeftButton);
}

void replaceText(QLineEdit& field, const QString& text)
{
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClicks(&field, text);
}

bool bookmarkEditorStoresWhatIsTyped(const QString& output)
{
    const char* name = "bookmark editor";
    const QString identity = HostBookmarkStore::add(QStringLiteral("Radio"), QStringLiteral("http://r.example/live"));
    const QByteArray stored = bytesOf(identity);
    HostBookmarkEditor editor(*HostBookmarkStore::read(identity));
    if (!shownAndSeen(name, editor, editor.titleField(), output + QStringLiteral("/dialog-bookmark-editor.png")))
        return false;
    replaceText(editor.titleField(), QStringLiteral("Cancelled"));
    press(editor, QDialogButtonBox::Cancel);
    if (editor.isVisible() || bytesOf(identity) != stored)
        return fail(name, "Cancel did not close it unchanged");

    editor.show();
    replaceText(editor.titleField(), QStringLiteral("Morning news"));
    replaceText(editor.addressField(), QString());
    press(editor, QDialogButtonBox::Ok);
    if (!editor.isVisible() || bytesOf(identity) != stored
        || editor.message() != QLatin1String("Enter an address: a bookmark without one opens nothing."))
        return fail(name, "an empty address was not refused in the dialog");
    QTest::keyClicks(&editor.addressField(), QStringLiteral("http://r.example/news"));
    press(editor, QDialogButtonBox::Ok);
    if (editor.isVisible() || editor.result() != QDialog::Accepted
        || bytesOf(identity) != "TITLE=Morning news\nURL=http://r.example/news\n")
        return fail(name, "OK did not store the typed bookmark");
    return true;
}

bool setupStoresTheChoice(const QString& output)
{
    const char* name = "setup screen";
    HostSetupDialog setup(0);
    QDialog& window = setup.window();
    auto* shuffle = window.findChild<QComboBox*>();
    if (!shownAndSeen(name, window, *shuffle, output + QStringLiteral("/dialog-setup.png")))
        return false;
    QTest::keyClick(shuffle, Qt::Key_Down);  // Songs
    QTest::keyClick(shuffle, Qt::Key_Down);  // Albums
    QTest::keyClick(window.findChild<QCheckBox*>(), Qt::Key_Space);  // Repeat on
    press(window, QDialogButtonBox::Ok);
    // What is stored is announced as well (the channel contract's test checks that).
    if (setup.storedShuffle() != 2 || !setup.storedRepeat())
        return fail(name, "OK did not store shuffle by albums and repeat");

    HostSetupDialog again(0);
    again.window().show();
    QTest::keyClick(again.window().findChild<QComboBox*>(), Qt::Key_Up);
    press(again.window(), QDialogButtonBox::Cancel);
    return again.storedShuffle() == 2 || fail(name, "Cancel changed the setup");
}

bool detailsShowTheSongAndClose(const QString& song, const QString& output)
{
    const char* name = "details";
    QFile file(song);
    if (!file.open(QIODevice::WriteOnly) || file.write("ID3 four bytes") != 14)
        return fail(name, "cannot write the song");
    file.close();
    const MediaMetaInfo info{"Dawn", "Aurora Lane", "First Light", 0};
    HostDetailsDialog details(song, &info);
    const auto* text = details.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!text || !shownAndSeen(name, details, *text, output + QStringLiteral("/dialog-details.png")))
        return false;
    // The third line is the date, as the locale writes dates.
    const QStringList lines = text->text().split('\n');
    const QStringList expected{"Dawn.mp3", "14 bytes", "Dawn", "Aurora Lane", "First Light"};
    if (lines.size() != 6 || lines.mid(0, 2) + lines.mid(3) != expected)
        return fail(name, "the text is not the song's");
    QTest::mouseClick(details.button(QMessageBox::Ok), Qt::LeftButton);
    return (details.buttons().size() == 1 && !details.isVisible()) || fail(name, "its one button OK did not close it");
}

} // namespace

int main(int argc, char** argv)
{
    if (const int refused = ShotProgram::refusal("mp_dialog_shots", "OUTPUT_FOLDER", argc); refused >= 0)
        return refused;
    QTemporaryDir data;
    qputenv("MP_DATA_DIR", data.path().toLocal8Bit());
    qputenv("MP_QCOP_LOCAL", "1");  // the setup screen's messages stay in this process
    QApplication app(argc, argv);
    const QString output = QString::fromLocal8Bit(argv[1]);
    // Each runs even when one before failed, so one run names every fault.
    const bool editor = bookmarkEditorStoresWhatIsTyped(output);
    const bool setup = setupStoresTheChoice(output);
    const bool details = detailsShowTheSongAndClose(data.filePath(QStringLiteral("Dawn.mp3")), output);
    return editor && setup && details ? 0 : 1;
}
